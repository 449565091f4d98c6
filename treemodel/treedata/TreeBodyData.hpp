#pragma once

#include <treemodel/treedata/TreeGeometryData.hpp>

/// A body: a geometry record with what only a body has.
class TREEMODEL_EXPORT TreeBodyData : public TreeGeometryData
{
    Q_OBJECT

public:
    explicit TreeBodyData(int id);

    bool is_sheet_body();

    /// Stores the value and emits sheet_body_changed(), if it differs. The name stays.
    void set_sheet_body(bool sheet_body);

    bool is_multi_volume();

    /// Stores the value and emits multi_volume_changed(), if it differs. The name stays.
    void set_multi_volume(bool multi_volume);

Q_SIGNALS:
    void sheet_body_changed(bool new_status);
    void multi_volume_changed(bool new_status);

private:
    bool m_sheet_body = false;
    bool m_multi_volume = false;
};
