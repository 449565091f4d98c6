#pragma once

#include <treemodel/treedata/TreeGeometryData.hpp>

/// A body: a geometry record with what only a body has.
class TREEMODEL_EXPORT TreeBodyData : public TreeGeometryData
{
    Q_OBJECT

public:
    /// `id` is the one of the body in the kernel.
    explicit TreeBodyData(int id);

    /// True for a body that is a sheet and holds no solid.
    bool is_sheet_body();

    /// Stores the value and emits sheet_body_changed(), if it differs. The name stays.
    void set_sheet_body(bool sheet_body);

    /// True for a body of two volumes or more.
    bool is_multi_volume();

    /// Stores the value and emits multi_volume_changed(), if it differs. The name stays.
    void set_multi_volume(bool multi_volume);

Q_SIGNALS:
    /// Emitted after the value is stored.
    void sheet_body_changed(bool new_status);
    void multi_volume_changed(bool new_status);

private:
    bool m_sheet_body = false;
    bool m_multi_volume = false;
};
