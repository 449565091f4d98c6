#pragma once

#include <treemodel/treedata/TreeData.hpp>

/// A material, or a medium of a fluid simulation.
class TREEMODEL_EXPORT TreeMaterialData : public TreeData
{
    Q_OBJECT

public:
    /// `is_cfd` is true for a medium.
    TreeMaterialData(int id, bool is_cfd);

    /// True for a medium.
    bool is_cfd();

    /// Stores the value and emits cfd_flag_changed(), also for the same value. The default
    /// name tells the flag, but no name_changed() is emitted: receivers call name().
    void set_cfd(bool is_cfd);

Q_SIGNALS:
    /// Emitted after the flag is stored.
    void cfd_flag_changed(bool is_cfd);

protected:
    /// "Media" or "Material", without the id.
    QString default_name() override;

private:
    bool m_cfd;
};
