// An outside program on the library and the embedded kernel. Its exit code tells
// the first thing that is wrong.

#include <embedded/EmbeddedKernel.hpp>
#include <treemodel/treemodel.hpp>

int main()
{
    EmbeddedKernel kernel;
    kernel.create_body({kernel.create_volume()}, "Plate");

    TreeModel mirror;
    int added = 0;
    QObject::connect(&mirror, &TreeModel::geometry_added, [&added] { ++added; });
    mirror.refresh_model(false);
    if (added != 2) {
        return 1;
    }
    mirror.connect_to_kesto();
    kernel.rename(EntityKind::BODY, 1, "Lid");
    mirror.disconnect_from_kesto();
    if (mirror.find_geometry(TreeGeometryData::BODY, 1)->name() != QLatin1String("Lid")) {
        return 2;
    }

    EntityModel items;
    items.addEntity(nullptr, new SimpleItem(QStringLiteral("Parts"), 1, nullptr));
    if (items.rowCount() != 1 || items.index(0, 0).data().toString() != QLatin1String("Parts")) {
        return 3;
    }
    return 0;
}
