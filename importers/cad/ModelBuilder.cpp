#include <importers/cad/ModelBuilder.hpp>

#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <utility>

namespace {

struct Kind
{
    TopAbs_ShapeEnum type;
    // Outside of any shape of that type, a shape of this kind is loose.
    TopAbs_ShapeEnum owner;
    std::vector<ModelData::Entity> ModelData::*entities;
    std::vector<int> ModelData::Group::*members;
};

// Indexed by Level.
constexpr std::array kinds{
    Kind{TopAbs_FACE, TopAbs_SHELL, &ModelData::surfaces, &ModelData::Group::surfaces},
    Kind{TopAbs_EDGE, TopAbs_FACE, &ModelData::curves, &ModelData::Group::curves},
    Kind{TopAbs_VERTEX, TopAbs_EDGE, &ModelData::vertices, &ModelData::Group::vertices},
};

std::string described(const Part& part)
{
    return part.name.empty() ? "A part without a name" : "The part \"" + part.name + '"';
}

std::size_t member_count(const ModelData::Group& group)
{
    return group.bodies.size() + group.surfaces.size() + group.curves.size() +
           group.vertices.size();
}

} // namespace

ModelBuilder::ModelBuilder(const ShapeNames& names, Warn warn)
    : m_names(names)
    , m_warn(std::move(warn))
{
}

void ModelBuilder::add(const Part& part)
{
    ModelData::Group top_level;
    add_to(top_level, part);
}

bool ModelBuilder::is_empty() const
{
    return m_model.surfaces.empty() && m_model.curves.empty() && m_model.vertices.empty();
}

void ModelBuilder::add_to(ModelData::Group& group, const Part& part)
{
    if (part.is_assembly) {
        add_assembly(group, part);
    } else {
        add_shape(group, part);
    }
}

void ModelBuilder::add_assembly(ModelData::Group& group, const Part& part)
{
    const auto index = m_model.groups.size();
    m_model.groups.emplace_back();
    group.groups.push_back(static_cast<int>(index) + 1);

    ModelData::Group assembly;
    assembly.name = part.name;
    for (const auto& child : part.parts) {
        add_to(assembly, child);
    }
    m_model.groups[index] = std::move(assembly);
}

void ModelBuilder::add_shape(ModelData::Group& group, const Part& part)
{
    const auto count_before = member_count(group);
    if (auto solids = add_volumes(part, TopAbs_SOLID); !solids.empty()) {
        group.bodies.push_back(add_body(part.name, std::move(solids)));
    }
    for (const int sheet : add_volumes(part, TopAbs_SHELL)) {
        group.bodies.push_back(add_body(part.name, {sheet}));
    }
    for (Level level = 0; level < kinds.size(); ++level) {
        add_loose(group, part.shape, level);
    }
    if (member_count(group) == count_before) {
        m_warn(described(part) + " has no geometry of its own and was left out.");
    }
}

void ModelBuilder::add_loose(ModelData::Group& group, const TopoDS_Shape& shape, Level level)
{
    const auto& kind = kinds[level];
    for (TopExp_Explorer loose(shape, kind.type, kind.owner); loose.More(); loose.Next()) {
        if (!m_entities[level].Contains(loose.Current())) {
            (group.*kind.members).push_back(entity_id(loose.Current(), level));
        }
    }
}

// The volumes of the solids in the part, or of its shells outside of solids. One that
// stands already, in another part, is not taken twice.
std::vector<int> ModelBuilder::add_volumes(const Part& part, TopAbs_ShapeEnum type)
{
    const bool is_sheet = type == TopAbs_SHELL;
    std::vector<int> ids;
    for (TopExp_Explorer found(part.shape, type, is_sheet ? TopAbs_SOLID : TopAbs_SHAPE);
         found.More(); found.Next()) {
        const auto& shape = found.Current();
        if (m_volumes.Contains(shape)) {
            continue;
        }
        auto surfaces = ids_beneath(shape, 0);
        if (surfaces.empty()) {
            m_warn(described(part) + " has an empty volume, which was left out.");
            continue;
        }
        ids.push_back(m_volumes.Add(shape));
        ModelData::Volume volume;
        volume.name = name_of(shape);
        volume.children = std::move(surfaces);
        volume.is_sheet = is_sheet;
        m_model.volumes.push_back(std::move(volume));
    }
    return ids;
}

int ModelBuilder::add_body(const std::string& name, std::vector<int> volumes)
{
    m_model.bodies.push_back({name, std::move(volumes)});
    return static_cast<int>(m_model.bodies.size());
}

int ModelBuilder::entity_id(const TopoDS_Shape& shape, Level level)
{
    if (const int known_id = m_entities[level].FindIndex(shape)) {
        return known_id;
    }
    const int id = m_entities[level].Add(shape);
    auto children = level + 1 < kinds.size() ? ids_beneath(shape, level + 1) : std::vector<int>();
    (m_model.*kinds[level].entities).push_back({name_of(shape), std::move(children)});
    return id;
}

// The entities of a level in the shape, each once.
std::vector<int> ModelBuilder::ids_beneath(const TopoDS_Shape& shape, Level level)
{
    TopTools_IndexedMapOfShape found;
    TopExp::MapShapes(shape, kinds[level].type, found);
    std::vector<int> ids;
    ids.reserve(static_cast<std::size_t>(found.Extent()));
    for (int i = 1; i <= found.Extent(); ++i) {
        ids.push_back(entity_id(found(i), level));
    }
    return ids;
}

std::string ModelBuilder::name_of(const TopoDS_Shape& shape) const
{
    const auto* name = m_names.Seek(shape.Located({}));
    return name ? *name : std::string();
}
