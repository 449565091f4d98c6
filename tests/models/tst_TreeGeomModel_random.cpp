#include <optional>
#include <QTest>
#include <random>
#include <set>
#include <support/EventLog.hpp>
#include <support/SignalRecorder.hpp>
#include <treemodel/models/TreeGeomModel.hpp>

using Type = TreeGeometryData::GeometryType;

namespace {

using Key = std::pair<int, int>; // type and id

QString text(const Key& key)
{
    return QString::fromStdString(TreeGeometryData::type_to_string(Type(key.first))) + ' ' +
           QString::number(key.second);
}

// What a model holds, without any of its means.
struct Picture
{
    std::set<Key> records;
    std::set<std::pair<Key, Key>> links;

    bool operator==(const Picture&) const = default;

    QString text() const
    {
        QStringList words;
        for (const Key& record : records) {
            words << ::text(record);
        }
        for (const auto& [parent, child] : links) {
            words << ::text(parent) + " > " + ::text(child);
        }
        return words.join(", ");
    }
};

struct Step
{
    enum Kind { ADD, REMOVE, RENUMBER, RENAME, LINK, UNLINK, CLEAR };

    Kind kind;
    Key first;
    Key second;

    QString text() const
    {
        static const char* const words[]{
            "add", "remove", "renumber", "rename", "link", "unlink", "clear"};
        return QString("%1 (%2) (%3)").arg(words[kind], ::text(first), ::text(second));
    }
};

// Few ids, so that steps meet; one type too many; a clear only now and then.
Step random_step(std::mt19937& random)
{
    const auto below = [&random](unsigned limit) { return int(random() % limit); };
    static const Step::Kind kinds[]{Step::ADD, Step::ADD, Step::ADD, Step::ADD, Step::REMOVE,
        Step::REMOVE, Step::RENUMBER, Step::RENAME, Step::LINK, Step::LINK, Step::UNLINK,
        Step::UNLINK};
    const Step::Kind kind = below(60) == 0 ? Step::CLEAR : kinds[below(std::size(kinds))];
    const Key first(below(6), below(5));
    return {kind, first, {below(6), below(5)}};
}

void run(TreeGeomModel& model, const Step& step)
{
    const auto [type, id] = step.first;
    const auto find = [&model](
                          Key key) { return model.find_geometry(Type(key.first), key.second); };
    switch (step.kind) {
    case Step::ADD:
        model.add_geometry(Type(type), id, find(step.second));
        break;
    case Step::REMOVE:
        model.remove_geometry(Type(type), id);
        break;
    case Step::RENUMBER:
        model.change_geometry_id(Type(type), id, step.second.second);
        break;
    case Step::RENAME:
        if (TreeGeometryData* record = find(step.first)) {
            record->set_name("Lid");
        }
        break;
    case Step::LINK:
        model.associate_geometry(find(step.first), find(step.second));
        break;
    case Step::UNLINK:
        model.disassociate_geometry(find(step.first), find(step.second));
        break;
    case Step::CLEAR:
        model.clear();
        break;
    }
}

// The same steps on plain sets, and the signals that they should cause.
class Reference
{
public:
    QStringList run(const Step& step)
    {
        const auto& [kind, first, second] = step;
        const bool known = m_picture.records.contains(first);
        const bool other_known = m_picture.records.contains(second);
        switch (kind) {
        case Step::ADD:
            return first.first > TreeGeometryData::BODY ? QStringList()
                   : known                              ? link(second, first)
                                                        : add(first, second);
        case Step::REMOVE:
            return known ? remove(first) : QStringList();
        case Step::RENUMBER:
            return known ? renumber(first, {first.first, second.second}) : QStringList();
        case Step::RENAME:
            return known && m_named.insert(first).second
                       ? QStringList(text(first) + ": name_changed(Lid)")
                       : QStringList();
        case Step::LINK:
            return link(first, second);
        case Step::UNLINK:
            return known && other_known && m_picture.links.erase({first, second})
                       ? QStringList(
                             "association_removed(" + text(first) + ", " + text(second) + ')')
                       : QStringList();
        case Step::CLEAR:
            return clear();
        }
        return {};
    }

    const Picture& picture() const { return m_picture; }

private:
    QStringList add(const Key& record, const Key& parent)
    {
        const bool has_parent = m_picture.records.contains(parent);
        m_picture.records.insert(record);
        if (has_parent) {
            m_picture.links.insert({parent, record});
        }
        return {
            "geometry_added(" + text(record) + ", " + (has_parent ? text(parent) : "null") + ')'};
    }

    QStringList link(const Key& parent, const Key& child)
    {
        const auto& records = m_picture.records;
        return records.contains(parent) && records.contains(child) &&
                       m_picture.links.insert({parent, child}).second
                   ? QStringList("association_added(" + text(parent) + ", " + text(child) + ')')
                   : QStringList();
    }

    QStringList remove(const Key& record)
    {
        m_picture.records.erase(record);
        m_named.erase(record);
        std::erase_if(m_picture.links,
            [&record](const auto& link) { return link.first == record || link.second == record; });
        return {"geometry_removed(" + text(record) + ')', death(record)};
    }

    QStringList renumber(const Key& before, const Key& after)
    {
        if (m_picture.records.contains(after)) {
            return {};
        }
        m_picture.records.erase(before);
        m_picture.records.insert(after);
        std::set<std::pair<Key, Key>> links;
        for (const auto& [parent, child] : m_picture.links) {
            links.insert({parent == before ? after : parent, child == before ? after : child});
        }
        m_picture.links = links;
        QStringList events(text(after) + QString(": id_changed(%1)").arg(after.second));
        if (m_named.erase(before)) {
            m_named.insert(after);
        } else {
            QString name = text(after);
            name[0] = name[0].toUpper();
            events << text(after) + ": name_changed(" + name + ')';
        }
        return events;
    }

    QStringList clear()
    {
        QStringList events("about_to_clear()");
        for (int type = TreeGeometryData::BODY; type >= TreeGeometryData::VERTEX; --type) {
            for (const Key& record : m_picture.records) {
                if (record.first == type) {
                    events << death(record);
                }
            }
        }
        m_picture = {};
        m_named.clear();
        return events;
    }

    static QString death(const Key& record)
    {
        return text(record) + ": treedata_destroyed(" + text(record) + ')';
    }

    Picture m_picture;
    std::set<Key> m_named;
};

// What a model answers. Empty if its two ways of telling a link differ.
std::optional<Picture> picture_of(TreeGeomModel& model)
{
    const auto key = [](TreeGeometryData* record) {
        return Key(record->geometry_type(), record->id());
    };
    Picture picture;
    std::set<std::pair<Key, Key>> seen_from_below;
    for (int type = TreeGeometryData::VERTEX; type <= TreeGeometryData::BODY; ++type) {
        for (TreeGeometryData* record : model.geometry_data(Type(type))) {
            picture.records.insert(key(record));
            for (TreeGeometryData* child : model.find_geometry_children(record)) {
                picture.links.insert({key(record), key(child)});
            }
            for (TreeGeometryData* parent : model.find_geometry_parents(record)) {
                seen_from_below.insert({key(parent), key(record)});
            }
        }
    }
    return picture.links == seen_from_below ? std::optional(picture) : std::nullopt;
}

// Knows the model by its signals alone.
class Listener : public QObject
{
public:
    explicit Listener(TreeGeomModel& model)
    {
        using Record = TreeGeometryData*;
        connect(&model, &TreeGeomModel::geometry_added, this, [this](Record geom, Record parent) {
            m_records.insert(geom);
            if (parent) {
                m_links.insert({parent, geom});
            }
        });
        connect(&model, &TreeGeomModel::geometry_removed, this, [this](Record geom) {
            m_records.erase(geom);
            std::erase_if(m_links,
                [geom](const auto& link) { return link.first == geom || link.second == geom; });
        });
        connect(
            &model, &TreeGeomModel::association_added, this, [this](Record parent, Record child) {
                m_links.insert({parent, child});
            });
        connect(
            &model, &TreeGeomModel::association_removed, this, [this](Record parent, Record child) {
                m_links.erase({parent, child});
            });
        connect(&model, &TreeGeomModel::about_to_clear, this, [this] {
            m_records.clear();
            m_links.clear();
        });
    }

    Picture picture() const
    {
        const auto key = [](TreeGeometryData* record) {
            return Key(record->geometry_type(), record->id());
        };
        Picture result;
        for (TreeGeometryData* record : m_records) {
            result.records.insert(key(record));
        }
        for (const auto& [parent, child] : m_links) {
            result.links.insert({key(parent), key(child)});
        }
        return result;
    }

private:
    std::set<TreeGeometryData*> m_records;
    std::set<std::pair<TreeGeometryData*, TreeGeometryData*>> m_links;
};

// Takes further steps from inside the signals of the model and of its records.
class Meddler : public QObject
{
public:
    Meddler(TreeGeomModel& model, std::mt19937& random, QStringList& steps)
        : m_model(model)
        , m_random(random)
        , m_steps(steps)
    {
        connect(&model, &TreeGeomModel::geometry_added, this, [this](TreeGeometryData* geom) {
            connect(geom, &TreeData::id_changed, this, [this] { meddle("id_changed"); });
            connect(geom, &TreeData::name_changed, this, [this] { meddle("name_changed"); });
            meddle("geometry_added");
        });
        connect(
            &model, &TreeGeomModel::geometry_removed, this, [this] { meddle("geometry_removed"); });
        connect(&model, &TreeGeomModel::association_added, this,
            [this] { meddle("association_added"); });
        connect(&model, &TreeGeomModel::association_removed, this,
            [this] { meddle("association_removed"); });
    }

private:
    void meddle(const char* signal)
    {
        if (m_depth == 4 || m_random() % 3 != 0) {
            return;
        }
        const Step step = random_step(m_random);
        ++m_depth;
        m_steps << QString("  in %1, depth %2: %3").arg(signal).arg(m_depth).arg(step.text());
        run(m_model, step);
        --m_depth;
    }

    TreeGeomModel& m_model;
    std::mt19937& m_random;
    QStringList& m_steps;
    int m_depth = 0;
};

QString report(unsigned seed, const QStringList& steps, const QString& difference)
{
    return QString("seed %1, after the steps\n%2\n%3").arg(seed).arg(steps.join('\n'), difference);
}

// The first difference between the model and the two that should equal it, or nothing.
QString difference(TreeGeomModel& model, const Picture& expected, const char* whose)
{
    const std::optional<Picture> actual = picture_of(model);
    if (!actual) {
        return "parents and children do not fit";
    }
    return *actual == expected
               ? QString()
               : QString("model: %1\n%2: %3").arg(actual->text(), whose, expected.text());
}

constexpr unsigned seeds_in_a_row = 500;
constexpr int steps_in_a_life = 60;

} // namespace

class tst_TreeGeomModel_random : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modelEqualsThePlainReference_data() { rows_of_seeds(5); }
    void modelEqualsThePlainReference();
    void signalsAloneTellThePictureWhateverReceiversDo_data() { rows_of_seeds(3); }
    void signalsAloneTellThePictureWhateverReceiversDo();

private:
    static void rows_of_seeds(unsigned rows);
};

void tst_TreeGeomModel_random::rows_of_seeds(unsigned rows)
{
    QTest::addColumn<unsigned>("first_seed");
    for (unsigned row = 0; row < rows; ++row) {
        QTest::addRow("from seed %u", row * seeds_in_a_row) << row * seeds_in_a_row;
    }
}

void tst_TreeGeomModel_random::modelEqualsThePlainReference()
{
    QFETCH(unsigned, first_seed);
    for (unsigned seed = first_seed; seed < first_seed + seeds_in_a_row; ++seed) {
        std::mt19937 random(seed);
        EventLog log;
        SignalRecorder recorder(log);
        TreeGeomModel model;
        recorder.watch(&model);
        Listener listener(model);
        Reference reference;
        QStringList steps;
        for (int i = 0; i < steps_in_a_life; ++i) {
            const Step step = random_step(random);
            steps << step.text();
            run(model, step);
            const QStringList expected = reference.run(step);
            const QStringList events = log.take();
            if (events != expected) {
                QFAIL(qPrintable(report(seed, steps,
                    "emitted: " + events.join("; ") + "\nexpected: " + expected.join("; "))));
            }
            for (const auto& [picture, whose] : {std::pair(reference.picture(), "reference"),
                     std::pair(listener.picture(), "listener")}) {
                const QString problem = difference(model, picture, whose);
                QVERIFY2(problem.isEmpty(), qPrintable(report(seed, steps, problem)));
            }
        }
    }
}

void tst_TreeGeomModel_random::signalsAloneTellThePictureWhateverReceiversDo()
{
    QFETCH(unsigned, first_seed);
    for (unsigned seed = first_seed; seed < first_seed + seeds_in_a_row; ++seed) {
        std::mt19937 random(seed);
        TreeGeomModel model;
        Listener listener(model);
        QStringList steps;
        Meddler meddler(model, random, steps);
        for (int i = 0; i < steps_in_a_life; ++i) {
            const Step step = random_step(random);
            steps << step.text();
            run(model, step);
            const QString problem = difference(model, listener.picture(), "listener");
            QVERIFY2(problem.isEmpty(), qPrintable(report(seed, steps, problem)));
        }
    }
}

QTEST_GUILESS_MAIN(tst_TreeGeomModel_random)
#include "tst_TreeGeomModel_random.moc"
