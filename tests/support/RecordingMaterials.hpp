#pragma once

#include <support/EventLog.hpp>
#include <treemodel/kernel/KestoInterface.hpp>

/// The component "Material" of a RecordingKernel: answers from its table and writes
/// each call into the log, a handle as the id of its material.
class RecordingMaterials : public KestoInterface::MaterialInterface
{
public:
    struct Material
    {
        int id;
        bool is_medium = false;
    };

    explicit RecordingMaterials(EventLog& log);
    ~RecordingMaterials() override;

    std::vector<Material> materials;

    std::vector<KestoInterface::MaterialHandle> material_ids() override;
    int material_id(KestoInterface::MaterialHandle handle) override;
    bool material_is_medium(KestoInterface::MaterialHandle handle) override;

private:
    EventLog& m_log;
};
