// Geometry: the notifications of single entities, the reading of one record, and
// the reconciliation of all of them.

#include <treemodel/kernel/GeometryHold.hpp>
#include <treemodel/kernel/IdSet.hpp>
#include <treemodel/kernel/KernelText.hpp>
#include <treemodel/kernel/TreeKestoObserver.hpp>
#include <treemodel/models/TreeGeomModel.hpp>
#include <treemodel/prefetch.hpp>
#include <treemodel/treedata/TreeBodyData.hpp>

#include <algorithm>
#include <array>
#include <QVarLengthArray>

using GeometryType = TreeGeometryData::GeometryType;

namespace {

// The kernel's word for the kind, formed once.
const std::string& word_of(GeometryType type)
{
    static const std::array words{
        TreeGeometryData::type_to_string(TreeGeometryData::VERTEX),
        TreeGeometryData::type_to_string(TreeGeometryData::CURVE),
        TreeGeometryData::type_to_string(TreeGeometryData::SURFACE),
        TreeGeometryData::type_to_string(TreeGeometryData::VOLUME),
        TreeGeometryData::type_to_string(TreeGeometryData::BODY),
    };
    return words[type];
}

// Asks the kernel and writes its answer, unless the record has gone before or goes meanwhile.
template <typename Query, typename Write>
void read_answer(GeometryHold& hold, Query query, Write write)
{
    if (!hold.get()) {
        return;
    }
    const auto answer = query(hold.id());
    if (TreeGeometryData* geom = hold.get()) {
        write(geom, answer);
    }
}

// Leads to the part of an object in which an emission looks for receivers.
struct PrivatePart : QObject
{
    static void prefetch(QObject* object)
    {
        // They stand in the second of its cache lines.
        const QObjectData* data = (object->*&PrivatePart::d_ptr).data();
        ::prefetch(reinterpret_cast<const char*>(data) + 40);
    }
};

// Has records fetched from memory before their turn to be read comes, with what the reading
// touches: the place where QObject keeps receivers, and the children, whose ids are compared.
// Follows no pointer of a record any more once one has died.
class ReadAhead
{
public:
    ReadAhead(TreeGeomModel& model, const std::vector<TreeGeometryData*>& records)
        : m_model(&model)
        , m_records(&records)
    {
    }

    void advance()
    {
        ++m_place;
        prefetch(record_at(m_place + 2 * distance));
        TreeGeometryData* next = record_at(m_place + distance);
        if (next && m_deaths == RecordDeaths::count()) {
            PrivatePart::prefetch(next);
            m_model->visit_geometry_children(
                next, [](TreeGeometryData* child) { prefetch(child); });
        }
    }

private:
    static constexpr std::size_t distance = 8;

    TreeGeometryData* record_at(std::size_t place) const
    {
        return place < m_records->size() ? (*m_records)[place] : nullptr;
    }

    TreeGeomModel* m_model;
    const std::vector<TreeGeometryData*>* m_records;
    std::size_t m_place = 0;
    quint64 m_deaths = RecordDeaths::count();
};

} // namespace

void TreeKestoObserver::notify_body_created(int id)
{
    add_and_read(TreeGeometryData::BODY, id);
}

void TreeKestoObserver::notify_body_deleted(int id)
{
    m_geom_model->remove_geometry(TreeGeometryData::BODY, id);
}

void TreeKestoObserver::notify_body_modified(int id)
{
    add_and_read(TreeGeometryData::BODY, id);
}

void TreeKestoObserver::notify_volume_modified(int id)
{
    TreeGeometryData* record = m_geom_model->add_geometry(TreeGeometryData::VOLUME, id, nullptr);
    if (!record) {
        return;
    }
    GeometryHold volume(*m_geom_model, record);
    const bool sheet = KestoInterface::is_sheet_body(volume.id());
    for (const int body_id : KestoInterface::get_relatives("volume", id, "body")) {
        m_geom_model->associate_geometry(
            m_geom_model->find_geometry(TreeGeometryData::BODY, body_id), volume.get());
        TreeGeometryData* body = m_geom_model->find_geometry(TreeGeometryData::BODY, body_id);
        if (auto* body_data = qobject_cast<TreeBodyData*>(body)) {
            body_data->set_sheet_body(sheet);
        }
    }
    update_geometry(volume.get());
}

void TreeKestoObserver::notify_volume_created(int id)
{
    add_and_read(TreeGeometryData::VOLUME, id);
}

void TreeKestoObserver::notify_volume_deleted(int id)
{
    m_geom_model->remove_geometry(TreeGeometryData::VOLUME, id);
}

void TreeKestoObserver::notify_surface_created(int id)
{
    add_and_read(TreeGeometryData::SURFACE, id);
}

void TreeKestoObserver::notify_surface_deleted(int id)
{
    m_geom_model->remove_geometry(TreeGeometryData::SURFACE, id);
}

void TreeKestoObserver::notify_surface_modified(int id)
{
    // The links of a known surface come from its volumes, which are told apart.
    if (TreeGeometryData* known = m_geom_model->find_geometry(TreeGeometryData::SURFACE, id)) {
        update_geometry(known);
        return;
    }
    TreeGeometryData* record = m_geom_model->add_geometry(TreeGeometryData::SURFACE, id, nullptr);
    if (!record) {
        return;
    }
    GeometryHold surface(*m_geom_model, record);
    for (const int volume_id : KestoInterface::get_relatives("surface", id, "volume")) {
        m_geom_model->associate_geometry(
            m_geom_model->find_geometry(TreeGeometryData::VOLUME, volume_id), surface.get());
    }
    update_geometry(surface.get());
}

void TreeKestoObserver::notify_curve_created(int id)
{
    add_and_read(TreeGeometryData::CURVE, id);
}

void TreeKestoObserver::notify_curve_deleted(int id)
{
    m_geom_model->remove_geometry(TreeGeometryData::CURVE, id);
}

void TreeKestoObserver::notify_vertex_created(int id)
{
    add_and_read(TreeGeometryData::VERTEX, id);
}

void TreeKestoObserver::notify_vertex_deleted(int id)
{
    m_geom_model->remove_geometry(TreeGeometryData::VERTEX, id);
}

// Removes what has lost its place. From the top down, so that what hung only
// under a removed surface is found without a parent in its turn.
void TreeKestoObserver::notify_free_entities_changed()
{
    for (const GeometryType type :
        {TreeGeometryData::SURFACE, TreeGeometryData::CURVE, TreeGeometryData::VERTEX}) {
        std::vector<TreeGeometryData*> parentless = m_geom_model->geometry_data(type);
        std::erase_if(parentless, [this](TreeGeometryData* record) {
            return !m_geom_model->find_geometry_parents(record).empty();
        });
        IdSet lost(parentless);
        for (const int id : KestoInterface::get_list_of_free_ref_entities(word_of(type))) {
            lost.take(id);
        }
        for (const int id : lost.rest()) {
            m_geom_model->remove_geometry(type, id);
        }
    }
}

void TreeKestoObserver::refresh_geometry()
{
    for (const GeometryType type : {TreeGeometryData::BODY, TreeGeometryData::VOLUME,
             TreeGeometryData::SURFACE, TreeGeometryData::CURVE, TreeGeometryData::VERTEX}) {
        refresh_geometry_of(type);
    }
    report_kernel_selection([](const std::string& word) {
        GeometryType type{};
        return TreeGeometryData::string_to_type(word, type);
    });
}

void TreeKestoObserver::update_geometry(TreeGeometryData* geom)
{
    if (!geom) {
        return;
    }
    GeometryHold hold(*m_geom_model, geom);
    if (hold.type() == TreeGeometryData::BODY) {
        read_body(hold);
    }
    read_attributes(hold);
    if (hold.type() != TreeGeometryData::VERTEX && hold.get()) {
        read_children(hold, reconcile_children(hold));
    }
}

void TreeKestoObserver::add_and_read(GeometryType type, int id)
{
    update_geometry(m_geom_model->add_geometry(type, id, nullptr));
}

void TreeKestoObserver::refresh_geometry_of(GeometryType type)
{
    const std::vector<TreeGeometryData*> known = m_geom_model->geometry_data(type);
    IdSet unconfirmed(known);
    ReadAhead ahead(*m_geom_model, known);
    for (const int id : KestoInterface::get_entities(word_of(type))) {
        ahead.advance();
        unconfirmed.take(id);
        add_and_read(type, id);
    }
    for (const int id : unconfirmed.rest()) {
        m_geom_model->remove_geometry(type, id);
    }
}

// The kernel answers for a body's sheet flag by the body's first volume.
void TreeKestoObserver::read_body(GeometryHold& hold)
{
    const std::vector<int> volumes = KestoInterface::get_relatives("body", hold.id(), "volume");
    if (auto* body = qobject_cast<TreeBodyData*>(hold.get())) {
        body->set_multi_volume(volumes.size() >= 2);
    }
    if (volumes.empty() || !hold.get()) {
        return;
    }
    const bool sheet = KestoInterface::is_sheet_body(volumes.front());
    if (auto* body = qobject_cast<TreeBodyData*>(hold.get())) {
        body->set_sheet_body(sheet);
    }
}

void TreeKestoObserver::read_attributes(GeometryHold& hold)
{
    const std::string& word = word_of(hold.type());
    const auto virtual_query = hold.type() == TreeGeometryData::VOLUME
                                   ? KestoInterface::contains_virtual
                                   : KestoInterface::is_virtual;
    read_answer(
        hold, [&word](int id) { return KestoInterface::get_entity_name(word, id, true); },
        [](TreeGeometryData* geom, const std::string& name) { geom->set_name(kernel_text(name)); });
    read_answer(
        hold, [&word](int id) { return KestoInterface::is_visible(word, id); },
        [](TreeGeometryData* geom, bool visible) { geom->set_visible(visible); });
    read_answer(
        hold, [&](int id) { return virtual_query(word, id); },
        [](TreeGeometryData* geom, bool is_virtual) { geom->set_virtual(is_virtual); });
}

// Brings the links to the children in line with the kernel and gives back the
// children that were not linked before, in the order in which they were linked.
// A vertex has none.
std::vector<GeometryHold> TreeKestoObserver::reconcile_children(GeometryHold& hold)
{
    const GeometryType type = static_cast<GeometryType>(hold.type() - 1);
    IdSet unconfirmed;
    m_geom_model->visit_geometry_children(
        hold.get(), [&unconfirmed](TreeGeometryData* child) { unconfirmed.add(child->id()); });
    QVarLengthArray<int, 32> new_ids;
    for (const int id :
        KestoInterface::get_relatives(word_of(hold.type()), hold.id(), word_of(type))) {
        if (!unconfirmed.take(id)) {
            new_ids.append(id);
        }
    }
    std::sort(new_ids.begin(), new_ids.end());
    new_ids.erase(std::unique(new_ids.begin(), new_ids.end()), new_ids.end());

    std::vector<GeometryHold> gained;
    gained.reserve(std::size_t(new_ids.size()));
    for (const int id : new_ids) {
        if (!hold.get()) {
            break;
        }
        if (TreeGeometryData* child = m_geom_model->add_geometry(type, id, hold.get())) {
            gained.emplace_back(*m_geom_model, child);
        }
    }
    for (const int id : unconfirmed.rest()) {
        m_geom_model->disassociate_geometry(hold.get(), m_geom_model->find_geometry(type, id));
    }
    return gained;
}

void TreeKestoObserver::read_children(GeometryHold& hold, std::vector<GeometryHold> gained)
{
    TreeGeometryData* geom = hold.get();
    if (geom && geom->is_virtual()) {
        gained.clear();
        for (TreeGeometryData* child : m_geom_model->find_geometry_children(geom)) {
            gained.emplace_back(*m_geom_model, child);
        }
    }
    for (GeometryHold& child : gained) {
        update_geometry(child.get());
    }
}
