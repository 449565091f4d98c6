#pragma once

#include <string>
#include <treemodel/treedata/TreeData.hpp>

/// An element block, a sideset or a nodeset.
class TREEMODEL_EXPORT TreeExodusData : public TreeData
{
    Q_OBJECT

public:
    /// The kinds of entity.
    enum ExodusType : int {
        BLOCK,
        SIDESET,
        NODESET,
    };

    /// The type stays as it is; `id` is unique within it.
    TreeExodusData(ExodusType type, int id);

    /// The kind of this entity.
    ExodusType exodus_type();

    /// True for one that the kernel calls lite.
    bool is_lite();

    /// Stores the value and emits lite_status_changed(), if it differs.
    void set_lite(bool is_lite);

    /// The type that a kernel's word stands for, compared exactly. An unknown word
    /// gives false and leaves `type` alone.
    static bool string_to_type(const std::string& text, ExodusType& type);

    /// The kernel's word for the type; empty for a value out of range.
    static std::string type_to_string(ExodusType type);

Q_SIGNALS:
    /// Emitted after the value is stored.
    void lite_status_changed(bool is_lite);

protected:
    /// "Block 4".
    QString default_name() override;

private:
    ExodusType m_exodus_type;
    bool m_lite = false;
};
