#include <algorithm>
#include <importers/ModelPack.hpp>
#include <limits>
#include <QRandomGenerator>
#include <QStringList>
#include <QTest>

namespace {

using Ids = std::vector<int>;

QString text(const Ids& ids)
{
    QStringList words;
    for (const int id : ids) {
        words << QString::number(id);
    }
    return words.join(QLatin1Char(','));
}

QString text(const ModelData::Entity& entity)
{
    return QStringLiteral("'%1' visible %2 virtual %3 children %4")
        .arg(QString::fromStdString(entity.name))
        .arg(entity.visible)
        .arg(entity.is_virtual)
        .arg(text(entity.children));
}

QString text(const ModelData::Volume& volume)
{
    return text(static_cast<const ModelData::Entity&>(volume)) +
           QStringLiteral(" sheet %1").arg(volume.is_sheet);
}

QString text(const ElementCounts& counts)
{
    QStringList words;
    for (const auto field : element_count_fields) {
        words << QString::number(counts.*field);
    }
    return words.join(QLatin1Char(','));
}

QString text(const ModelData::Group& group)
{
    return QStringLiteral("'%1' %2; %3; %4; %5; %6; %7 elements %8")
        .arg(QString::fromStdString(group.name), text(group.groups), text(group.bodies),
            text(group.volumes), text(group.surfaces), text(group.curves), text(group.vertices),
            text(group.elements));
}

QString text(const std::string& name)
{
    return QString::fromStdString(name);
}

/// A line for each item, so that a failing comparison reads itself.
QStringList lines(const ModelData& model)
{
    QStringList result;
    const auto add = [&result](const char* kind, const auto& list) {
        for (const auto& item : list) {
            result << QLatin1String(kind) + QLatin1Char(' ') + text(item);
        }
    };
    add("body", model.bodies);
    add("volume", model.volumes);
    add("surface", model.surfaces);
    add("curve", model.curves);
    add("vertex", model.vertices);
    add("group", model.groups);
    add("sizing source", model.sizing_sources);
    add("boundary layer", model.boundary_layers);
    add("block", model.blocks);
    add("sideset", model.sidesets);
    add("nodeset", model.nodesets);
    return result;
}

class RandomModel
{
public:
    explicit RandomModel(quint32 seed, int size)
        : m_random(seed)
        , m_size(size)
    {
    }

    ModelData make()
    {
        ModelData model;
        model.bodies.resize(count());
        model.volumes.resize(count());
        model.surfaces.resize(count());
        model.curves.resize(count());
        model.vertices.resize(count());
        model.groups.resize(count());
        fill(model.bodies, model.volumes.size());
        fill(model.volumes, model.surfaces.size());
        fill(model.surfaces, model.curves.size());
        fill(model.curves, model.vertices.size());
        fill(model.vertices, 0);
        for (auto& volume : model.volumes) {
            volume.is_sheet = flip();
        }
        for (auto& group : model.groups) {
            group = {name(), ids(model.groups.size()), ids(model.bodies.size()),
                ids(model.volumes.size()), ids(model.surfaces.size()), ids(model.curves.size()),
                ids(model.vertices.size()), counts()};
        }
        for (auto* names : {&model.sizing_sources, &model.boundary_layers, &model.blocks,
                 &model.sidesets, &model.nodesets}) {
            names->resize(count());
            std::generate(names->begin(), names->end(), [this] { return name(); });
        }
        return model;
    }

    MeshCounts make_mesh()
    {
        MeshCounts mesh;
        for (auto* entities : {&mesh.volumes, &mesh.surfaces, &mesh.curves, &mesh.vertices}) {
            entities->resize(count());
            std::generate(entities->begin(), entities->end(), [this] { return counts(); });
        }
        return mesh;
    }

private:
    ElementCounts counts()
    {
        static const std::vector<int> numbers{0, 0, 1, 127, 128, std::numeric_limits<int>::max()};
        ElementCounts result;
        for (const auto field : element_count_fields) {
            result.*field = numbers[static_cast<std::size_t>(below(numbers.size()))];
        }
        return result;
    }

    int below(std::size_t limit) { return m_random.bounded(static_cast<int>(limit)); }
    bool flip() { return below(2) == 1; }
    std::size_t count() { return static_cast<std::size_t>(below(m_size + 1)); }

    std::string name()
    {
        static const std::vector<std::string> names{
            {}, "Plate", "Geh\u00e4use", std::string(300, 'n'), std::string("zero\0inside", 11)};
        return names[static_cast<std::size_t>(below(names.size()))];
    }

    Ids ids(std::size_t largest)
    {
        Ids result;
        for (int i = largest > 0 ? below(5) : 0; i > 0; --i) {
            result.push_back(below(largest) + 1);
        }
        return result;
    }

    template <typename List>
    void fill(List& list, std::size_t largest_child)
    {
        for (auto& entity : list) {
            entity.name = name();
            entity.children = ids(largest_child);
            entity.visible = flip();
            entity.is_virtual = flip();
        }
    }

    QRandomGenerator m_random;
    int m_size;
};

bool are_within(const Ids& ids, std::size_t largest)
{
    return std::all_of(ids.begin(), ids.end(),
        [largest](int id) { return id >= 1 && static_cast<std::size_t>(id) <= largest; });
}

template <typename List>
bool children_are_within(const List& list, std::size_t largest)
{
    return std::all_of(list.begin(), list.end(),
        [largest](const auto& entity) { return are_within(entity.children, largest); });
}

bool is_sound(const ModelData& model)
{
    return children_are_within(model.bodies, model.volumes.size()) &&
           children_are_within(model.volumes, model.surfaces.size()) &&
           children_are_within(model.surfaces, model.curves.size()) &&
           children_are_within(model.curves, model.vertices.size()) &&
           children_are_within(model.vertices, 0) &&
           std::all_of(
               model.groups.begin(), model.groups.end(), [&model](const ModelData::Group& group) {
                   return !group.elements.has_negative() &&
                          are_within(group.groups, model.groups.size()) &&
                          are_within(group.bodies, model.bodies.size()) &&
                          are_within(group.volumes, model.volumes.size()) &&
                          are_within(group.surfaces, model.surfaces.size()) &&
                          are_within(group.curves, model.curves.size()) &&
                          are_within(group.vertices, model.vertices.size());
               });
}

} // namespace

class tst_ModelPack : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modelComesBackAsItWas()
    {
        for (quint32 seed = 0; seed < 200; ++seed) {
            const auto model = RandomModel(seed, seed < 100 ? 5 : 300).make();

            const auto copy = unpack_model(pack_model(model));

            QVERIFY2(copy, qPrintable(QString::number(seed)));
            QCOMPARE(lines(*copy), lines(model));
        }
    }

    void emptyModelComesBackEmpty()
    {
        const auto copy = unpack_model(pack_model({}));

        QVERIFY(copy);
        QCOMPARE(lines(*copy), QStringList());
    }

    void cutOffModelIsRefused()
    {
        const auto bytes = pack_model(RandomModel(7, 20).make());
        for (std::size_t size = 0; size < bytes.size(); ++size) {
            QVERIFY2(!unpack_model(std::string_view(bytes).substr(0, size)),
                qPrintable(QString::number(size)));
        }
    }

    void bytesAfterTheModelAreRefused()
    {
        QVERIFY(!unpack_model(pack_model(RandomModel(7, 20).make()) + '\0'));
    }

    void idThatStandsForNothingIsRefused_data()
    {
        QTest::addColumn<int>("id");

        QTest::newRow("zero") << 0;
        QTest::newRow("after the last") << 3;
        QTest::newRow("negative") << -1;
    }

    void idThatStandsForNothingIsRefused()
    {
        QFETCH(int, id);
        ModelData model;
        model.bodies.push_back({"body", {1, id}});
        model.volumes.resize(2);
        QVERIFY(!unpack_model(pack_model(model)));

        model.bodies.front().children = {1, 2};
        model.groups.push_back({"group", {}, {}, {id}, {}, {}, {}, {}});
        QVERIFY(!unpack_model(pack_model(model)));

        model.groups.front().volumes = {2};
        QVERIFY(unpack_model(pack_model(model)));
    }

    void sizesBeyondTheBytesAreRefused_data()
    {
        QTest::addColumn<QByteArray>("bytes");

        QTest::newRow("a million bodies") << QByteArray::fromHex("c0843d0000000000");
        QTest::newRow("many groups") << QByteArray::fromHex("0000000000ffffffff0f");
        QTest::newRow("a number without end") << QByteArray(100, '\xff');
        QTest::newRow("a long name") << QByteArray::fromHex("0000000001000100ffff03");
    }

    void sizesBeyondTheBytesAreRefused()
    {
        QFETCH(QByteArray, bytes);

        QVERIFY(!unpack_model(bytes.toStdString()));
    }

    void changedBytesGiveASoundModelOrNone()
    {
        QRandomGenerator random(11);
        int refused = 0;
        for (quint32 seed = 0; seed < 2000; ++seed) {
            auto bytes = pack_model(RandomModel(seed, 8).make());
            for (int changes = random.bounded(1, 4); changes > 0; --changes) {
                bytes[static_cast<std::size_t>(random.bounded(static_cast<int>(bytes.size())))] =
                    static_cast<char>(random.bounded(256));
            }
            const auto model = unpack_model(bytes);
            refused += model ? 0 : 1;
            QVERIFY2(!model || is_sound(*model), qPrintable(QString::number(seed)));
        }
        QVERIFY2(refused > 0, "no change has done any harm");
    }

    void smallNumbersTakeOneByte()
    {
        ModelData model;
        model.surfaces.push_back({{}, {1, 2, 3, 4}});
        model.curves.resize(4);

        // Eleven sizes; two flags, name and size of children for each; four children.
        QCOMPARE(pack_model(model).size(), std::size_t(11 + 5 * 4 + 4));
    }

    void meshComesBackAsItWas()
    {
        for (quint32 seed = 0; seed < 100; ++seed) {
            const auto mesh = RandomModel(seed, 20).make_mesh();

            const auto copy = unpack_mesh(pack_mesh(mesh));

            QVERIFY2(copy == mesh, qPrintable(QString::number(seed)));
        }
    }

    void cutOffMeshIsRefused()
    {
        const auto bytes = pack_mesh(RandomModel(7, 20).make_mesh());
        for (std::size_t size = 0; size < bytes.size(); ++size) {
            QVERIFY2(!unpack_mesh(std::string_view(bytes).substr(0, size)),
                qPrintable(QString::number(size)));
        }
        QVERIFY(!unpack_mesh(bytes + '\0'));
    }

    void countBeyondAnIntegerIsRefused()
    {
        // One volume, of whose nine counts the nodes are there, and three empty lists.
        const auto mesh_with_nodes = [](const char* number) {
            return QByteArray::fromHex(QByteArray("0101") + number + "000000").toStdString();
        };

        QVERIFY(unpack_mesh(mesh_with_nodes("ffffffff07")));
        QVERIFY(!unpack_mesh(mesh_with_nodes("8080808008")));
    }
};

QTEST_GUILESS_MAIN(tst_ModelPack)
#include "tst_ModelPack.moc"
