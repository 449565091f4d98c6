#include <importers/mesh/CadMesher.hpp>

#include <algorithm>
#include <array>
#include <functional>
#include <gmsh.h>
#include <importers/cad/CadModel.hpp>
#include <importers/helper/ImportError.hpp>
#include <importers/mesh/ElementCounter.hpp>
#include <importers/ModelPack.hpp>
#include <numeric>
#include <set>

namespace {

struct Kind
{
    TopAbs_ShapeEnum type;
    const ModelBuilder::Shapes& (ModelBuilder::*shapes)() const;
    std::vector<ElementCounts> MeshCounts::*counts;
};

// Indexed by dimension.
constexpr std::array kinds{
    Kind{TopAbs_VERTEX, &ModelBuilder::vertices, &MeshCounts::vertices},
    Kind{TopAbs_EDGE, &ModelBuilder::curves, &MeshCounts::curves},
    Kind{TopAbs_FACE, &ModelBuilder::surfaces, &MeshCounts::surfaces},
    Kind{TopAbs_SOLID, &ModelBuilder::volumes, &MeshCounts::volumes},
};

// Which dimension is meshed at a stage.
constexpr std::array stages{
    std::pair{ImportStage::MeshCurves, 1},
    std::pair{ImportStage::MeshSurfaces, 2},
    std::pair{ImportStage::MeshVolumes, 3},
};

// What stands for the shell of a sheet, which is no entity to Gmsh.
constexpr int no_tag = 0;

bool has_elements(ElementCounts counts)
{
    counts.nodes = 0;
    return counts != ElementCounts();
}

int tag_of(const TopoDS_Shape& shape)
{
    gmsh::vectorpair tags;
    gmsh::model::occ::importShapesNativePointer(&shape, tags, true);
    return tags.size() == 1 ? tags.front().second : no_tag;
}

// A CAD model that Gmsh has taken over shape by shape, so that it is known which of Gmsh's
// entities is which of the model's.
class MeshedModel
{
public:
    explicit MeshedModel(const ModelBuilder& model)
    {
        // What bounds a shape goes before it and has its tag by then.
        for (std::size_t dimension = 0; dimension < kinds.size(); ++dimension) {
            hand_over(model, dimension);
        }
        gmsh::model::occ::synchronize();
        for (std::size_t dimension = 0; dimension < kinds.size(); ++dimension) {
            check(dimension);
        }
    }

    // How many entities have no elements although Gmsh knows them.
    std::ptrdiff_t unmeshed(std::size_t dimension, const MeshCounts& mesh) const
    {
        const auto& tags = m_tags[dimension];
        const auto& entities = mesh.*kinds[dimension].counts;
        return std::inner_product(tags.begin(), tags.end(), entities.begin(), std::ptrdiff_t{0},
            std::plus(), [](int tag, const ElementCounts& counts) {
                return tag != no_tag && !has_elements(counts) ? 1 : 0;
            });
    }

    MeshCounts counts() const
    {
        MeshCounts mesh;
        ElementCounter counter;
        for (std::size_t dimension = 0; dimension < kinds.size(); ++dimension) {
            auto& entities = mesh.*kinds[dimension].counts;
            for (const int tag : m_tags[dimension]) {
                auto& entity = entities.emplace_back();
                if (tag != no_tag) {
                    entity = counter.elements_on(static_cast<int>(dimension), tag);
                    entity.nodes = nodes_on(static_cast<int>(dimension), tag);
                }
            }
        }
        return mesh;
    }

private:
    void hand_over(const ModelBuilder& model, std::size_t dimension)
    {
        const auto& shapes = (model.*kinds[dimension].shapes)();
        for (int id = 1; id <= shapes.Extent(); ++id) {
            const bool is_entity = shapes(id).ShapeType() == kinds[dimension].type;
            m_tags[dimension].push_back(is_entity ? tag_of(shapes(id)) : no_tag);
            m_entity_counts[dimension] += is_entity ? 1 : 0;
        }
    }

    void check(std::size_t dimension) const
    {
        std::set<int> tags(m_tags[dimension].begin(), m_tags[dimension].end());
        tags.erase(no_tag);
        gmsh::vectorpair entities;
        gmsh::model::getEntities(entities, static_cast<int>(dimension));
        if (tags.size() != m_entity_counts[dimension] || tags.size() != entities.size()) {
            throw ImportError("the mesher does not see the same entities in it");
        }
    }

    // Gmsh's tag of the entity `i` at `i - 1`, indexed by dimension.
    std::array<std::vector<int>, kinds.size()> m_tags;
    // Without the shells.
    std::array<std::size_t, kinds.size()> m_entity_counts{};
};

void set_options(double element_size)
{
    // Both, for Gmsh has ideas of its own about the sizes in between.
    gmsh::option::setNumber("Mesh.MeshSizeMin", element_size);
    gmsh::option::setNumber("Mesh.MeshSizeMax", element_size);
    // What cannot be meshed does not keep the rest from it.
    gmsh::option::setNumber("General.AbortOnError", 0);
}

// A degenerate curve never has elements.
void warn_of_unmeshed(const MeshedModel& model, const MeshCounts& mesh, FrameChannel& channel)
{
    for (const auto& [dimension, plural] : {std::pair(2, "Surfaces"), std::pair(3, "Volumes")}) {
        if (const auto count = model.unmeshed(dimension, mesh); count > 0) {
            channel.send_text(FrameKind::Warning,
                std::string(plural) +
                    " that cannot be meshed with this size: " + std::to_string(count) + '.');
        }
    }
}

void mesh_model(const ModelBuilder& builder, const MeshSettings& settings, GmshSession& session,
    FrameChannel& channel)
{
    const MeshedModel model(builder);
    set_options(settings.element_size);
    for (const auto& [stage, dimension] : stages) {
        session.begin(stage);
        gmsh::model::mesh::generate(dimension);
        channel.send(FrameKind::UnfinishedMesh, pack_mesh(model.counts()));
    }
    if (settings.element_order > 1) {
        session.begin(ImportStage::RaiseOrder);
        gmsh::model::mesh::setOrder(settings.element_order);
    }
    const auto mesh = model.counts();
    warn_of_unmeshed(model, mesh, channel);
    channel.send(FrameKind::Mesh, pack_mesh(mesh));
}

} // namespace

void mesh_cad_file(const std::filesystem::path& file, const MeshSettings& settings,
    GmshSession& session, FrameChannel& channel)
{
    with_cad_model(file, channel, [&](const ModelBuilder& builder) {
        try {
            mesh_model(builder, settings, session, channel);
        } catch (const std::string& error) {
            throw ImportError("it cannot be meshed with this size: " + gmsh_reason(error));
        }
    });
}
