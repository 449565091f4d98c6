#include <importers/cad/ModelExtent.hpp>

#include <Bnd_Box.hxx>
#include <BRepBndLib.hxx>
#include <cmath>
#include <Standard_Failure.hxx>

double extent_of(const ModelBuilder& builder)
try {
    Bnd_Box box;
    for (const auto* shapes : {&builder.surfaces(), &builder.curves(), &builder.vertices()}) {
        for (int id = 1; id <= shapes->Extent(); ++id) {
            BRepBndLib::Add((*shapes)(id), box, false);
        }
    }
    return box.IsVoid() || box.IsOpen() ? 0 : std::sqrt(box.SquareExtent());
} catch (const Standard_Failure&) {
    // No reason not to read the model.
    return 0;
}
