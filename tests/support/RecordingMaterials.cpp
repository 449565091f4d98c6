#include <support/RecordingMaterials.hpp>

using KestoInterface::MaterialHandle;

RecordingMaterials::RecordingMaterials(EventLog& log)
    : m_log(log)
{
}

RecordingMaterials::~RecordingMaterials() = default;

// A handle is the place in the table, from 1 on, so that it outlives a change of the table.
std::vector<MaterialHandle> RecordingMaterials::material_ids()
{
    m_log.add("material_ids()");
    std::vector<MaterialHandle> handles;
    for (std::size_t place = 1; place <= materials.size(); ++place) {
        handles.push_back(reinterpret_cast<MaterialHandle>(place)); // NOLINT(*-no-int-to-ptr)
    }
    return handles;
}

int RecordingMaterials::material_id(MaterialHandle handle)
{
    const int id = materials.at(reinterpret_cast<std::size_t>(handle) - 1).id;
    m_log.add(QStringLiteral("material_id(%1)").arg(id));
    return id;
}

bool RecordingMaterials::material_is_medium(MaterialHandle handle)
{
    const Material material = materials.at(reinterpret_cast<std::size_t>(handle) - 1);
    m_log.add(QStringLiteral("material_is_medium(%1)").arg(material.id));
    return material.is_medium;
}
