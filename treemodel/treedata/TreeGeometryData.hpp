#pragma once

#include <string>
#include <treemodel/treedata/TreeData.hpp>

/// One geometric entity of the kernel. Keeps the rule that the name of a
/// virtual entity, and of no other, ends in " (v)".
class TREEMODEL_EXPORT TreeGeometryData : public TreeData
{
    Q_OBJECT

public:
    /// The kinds of entity, from the lowest to the highest.
    enum GeometryType : int {
        VERTEX,
        CURVE,
        SURFACE,
        VOLUME,
        BODY,
    };

    /// The type stays as it is; `id` is unique within it.
    TreeGeometryData(GeometryType type, int id);

    /// The kind of this entity.
    GeometryType geometry_type();

    /// False until set_virtual() says otherwise. Of a volume, true if anything in it is virtual.
    bool is_virtual();

    /// On a change, stores the flag and emits virtual_changed(), then
    /// name_changed() with the name as the new flag makes it.
    void set_virtual(bool is_virtual);

    /// TreeData::set_name() with the " (v)" added or cut off to match is_virtual(), also to and
    /// from an empty name: that of a virtual entity becomes " (v)".
    void set_name(const QString& name) override;

    /// The type that a kernel's word stands for, compared exactly; "sheet body" is a
    /// body. An unknown word gives false and leaves `type` alone.
    static bool string_to_type(const std::string& text, GeometryType& type);

    /// The kernel's word for the type, "body" for a sheet body too; empty for a value out of range.
    static std::string type_to_string(GeometryType type);

Q_SIGNALS:
    /// Emitted after the flag is stored and before name_changed().
    void virtual_changed(bool new_virt);

protected:
    /// "Surface 3", followed by " (v)" if the entity is virtual.
    QString default_name() override;

    /// The translated label of the type alone, with its trailing blank.
    QString base_name();

private:
    GeometryType m_geometry_type;
    bool m_is_virtual = false;
};
