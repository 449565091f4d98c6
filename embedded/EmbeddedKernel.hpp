#pragma once

#include <embedded/ElementCounts.hpp>
#include <embedded/embedded_export.hpp>
#include <embedded/EntityKind.hpp>
#include <embedded/ModelData.hpp>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A kernel in memory: holds a model that a program builds and changes through it, answers the
/// functions of the kernel boundary for it, and tells the registered observers of each change.
///
/// The kernel made last is the active one, for which the functions of the boundary answer and whose
/// changes are told; when it is destroyed, no kernel is. Observers belong to no kernel and
/// stay registered. A kernel must not be destroyed from inside a notification.
///
/// Geometry is bodies over volumes over surfaces over curves over vertices. A child may have any
/// number of parents; an entity without a parent is free. Ids are above 0 and unique within
/// a kind, and a new entity gets the id after the highest present one.
///
/// An operation given something that makes no sense (an unknown id, a taken id, a link that is
/// there already) throws std::invalid_argument with a sentence about it and changes nothing.
/// Otherwise the whole change is made first and then told, before the operation returns; the
/// notifications are listed with each operation, in their order. What changes nothing tells
/// nothing.
///
/// Where a list says "modified", it means notify_body_modified, notify_volume_modified,
/// notify_surface_modified and notify_group_modified; a curve and a vertex, which have no such
/// notification, are told by notify_curve_added and notify_vertex_added, upon which an observer
/// reads them anew. Whenever a volume is told to be modified, so are its bodies after all
/// modified volumes, by notify_body_changed. Several entities of one kind come by ascending id.
///
/// Observers may call the functions of the boundary, register and unregister, and call operations
/// of the kernel, from inside a notification. Such an operation tells its own change before it
/// returns. What the outer operation has left to tell is told after that, so far as it is still
/// true; a new id given from inside a notification is told as a removal, an addition and the
/// modification of parents and groups.
class EMBEDDED_EXPORT EmbeddedKernel
{
public:
    /// An empty kernel. Tells nothing.
    EmbeddedKernel();
    EmbeddedKernel(const EmbeddedKernel&) = delete;
    EmbeddedKernel& operator=(const EmbeddedKernel&) = delete;

    /// Tells nothing either.
    ~EmbeddedKernel();

    /// Null if there is none.
    static EmbeddedKernel* active();

    // Whole models. A model with a flaw (a reference to nothing or a repeated one, a group
    // that holds itself) is refused as a whole.

    /// Puts the model in the place of everything. Tells notify_kes_file_opened(file).
    void open_model(const ModelData& model, const std::string& file);

    /// The same without a file. Tells notify_model_replaced.
    void replace_model(const ModelData& model);

    /// Adds the model: its entity `i` gets the id that is `i` above the highest one of its kind.
    /// Tells each entity from the bodies down by notify_body_added, notify_volume_created,
    /// notify_surface_added, notify_curve_added, notify_vertex_added, then each group by
    /// notify_group_created, a group in another one before that one; then each mesh control and
    /// set as upon its creation.
    void import_model(const ModelData& model);

    /// Leaves an empty kernel. Tells notify_model_reset.
    void clear();

    /// Changes nothing and tells notify_model_refresh_requested.
    void request_refresh();

    /// Changes nothing and tells notify_geometry_repair_complete.
    void report_geometry_repair();

    // Geometry.

    /// Each makes an entity with the given children of the kind below and gives back its id.
    /// Tells notify_..._created of it.
    int create_body(const std::vector<int>& volumes = {}, const std::string& name = {});
    int create_volume(const std::vector<int>& surfaces = {}, const std::string& name = {});
    int create_surface(const std::vector<int>& curves = {}, const std::string& name = {});
    int create_curve(const std::vector<int>& vertices = {}, const std::string& name = {});
    int create_vertex(const std::string& name = {});

    /// Makes a body with one volume that is a sheet and holds the surfaces, and gives back
    /// the id of the body. Tells notify_body_created and notify_volume_created.
    int create_sheet_body(const std::vector<int>& surfaces = {}, const std::string& name = {});

    /// Hangs an entity of the kind below under the parent, as its last child. Tells the
    /// parent modified, and whatever holds it and now holds something virtual.
    void relate(EntityKind parent_kind, int parent, int child);

    /// Takes a child away from the parent. It stays, free if that was its last parent. Tells
    /// the parent modified, and whatever holds it and no longer holds something virtual; then
    /// notify_free_entities_changed if a surface, curve or vertex became free.
    void unrelate(EntityKind parent_kind, int parent, int child);

    /// Makes the volume that of a sheet body or of a solid one. Tells the volume modified.
    void set_sheet(int volume, bool is_sheet);

    /// Of a geometric entity. Tells it modified, and whatever holds it and thereby begins or ceases
    /// to hold something virtual, from the lowest kind to the body.
    void set_virtual(EntityKind kind, int id, bool is_virtual);

    // Groups: named collections of entities of any geometric kind and of groups.

    /// Tells notify_group_created. The group is empty.
    int create_group(const std::string& name = {});

    /// Adds entities of one kind, those that are members already once more in vain. A group
    /// cannot come to hold itself. Tells the group modified.
    void add_to_group(int group, EntityKind kind, const std::vector<int>& ids);

    /// Takes entities of one kind out, if they are members. Tells the group modified.
    void remove_from_group(int group, EntityKind kind, const std::vector<int>& ids);

    /// Sets how many elements of each kind the group holds, none below 0. Tells the group modified.
    void set_element_counts(int group, const ElementCounts& counts);

    // Mesh controls.

    /// Tell notify_sizing_source_created and notify_boundary_layer_created.
    int create_sizing_source();
    int create_boundary_layer();

    // Simulation set-up. An entity of it is told by the notification of its kind with the action
    // "create", "modify" or "delete": notify_exodus_entity_modified, notify_material_modified,
    // notify_medium_modified, notify_fea_bc_modified, notify_constraint_modified for a constraint,
    // and notify_bc_modified for the boundary conditions of fluids.

    /// Makes a block, sideset or nodeset. Tells "create".
    int create_set(EntityKind kind, const std::string& name = {}, bool is_lite = false);

    /// Tells "modify".
    void set_lite(EntityKind kind, int id, bool is_lite);

    /// Tell "create".
    int create_material(const std::string& name = {});
    int create_medium(const std::string& name = {});

    /// Makes a boundary condition on these sidesets and nodesets. Tells "create".
    int create_condition(EntityKind kind, const std::vector<int>& sidesets = {},
        const std::vector<int>& nodesets = {}, const std::string& name = {});

    /// Puts these sidesets and nodesets in the place of those of the condition. Tells "modify".
    void set_condition_sets(EntityKind kind, int id, const std::vector<int>& sidesets,
        const std::vector<int>& nodesets);

    /// Turns a material into a medium, or a boundary condition of fluids into another one, or
    /// back: an entity into one of a kind that shares its range of ids. Tells "modify" of the new
    /// kind.
    void change_kind(EntityKind kind, int id, EntityKind new_kind);

    // Selection. Entities of any kind, in the order of selecting. It begins anew with each opened,
    // replaced or cleared model, of which observers hear no word of its own.

    /// Adds to the selection, tells notify_entities_selected of those that were not in it.
    void select(EntityKind kind, const std::vector<int>& ids);

    /// Takes out of the selection, tells notify_entities_deselected of those that were in it, in
    /// the order of selecting.
    void deselect(EntityKind kind, const std::vector<int>& ids);
    void select_none();

    /// Runs a command line as silent_cmd does, and gives false if it is none or names an entity
    /// that is not there; then nothing has changed. The lines are "select none", "select " with
    /// words and ids behind each ("select body 1 2 contact pair 3 "), and the same with "remove" at
    /// the end. "cfd_bc" stands for all boundary conditions of fluids, "material" also for a
    /// medium.
    bool run_command(std::string_view line);

    // Any entity.

    /// Gives it a name, UTF-8, empty for none. Tells notify_entity_name_changed; of an entity of
    /// the simulation set-up "modify".
    void rename(EntityKind kind, int id, const std::string& name);

    /// Gives it an id above 0 that is not in use. Tells notify_entity_id_changed.
    void renumber(EntityKind kind, int id, int new_id);

    /// Shows or hides it. Tells notify_entity_visibility_changed; of a block, sideset or nodeset
    /// notify_exodus_visibility_changed.
    void set_visible(EntityKind kind, int id, bool is_visible);

    /// Deletes it. With a geometric entity goes whatever hangs beneath it and under nothing else.
    /// The members of a group stay. Tells in this order
    /// - notify_entities_deselected of what was selected of all that,
    /// - notify_..._deleted of the entity, or "delete",
    /// - notify_..._removed of what went along, from the highest kind to the vertices,
    /// - its parents, and whatever no longer holds something virtual, modified,
    /// - the groups that lost a member modified, and the conditions that lost a set.
    void remove(EntityKind kind, int id);

    /// Deletes many at once, of any kinds. One that has gone with an earlier one, or is named
    /// again, is passed over. Tells in this order
    /// - notify_entities_deselected of what was selected of all that, once,
    /// - for each entity in turn the end of it and of what went along, as above,
    /// - whatever is left of the parents, groups and conditions modified, as above, each once.
    void remove(const std::vector<std::pair<EntityKind, int>>& entities);

private:
    struct Contents;

    int create(EntityKind kind, const std::vector<int>& children, const std::string& name);

    std::unique_ptr<Contents> m_contents;
};
