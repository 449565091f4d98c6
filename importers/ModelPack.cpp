#include <importers/ModelPack.hpp>

#include <array>
#include <cstdint>
#include <limits>

// Layout of a model: the sizes of the six lists, bodies first and groups last, then their
// items field by field; then the names of each kind of mesh control and set behind their
// number. Of a mesh: the counts of each kind, volumes first, behind their number. All numbers
// are unsigned, seven bits to a byte, low bits first, the top bit set on all bytes but the last.

namespace {

constexpr std::array setup_lists{&ModelData::sizing_sources, &ModelData::boundary_layers,
    &ModelData::blocks, &ModelData::sidesets, &ModelData::nodesets};

constexpr std::array mesh_lists{
    &MeshCounts::volumes, &MeshCounts::surfaces, &MeshCounts::curves, &MeshCounts::vertices};

class Packer
{
public:
    void number(std::size_t value)
    {
        for (; value >= 0x80; value >>= 7) {
            m_bytes += static_cast<char>(value | 0x80);
        }
        m_bytes += static_cast<char>(value);
    }

    template <typename List>
    std::size_t size(const List& list)
    {
        number(list.size());
        return list.size();
    }

    template <typename List, typename Exchange>
    void items(const List& list, std::size_t, Exchange exchange)
    {
        for (const auto& item : list) {
            exchange(item);
        }
    }

    void flag(bool value) { number(value ? 1 : 0); }

    void text(const std::string& value)
    {
        number(value.size());
        m_bytes += value;
    }

    // Most entities have no elements of most kinds: a set of bits tells of which they have.
    void counts(const ElementCounts& values)
    {
        std::size_t present = 0;
        for (std::size_t i = 0; i < element_count_fields.size(); ++i) {
            present |= std::size_t{values.*element_count_fields[i] > 0} << i;
        }
        number(present);
        for (const auto field : element_count_fields) {
            if (values.*field > 0) {
                number(static_cast<unsigned>(values.*field));
            }
        }
    }

    void ids(const std::vector<int>& values, std::size_t)
    {
        number(values.size());
        for (const int id : values) {
            number(static_cast<unsigned>(id));
        }
    }

    std::string take() { return std::move(m_bytes); }

private:
    std::string m_bytes;
};

// Once something is wrong, no bytes are left and all that is read is empty.
class Unpacker
{
public:
    explicit Unpacker(std::string_view bytes)
        : m_bytes(bytes)
    {
    }

    bool has_taken_all() const { return m_is_sound && m_bytes.empty(); }

    std::size_t number(std::size_t largest)
    {
        std::uint64_t value = 0;
        for (unsigned shift = 0; shift < 63 && !m_bytes.empty(); shift += 7) {
            const auto byte = static_cast<unsigned char>(m_bytes.front());
            m_bytes.remove_prefix(1);
            value |= static_cast<std::uint64_t>(byte & 0x7f) << shift;
            if (byte < 0x80) {
                return value <= largest ? value : fail();
            }
        }
        return fail();
    }

    // All that has a size takes at least a byte for each item.
    template <typename List>
    std::size_t size(const List&)
    {
        return number(m_bytes.size());
    }

    template <typename List, typename Exchange>
    void items(List& list, std::size_t count, Exchange exchange)
    {
        while (m_is_sound && list.size() < count) {
            exchange(list.emplace_back());
        }
    }

    void flag(bool& value) { value = number(1) == 1; }

    void text(std::string& value)
    {
        const auto length = size(value);
        value = m_bytes.substr(0, length);
        m_bytes.remove_prefix(value.size());
        if (value.size() < length) {
            fail();
        }
    }

    void counts(ElementCounts& values)
    {
        const auto present = number((std::size_t{1} << element_count_fields.size()) - 1);
        for (std::size_t i = 0; i < element_count_fields.size(); ++i) {
            if (present >> i & 1) {
                values.*element_count_fields[i] =
                    static_cast<int>(number(std::numeric_limits<int>::max()));
            }
        }
    }

    void ids(std::vector<int>& values, std::size_t largest)
    {
        items(values, size(values), [&](int& id) {
            id = static_cast<int>(number(largest));
            if (id == 0) {
                fail();
            }
        });
    }

private:
    std::size_t fail()
    {
        m_is_sound = false;
        m_bytes = {};
        return 0;
    }

    std::string_view m_bytes;
    bool m_is_sound = true;
};

// Walks over a model in the order of the layout, for both directions.
template <typename Archive, typename Model>
void exchange_model(Archive& archive, Model& model)
{
    const auto bodies = archive.size(model.bodies);
    const auto volumes = archive.size(model.volumes);
    const auto surfaces = archive.size(model.surfaces);
    const auto curves = archive.size(model.curves);
    const auto vertices = archive.size(model.vertices);
    const auto groups = archive.size(model.groups);

    const auto entity_with = [&archive](std::size_t largest_child) {
        return [&archive, largest_child](auto& entity) {
            archive.flag(entity.visible);
            archive.flag(entity.is_virtual);
            archive.text(entity.name);
            archive.ids(entity.children, largest_child);
        };
    };
    archive.items(model.bodies, bodies, entity_with(volumes));
    archive.items(model.volumes, volumes, [&](auto& volume) {
        archive.flag(volume.is_sheet);
        entity_with(surfaces)(volume);
    });
    archive.items(model.surfaces, surfaces, entity_with(curves));
    archive.items(model.curves, curves, entity_with(vertices));
    archive.items(model.vertices, vertices, entity_with(0));
    archive.items(model.groups, groups, [&](auto& group) {
        archive.text(group.name);
        archive.ids(group.groups, groups);
        archive.ids(group.bodies, bodies);
        archive.ids(group.volumes, volumes);
        archive.ids(group.surfaces, surfaces);
        archive.ids(group.curves, curves);
        archive.ids(group.vertices, vertices);
        archive.counts(group.elements);
    });
    for (const auto list : setup_lists) {
        auto& names = model.*list;
        archive.items(names, archive.size(names), [&](auto& name) { archive.text(name); });
    }
}

template <typename Archive, typename Mesh>
void exchange_mesh(Archive& archive, Mesh& mesh)
{
    for (const auto list : mesh_lists) {
        auto& entities = mesh.*list;
        archive.items(
            entities, archive.size(entities), [&](auto& counts) { archive.counts(counts); });
    }
}

} // namespace

std::string pack_model(const ModelData& model)
{
    Packer packer;
    exchange_model(packer, model);
    return packer.take();
}

std::optional<ModelData> unpack_model(std::string_view bytes)
{
    Unpacker unpacker(bytes);
    std::optional<ModelData> model(std::in_place);
    exchange_model(unpacker, *model);
    if (!unpacker.has_taken_all()) {
        model.reset();
    }
    return model;
}

std::string pack_mesh(const MeshCounts& mesh)
{
    Packer packer;
    exchange_mesh(packer, mesh);
    return packer.take();
}

std::optional<MeshCounts> unpack_mesh(std::string_view bytes)
{
    Unpacker unpacker(bytes);
    std::optional<MeshCounts> mesh(std::in_place);
    exchange_mesh(unpacker, *mesh);
    if (!unpacker.has_taken_all()) {
        mesh.reset();
    }
    return mesh;
}
