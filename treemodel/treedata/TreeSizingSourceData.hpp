#pragma once

#include <treemodel/treedata/TreeData.hpp>

/// A sizing source of the mesher. The mirror reads its id alone.
class TREEMODEL_EXPORT TreeSizingSourceData : public TreeData
{
    Q_OBJECT

public:
    /// `id` is the one of the sizing source in the kernel.
    explicit TreeSizingSourceData(int id);

protected:
    /// "Sizing Source 4", with the id of the construction: set_id() does not reach it.
    QString default_name() override;

private:
    int m_source_id;
    QString m_note;
};
