// Reads one CAD file and sends its model to the parent process as frames on the
// standard output.

#include <cstdlib>
#include <importers/cad/CadModel.hpp>
#include <importers/cad/ModelExtent.hpp>
#include <importers/helper/HelperProgram.hpp>
#include <iostream>

int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::cerr << "Usage: treemodel-import-cad FILE\n"
                     "Writes the model in the file to standard output, for a program to read.\n";
        return EXIT_FAILURE;
    }
    run_helper([file = argv[1]](FrameChannel& channel) {
        with_cad_model(file, channel, [&channel](const ModelBuilder& builder) {
            channel.send(FrameKind::Extent, pack_extent(extent_of(builder)));
            send_model(builder.model(), channel);
        });
    });
}
