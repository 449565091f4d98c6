// Fills a kernel in memory with one entity of every kind while a mirror follows it, and prints what
// the mirror's signals tell. So a front end hears of a kernel: it builds its view in the place
// where this program prints.

#include <embedded/EmbeddedKernel.hpp>
#include <iostream>
#include <map>
#include <string>
#include <treemodel/kernel/TreeModel.hpp>

namespace {

/// Prints the news of a mirror, and counts it.
class Reporter : public QObject
{
public:
    explicit Reporter(const TreeModel& mirror)
    {
        connect(&mirror, &TreeModel::geometry_added, this,
            [this](TreeGeometryData* record) { report_added("geometry", record); });
        connect(&mirror, &TreeModel::group_added, this,
            [this](TreeGroupData* record) { report_added("group", record); });
        connect(&mirror, &TreeModel::mesh_data_added, this,
            [this](TreeMeshData* record) { report_added("element count", record); });
        connect(&mirror, &TreeModel::sizing_source_added, this,
            [this](TreeSizingSourceData* record) { report_added("sizing source", record); });
        connect(&mirror, &TreeModel::boundary_layer_added, this,
            [this](TreeBoundaryLayerData* record) { report_added("boundary layer", record); });
        connect(&mirror, &TreeModel::exodus_entity_added, this, [this](TreeExodusData* record) {
            report_added("set", record);
            connect(record, &TreeExodusData::lite_status_changed, this,
                [this, record](bool is_lite) { report_lite(record, is_lite); });
        });
        connect(&mirror, &TreeModel::fea_bc_added, this,
            [this](TreeFeaBCData* record) { report_added("finite-element condition", record); });
        connect(&mirror, &TreeModel::cfd_bc_added, this,
            [this](TreeCfdBCData* record) { report_added("fluid condition", record); });
        connect(&mirror, &TreeModel::material_added, this, [this](TreeMaterialData* record) {
            report_added(record->is_cfd() ? "medium" : "material", record);
        });

        connect(&mirror, &TreeModel::geometry_associated, this, &Reporter::report_link);
        connect(&mirror, &TreeModel::group_child_added, this, &Reporter::report_link);
        connect(&mirror, &TreeModel::exodus_added_to_fea_bc, this, &Reporter::report_link);
        connect(&mirror, &TreeModel::exodus_added_to_cfd_bc, this, &Reporter::report_link);

        connect(&mirror, &TreeModel::selection_changed, this, &Reporter::report_selection);
    }

    void print_counts() const
    {
        const char* separator = "told of ";
        for (const auto& [what, count] : m_counts) {
            std::cout << separator << count << " x " << what;
            separator = ", ";
        }
        std::cout << std::endl;
    }

private:
    // The entity's name comes after this signal, by another one of the record.
    void report_added(const char* what, TreeData* record)
    {
        ++m_counts[what];
        std::cout << "added " << what << ": " << text(record) << '\n';
        connect(record, &TreeData::name_changed, this, [record](const QString& name) {
            std::cout << "  its name: " << name.toStdString() << " (id " << record->id() << ")\n";
        });
    }

    void report_lite(TreeExodusData* record, bool is_lite)
    {
        if (is_lite) {
            ++m_counts["lite set"];
            std::cout << "  lite: " << text(record) << '\n';
        }
    }

    // A set that a condition applies to, a member of a group, a child of a geometric entity.
    void report_link(TreeData* from, TreeData* to)
    {
        ++m_counts["link"];
        std::cout << "  linked: " << text(from) << " -> " << text(to) << '\n';
    }

    void report_selection(const std::vector<TreeData*>& records, bool selected)
    {
        for (TreeData* record : records) {
            ++m_counts[selected ? "selected" : "deselected"];
            std::cout << (selected ? "selected: " : "deselected: ") << text(record) << '\n';
        }
    }

    static std::string text(TreeData* record) { return record->name().toStdString(); }

    std::map<std::string, int> m_counts;
};

int make_geometry(EmbeddedKernel& kernel)
{
    const int vertex = kernel.create_vertex("Apex");
    const int curve = kernel.create_curve({vertex}, "Seam");
    const int surface = kernel.create_surface({curve}, "Cone");
    const int volume = kernel.create_volume({surface}, "Tip");
    kernel.create_body({volume}, "Needle");
    return surface;
}

void make_groups(EmbeddedKernel& kernel, int surface)
{
    const int inner = kernel.create_group("Skin");
    kernel.add_to_group(inner, EntityKind::SURFACE, {surface});
    const int outer = kernel.create_group("Everything");
    kernel.add_to_group(outer, EntityKind::GROUP, {inner});

    ElementCounts counts;
    counts.nodes = 9;
    counts.edges = 8;
    counts.hexes = 1;
    counts.quads = 6;
    counts.tets = 5;
    counts.tris = 4;
    counts.wedges = 3;
    counts.pyramids = 2;
    counts.spheres = 7;
    kernel.set_element_counts(outer, counts);
}

void make_conditions(EmbeddedKernel& kernel)
{
    kernel.create_set(EntityKind::BLOCK, "Solid");
    const int sideset = kernel.create_set(EntityKind::SIDESET, "Outside");
    const int nodeset = kernel.create_set(EntityKind::NODESET, "Corners");
    kernel.create_set(EntityKind::SIDESET, "Sketch", true);

    // All kinds of finite elements, then all of fluids.
    for (int kind = int(EntityKind::FORCE); kind <= int(EntityKind::WALL); ++kind) {
        const EntityKind condition{kind};
        kernel.create_condition(condition, {sideset}, {nodeset}, entity_word(condition));
    }
    kernel.create_material("Steel");
    kernel.create_medium("Water");
}

} // namespace

int main()
{
    EmbeddedKernel kernel;
    TreeModel mirror;
    const Reporter reporter(mirror);
    mirror.connect_to_kesto();

    const int surface = make_geometry(kernel);
    make_groups(kernel, surface);
    kernel.create_sizing_source();
    kernel.create_boundary_layer();
    make_conditions(kernel);

    // The kernel selects, then a front end does, to which the kernel answers in the same way.
    kernel.select(EntityKind::SURFACE, {surface});
    mirror.select_entities(
        {mirror.find_group(1), mirror.find_exodus(TreeExodusData::BLOCK, 1)}, true);

    mirror.disconnect_from_kesto();
    reporter.print_counts();
}
