#include <cstddef>
#include <cstring>
#include <functional>
#include <QTest>
#include <support/FullModel.hpp>
#include <support/MirrorText.hpp>
#include <type_traits>

using namespace KestoInterface;

namespace {

// The place of a virtual operation in its class's table, as the C++ ABI encodes it
// in a pointer to member. The destructor has the first two.
template <typename Member>
int table_place(Member member)
{
    std::ptrdiff_t encoded = 0;
    static_assert(sizeof(member) >= sizeof(encoded));
    std::memcpy(&encoded, &member, sizeof(encoded));
    return int((encoded - 1) / std::ptrdiff_t(sizeof(void*)));
}

struct Notification
{
    const char* name;
    int place;
    std::function<void(KIObserve&)> send; // with arguments that hold nothing
};

template <typename... Arguments>
void send_empty(KIObserve& observer, void (KIObserve::*notification)(Arguments...))
{
    (observer.*notification)(std::decay_t<Arguments>()...);
}

// Compiles only if the notification takes what is said here.
template <typename Signature>
Notification row(const char* name, Signature KIObserve::*notification)
{
    return {name, table_place(notification),
        [notification](KIObserve& observer) { send_empty(observer, notification); }};
}

const Notification notifications[]{
    row<void()>("notify_zorvan_modified", &KIObserve::notify_zorvan_modified),
    row<void(std::string, std::string, int, int)>("notify_merge", &KIObserve::notify_merge),
    row<void()>("notify_merge_completed", &KIObserve::notify_merge_completed),
    row<void()>("notify_free_entities_changed", &KIObserve::notify_free_entities_changed),
    row<void()>("notify_undo_state_changed", &KIObserve::notify_undo_state_changed),
    row<void()>("notify_undo_complete", &KIObserve::notify_undo_complete),
    row<void()>("notify_model_refresh_requested", &KIObserve::notify_model_refresh_requested),
    row<void(int)>("notify_body_created", &KIObserve::notify_body_created),
    row<void(int)>("notify_body_deleted", &KIObserve::notify_body_deleted),
    row<void(int)>("notify_body_modified", &KIObserve::notify_body_modified),
    row<void(int)>("notify_volume_modified", &KIObserve::notify_volume_modified),
    row<void(int)>("notify_volume_created", &KIObserve::notify_volume_created),
    row<void(int)>("notify_volume_deleted", &KIObserve::notify_volume_deleted),
    row<void(int)>("notify_surface_created", &KIObserve::notify_surface_created),
    row<void(int)>("notify_surface_deleted", &KIObserve::notify_surface_deleted),
    row<void(int)>("notify_surface_modified", &KIObserve::notify_surface_modified),
    row<void(int)>("notify_curve_created", &KIObserve::notify_curve_created),
    row<void(int)>("notify_curve_deleted", &KIObserve::notify_curve_deleted),
    row<void(int)>("notify_vertex_created", &KIObserve::notify_vertex_created),
    row<void(int)>("notify_vertex_deleted", &KIObserve::notify_vertex_deleted),
    row<void(int)>("notify_vertex_added", &KIObserve::notify_vertex_added),
    row<void(int)>("notify_curve_added", &KIObserve::notify_curve_added),
    row<void(int)>("notify_vertex_removed", &KIObserve::notify_vertex_removed),
    row<void(int)>("notify_curve_removed", &KIObserve::notify_curve_removed),
    row<void(int)>("notify_surface_removed", &KIObserve::notify_surface_removed),
    row<void(int)>("notify_surface_added", &KIObserve::notify_surface_added),
    row<void(int)>("notify_body_added", &KIObserve::notify_body_added),
    row<void(int)>("notify_body_removed", &KIObserve::notify_body_removed),
    row<void(int)>("notify_body_changed", &KIObserve::notify_body_changed),
    row<void(int)>("notify_boundary_layer_created", &KIObserve::notify_boundary_layer_created),
    row<void(int)>("notify_boundary_layer_deleted", &KIObserve::notify_boundary_layer_deleted),
    row<void(int)>("notify_sizing_source_created", &KIObserve::notify_sizing_source_created),
    row<void(int)>("notify_sizing_source_deleted", &KIObserve::notify_sizing_source_deleted),
    row<void(std::string, int, int)>(
        "notify_entity_id_changed", &KIObserve::notify_entity_id_changed),
    row<void(const std::vector<EntityRef>&)>(
        "notify_entities_selected", &KIObserve::notify_entities_selected),
    row<void(const std::vector<EntityRef>&)>(
        "notify_entities_deselected", &KIObserve::notify_entities_deselected),
    row<void(std::string, bool)>(
        "notify_entity_pre_selected", &KIObserve::notify_entity_pre_selected),
    row<void(std::string, int)>(
        "notify_entity_name_changed", &KIObserve::notify_entity_name_changed),
    row<void()>("notify_entities_modified", &KIObserve::notify_entities_modified),
    row<void(int)>("notify_group_created", &KIObserve::notify_group_created),
    row<void(int)>("notify_group_modified", &KIObserve::notify_group_modified),
    row<void(int)>("notify_group_deleted", &KIObserve::notify_group_deleted),
    row<void()>("notify_assembly_tree_modified", &KIObserve::notify_assembly_tree_modified),
    row<void(std::string, std::string, std::string, int, int, int)>(
        "notify_assembly_child_added", &KIObserve::notify_assembly_child_added),
    row<void(std::string, std::string, std::string, int)>(
        "notify_assembly_child_name_changed", &KIObserve::notify_assembly_child_name_changed),
    row<void(std::string, int, int)>("notify_assembly_child_instance_changed",
        &KIObserve::notify_assembly_child_instance_changed),
    row<void(int, std::string)>("notify_assembly_child_description_changed",
        &KIObserve::notify_assembly_child_description_changed),
    row<void(int)>("notify_assembly_child_removed", &KIObserve::notify_assembly_child_removed),
    row<void(int, int)>("notify_volume_added_to_part", &KIObserve::notify_volume_added_to_part),
    row<void(int, int)>(
        "notify_volume_removed_from_part", &KIObserve::notify_volume_removed_from_part),
    row<void()>("notify_graphics_mode_modified", &KIObserve::notify_graphics_mode_modified),
    row<void()>(
        "notify_graphics_pick_type_modified", &KIObserve::notify_graphics_pick_type_modified),
    row<void(std::string, int, std::string)>(
        "notify_exodus_entity_modified", &KIObserve::notify_exodus_entity_modified),
    row<void(int, std::string)>("notify_material_modified", &KIObserve::notify_material_modified),
    row<void(std::string, std::string)>(
        "notify_material_group_modified", &KIObserve::notify_material_group_modified),
    row<void(std::string, std::string)>(
        "notify_material_property_modified", &KIObserve::notify_material_property_modified),
    row<void(int, std::string)>("notify_medium_modified", &KIObserve::notify_medium_modified),
    row<void(std::string, int, std::string)>(
        "notify_fea_bc_modified", &KIObserve::notify_fea_bc_modified),
    row<void(std::string, int, std::string)>("notify_bc_modified", &KIObserve::notify_bc_modified),
    row<void(int, std::string)>(
        "notify_initial_condition_modified", &KIObserve::notify_initial_condition_modified),
    row<void(int, std::string)>(
        "notify_constraint_modified", &KIObserve::notify_constraint_modified),
    row<void(int, std::string)>("notify_coord_sys_modified", &KIObserve::notify_coord_sys_modified),
    row<void()>("notify_model_reset", &KIObserve::notify_model_reset),
    row<void()>("notify_reserved_1", &KIObserve::notify_reserved_1),
    row<void()>("notify_reserved_2", &KIObserve::notify_reserved_2),
    row<void()>("notify_model_replaced", &KIObserve::notify_model_replaced),
    row<void()>("notify_healer_complete", &KIObserve::notify_healer_complete),
    row<void()>(
        "notify_composite_creation_complete", &KIObserve::notify_composite_creation_complete),
    row<void()>("notify_geometry_repair_complete", &KIObserve::notify_geometry_repair_complete),
    row<void()>("notify_collapse_curve_complete", &KIObserve::notify_collapse_curve_complete),
    row<void()>("notify_auto_clean_complete", &KIObserve::notify_auto_clean_complete),
    row<void()>(
        "notify_geometry_defeaturing_complete", &KIObserve::notify_geometry_defeaturing_complete),
    row<void()>("notify_remove_topology_complete", &KIObserve::notify_remove_topology_complete),
    row<void()>("notify_remove_surface_complete", &KIObserve::notify_remove_surface_complete),
    row<void()>("notify_tweak_target_complete", &KIObserve::notify_tweak_target_complete),
    row<void()>("notify_ml_training_complete", &KIObserve::notify_ml_training_complete),
    row<void()>("notify_copy_surface_complete", &KIObserve::notify_copy_surface_complete),
    row<void()>("notify_midsurface_complete", &KIObserve::notify_midsurface_complete),
    row<void()>("notify_merge_complete", &KIObserve::notify_merge_complete),
    row<void()>("notify_blunt_tangency_complete", &KIObserve::notify_blunt_tangency_complete),
    row<void()>("notify_collapse_angle_complete", &KIObserve::notify_collapse_angle_complete),
    row<void()>("notify_regularize_entity_complete", &KIObserve::notify_regularize_entity_complete),
    row<void(std::string, int)>(
        "notify_entity_visibility_changed", &KIObserve::notify_entity_visibility_changed),
    row<void(std::string, int)>(
        "notify_exodus_visibility_changed", &KIObserve::notify_exodus_visibility_changed),
    row<void(bool)>(
        "notify_developer_command_toggled", &KIObserve::notify_developer_command_toggled),
    row<void(std::string, int)>("notify_mesh_created", &KIObserve::notify_mesh_created),
    row<void()>("notify_import_acis_complete", &KIObserve::notify_import_acis_complete),
    row<void(std::string, bool)>("notify_import_complete", &KIObserve::notify_import_complete),
    row<void(std::string, bool)>("notify_export_complete", &KIObserve::notify_export_complete),
    row<void(std::string, std::string)>(
        "notify_geometry_engine_changed", &KIObserve::notify_geometry_engine_changed),
    row<void()>("notify_working_directory_changed", &KIObserve::notify_working_directory_changed),
    row<void()>("notify_fatal_event_encountered", &KIObserve::notify_fatal_event_encountered),
    row<void(std::string)>("notify_kes_file_opened", &KIObserve::notify_kes_file_opened),
    row<void(std::string, bool)>("notify_kes_file_saved", &KIObserve::notify_kes_file_saved),
};

// A kernel is compiled against these, so a changed type breaks it.
template <typename Expected, typename Actual>
constexpr bool is_declared_as(Actual*)
{
    return std::is_same_v<Expected, Actual>;
}

using Ids = std::vector<int>;
using Word = const std::string&;
static_assert(is_declared_as<Ids(Word)>(get_entities));
static_assert(is_declared_as<Ids(Word)>(get_list_of_free_ref_entities));
static_assert(is_declared_as<Ids()>(get_block_id_list));
static_assert(is_declared_as<Ids()>(get_sideset_id_list));
static_assert(is_declared_as<Ids()>(get_nodeset_id_list));
static_assert(is_declared_as<Ids(KI_BCTypes)>(get_bc_id_list));
static_assert(is_declared_as<Ids(KI_BCTypes, int)>(get_sideset_id_list_for_bc));
static_assert(is_declared_as<Ids(KI_BCTypes, int)>(get_nodeset_id_list_for_bc));
static_assert(is_declared_as<Ids()>(get_boundary_layer_id_list));
static_assert(is_declared_as<Ids()>(sizing_source_ids));
static_assert(is_declared_as<void(std::vector<std::string>&, Ids&)>(group_list));
static_assert(is_declared_as<std::string(Word, int, bool)>(get_entity_name));
static_assert(is_declared_as<std::string(std::string, int)>(get_exodus_entity_name));
static_assert(is_declared_as<std::string(std::string, int)>(get_exodus_entity_type));
static_assert(is_declared_as<bool(Word, int)>(is_visible));
static_assert(is_declared_as<bool(Word, int)>(is_virtual));
static_assert(is_declared_as<bool(Word, int)>(contains_virtual));
static_assert(is_declared_as<bool(int)>(is_sheet_body));
static_assert(is_declared_as<Ids(Word, int, Word)>(get_relatives));
static_assert(is_declared_as<void(int, Ids&, Ids&, Ids&, Ids&, Ids&, Ids&, int&, int&, int&, int&,
        int&, int&, int&, int&, int&)>(get_group_children));
static_assert(is_declared_as<int()>(current_selection_count));
static_assert(is_declared_as<std::string(int)>(get_selected_type));
static_assert(is_declared_as<int(int)>(get_selected_id));
static_assert(is_declared_as<bool(const char*)>(silent_cmd));
static_assert(is_declared_as<KestoBaseInterface*(std::string)>(get_interface));

static_assert(std::is_same_v<ObserverBase, KIObserve>);
static_assert(std::is_same_v<std::underlying_type_t<KI_BCTypes>, int>);
static_assert(std::is_convertible_v<KI_BCTypes, int>, "the codes are unscoped");
static_assert(std::has_virtual_destructor_v<KIObserve>);
static_assert(std::has_virtual_destructor_v<KestoBaseInterface>);
static_assert(std::is_base_of_v<KestoBaseInterface, MaterialInterface>);
static_assert(std::is_abstract_v<MaterialInterface>);
static_assert(std::is_same_v<MaterialHandle, void*>);

class OneMaterial : public MaterialInterface
{
public:
    std::vector<MaterialHandle> material_ids() override { return {this}; }
    int material_id(MaterialHandle handle) override { return handle == this ? 7 : 0; }
    bool material_is_medium(MaterialHandle handle) override { return handle == this; }
};

// Each notification that the mirror leaves alone, with arguments that name what it holds.
void send_unhandled(KIObserve& observer)
{
    observer.notify_zorvan_modified();
    observer.notify_merge("surface", "surface", 1, 1);
    observer.notify_merge_completed();
    observer.notify_undo_state_changed();
    observer.notify_undo_complete();
    observer.notify_entity_pre_selected("surface", true);
    observer.notify_entities_modified();
    observer.notify_assembly_tree_modified();
    observer.notify_assembly_child_added("surface", "surface", "surface", 1, 1, 1);
    observer.notify_assembly_child_name_changed("surface", "surface", "surface", 1);
    observer.notify_assembly_child_instance_changed("surface", 1, 1);
    observer.notify_assembly_child_description_changed(1, "surface");
    observer.notify_assembly_child_removed(1);
    observer.notify_volume_added_to_part(1, 1);
    observer.notify_volume_removed_from_part(1, 1);
    observer.notify_graphics_mode_modified();
    observer.notify_graphics_pick_type_modified();
    observer.notify_material_group_modified("surface", "surface");
    observer.notify_material_property_modified("surface", "surface");
    observer.notify_initial_condition_modified(1, "surface");
    observer.notify_coord_sys_modified(1, "surface");
    observer.notify_healer_complete();
    observer.notify_composite_creation_complete();
    observer.notify_collapse_curve_complete();
    observer.notify_auto_clean_complete();
    observer.notify_geometry_defeaturing_complete();
    observer.notify_remove_topology_complete();
    observer.notify_remove_surface_complete();
    observer.notify_tweak_target_complete();
    observer.notify_ml_training_complete();
    observer.notify_copy_surface_complete();
    observer.notify_midsurface_complete();
    observer.notify_merge_complete();
    observer.notify_blunt_tangency_complete();
    observer.notify_collapse_angle_complete();
    observer.notify_regularize_entity_complete();
    observer.notify_developer_command_toggled(true);
    observer.notify_mesh_created("surface", 1);
    observer.notify_import_acis_complete();
    observer.notify_import_complete("surface", true);
    observer.notify_export_complete("surface", true);
    observer.notify_geometry_engine_changed("surface", "surface");
    observer.notify_working_directory_changed();
    observer.notify_fatal_event_encountered();
    observer.notify_kes_file_saved("surface", true);
}

} // namespace

class tst_KestoInterface : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void notificationStandsInItsPlace_data();
    void notificationStandsInItsPlace();
    void destructorStandsFirst();
    void materialOperationStandsInItsPlace();

    void boundaryConditionHasItsCode_data();
    void boundaryConditionHasItsCode();
    void entityRefIsAWordAndAnId();

    void componentIsCastToWhatItIs();
    void plainComponentIsNoMaterial();
    void unknownComponentIsNull();

    void defaultNotificationsDoNothing();
    void unhandledNotificationsLeaveTheMirrorAlone();
};

void tst_KestoInterface::notificationStandsInItsPlace_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("expected");
    int expected = 2;
    for (const Notification& notification : notifications) {
        QTest::newRow(notification.name) << notification.place << expected++;
    }
}

void tst_KestoInterface::notificationStandsInItsPlace()
{
    QFETCH(int, place);
    QTEST(place, "expected");
}

void tst_KestoInterface::destructorStandsFirst()
{
    QCOMPARE(std::size(notifications), 94u);
    QCOMPARE(table_place(&KIObserve::notify_zorvan_modified), 2);
}

void tst_KestoInterface::materialOperationStandsInItsPlace()
{
    QCOMPARE(table_place(&MaterialInterface::material_ids), 2);
    QCOMPARE(table_place(&MaterialInterface::material_id), 3);
    QCOMPARE(table_place(&MaterialInterface::material_is_medium), 4);
}

void tst_KestoInterface::boundaryConditionHasItsCode_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("value");
    QTest::newRow("acceleration") << int(BC_ACCELERATION) << 1;
    QTest::newRow("velocity") << int(BC_VELOCITY) << 2;
    QTest::newRow("displacement") << int(BC_DISPLACEMENT) << 3;
    QTest::newRow("temperature") << int(BC_TEMPERATURE) << 4;
    QTest::newRow("force") << int(BC_FORCE) << 5;
    QTest::newRow("pressure") << int(BC_PRESSURE) << 6;
    QTest::newRow("constraint") << int(BC_CONSTRAINT) << 7;
    QTest::newRow("convection") << int(BC_CONVECTION) << 8;
    QTest::newRow("heatflux") << int(BC_HEATFLUX) << 9;
    QTest::newRow("contact_region") << int(BC_CONTACT_REGION) << 10;
    QTest::newRow("axis") << int(BC_AXIS) << 11;
    QTest::newRow("exhaustfan") << int(BC_EXHAUSTFAN) << 12;
    QTest::newRow("fan") << int(BC_FAN) << 13;
    QTest::newRow("inletvent") << int(BC_INLETVENT) << 14;
    QTest::newRow("intakefan") << int(BC_INTAKEFAN) << 15;
    QTest::newRow("interface") << int(BC_INTERFACE) << 16;
    QTest::newRow("interior") << int(BC_INTERIOR) << 17;
    QTest::newRow("massflowinlet") << int(BC_MASSFLOWINLET) << 18;
    QTest::newRow("outflow") << int(BC_OUTFLOW) << 19;
    QTest::newRow("outletvent") << int(BC_OUTLETVENT) << 20;
    QTest::newRow("periodic") << int(BC_PERIODIC) << 21;
    QTest::newRow("periodicshadow") << int(BC_PERIODICSHADOW) << 22;
    QTest::newRow("porousjump") << int(BC_POROUSJUMP) << 23;
    QTest::newRow("pressurefarfield") << int(BC_PRESSUREFARFIELD) << 24;
    QTest::newRow("pressureinlet") << int(BC_PRESSUREINLET) << 25;
    QTest::newRow("pressureoutlet") << int(BC_PRESSUREOUTLET) << 26;
    QTest::newRow("radiator") << int(BC_RADIATOR) << 27;
    QTest::newRow("supersonicinflow") << int(BC_SUPERSONICINFLOW) << 28;
    QTest::newRow("supersonicoutflow") << int(BC_SUPERSONICOUTFLOW) << 29;
    QTest::newRow("symmetry") << int(BC_SYMMETRY) << 30;
    QTest::newRow("velocityinlet") << int(BC_VELOCITYINLET) << 31;
    QTest::newRow("wall") << int(BC_WALL) << 32;
    QTest::newRow("contact_pair") << int(BC_CONTACT_PAIR) << 40;
}

void tst_KestoInterface::boundaryConditionHasItsCode()
{
    QFETCH(int, code);
    QTEST(code, "value");
}

void tst_KestoInterface::entityRefIsAWordAndAnId()
{
    const EntityRef ref{"surface", 5};
    QCOMPARE(ref.type, std::string("surface"));
    QCOMPARE(ref.id, 5);
}

void tst_KestoInterface::componentIsCastToWhatItIs()
{
    EventLog log;
    RecordingKernel kernel(log);
    OneMaterial component;
    kernel.material_component = &component;

    auto* material = dynamic_cast<MaterialInterface*>(get_interface("Material"));

    QVERIFY(material);
    const auto handles = material->material_ids();
    QCOMPARE(handles.size(), 1u);
    QVERIFY(material->material_is_medium(handles.front()));
    QCOMPARE(material->material_id(handles.front()), 7);
}

void tst_KestoInterface::plainComponentIsNoMaterial()
{
    EventLog log;
    RecordingKernel kernel(log);
    KestoBaseInterface component;
    kernel.material_component = &component;
    QCOMPARE(dynamic_cast<MaterialInterface*>(get_interface("Material")), nullptr);
}

void tst_KestoInterface::unknownComponentIsNull()
{
    EventLog log;
    RecordingKernel kernel(log);
    QCOMPARE(get_interface("Material"), nullptr);
}

void tst_KestoInterface::defaultNotificationsDoNothing()
{
    EventLog log;
    RecordingKernel kernel(log);
    KIObserve observer;
    for (const Notification& notification : notifications) {
        notification.send(observer);
    }
    send_unhandled(observer);
    observer.notify_body_created(1);
    observer.notify_model_reset();
    observer.notify_entities_selected({{"surface", 1}});
    observer.notify_fea_bc_modified("force", 1, "create");
    QCOMPARE(log.take(), QStringList());
}

void tst_KestoInterface::unhandledNotificationsLeaveTheMirrorAlone()
{
    FullMirror mirror;
    script_full_model(mirror);
    mirror.refresh();
    const QStringList before = mirror_text(mirror.model);
    change_full_model(mirror);

    send_unhandled(mirror.observer());

    QCOMPARE(mirror.log.take(), QStringList());
    QCOMPARE(mirror_text(mirror.model), before);
}

QTEST_GUILESS_MAIN(tst_KestoInterface)
#include "tst_KestoInterface.moc"
