#include <importers/mesh/MeshModelBuilder.hpp>

#include <algorithm>
#include <cstdlib>
#include <gmsh.h>
#include <importers/MeshCounts.hpp>
#include <numeric>

namespace {

struct Kind
{
    const char* word;
    std::vector<int> ModelData::Group::*members;
    std::vector<std::string> ModelData::*sets;
};

// Indexed by dimension.
constexpr std::array kinds{
    Kind{"vertex", &ModelData::Group::vertices, &ModelData::nodesets},
    Kind{"curve", &ModelData::Group::curves, &ModelData::nodesets},
    Kind{"surface", &ModelData::Group::surfaces, &ModelData::sidesets},
    Kind{"volume", &ModelData::Group::volumes, &ModelData::blocks},
};

constexpr int highest_dimension = 3;

ModelData::Entity& new_entity(ModelData& model, int dimension)
{
    // Indexed by dimension, but for the volumes.
    static constexpr std::array lists{
        &ModelData::vertices, &ModelData::curves, &ModelData::surfaces};
    return dimension == highest_dimension
               ? model.volumes.emplace_back()
               : (model.*lists[static_cast<std::size_t>(dimension)]).emplace_back();
}

void make_unique(auto& values)
{
    std::sort(values.begin(), values.end());
    values.erase(std::unique(values.begin(), values.end()), values.end());
}

gmsh::vectorpair entities_of(int dimension)
{
    gmsh::vectorpair entities;
    gmsh::model::getEntities(entities, dimension);
    return entities;
}

bool has_boundary(int dimension, int tag)
{
    std::vector<int> upward;
    std::vector<int> downward;
    gmsh::model::getAdjacencies(dimension, tag, upward, downward);
    return !downward.empty();
}

// Most formats know nothing of what bounds what.
void link_entities()
{
    for (int dimension = 3; dimension > 0; --dimension) {
        const auto found = entities_of(dimension);
        if (!found.empty()) {
            if (std::none_of(found.begin(), found.end(),
                    [](const auto& entity) { return has_boundary(entity.first, entity.second); })) {
                // Without cutting entities up, which takes long and makes other ones.
                gmsh::model::mesh::createTopology(false, false);
            }
            return;
        }
    }
}

bool is_in_a_group(int dimension, int tag)
{
    std::vector<int> groups;
    gmsh::model::getPhysicalGroupsForEntity(dimension, tag, groups);
    return !groups.empty();
}

std::vector<std::size_t> nodes_of_group(int dimension, int tag)
{
    std::vector<std::size_t> nodes;
    std::vector<double> coordinates;
    gmsh::model::mesh::getNodesForPhysicalGroup(dimension, tag, nodes, coordinates);
    return nodes;
}

std::vector<int> not_beneath(std::size_t count, const auto& parents)
{
    std::vector<bool> is_beneath(count + 1);
    for (const auto& parent : parents) {
        for (const int child : parent.children) {
            is_beneath[static_cast<std::size_t>(child)] = true;
        }
    }
    std::vector<int> ids;
    for (std::size_t id = 1; id <= count; ++id) {
        if (!is_beneath[id]) {
            ids.push_back(static_cast<int>(id));
        }
    }
    return ids;
}

std::vector<int> ids_up_to(std::size_t count)
{
    std::vector<int> ids(count);
    std::iota(ids.begin(), ids.end(), 1);
    return ids;
}

} // namespace

MeshModelBuilder::MeshModelBuilder()
{
    for (int dimension = 0; dimension <= highest_dimension; ++dimension) {
        count_elements(dimension);
    }
    // Makes elements, too, that are not in the file.
    link_entities();
    // Children first, whose ids the parents need.
    for (int dimension = 0; dimension <= highest_dimension; ++dimension) {
        add_entities(dimension);
    }
    add_bodies();
    add_groups();
    add_whole_mesh();
}

void MeshModelBuilder::count_elements(int dimension)
{
    auto& level = m_levels[static_cast<std::size_t>(dimension)];
    for (const auto& [same_dimension, tag] : entities_of(dimension)) {
        const bool points_are_spheres = dimension == 0 && is_in_a_group(dimension, tag);
        level.elements_by_tag.emplace(
            tag, m_counter.elements_on(dimension, tag, points_are_spheres));
    }
}

void MeshModelBuilder::add_entities(int dimension)
{
    auto& level = m_levels[static_cast<std::size_t>(dimension)];
    for (const auto& [same_dimension, tag] : entities_of(dimension)) {
        auto& entity = new_entity(m_model, dimension);
        gmsh::model::getEntityName(dimension, tag, entity.name);
        entity.children = children_of(dimension, tag);
        const auto elements = level.elements_by_tag.find(tag);
        level.elements.push_back(
            elements == level.elements_by_tag.end() ? ElementCounts() : elements->second);
        level.ids_by_tag.emplace(tag, static_cast<int>(level.elements.size()));
    }
}

// Closed curves and seams name what bounds them twice.
std::vector<int> MeshModelBuilder::children_of(int dimension, int tag) const
{
    std::vector<int> upward;
    std::vector<int> tags;
    gmsh::model::getAdjacencies(dimension, tag, upward, tags);
    std::vector<int> ids;
    for (const int child : tags) {
        const auto& known = m_levels[static_cast<std::size_t>(dimension) - 1].ids_by_tag;
        if (const auto found = known.find(std::abs(child)); found != known.end()) {
            ids.push_back(found->second);
        }
    }
    make_unique(ids);
    return ids;
}

void MeshModelBuilder::add_bodies()
{
    // Every volume leads, over none or more others, to the first one that it hangs together with.
    const auto& volumes = m_model.volumes;
    std::vector<std::size_t> leads_to(volumes.size());
    std::iota(leads_to.begin(), leads_to.end(), 0);
    const auto first_of = [&leads_to](std::size_t volume) {
        while (leads_to[volume] != volume) {
            volume = leads_to[volume] = leads_to[leads_to[volume]];
        }
        return volume;
    };
    std::map<int, std::size_t> volume_at_surface;
    for (std::size_t volume = 0; volume < volumes.size(); ++volume) {
        for (const int surface : volumes[volume].children) {
            const auto other = volume_at_surface.emplace(surface, volume).first->second;
            const auto one_first = first_of(volume);
            const auto other_first = first_of(other);
            leads_to[std::max(one_first, other_first)] = std::min(one_first, other_first);
        }
    }
    std::map<std::size_t, std::size_t> body_at_first;
    for (std::size_t volume = 0; volume < volumes.size(); ++volume) {
        const auto [body, is_new] = body_at_first.emplace(first_of(volume), m_model.bodies.size());
        if (is_new) {
            m_model.bodies.emplace_back();
        }
        m_model.bodies[body->second].children.push_back(static_cast<int>(volume) + 1);
    }
}

std::vector<MeshModelBuilder::PhysicalGroup> MeshModelBuilder::physical_groups()
{
    gmsh::vectorpair found;
    gmsh::model::getPhysicalGroups(found);
    std::vector<PhysicalGroup> groups;
    for (const auto& [dimension, tag] : found) {
        std::string name;
        gmsh::model::getPhysicalName(dimension, tag, name);
        if (name.empty()) {
            name = std::string("Physical ") + kinds[static_cast<std::size_t>(dimension)].word +
                   ' ' + std::to_string(tag);
        }
        groups.push_back({dimension, tag, name});
    }
    std::stable_sort(groups.begin(), groups.end(),
        [](const auto& left, const auto& right) { return left.dimension > right.dimension; });
    return groups;
}

void MeshModelBuilder::add_groups()
{
    std::map<std::string, std::size_t> place_of_name;
    std::vector<std::vector<PhysicalGroup>> groups;
    for (const auto& part : physical_groups()) {
        const auto [place, is_new] = place_of_name.emplace(part.name, groups.size());
        if (is_new) {
            groups.emplace_back();
        }
        groups[place->second].push_back(part);
    }
    for (const auto& parts : groups) {
        add_group(parts);
    }
}

void MeshModelBuilder::add_group(const std::vector<PhysicalGroup>& parts)
{
    auto& group = m_model.groups.emplace_back();
    group.name = parts.front().name;
    std::vector<std::size_t> nodes;
    for (const auto& part : parts) {
        const auto ids = ids_in(part);
        auto& members = group.*kinds[static_cast<std::size_t>(part.dimension)].members;
        members.insert(members.end(), ids.begin(), ids.end());
        const auto part_nodes = nodes_of_group(part.dimension, part.tag);
        nodes.insert(nodes.end(), part_nodes.begin(), part_nodes.end());
    }
    for (std::size_t dimension = 0; dimension < kinds.size(); ++dimension) {
        auto& members = group.*kinds[dimension].members;
        make_unique(members);
        for (const int id : members) {
            group.elements += m_levels[dimension].elements[static_cast<std::size_t>(id) - 1];
        }
    }
    make_unique(nodes);
    group.elements.nodes = static_cast<int>(nodes.size());
}

std::vector<int> MeshModelBuilder::ids_in(const PhysicalGroup& group) const
{
    const auto& known = m_levels[static_cast<std::size_t>(group.dimension)].ids_by_tag;
    std::vector<int> tags;
    gmsh::model::getEntitiesForPhysicalGroup(group.dimension, group.tag, tags);
    std::vector<int> ids;
    for (const int tag : tags) {
        if (const auto found = known.find(std::abs(tag)); found != known.end()) {
            ids.push_back(found->second);
        }
    }
    return ids;
}

void MeshModelBuilder::add_whole_mesh()
{
    ModelData::Group whole;
    for (const auto& level : m_levels) {
        for (const auto& elements : level.elements) {
            whole.elements += elements;
        }
    }
    double node_count = 0;
    gmsh::option::getNumber("Mesh.NbNodes", node_count);
    whole.elements.nodes = static_cast<int>(node_count);
    if (whole.elements == ElementCounts()) {
        return;
    }
    whole.name = whole_mesh_name;
    whole.bodies = ids_up_to(m_model.bodies.size());
    whole.surfaces = not_beneath(m_model.surfaces.size(), m_model.volumes);
    whole.curves = not_beneath(m_model.curves.size(), m_model.surfaces);
    whole.vertices = not_beneath(m_model.vertices.size(), m_model.curves);
    m_model.groups.push_back(std::move(whole));
}

void MeshModelBuilder::add_sets()
{
    for (const auto& part : physical_groups()) {
        auto& sets = m_model.*kinds[static_cast<std::size_t>(part.dimension)].sets;
        if (std::find(sets.begin(), sets.end(), part.name) == sets.end()) {
            sets.push_back(part.name);
        }
    }
}
