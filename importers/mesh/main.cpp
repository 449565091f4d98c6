// Reads one mesh file, or meshes one CAD file, and sends the outcome to the parent process as
// frames on the standard output. The current folder is for files of its own.

#include <algorithm>
#include <cstdlib>
#include <importers/FileContent.hpp>
#include <importers/helper/HelperProgram.hpp>
#include <importers/helper/ImportError.hpp>
#include <importers/mesh/CadMesher.hpp>
#include <importers/mesh/Fields.hpp>
#include <importers/mesh/MeshModelBuilder.hpp>
#include <importers/mesh/MeshReader.hpp>
#include <iostream>
#include <string>
#include <vector>

namespace {

using Arguments = std::vector<std::string>;

bool take(Arguments& arguments, const std::string& option)
{
    return std::erase(arguments, option) > 0;
}

void import_mesh(
    const std::string& file, bool trusts_scripts, bool makes_sets, FrameChannel& channel)
{
    GmshSession session(channel);
    session.begin(ImportStage::Read);
    try {
        read_mesh_file(file, trusts_scripts, channel);
        session.begin(ImportStage::Walk);
        MeshModelBuilder builder;
        if (makes_sets) {
            builder.add_sets();
        }
        if (builder.uncounted_elements() > 0) {
            channel.send_text(
                FrameKind::Warning, "Elements of other kinds than those known were left out: " +
                                        std::to_string(builder.uncounted_elements()) + '.');
        }
        auto model = builder.take_model();
        if (look_at_file(file) == FileContent::GmshScript) {
            add_fields(model);
        }
        session.end_stages();
        send_model(model, channel);
    } catch (const std::string& error) {
        throw ImportError("it is damaged: " + gmsh_reason(error));
    }
}

int usage()
{
    std::cerr << "Usage: treemodel-import-mesh [--trusted] [--sets] FILE\n"
                 "       treemodel-import-mesh --mesh SIZE ORDER FILE\n"
                 "Writes the model in the mesh file, or what a mesh of the CAD file has on each\n"
                 "entity, to standard output, for a program to read. Makes files in the current\n"
                 "folder.\n";
    return EXIT_FAILURE;
}

} // namespace

int main(int argc, char* argv[])
{
    Arguments arguments(argv + 1, argv + argc);
    if (take(arguments, "--mesh")) {
        if (arguments.size() != 3) {
            return usage();
        }
        run_helper([&arguments](FrameChannel& channel) {
            GmshSession session(channel);
            mesh_cad_file(
                arguments[2], {std::stod(arguments[0]), std::stoi(arguments[1])}, session, channel);
        });
    }
    const bool trusts_scripts = take(arguments, "--trusted");
    const bool makes_sets = take(arguments, "--sets");
    if (arguments.size() != 1) {
        return usage();
    }
    run_helper([&](FrameChannel& channel) {
        import_mesh(arguments.front(), trusts_scripts, makes_sets, channel);
    });
}
