#include <importers/mesh/MeshReader.hpp>

#include <algorithm>
#include <array>
#include <gmsh.h>
#include <importers/FileContent.hpp>
#include <importers/helper/ImportError.hpp>

namespace {

struct Format
{
    FileContent content;
    // By which Gmsh knows the format.
    const char* suffix;
};

constexpr std::array formats{
    Format{FileContent::Msh, ".msh"},
    Format{FileContent::Medit, ".mesh"},
    Format{FileContent::Vtk, ".vtk"},
    Format{FileContent::Nastran, ".bdf"},
};

// Gmsh goes by the name of a file, and runs a script of the same name with ".opt" after it. So
// it gets a name that fits the content, in a folder where nothing else is.
std::filesystem::path link_to(const std::filesystem::path& file, FileContent content)
{
    const auto format = std::find_if(formats.begin(), formats.end(),
        [content](const Format& candidate) { return candidate.content == content; });
    if (format == formats.end()) {
        throw ImportError("its content is none of MSH, Medit, VTK and Nastran");
    }
    auto link = std::filesystem::current_path() / (std::string("mesh") + format->suffix);
    std::filesystem::create_symlink(std::filesystem::absolute(file), link);
    return link;
}

std::filesystem::path path_for_gmsh(const std::filesystem::path& file, bool trusts_scripts)
{
    const auto content = look_at_file(file);
    if (content != FileContent::GmshScript) {
        if (!has_end_mark(file, content)) {
            throw ImportError("it is truncated: its end is missing");
        }
        return link_to(file, content);
    }
    if (!trusts_scripts) {
        throw ImportError("it is a script, and scripts are not trusted");
    }
    return file;
}

gmsh::vectorpair entities(int dimension = -1)
{
    gmsh::vectorpair found;
    gmsh::model::getEntities(found, dimension);
    return found;
}

bool is_partition(int dimension, int tag)
{
    std::string type;
    gmsh::model::getType(dimension, tag, type);
    return type.starts_with("Partition");
}

struct PhysicalGroup
{
    int dimension;
    int tag;
    std::string name;
    std::vector<int> members;
};

// With the members that are no partitions.
std::vector<PhysicalGroup> physical_groups()
{
    gmsh::vectorpair found;
    gmsh::model::getPhysicalGroups(found);
    std::vector<PhysicalGroup> groups;
    for (const auto& [dimension, tag] : found) {
        PhysicalGroup group{dimension, tag, {}, {}};
        gmsh::model::getPhysicalName(dimension, tag, group.name);
        gmsh::model::getEntitiesForPhysicalGroup(dimension, tag, group.members);
        std::erase_if(
            group.members, [&](int member) { return is_partition(group.dimension, member); });
        groups.push_back(std::move(group));
    }
    return groups;
}

void undo_partitions(FrameChannel& channel)
{
    const auto found = entities();
    if (std::none_of(found.begin(), found.end(),
            [](const auto& entity) { return is_partition(entity.first, entity.second); })) {
        return;
    }
    const auto groups = physical_groups();
    gmsh::model::mesh::unpartition();
    // The volumes have now lost their groups.
    gmsh::model::removePhysicalGroups();
    for (const auto& group : groups) {
        if (!group.members.empty()) {
            gmsh::model::addPhysicalGroup(group.dimension, group.members, group.tag);
            gmsh::model::setPhysicalName(group.dimension, group.tag, group.name);
        }
    }
    channel.send_text(FrameKind::Warning, "The partitions of the mesh were ignored.");
}

bool is_periodic(int dimension, int tag)
{
    int master = tag;
    std::vector<std::size_t> nodes;
    std::vector<std::size_t> master_nodes;
    std::vector<double> transform;
    gmsh::model::mesh::getPeriodicNodes(dimension, tag, master, nodes, master_nodes, transform);
    return master != tag;
}

void warn_of_periodicity(FrameChannel& channel)
{
    const auto found = entities();
    const auto count = std::count_if(found.begin(), found.end(),
        [](const auto& entity) { return is_periodic(entity.first, entity.second); });
    if (count > 0) {
        channel.send_text(FrameKind::Warning,
            "Periodic links between entities were ignored: " + std::to_string(count) + '.');
    }
}

} // namespace

void read_mesh_file(const std::filesystem::path& file, bool trusts_scripts, FrameChannel& channel)
{
    gmsh::open(path_for_gmsh(file, trusts_scripts));
    if (entities().empty()) {
        throw ImportError("it holds neither a mesh nor geometry");
    }
    undo_partitions(channel);
    warn_of_periodicity(channel);
}
