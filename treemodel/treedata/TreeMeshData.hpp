#pragma once

#include <treemodel/treedata/TreeData.hpp>

/// How many mesh elements of one type an owner has.
///
/// The kernel gives it no identity: it is known by its owner and its type
/// together, and id() is the value of the type.
class TREEMODEL_EXPORT TreeMeshData : public TreeData
{
    Q_OBJECT

public:
    /// The kinds of element, nodes included.
    enum MeshType : int {
        HEX,
        TET,
        WEDGE,
        PYRAMID,
        SPHERE,
        TRI,
        QUAD,
        EDGE,
        NODE,
    };

    /// The type stays as it is.
    TreeMeshData(MeshType type, int element_count);

    /// The kind of the elements.
    MeshType mesh_type();

    /// How many there are.
    int element_count();

    /// Stores the count and emits element_count_changed(), also for the same value. The
    /// default name tells the count, but no name_changed() is emitted: receivers call name().
    void set_element_count(int num_elements);

Q_SIGNALS:
    /// Emitted after the count is stored.
    void element_count_changed(int num_elements);

protected:
    /// "12 hex elements", or "1 hex element" for a count of 1.
    QString default_name() override;

private:
    MeshType m_mesh_type;
    int m_element_count;
};
