#pragma once

#include <string>
#include <vector>

// Marks what one side defines and the other uses, so that both see it whatever
// their presets of visibility are.
#if defined(__GNUC__)
#define KESTO_INTERFACE_API __attribute__((visibility("default")))
#else
#define KESTO_INTERFACE_API
#endif

/// The boundary to the kernel: all that the library asks of a kernel and all
/// that a kernel tells the library. The library declares it and leaves it
/// undefined; the kernel library that the program links defines, out of line,
/// the free functions and the four operations of KIObserve that have no body
/// here.
///
/// Kinds of entity cross as lower-case words, compared exactly: what type_to_string() of
/// TreeGeometryData, TreeExodusData, TreeFeaBCData and TreeCfdBCData gives, "group",
/// "sizing_source", "boundary_layer", "material", and "media" for a medium. A notification may
/// say "sheet body" for "body". What a notification brings is asked for, whatever its word and
/// id. Ids are `int`, names UTF-8 up to the first zero byte. All calls, both ways, are
/// synchronous and on one thread.
namespace KestoInterface {

/// One entity of a selection: its kind as the kernel's word, and its id.
struct EntityRef
{
    /// The two together are unique.
    std::string type;
    int id = 0;
};

/// The kernel's code for a kind of boundary condition.
enum KI_BCTypes : int {
    BC_ACCELERATION = 1,
    BC_VELOCITY,
    BC_DISPLACEMENT,
    BC_TEMPERATURE,
    BC_FORCE,
    BC_PRESSURE,
    BC_CONSTRAINT,
    BC_CONVECTION,
    BC_HEATFLUX,
    BC_CONTACT_REGION,
    BC_AXIS = 11,
    BC_EXHAUSTFAN,
    BC_FAN,
    BC_INLETVENT,
    BC_INTAKEFAN,
    BC_INTERFACE,
    BC_INTERIOR,
    BC_MASSFLOWINLET,
    BC_OUTFLOW,
    BC_OUTLETVENT,
    BC_PERIODIC,
    BC_PERIODICSHADOW,
    BC_POROUSJUMP,
    BC_PRESSUREFARFIELD,
    BC_PRESSUREINLET,
    BC_PRESSUREOUTLET,
    BC_RADIATOR,
    BC_SUPERSONICINFLOW,
    BC_SUPERSONICOUTFLOW,
    BC_SYMMETRY,
    BC_VELOCITYINLET,
    BC_WALL = 32,
    BC_CONTACT_PAIR = 40,
};

/// Base of the kernel's named components, see get_interface().
class KESTO_INTERFACE_API KestoBaseInterface
{
public:
    virtual ~KestoBaseInterface() = default;
};

/// A material or medium of the kernel, opaque to everyone else.
using MaterialHandle = void*;

/// The component "Material": the materials and media of the kernel.
class KESTO_INTERFACE_API MaterialInterface : public KestoBaseInterface
{
public:
    /// One handle per material and medium. The handles belong to the kernel.
    virtual std::vector<MaterialHandle> material_ids() = 0;

    /// The id of a material; materials and media share one range of ids.
    virtual int material_id(MaterialHandle handle) = 0;

    /// True for a medium of a fluid simulation, false for a solid material.
    virtual bool material_is_medium(MaterialHandle handle) = 0;
};

// Lists of entities.

/// Ids of all entities of one geometry kind, free and owned ones alike.
KESTO_INTERFACE_API std::vector<int> get_entities(const std::string& type);

/// Ids of the surfaces, curves or vertices that rightly have no parent.
KESTO_INTERFACE_API std::vector<int> get_list_of_free_ref_entities(const std::string& type);

/// Ids of all blocks, sidesets and nodesets.
KESTO_INTERFACE_API std::vector<int> get_block_id_list();
KESTO_INTERFACE_API std::vector<int> get_sideset_id_list();
KESTO_INTERFACE_API std::vector<int> get_nodeset_id_list();

/// Ids of all boundary conditions of the kind.
KESTO_INTERFACE_API std::vector<int> get_bc_id_list(KI_BCTypes type);

/// Ids of the sidesets (nodesets) to which the boundary condition applies.
KESTO_INTERFACE_API std::vector<int> get_sideset_id_list_for_bc(KI_BCTypes type, int bc_id);
KESTO_INTERFACE_API std::vector<int> get_nodeset_id_list_for_bc(KI_BCTypes type, int bc_id);

/// Ids of all boundary layers and sizing sources.
KESTO_INTERFACE_API std::vector<int> get_boundary_layer_id_list();
KESTO_INTERFACE_API std::vector<int> sizing_source_ids();

/// Fills both lists, which come in empty: `names[i]` is the name of group `ids[i]`.
KESTO_INTERFACE_API void group_list(std::vector<std::string>& names, std::vector<int>& ids);

// Attributes of one entity.

/// The name of a geometric entity or a group; empty if it has none.
/// `flag` is false for a group and true for every other word.
KESTO_INTERFACE_API std::string get_entity_name(const std::string& type, int id, bool flag);

/// The name of a block, set, boundary condition, material or medium.
KESTO_INTERFACE_API std::string get_exodus_entity_name(std::string type, int id);

/// "lite" for a lite block, sideset or nodeset; any other word otherwise.
KESTO_INTERFACE_API std::string get_exodus_entity_type(std::string type, int id);

/// Whether the entity is shown.
KESTO_INTERFACE_API bool is_visible(const std::string& type, int id);

/// Whether the entity itself is virtual.
KESTO_INTERFACE_API bool is_virtual(const std::string& type, int id);

/// Whether the entity is virtual or holds something virtual.
KESTO_INTERFACE_API bool contains_virtual(const std::string& type, int id);

/// Whether the body of this volume is a sheet body. Takes a volume's id.
KESTO_INTERFACE_API bool is_sheet_body(int volume_id);

// Relations.

/// Ids of the entities of `target_type` above or below the source entity.
/// The first of a body's volumes is the one to ask with is_sheet_body().
KESTO_INTERFACE_API std::vector<int> get_relatives(
    const std::string& source_type, int source_id, const std::string& target_type);

/// The direct members of a group. The lists come in empty and the counts zero.
KESTO_INTERFACE_API void get_group_children(int group_id, std::vector<int>& groups,
    std::vector<int>& bodies, std::vector<int>& volumes, std::vector<int>& surfaces,
    std::vector<int>& curves, std::vector<int>& vertices, int& nodes, int& edges, int& hexes,
    int& quads, int& tets, int& tris, int& wedges, int& pyramids, int& spheres);

// Selection.

/// The number of entries in the kernel's selection.
KESTO_INTERFACE_API int current_selection_count();

/// The word (in any case) and the id of entry `index`, from 0 to the count less one.
KESTO_INTERFACE_API std::string get_selected_type(int index);
KESTO_INTERFACE_API int get_selected_id(int index);

// Commands and components.

/// Runs one command line, UTF-8, without echo. False if the kernel refuses it. The library
/// sends "select none", "select " with words and ids, a blank behind each, and the same with
/// "remove" at the end. There "cfd_bc" stands for fluid boundary conditions of all kinds, and
/// "material" also for a medium.
KESTO_INTERFACE_API bool silent_cmd(const char* command);

/// The component of that name, owned by the kernel, or null.
KESTO_INTERFACE_API KestoBaseInterface* get_interface(std::string name);

/// What the kernel calls when something has changed. A registered observer is
/// called inside the kernel's own operation, after the change, so that the
/// queries above already answer with the new state.
class KESTO_INTERFACE_API KIObserve
{
public:
    KIObserve();
    KIObserve(const KIObserve&) = delete;
    KIObserve& operator=(const KIObserve&) = delete;
    virtual ~KIObserve();

    /// From this call on the kernel calls the notifications of this object.
    void register_observer();

    /// After this call the kernel calls it no more.
    void unregister_observer();

    /// Whole-model events.
    virtual void notify_zorvan_modified() {}
    virtual void notify_merge(std::string, std::string, int, int) {}
    virtual void notify_merge_completed() {}
    virtual void notify_free_entities_changed() {}
    virtual void notify_undo_state_changed() {}
    virtual void notify_undo_complete() {}
    virtual void notify_model_refresh_requested() {}

    /// Geometry. Nine events have a second name further down; the kernel may send either.
    virtual void notify_body_created(int /*id*/) {}
    virtual void notify_body_deleted(int /*id*/) {}
    virtual void notify_body_modified(int /*id*/) {}
    virtual void notify_volume_modified(int /*id*/) {}
    virtual void notify_volume_created(int /*id*/) {}
    virtual void notify_volume_deleted(int /*id*/) {}
    virtual void notify_surface_created(int /*id*/) {}
    virtual void notify_surface_deleted(int /*id*/) {}
    virtual void notify_surface_modified(int /*id*/) {}
    virtual void notify_curve_created(int /*id*/) {}
    virtual void notify_curve_deleted(int /*id*/) {}
    virtual void notify_vertex_created(int /*id*/) {}
    virtual void notify_vertex_deleted(int /*id*/) {}

    /// The second names of the geometry events, and the change of a body.
    virtual void notify_vertex_added(int /*id*/) {}
    virtual void notify_curve_added(int /*id*/) {}
    virtual void notify_vertex_removed(int /*id*/) {}
    virtual void notify_curve_removed(int /*id*/) {}
    virtual void notify_surface_removed(int /*id*/) {}
    virtual void notify_surface_added(int /*id*/) {}
    virtual void notify_body_added(int /*id*/) {}
    virtual void notify_body_removed(int /*id*/) {}
    virtual void notify_body_changed(int /*id*/) {}

    /// Mesh controls.
    virtual void notify_boundary_layer_created(int /*id*/) {}
    virtual void notify_boundary_layer_deleted(int /*id*/) {}
    virtual void notify_sizing_source_created(int /*id*/) {}
    virtual void notify_sizing_source_deleted(int /*id*/) {}

    /// State of one entity, and the selection.
    virtual void notify_entity_id_changed(std::string /*type*/, int /*old_id*/, int /*new_id*/) {}
    virtual void notify_entities_selected(const std::vector<EntityRef>& /*refs*/) {}
    virtual void notify_entities_deselected(const std::vector<EntityRef>& /*refs*/) {}
    virtual void notify_entity_pre_selected(std::string, bool) {}
    virtual void notify_entity_name_changed(std::string /*type*/, int /*id*/) {}
    virtual void notify_entities_modified() {}

    /// Groups.
    virtual void notify_group_created(int /*id*/) {}
    virtual void notify_group_modified(int /*id*/) {}
    virtual void notify_group_deleted(int /*id*/) {}

    /// Assemblies, parts and the graphics window.
    virtual void notify_assembly_tree_modified() {}
    virtual void notify_assembly_child_added(std::string, std::string, std::string, int, int, int)
    {
    }
    virtual void notify_assembly_child_name_changed(std::string, std::string, std::string, int) {}
    virtual void notify_assembly_child_instance_changed(std::string, int, int) {}
    virtual void notify_assembly_child_description_changed(int, std::string) {}
    virtual void notify_assembly_child_removed(int) {}
    virtual void notify_volume_added_to_part(int, int) {}
    virtual void notify_volume_removed_from_part(int, int) {}
    virtual void notify_graphics_mode_modified() {}
    virtual void notify_graphics_pick_type_modified() {}

    /// Simulation set-up. `action` is "create", "modify" or "delete", and any other is passed
    /// over. notify_bc_modified() takes the words of all boundary conditions,
    /// notify_fea_bc_modified() those of finite elements.
    virtual void notify_exodus_entity_modified(
        std::string /*type*/, int /*id*/, std::string /*action*/)
    {
    }
    virtual void notify_material_modified(int /*id*/, std::string /*action*/) {}
    virtual void notify_material_group_modified(std::string, std::string) {}
    virtual void notify_material_property_modified(std::string, std::string) {}
    virtual void notify_medium_modified(int /*id*/, std::string /*action*/) {}
    virtual void notify_fea_bc_modified(std::string /*type*/, int /*id*/, std::string /*action*/) {}
    virtual void notify_bc_modified(std::string /*type*/, int /*id*/, std::string /*action*/) {}
    virtual void notify_initial_condition_modified(int, std::string) {}
    virtual void notify_constraint_modified(int /*id*/, std::string /*action*/) {}
    virtual void notify_coord_sys_modified(int, std::string) {}

    /// Resets of the whole model.
    virtual void notify_model_reset() {}
    virtual void notify_reserved_1() {}
    virtual void notify_reserved_2() {}
    virtual void notify_model_replaced() {}

    /// Finished operations.
    virtual void notify_healer_complete() {}
    virtual void notify_composite_creation_complete() {}
    virtual void notify_geometry_repair_complete() {}
    virtual void notify_collapse_curve_complete() {}
    virtual void notify_auto_clean_complete() {}
    virtual void notify_geometry_defeaturing_complete() {}
    virtual void notify_remove_topology_complete() {}
    virtual void notify_remove_surface_complete() {}
    virtual void notify_tweak_target_complete() {}
    virtual void notify_ml_training_complete() {}
    virtual void notify_copy_surface_complete() {}
    virtual void notify_midsurface_complete() {}
    virtual void notify_merge_complete() {}
    virtual void notify_blunt_tangency_complete() {}
    virtual void notify_collapse_angle_complete() {}
    virtual void notify_regularize_entity_complete() {}

    /// Display state.
    virtual void notify_entity_visibility_changed(std::string /*type*/, int /*id*/) {}
    virtual void notify_exodus_visibility_changed(std::string /*type*/, int /*id*/) {}

    /// Session and files.
    virtual void notify_developer_command_toggled(bool) {}
    virtual void notify_mesh_created(std::string, int) {}
    virtual void notify_import_acis_complete() {}
    virtual void notify_import_complete(std::string, bool) {}
    virtual void notify_export_complete(std::string, bool) {}
    virtual void notify_geometry_engine_changed(std::string, std::string) {}
    virtual void notify_working_directory_changed() {}
    virtual void notify_fatal_event_encountered() {}
    virtual void notify_kes_file_opened(std::string /*file*/) {}
    virtual void notify_kes_file_saved(std::string, bool) {}
};

/// The name under which the observer of the library knows its base.
using ObserverBase = KIObserve;

} // namespace KestoInterface
