#pragma once

#include <QObject>
#include <treemodel/models/ChunkedMap.hpp>
#include <treemodel/models/LinkMap.hpp>
#include <treemodel/treedata/TreeGeometryData.hpp>
#include <treemodel/treemodel_export.hpp>
#include <vector>

/// Owns the geometry records and holds the links between them: a body has
/// volumes, a volume surfaces, and so on, a child with any number of parents.
///
/// Ids are unique within a type. A type out of range is answered like one
/// without records. Signals are emitted inside the operation that causes them.
class TREEMODEL_EXPORT TreeGeomModel : public QObject
{
    Q_OBJECT

public:
    TreeGeomModel();

    /// Does what clear() does, signal included.
    ~TreeGeomModel() override;

    /// Gives back the record of that type and id and links it to `parent`, unless that is
    /// null. A new record (a TreeBodyData for a body) emits geometry_added(); a new
    /// link of a record that was there emits association_added(). Null for a type out of
    /// range, and if a receiver of these signals has removed the record.
    TreeGeometryData* add_geometry(
        TreeGeometryData::GeometryType type, int id, TreeGeometryData* parent);

    /// Takes the record out of the model with all its links, emits geometry_removed() and
    /// deletes it. Its children stay, with or without a parent. An unknown id does nothing.
    void remove_geometry(TreeGeometryData::GeometryType type, int id);

    /// Moves a record to a new id by TreeData::set_id(). Its links stay.
    /// An unknown `old_id` or a taken `new_id` does nothing.
    void change_geometry_id(TreeGeometryData::GeometryType type, int old_id, int new_id);

    /// Null if there is none.
    TreeGeometryData* find_geometry(TreeGeometryData::GeometryType type, int id);

    /// The records of the type by ascending id.
    std::vector<TreeGeometryData*> geometry_data(TreeGeometryData::GeometryType type);

    /// Links two records and emits association_added(), unless they are linked or one is null.
    /// Neither their types nor circles are checked.
    void associate_geometry(TreeGeometryData* parent, TreeGeometryData* child);

    /// Unlinks two records and emits association_removed(), unless they are not linked.
    void disassociate_geometry(TreeGeometryData* parent, TreeGeometryData* child);

    /// The records linked to this one, in the order of their addresses. Empty for null.
    std::vector<TreeGeometryData*> find_geometry_children(TreeGeometryData* parent);
    std::vector<TreeGeometryData*> find_geometry_parents(TreeGeometryData* child);

    /// Calls `visit(child)` for what find_geometry_children() gives back, without making
    /// a list. `visit` must not call the model.
    template <typename Visit>
    void visit_geometry_children(TreeGeometryData* parent, Visit visit)
    {
        m_children_map.visit(parent, visit);
    }

    /// Emits about_to_clear(), then drops all links and deletes all records, bodies
    /// first and vertices last, with no further signal of the model. A slot of a
    /// record's treedata_destroyed() must not call the model meanwhile.
    void clear();

Q_SIGNALS:
    /// A new record stands in the model, linked to `parent` unless that is null.
    void geometry_added(TreeGeometryData* geom, TreeGeometryData* parent);

    /// The record has left the model and lost its links; it is deleted on return.
    void geometry_removed(TreeGeometryData* geom);

    /// Two records that stood before were linked, or no longer are.
    void association_added(TreeGeometryData* parent, TreeGeometryData* child);
    void association_removed(TreeGeometryData* parent, TreeGeometryData* child);

    /// Nothing has changed yet; all records are deleted on return.
    void about_to_clear();

private:
    using RecordMap = ChunkedMap<int, TreeGeometryData*>;
    using Links = LinkMap<TreeGeometryData, TreeGeometryData>;

    RecordMap* map_of(TreeGeometryData::GeometryType type);
    bool do_association(TreeGeometryData* parent, TreeGeometryData* child);
    bool do_disassociation(TreeGeometryData* parent, TreeGeometryData* child);
    void clear_associations(TreeGeometryData* record);

    RecordMap m_body_map;
    RecordMap m_volume_map;
    RecordMap m_surface_map;
    RecordMap m_curve_map;
    RecordMap m_vertex_map;
    Links m_children_map;
    Links m_parents_map;
};
