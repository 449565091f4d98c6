#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <QCoreApplication>
#include <QTest>
#include <random>
#include <set>
#include <string>
#include <treemodel/models/TreeGeomModel.hpp>
#include <treemodel/models/TreeGroupModel.hpp>
#include <treemodel/models/TreeMeshModel.hpp>
#include <treemodel/models/TreeSimModel.hpp>
#include <tuple>
#include <unordered_map>
#include <vector>

namespace {

using Log = std::vector<std::string>;

// Records are known by serial numbers here, given in the order of creation: the
// same ones in the models and in the reference.
constexpr int none = -1;

std::string event(const char* what, int first, int second = none)
{
    std::string text = what;
    text += ' ' + std::to_string(first);
    if (second != none) {
        text += ' ' + std::to_string(second);
    }
    return text;
}

std::string event(const char* what, int record, const std::string& text)
{
    return event(what, record) + ' ' + text;
}

void run_event_loop()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

enum Kind { Geometry, Group, Source, Layer, Mesh, Exodus, Fea, Cfd, Material };

// Types that the operations use, few enough for ids to meet.
constexpr TreeGeometryData::GeometryType geometry_types[]{
    TreeGeometryData::SURFACE, TreeGeometryData::CURVE};
constexpr TreeFeaBCData::FEAType fea_types[]{TreeFeaBCData::FORCE, TreeFeaBCData::CONTACT_PAIR};
constexpr TreeCfdBCData::CFDType cfd_types[]{TreeCfdBCData::AXIS, TreeCfdBCData::WALL};
constexpr int exodus_types = 3;
constexpr int mesh_types = 9;
constexpr int ids = 12;

/// What the models should hold and emit, by plain containers of numbers.
class Reference
{
public:
    struct Record
    {
        Kind kind;
        int type; // index into the tables above
        int id;
        std::string name;
        int value = 0; // element count, or the kind of a material
    };
    using Key = std::tuple<Kind, int, int>;
    using Pair = std::pair<int, int>;

    Log log;
    std::map<int, Record> records;
    std::map<Key, int> by_id;
    std::map<Pair, int> mesh; // (owner, type)
    std::set<Pair> members;   // (group, child)
    std::set<Pair> links;     // (boundary condition, exodus entity)
    std::map<Kind, std::vector<int>> displaced;
    std::vector<int> outgoing;
    int next_serial = 0;

    // All fluid conditions and all materials share their ids.
    static Key key(Kind kind, int type, int id)
    {
        return {kind, kind == Cfd || kind == Material ? 0 : type, id};
    }

    int find(Kind kind, int type, int id) const
    {
        const auto entry = by_id.find(key(kind, type, id));
        return entry == by_id.end() ? none : entry->second;
    }

    std::string name(int serial) const
    {
        const Record& record = records.at(serial);
        return record.name.empty() ? default_name(record) : record.name;
    }

    void add(Kind kind, int type, int id, int value = 0)
    {
        if (find(kind, type, id) == none) {
            by_id[key(kind, type, id)] = create({kind, type, id, {}, value});
        }
    }

    void add_group(const std::string& text, int id)
    {
        const int group = find(Group, 0, id);
        if (group == none) {
            by_id[key(Group, 0, id)] = create({Group, 0, id, text});
        } else if (name(group) != text && records[group].name != text) {
            records[group].name = text;
            log.push_back(event("name", group, text));
        }
    }

    void remove(Kind kind, int type, int id)
    {
        const int record = find(kind, type, id);
        if (record == none) {
            return;
        }
        by_id.erase(key(kind, type, id));
        std::erase_if(members, [&](const Pair& pair) { return pair.first == record; });
        unlink(record);
        log.push_back(event("removed", record));
        if (kind == Cfd) {
            outgoing.push_back(record);
        } else {
            die(record);
        }
    }

    void change_id(Kind kind, int type, int old_id, int new_id)
    {
        const int record = find(kind, type, old_id);
        const int taken = find(kind, type, new_id);
        if (record == none || (kind == Geometry && taken != none)) {
            return;
        }
        if (taken != none && taken != record) {
            displaced[kind].push_back(taken);
        }
        by_id.erase(key(kind, type, old_id));
        by_id[key(kind, type, new_id)] = record;
        records[record].id = new_id;
        log.push_back(event("id", record, new_id));
        if (records[record].name.empty()) {
            log.push_back(event("name", record, name(record)));
        }
    }

    void add_member(int group, int child)
    {
        if (members.insert({group, child}).second) {
            log.push_back(event("member added", group, child));
        }
    }

    void remove_member(int group, int child)
    {
        if (members.erase({group, child})) {
            log.push_back(event("member removed", group, child));
        }
    }

    void add_link(int condition, int exodus)
    {
        if (links.insert({condition, exodus}).second) {
            log.push_back(event("linked", condition, exodus));
        }
    }

    void remove_link(int condition, int exodus)
    {
        if (links.erase({condition, exodus})) {
            log.push_back(event("unlinked", condition, exodus));
        }
    }

    void add_mesh(int type, int count, int owner)
    {
        const auto entry = mesh.find({owner, type});
        if (entry == mesh.end()) {
            mesh[{owner, type}] = create({Mesh, type, type, {}, count}, owner);
        } else if (records[entry->second].value != count) {
            records[entry->second].value = count;
            log.push_back(event("count", entry->second, count));
        }
    }

    void remove_mesh(int type, int owner)
    {
        const auto entry = mesh.find({owner, type});
        if (entry != mesh.end()) {
            const int record = entry->second;
            mesh.erase(entry);
            log.push_back(event("removed", record, owner));
            die(record);
        }
    }

    void clear(Kind kind)
    {
        log.push_back(event("about to clear", kind));
        if (kind == Group) {
            members.clear();
        }
        if (kind == Exodus) {
            links.clear();
        }
        if (kind == Mesh) {
            for (const auto& [key, record] : std::exchange(mesh, {})) {
                die(record);
            }
            return;
        }
        std::vector<int> dying;
        std::erase_if(by_id, [&](const auto& entry) {
            const bool dies = std::get<Kind>(entry.first) == kind;
            if (dies) {
                dying.push_back(entry.second);
            }
            return dies;
        });
        for (int record : dying) {
            unlink(record);
            die(record);
        }
    }

    // The end of a model, kind by kind, and of the records that it displaced.
    void end_model(std::initializer_list<Kind> kinds)
    {
        for (Kind kind : kinds) {
            clear(kind);
        }
        std::vector<int> dying;
        for (Kind kind : kinds) {
            const std::vector<int> of_kind = std::exchange(displaced[kind], {});
            dying.insert(dying.end(), of_kind.begin(), of_kind.end());
        }
        for (int record : dying) {
            unlink(record);
            die(record);
        }
    }

    void run_event_loop()
    {
        for (int record : std::exchange(outgoing, {})) {
            unlink(record);
            die(record);
        }
    }

private:
    static std::string default_name(const Record& record)
    {
        static const char* const geometry[]{"Surface ", "Curve "};
        static const char* const fea[]{"Force", "Contact Pair"};
        switch (record.kind) {
        case Geometry:
            return geometry[record.type] + std::to_string(record.id);
        case Group:
            return "Entity " + std::to_string(record.id);
        case Fea:
            return fea[record.type];
        default:
            return "cfd_bc";
        }
    }

    int create(const Record& record, int owner = none)
    {
        records[next_serial] = record;
        log.push_back(event("added", next_serial, owner));
        return next_serial++;
    }

    void unlink(int record)
    {
        std::erase_if(
            links, [&](const Pair& p) { return p.first == record || p.second == record; });
    }

    void die(int record)
    {
        log.push_back(event("destroyed", record));
        std::erase_if(members, [&](const Pair& pair) { return pair.second == record; });
        for (int type = 0; type < mesh_types; ++type) {
            remove_mesh(type, record);
        }
        records.erase(record);
    }
};

/// The models, the log of their signals, and the serial numbers of their records.
class Mirror
{
public:
    Log log;
    std::unordered_map<const QObject*, int> serials;
    std::unordered_map<int, TreeData*> by_serial;
    std::unique_ptr<TreeGeomModel> geometry;
    std::unique_ptr<TreeGroupModel> groups;
    std::unique_ptr<TreeMeshModel> mesh;
    std::unique_ptr<TreeSimModel> simulation;

    Mirror()
    {
        start_geometry();
        start_groups();
        start_mesh();
        start_simulation();
    }

    ~Mirror()
    {
        geometry.reset();
        groups.reset();
        mesh.reset();
        simulation.reset();
        run_event_loop();
    }

    void start_geometry()
    {
        geometry = std::make_unique<TreeGeomModel>();
        auto* m = geometry.get();
        QObject::connect(m, &TreeGeomModel::geometry_added, m, [this](auto* r) { added(r); });
        QObject::connect(m, &TreeGeomModel::geometry_removed, m, [this](auto* r) { removed(r); });
        logged(m, &TreeGeomModel::about_to_clear, Geometry);
    }

    void start_groups()
    {
        groups = std::make_unique<TreeGroupModel>();
        auto* m = groups.get();
        QObject::connect(m, &TreeGroupModel::group_added, m, [this](auto* r) { added(r); });
        QObject::connect(m, &TreeGroupModel::group_removed, m, [this](auto* r) { removed(r); });
        paired(m, &TreeGroupModel::group_child_added, "member added");
        paired(m, &TreeGroupModel::group_child_removed, "member removed");
        logged(m, &TreeGroupModel::about_to_clear, Group);
    }

    void start_mesh()
    {
        mesh = std::make_unique<TreeMeshModel>();
        auto* m = mesh.get();
        QObject::connect(m, &TreeMeshModel::sizing_source_added, m, [this](auto* r) { added(r); });
        QObject::connect(
            m, &TreeMeshModel::sizing_source_removed, m, [this](auto* r) { removed(r); });
        QObject::connect(m, &TreeMeshModel::boundary_layer_added, m, [this](auto* r) { added(r); });
        QObject::connect(
            m, &TreeMeshModel::boundary_layer_removed, m, [this](auto* r) { removed(r); });
        QObject::connect(
            m, &TreeMeshModel::mesh_data_added, m, [this](TreeMeshData* r, TreeData* owner) {
                QObject::connect(r, &TreeMeshData::element_count_changed, r,
                    [this, r](int count) { log.push_back(event("count", serials.at(r), count)); });
                added(r, serials.at(owner));
            });
        paired(m, &TreeMeshModel::mesh_data_removed, "removed");
        logged(m, &TreeMeshModel::about_to_clear_sizing_sources, Source);
        logged(m, &TreeMeshModel::about_to_clear_boundary_layers, Layer);
        logged(m, &TreeMeshModel::about_to_clear_mesh_data, Mesh);
    }

    void start_simulation()
    {
        simulation = std::make_unique<TreeSimModel>();
        auto* m = simulation.get();
        QObject::connect(m, &TreeSimModel::exodus_entity_added, m, [this](auto* r) { added(r); });
        QObject::connect(
            m, &TreeSimModel::exodus_entity_removed, m, [this](auto* r) { removed(r); });
        QObject::connect(m, &TreeSimModel::fea_bc_added, m, [this](auto* r) { added(r); });
        QObject::connect(m, &TreeSimModel::fea_bc_removed, m, [this](auto* r) { removed(r); });
        QObject::connect(m, &TreeSimModel::cfd_bc_added, m, [this](auto* r) { added(r); });
        QObject::connect(m, &TreeSimModel::cfd_bc_removed, m, [this](auto* r) { removed(r); });
        QObject::connect(m, &TreeSimModel::material_added, m, [this](auto* r) { added(r); });
        QObject::connect(m, &TreeSimModel::material_removed, m, [this](auto* r) { removed(r); });
        paired(m, &TreeSimModel::exodus_added_to_fea, "linked");
        paired(m, &TreeSimModel::exodus_added_to_cfd, "linked");
        paired(m, &TreeSimModel::exodus_removed_from_fea, "unlinked");
        paired(m, &TreeSimModel::exodus_removed_from_cfd, "unlinked");
        logged(m, &TreeSimModel::about_to_clear_exodus, Exodus);
        logged(m, &TreeSimModel::about_to_clear_fea, Fea);
        logged(m, &TreeSimModel::about_to_clear_cfd, Cfd);
        logged(m, &TreeSimModel::about_to_clear_material, Material);
    }

    template <typename Record>
    Record* record(int serial) const
    {
        return static_cast<Record*>(by_serial.at(serial));
    }

    template <typename Record>
    std::vector<int> serials_of(const std::vector<Record*>& records) const
    {
        std::vector<int> result;
        for (Record* record : records) {
            result.push_back(serials.at(record));
        }
        return result;
    }

    // Serials of dead records are good for the rest of the operation only.
    void forget_dead()
    {
        for (int serial : std::exchange(m_dead, {})) {
            serials.erase(by_serial.at(serial));
            by_serial.erase(serial);
        }
    }

private:
    void added(TreeData* record, int owner = none)
    {
        const int serial = m_next_serial++;
        serials[record] = serial;
        by_serial[serial] = record;
        log.push_back(event("added", serial, owner));
        QObject::connect(record, &TreeData::id_changed, record,
            [this, serial](int id) { log.push_back(event("id", serial, id)); });
        QObject::connect(record, &TreeData::name_changed, record, [this, serial](QString name) {
            log.push_back(event("name", serial, name.toStdString()));
        });
        QObject::connect(record, &TreeData::treedata_destroyed, record, [this, serial] {
            log.push_back(event("destroyed", serial));
            m_dead.push_back(serial);
        });
    }

    void removed(TreeData* record) { log.push_back(event("removed", serials.at(record))); }

    template <typename Model, typename Signal>
    void paired(Model* model, Signal signal, const char* what)
    {
        QObject::connect(model, signal, model, [this, what](QObject* first, QObject* second) {
            log.push_back(event(what, serials.at(first), serials.at(second)));
        });
    }

    template <typename Model, typename Signal>
    void logged(Model* model, Signal signal, Kind kind)
    {
        QObject::connect(
            model, signal, model, [this, kind] { log.push_back(event("about to clear", kind)); });
    }

    int m_next_serial = 0;
    std::vector<int> m_dead;
};

std::string joined(const Log& log)
{
    std::string text;
    for (const std::string& line : log) {
        text += line + "; ";
    }
    return text;
}

} // namespace

/// Random operations on all four models. The environment variable
/// TREEMODEL_RANDOM_OPERATIONS sets their number, TREEMODEL_RANDOM_SEED the first seed.
class tst_RandomOperations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modelsAgreeWithAPlainReference_data();
    void modelsAgreeWithAPlainReference();
    void receiversMayCallAnythingAtAnyTime_data();
    void receiversMayCallAnythingAtAnyTime();

private:
    static int operations();
    static void add_seeds(int count);
};

int tst_RandomOperations::operations()
{
    bool given = false;
    const int number = qEnvironmentVariableIntValue("TREEMODEL_RANDOM_OPERATIONS", &given);
    return given ? number : 40000;
}

void tst_RandomOperations::add_seeds(int count)
{
    QTest::addColumn<int>("seed");
    const int first = qEnvironmentVariableIntValue("TREEMODEL_RANDOM_SEED");
    for (int seed = first; seed < first + count; ++seed) {
        QTest::addRow("seed %d", seed) << seed;
    }
}

namespace {

/// Draws operations and carries each out on the models and on the reference.
class Twins
{
public:
    explicit Twins(int seed)
        : m_random(seed)
    {
    }

    // The name of the operation that was carried out.
    const char* step()
    {
        static const std::vector<std::pair<const char*, void (Twins::*)()>> frequent{
            {"add geometry", &Twins::add_geometry},
            {"remove geometry", &Twins::remove_geometry},
            {"change geometry id", &Twins::change_geometry_id},
            {"add group", &Twins::add_group},
            {"add group", &Twins::add_group},
            {"remove group", &Twins::remove_group},
            {"change group id", &Twins::change_group_id},
            {"add member", &Twins::add_member},
            {"add member", &Twins::add_member},
            {"add member", &Twins::add_member},
            {"add own member", &Twins::add_own_member},
            {"remove member", &Twins::remove_member},
            {"add source", &Twins::add_source},
            {"remove source", &Twins::remove_source},
            {"add layer", &Twins::add_layer},
            {"remove layer", &Twins::remove_layer},
            {"add mesh data", &Twins::add_mesh},
            {"add mesh data", &Twins::add_mesh},
            {"remove mesh data", &Twins::remove_mesh},
            {"add exodus", &Twins::add_exodus},
            {"remove exodus", &Twins::remove_exodus},
            {"add fea", &Twins::add_fea},
            {"remove fea", &Twins::remove_fea},
            {"change fea id", &Twins::change_fea_id},
            {"add cfd", &Twins::add_cfd},
            {"remove cfd", &Twins::remove_cfd},
            {"change cfd id", &Twins::change_cfd_id},
            {"add material", &Twins::add_material},
            {"remove material", &Twins::remove_material},
            {"add link", &Twins::add_link},
            {"add link", &Twins::add_link},
            {"add link", &Twins::add_link},
            {"remove link", &Twins::remove_link},
            {"run event loop", &Twins::run_events},
        };
        static const std::vector<std::pair<const char*, void (Twins::*)()>> rare{
            {"clear geometry", &Twins::clear_geometry},
            {"clear groups", &Twins::clear_groups},
            {"clear a kind of mesh", &Twins::clear_mesh_kind},
            {"clear a kind of simulation", &Twins::clear_simulation_kind},
            {"renew geometry", &Twins::renew_geometry},
            {"renew groups", &Twins::renew_groups},
            {"renew mesh", &Twins::renew_mesh},
            {"renew simulation", &Twins::renew_simulation},
        };
        m_ordered = true;
        const auto& operations = draw(400) == 0 ? rare : frequent;
        const auto& [name, operation] = operations[draw(operations.size())];
        (this->*operation)();
        return name;
    }

    // Empty if signals and their order agree.
    std::string difference_of_logs()
    {
        Log real = std::exchange(m_mirror.log, {});
        Log expected = std::exchange(m_reference.log, {});
        if (!m_ordered) {
            std::sort(real.begin(), real.end());
            std::sort(expected.begin(), expected.end());
        }
        m_mirror.forget_dead();
        return real == expected ? std::string()
                                : "emitted: " + joined(real) + "\nexpected: " + joined(expected);
    }

    // Empty if every list and every link agrees, and all come in the right order.
    std::string difference_of_states()
    {
        std::string result;
        const auto check = [&](const char* what, const auto& found, std::vector<int> expected,
                               bool by_address) {
            std::vector<int> serials = m_mirror.serials_of(found);
            if (by_address) {
                if (!std::is_sorted(found.begin(), found.end(), std::less<>())) {
                    result += std::string(what) + " are out of order\n";
                }
                std::sort(serials.begin(), serials.end());
                std::sort(expected.begin(), expected.end());
            }
            if (serials != expected) {
                result += std::string(what) + " differ\n";
            }
        };
        for (int type = 0; type < 2; ++type) {
            check("geometry", m_mirror.geometry->geometry_data(geometry_types[type]),
                listed(Geometry, type), false);
            check("fea", m_mirror.simulation->fea_bcs(fea_types[type]), listed(Fea, type), false);
            check("cfd", m_mirror.simulation->cfd_bcs(cfd_types[type]), listed(Cfd, type), false);
            check("materials", m_mirror.simulation->materials(type), listed_materials(type), false);
        }
        for (int type = 0; type < exodus_types; ++type) {
            check("exodus", m_mirror.simulation->exodus_entities(TreeExodusData::ExodusType(type)),
                listed(Exodus, type), false);
        }
        check("groups", m_mirror.groups->groups(), listed(Group, 0), false);
        check("sources", m_mirror.mesh->sizing_sources(), listed(Source, 0), false);
        check("layers", m_mirror.mesh->boundary_layers(), listed(Layer, 0), false);
        std::vector<int> all_mesh;
        for (const auto& [key, record] : m_reference.mesh) {
            all_mesh.push_back(record);
        }
        std::vector<int> real_mesh = m_mirror.serials_of(m_mirror.mesh->mesh_data());
        std::sort(real_mesh.begin(), real_mesh.end());
        std::sort(all_mesh.begin(), all_mesh.end());
        if (real_mesh != all_mesh) {
            result += "mesh data differ\n";
        }
        for (const auto& [serial, record] : m_reference.records) {
            auto* real = m_mirror.record<TreeData>(serial);
            check("groups of a member", m_mirror.groups->find_groups_for_child(real),
                firsts(m_reference.members, serial), true);
            check("mesh data of an owner", m_mirror.mesh->mesh_data(real), mesh_of(serial), false);
            if (real->id() != record.id) {
                result += "an id differs\n";
            }
            check_links(check, serial, record.kind);
        }
        return result;
    }

private:
    using Pairs = std::set<Reference::Pair>;

    template <typename Check>
    void check_links(const Check& check, int serial, Kind kind)
    {
        TreeSimModel& simulation = *m_mirror.simulation;
        if (kind == Group) {
            check("members",
                m_mirror.groups->find_group_children(m_mirror.record<TreeGroupData>(serial)),
                seconds(m_reference.members, serial), true);
        } else if (kind == Fea) {
            check("exodus of a fea",
                simulation.find_exodus_from_fea(m_mirror.record<TreeFeaBCData>(serial)),
                seconds(m_reference.links, serial), true);
        } else if (kind == Cfd) {
            check("exodus of a cfd",
                simulation.find_exodus_from_cfd(m_mirror.record<TreeCfdBCData>(serial)),
                seconds(m_reference.links, serial), true);
        } else if (kind == Exodus) {
            auto* exodus = m_mirror.record<TreeExodusData>(serial);
            check("fea of an exodus", simulation.find_fea_from_exodus(exodus),
                of_kind(Fea, firsts(m_reference.links, serial)), true);
            check("cfd of an exodus", simulation.find_cfd_from_exodus(exodus),
                of_kind(Cfd, firsts(m_reference.links, serial)), true);
        }
    }

    static std::vector<int> firsts(const Pairs& pairs, int second)
    {
        std::vector<int> result;
        for (const auto& pair : pairs) {
            if (pair.second == second) {
                result.push_back(pair.first);
            }
        }
        return result;
    }

    static std::vector<int> seconds(const Pairs& pairs, int first)
    {
        std::vector<int> result;
        for (auto pair = pairs.lower_bound({first, none}); pair != pairs.end(); ++pair) {
            if (pair->first != first) {
                break;
            }
            result.push_back(pair->second);
        }
        return result;
    }

    std::vector<int> of_kind(Kind kind, std::vector<int> serials) const
    {
        std::erase_if(
            serials, [&](int serial) { return m_reference.records.at(serial).kind != kind; });
        return serials;
    }

    std::vector<int> listed(Kind kind, int type) const
    {
        std::vector<int> result;
        for (const auto& [key, serial] : m_reference.by_id) {
            if (std::get<Kind>(key) == kind && m_reference.records.at(serial).type == type) {
                result.push_back(serial);
            }
        }
        return result;
    }

    std::vector<int> listed_materials(int is_cfd) const
    {
        std::vector<int> result = listed(Material, 0);
        std::erase_if(
            result, [&](int serial) { return m_reference.records.at(serial).value != is_cfd; });
        return result;
    }

    std::vector<int> mesh_of(int owner) const
    {
        std::vector<int> result;
        for (int type = 0; type < mesh_types; ++type) {
            const auto entry = m_reference.mesh.find({owner, type});
            if (entry != m_reference.mesh.end()) {
                result.push_back(entry->second);
            }
        }
        return result;
    }

    int draw(std::size_t below) { return int(m_random() % below); }
    int draw_id() { return draw(ids); }

    // A living record that passes, whatever model it is in or has left.
    template <typename Passes>
    int draw_record(Passes passes)
    {
        const auto& records = m_reference.records;
        if (records.empty()) {
            return none;
        }
        auto entry = records.lower_bound(draw(m_reference.next_serial));
        const int first = records.begin()->first;
        for (int tries = 0; tries < 50; ++tries, ++entry) {
            if (entry == records.end()) {
                entry = records.lower_bound(first);
            }
            if (passes(entry->second)) {
                return entry->first;
            }
        }
        return none;
    }

    int draw_kind(Kind kind)
    {
        return draw_record([kind](const auto& record) { return record.kind == kind; });
    }

    int draw_any()
    {
        return draw_record([](const auto&) { return true; });
    }

    int draw_owner()
    {
        return draw_record([](const auto& record) { return record.kind != Mesh; });
    }

    // A condition, which may be displaced or on its way out.
    int draw_condition()
    {
        return draw_record(
            [](const auto& record) { return record.kind == Fea || record.kind == Cfd; });
    }

    void add_geometry()
    {
        const int type = draw(2), id = draw_id();
        m_reference.add(Geometry, type, id);
        m_mirror.geometry->add_geometry(geometry_types[type], id, nullptr);
    }

    void remove_geometry()
    {
        const int type = draw(2), id = draw_id();
        m_reference.remove(Geometry, type, id);
        m_mirror.geometry->remove_geometry(geometry_types[type], id);
    }

    void change_geometry_id()
    {
        const int type = draw(2), old_id = draw_id(), new_id = draw_id();
        m_reference.change_id(Geometry, type, old_id, new_id);
        m_mirror.geometry->change_geometry_id(geometry_types[type], old_id, new_id);
    }

    void add_group()
    {
        static const char* const names[]{"", "lid", "rim", "Entity 3"};
        const int id = draw_id();
        const char* name = names[draw(4)];
        m_reference.add_group(name, id);
        m_mirror.groups->add_group(name, id);
    }

    void remove_group()
    {
        const int id = draw_id();
        m_reference.remove(Group, 0, id);
        m_mirror.groups->remove_group(id);
    }

    void change_group_id()
    {
        const int old_id = draw_id(), new_id = draw_id();
        m_reference.change_id(Group, 0, old_id, new_id);
        m_mirror.groups->change_group_id(old_id, new_id);
    }

    void add_member_of(int group, int child)
    {
        if (group != none) {
            m_reference.add_member(group, child);
            m_mirror.groups->add_group_child(
                m_mirror.record<TreeGroupData>(group), m_mirror.record<TreeData>(child));
        }
    }

    void add_member() { add_member_of(draw_kind(Group), draw_any()); }

    void add_own_member()
    {
        const int group = draw_kind(Group);
        add_member_of(group, group);
    }

    void remove_member()
    {
        const auto& members = m_reference.members;
        if (members.empty()) {
            return;
        }
        auto pair = members.lower_bound({draw(m_reference.next_serial), none});
        const auto [group, child] = pair == members.end() ? *members.begin() : *pair;
        m_reference.remove_member(group, child);
        m_mirror.groups->remove_group_child(
            m_mirror.record<TreeGroupData>(group), m_mirror.record<TreeData>(child));
    }

    void add_source()
    {
        const int id = draw_id();
        m_reference.add(Source, 0, id);
        m_mirror.mesh->add_sizing_source(id);
    }

    void remove_source()
    {
        const int id = draw_id();
        m_reference.remove(Source, 0, id);
        m_mirror.mesh->remove_sizing_source(id);
    }

    void add_layer()
    {
        const int id = draw_id();
        m_reference.add(Layer, 0, id);
        m_mirror.mesh->add_boundary_layer(id);
    }

    void remove_layer()
    {
        const int id = draw_id();
        m_reference.remove(Layer, 0, id);
        m_mirror.mesh->remove_boundary_layer(id);
    }

    void add_mesh()
    {
        const int owner = draw_owner(), type = draw(mesh_types), count = draw(3);
        if (owner != none) {
            m_reference.add_mesh(type, count, owner);
            m_mirror.mesh->add_mesh_data(
                TreeMeshData::MeshType(type), count, m_mirror.record<TreeData>(owner));
        }
    }

    void remove_mesh()
    {
        const int owner = draw_owner(), type = draw(mesh_types);
        if (owner != none) {
            m_reference.remove_mesh(type, owner);
            m_mirror.mesh->remove_mesh_data(
                TreeMeshData::MeshType(type), m_mirror.record<TreeData>(owner));
        }
    }

    void add_exodus()
    {
        const int type = draw(exodus_types), id = draw_id();
        m_reference.add(Exodus, type, id);
        m_mirror.simulation->add_exodus(TreeExodusData::ExodusType(type), id);
    }

    void remove_exodus()
    {
        const int type = draw(exodus_types), id = draw_id();
        m_reference.remove(Exodus, type, id);
        m_mirror.simulation->remove_exodus(TreeExodusData::ExodusType(type), id);
    }

    void add_fea()
    {
        const int type = draw(2), id = draw_id();
        m_reference.add(Fea, type, id);
        m_mirror.simulation->add_fea_bc(fea_types[type], id);
    }

    void remove_fea()
    {
        const int type = draw(2), id = draw_id();
        m_reference.remove(Fea, type, id);
        m_mirror.simulation->remove_fea_bc(fea_types[type], id);
    }

    void change_fea_id()
    {
        const int type = draw(2), old_id = draw_id(), new_id = draw_id();
        m_reference.change_id(Fea, type, old_id, new_id);
        m_mirror.simulation->change_fea_bc_id(fea_types[type], old_id, new_id);
    }

    void add_cfd()
    {
        const int type = draw(2), id = draw_id();
        m_reference.add(Cfd, type, id);
        m_mirror.simulation->add_cfd_bc(cfd_types[type], id);
    }

    void remove_cfd()
    {
        const int id = draw_id();
        m_reference.remove(Cfd, 0, id);
        m_mirror.simulation->remove_cfd_bc(id);
    }

    void change_cfd_id()
    {
        const int old_id = draw_id(), new_id = draw_id();
        m_reference.change_id(Cfd, 0, old_id, new_id);
        m_mirror.simulation->change_cfd_bc_id(old_id, new_id);
    }

    void add_material()
    {
        const int id = draw_id();
        const bool is_cfd = draw(2);
        m_reference.add(Material, 0, id, is_cfd);
        m_mirror.simulation->add_material(id, is_cfd);
    }

    void remove_material()
    {
        const int id = draw_id();
        m_reference.remove(Material, 0, id);
        m_mirror.simulation->remove_material(id);
    }

    void add_link()
    {
        const int condition = draw_condition(), exodus = draw_kind(Exodus);
        if (condition == none || exodus == none) {
            return;
        }
        m_reference.add_link(condition, exodus);
        auto* entity = m_mirror.record<TreeExodusData>(exodus);
        if (m_reference.records.at(condition).kind == Fea) {
            m_mirror.simulation->fea_add_exodus(m_mirror.record<TreeFeaBCData>(condition), entity);
        } else {
            m_mirror.simulation->cfd_add_exodus(m_mirror.record<TreeCfdBCData>(condition), entity);
        }
    }

    void remove_link()
    {
        const auto& links = m_reference.links;
        if (links.empty()) {
            return;
        }
        auto pair = links.lower_bound({draw(m_reference.next_serial), none});
        const auto [condition, exodus] = pair == links.end() ? *links.begin() : *pair;
        auto* entity = m_mirror.record<TreeExodusData>(exodus);
        m_reference.remove_link(condition, exodus);
        if (m_reference.records.at(condition).kind == Fea) {
            m_mirror.simulation->fea_remove_exodus(
                m_mirror.record<TreeFeaBCData>(condition), entity);
        } else {
            m_mirror.simulation->cfd_remove_exodus(
                m_mirror.record<TreeCfdBCData>(condition), entity);
        }
    }

    void run_events()
    {
        m_reference.run_event_loop();
        run_event_loop();
    }

    void clear_geometry()
    {
        m_reference.clear(Geometry);
        m_mirror.geometry->clear();
    }

    void clear_groups()
    {
        m_reference.clear(Group);
        m_mirror.groups->clear();
    }

    void clear_mesh_kind()
    {
        static const std::pair<Kind, void (TreeMeshModel::*)()> kinds[]{
            {Source, &TreeMeshModel::clear_sizing_sources},
            {Layer, &TreeMeshModel::clear_boundary_layers},
            {Mesh, &TreeMeshModel::clear_mesh_data}};
        const auto& [kind, clear] = kinds[draw(3)];
        m_ordered = false; // owners go in the order of their addresses
        m_reference.clear(kind);
        (m_mirror.mesh.get()->*clear)();
    }

    void clear_simulation_kind()
    {
        static const std::pair<Kind, void (TreeSimModel::*)()> kinds[]{
            {Exodus, &TreeSimModel::clear_exodus}, {Fea, &TreeSimModel::clear_fea},
            {Cfd, &TreeSimModel::clear_cfd}, {Material, &TreeSimModel::clear_material}};
        const auto& [kind, clear] = kinds[draw(4)];
        m_reference.clear(kind);
        (m_mirror.simulation.get()->*clear)();
    }

    void renew_geometry()
    {
        m_reference.end_model({Geometry});
        m_mirror.geometry.reset();
        m_mirror.start_geometry();
    }

    void renew_groups()
    {
        m_reference.end_model({Group});
        m_mirror.groups.reset();
        m_mirror.start_groups();
    }

    void renew_mesh()
    {
        m_ordered = false; // owners go in the order of their addresses
        m_reference.end_model({Layer, Source, Mesh});
        m_mirror.mesh.reset();
        m_mirror.start_mesh();
    }

    void renew_simulation()
    {
        m_ordered = false; // displaced conditions of both kinds go in one sequence
        run_events();
        m_reference.end_model({Exodus, Fea, Cfd, Material});
        m_mirror.simulation.reset();
        m_mirror.start_simulation();
    }

    std::mt19937 m_random;
    Reference m_reference;
    Mirror m_mirror;
    bool m_ordered = true;
};

} // namespace

void tst_RandomOperations::modelsAgreeWithAPlainReference_data()
{
    add_seeds(4);
}

void tst_RandomOperations::modelsAgreeWithAPlainReference()
{
    QFETCH(int, seed);
    Twins twins(seed);
    const int number = operations() / 4;
    for (int i = 0; i < number; ++i) {
        const char* operation = twins.step();
        std::string difference = twins.difference_of_logs();
        if (i % 50 == 0 || i == number - 1) {
            difference += twins.difference_of_states();
        }
        if (!difference.empty()) {
            QFAIL(qPrintable(QStringLiteral("operation %1, %2:\n%3")
                                 .arg(i)
                                 .arg(operation, QString::fromStdString(difference))));
        }
    }
}

namespace {

/// Models whose signals have random operations carried out inside them.
class Chaos
{
public:
    explicit Chaos(int seed)
        : m_random(seed)
    {
        listen(&geometry, &TreeGeomModel::geometry_added, &TreeGeomModel::geometry_removed);
        listen(&groups, &TreeGroupModel::group_added, &TreeGroupModel::group_removed,
            &TreeGroupModel::group_child_added, &TreeGroupModel::group_child_removed);
        listen(&mesh, &TreeMeshModel::mesh_data_added, &TreeMeshModel::mesh_data_removed,
            &TreeMeshModel::sizing_source_added, &TreeMeshModel::sizing_source_removed);
        listen(&simulation, &TreeSimModel::exodus_entity_added,
            &TreeSimModel::exodus_entity_removed, &TreeSimModel::fea_bc_added,
            &TreeSimModel::fea_bc_removed, &TreeSimModel::cfd_bc_added,
            &TreeSimModel::cfd_bc_removed, &TreeSimModel::exodus_added_to_fea,
            &TreeSimModel::exodus_added_to_cfd, &TreeSimModel::exodus_removed_from_fea,
            &TreeSimModel::exodus_removed_from_cfd);
    }

    ~Chaos()
    {
        m_depth = max_depth;
        run_event_loop();
    }

    void step()
    {
        const int id = draw(6), other = draw(6);
        TreeGroupData* group = groups.find_group(id);
        TreeExodusData* exodus = simulation.find_exodus(TreeExodusData::SIDESET, other);
        const auto type = TreeMeshData::MeshType(draw(mesh_types));
        switch (draw(26)) {
        case 0:
        case 1:
            return watch(geometry.add_geometry(TreeGeometryData::SURFACE, id,
                geometry.find_geometry(TreeGeometryData::SURFACE, other)));
        case 2:
            return geometry.remove_geometry(TreeGeometryData::SURFACE, id);
        case 3:
            return geometry.change_geometry_id(TreeGeometryData::SURFACE, id, other);
        case 4:
        case 5:
            return watch(groups.add_group(other ? "lid" : "", id));
        case 6:
            return groups.remove_group(id);
        case 7:
            return groups.change_group_id(id, other);
        case 8:
        case 9:
        case 10:
            return groups.add_group_child(group, any_record());
        case 11:
            return groups.remove_group_child(group, any_record());
        case 12:
        case 13:
            return watch(mesh.add_mesh_data(type, other, any_record()));
        case 14:
            return mesh.remove_mesh_data(type, any_record());
        case 15:
            mesh.add_sizing_source(id);
            return mesh.remove_sizing_source(other);
        case 16:
            watch(simulation.add_exodus(TreeExodusData::SIDESET, id));
            return simulation.remove_exodus(TreeExodusData::SIDESET, draw(20));
        case 17:
            watch(simulation.add_fea_bc(TreeFeaBCData::FORCE, id));
            return simulation.remove_fea_bc(TreeFeaBCData::FORCE, draw(20));
        case 18:
            watch(simulation.add_cfd_bc(TreeCfdBCData::WALL, id));
            return simulation.remove_cfd_bc(draw(20));
        case 19:
            return simulation.change_fea_bc_id(TreeFeaBCData::FORCE, id, other);
        case 20:
            return simulation.change_cfd_bc_id(id, other);
        case 21:
            return simulation.fea_add_exodus(
                simulation.find_fea_bc(TreeFeaBCData::FORCE, id), exodus);
        case 22:
            return simulation.cfd_add_exodus(simulation.find_cfd_bc(id), exodus);
        case 23:
            simulation.fea_remove_exodus(simulation.find_fea_bc(TreeFeaBCData::FORCE, id), exodus);
            return simulation.cfd_remove_exodus(simulation.find_cfd_bc(id), exodus);
        case 24:
            return replace_condition(id, exodus);
        default:
            return draw(10) == 0 ? clear() : run_event_loop();
        }
    }

    // Reads through every pointer that the models give out.
    bool all_links_lead_to_living_records()
    {
        int read = 0;
        for (TreeGroupData* group : groups.groups()) {
            for (TreeData* child : groups.find_group_children(group)) {
                const auto back = groups.find_groups_for_child(child);
                read += child->name().size();
                if (std::find(back.begin(), back.end(), group) == back.end()) {
                    return false;
                }
            }
        }
        for (TreeMeshData* record : mesh.mesh_data()) {
            read += record->name().size();
        }
        for (TreeExodusData* exodus : simulation.exodus_entities(TreeExodusData::SIDESET)) {
            for (TreeFeaBCData* bc : simulation.find_fea_from_exodus(exodus)) {
                read += bc->name().size();
            }
            for (TreeCfdBCData* bc : simulation.find_cfd_from_exodus(exodus)) {
                read += bc->name().size();
            }
        }
        return read >= 0;
    }

    TreeGeomModel geometry;
    TreeGroupModel groups;
    TreeMeshModel mesh;
    TreeSimModel simulation;

private:
    static constexpr int max_depth = 3;

    template <typename Model, typename... Signals>
    void listen(Model* model, Signals... signals)
    {
        (QObject::connect(model, signals, model, [this] { perhaps_step(); }), ...);
    }

    // Has things happen inside the record's own signals, its death included.
    void watch(TreeData* record)
    {
        if (record) {
            QObject::connect(record, &TreeData::id_changed, record, [this] { perhaps_step(); });
            QObject::connect(
                record, &TreeData::treedata_destroyed, record, [this] { perhaps_step(); });
        }
    }

    void perhaps_step()
    {
        if (m_depth < max_depth && draw(3) == 0) {
            ++m_depth;
            step();
            --m_depth;
        }
    }

    // A fluid condition changes its type: the outgoing record is still linked.
    void replace_condition(int id, TreeExodusData* exodus)
    {
        TreeCfdBCData* outgoing = simulation.find_cfd_bc(id);
        if (outgoing && exodus && m_depth == 0) {
            m_depth = max_depth; // it is held across the removal here
            simulation.remove_cfd_bc(id);
            simulation.add_cfd_bc(TreeCfdBCData::AXIS, id);
            simulation.cfd_add_exodus(outgoing, exodus);
            m_depth = 0;
        }
    }

    void clear()
    {
        switch (draw(4)) {
        case 0:
            return geometry.clear();
        case 1:
            return groups.clear();
        case 2:
            return mesh.clear();
        default:
            return simulation.clear();
        }
    }

    TreeData* any_record()
    {
        const int id = draw(6);
        switch (draw(5)) {
        case 0:
        case 1:
            return geometry.find_geometry(TreeGeometryData::SURFACE, id);
        case 2:
            return groups.find_group(id);
        case 3:
            return simulation.find_cfd_bc(id);
        default: {
            const auto records = mesh.mesh_data();
            return records.empty() ? nullptr : records[draw(records.size())];
        }
        }
    }

    int draw(std::size_t below) { return int(m_random() % below); }

    std::mt19937 m_random;
    int m_depth = 0;
};

} // namespace

void tst_RandomOperations::receiversMayCallAnythingAtAnyTime_data()
{
    add_seeds(4);
}

void tst_RandomOperations::receiversMayCallAnythingAtAnyTime()
{
    QFETCH(int, seed);
    Chaos chaos(seed);
    const int number = operations() / 4;
    for (int i = 0; i < number; ++i) {
        chaos.step();
        if (i % 10 == 0) {
            QVERIFY2(chaos.all_links_lead_to_living_records(),
                qPrintable(QStringLiteral("after operation %1").arg(i)));
        }
    }
}

QTEST_GUILESS_MAIN(tst_RandomOperations)
#include "tst_RandomOperations.moc"
