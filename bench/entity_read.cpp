#include "entity_data.hpp"
#include "entity_measure.hpp"

#include <QHash>
#include <QIcon>
#include <QImage>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <treemodel/entity/EntityIconFactory.hpp>
#include <treemodel/entity/EntityModel.hpp>

// What views ask a model for.

namespace {

qint64 walk(const QAbstractItemModel& model, const QModelIndex& parent)
{
    qint64 sum = 0;
    const int count = model.rowCount(parent);
    for (int row = 0; row < count; ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        sum += model.data(index, Qt::DisplayRole).toString().size();
        sum += model.parent(index).row();
        sum += walk(model, index);
    }
    return sum;
}

auto walk_model(Shape::Kind kind)
{
    return [kind](benchmark::State& state, int size) {
        measure(
            state,
            [=] {
                return make_entities({kind, size}, 0);
            },
            [](EntityWorld& world) { benchmark::DoNotOptimize(walk(*world.model, {})); });
    };
}

auto walk_standard(Shape::Kind kind)
{
    return [kind](benchmark::State& state, int size) {
        measure(
            state,
            [=] {
                return make_standard({kind, size}, 0).model;
            },
            [](QStandardItemModel* model) { benchmark::DoNotOptimize(walk(*model, {})); });
    };
}

auto walk_widget(Shape::Kind kind)
{
    return [kind](benchmark::State& state, int size) {
        measure(
            state,
            [=] {
                return make_widget({kind, size}).model();
            },
            [](QAbstractItemModel* model) { benchmark::DoNotOptimize(walk(*model, {})); });
    };
}

constexpr int search_count = 1000;

void search_model(benchmark::State& state, int size)
{
    measure(
        state,
        [size] {
            return make_entities({Shape::Flat, size}, 0);
        },
        [size](EntityWorld& world) {
            EntityItem* last = world.parent->getChild(size - 1);
            for (int i = 0; i < search_count; ++i) {
                benchmark::DoNotOptimize(world.parent->getChildIndex(last));
            }
        });
}

/// Reads that many pointers, as fast as the machine can with the widest loads it has.
__attribute__((target_clones("avx2", "default"))) quintptr read_all(
    const quintptr* first, const quintptr* last)
{
    quintptr sum = 0;
    for (; first != last; ++first) {
        sum += *first;
    }
    return sum;
}

void search_floor(benchmark::State& state, int size)
{
    measure(
        state, [size] { return std::vector<quintptr>(size, 1); },
        [](std::vector<quintptr>& pointers) {
            for (int i = 0; i < search_count; ++i) {
                benchmark::DoNotOptimize(pointers.data());
                benchmark::DoNotOptimize(
                    read_all(pointers.data(), pointers.data() + pointers.size()));
            }
        });
}

constexpr int icon_count = 5;
constexpr int painted_rows = 50;
constexpr int paint_count = 200;

/// Icon files, one for each kind of item.
class IconFiles : public EntityIconFactory
{
public:
    IconFiles()
    {
        QImage image(16, 16, QImage::Format_ARGB32);
        image.fill(Qt::red);
        for (int i = 0; i < icon_count; ++i) {
            m_paths.push_back(m_directory.filePath(QString::number(i) + ".png").toUtf8());
            image.save(QString::fromUtf8(m_paths.back()));
        }
    }

    const char* getIconPath(EntityItem* item) override
    {
        return m_paths[item->getId() % icon_count].constData();
    }

private:
    QTemporaryDir m_directory;
    std::vector<QByteArray> m_paths;
};

void decorate_model(benchmark::State& state, int size)
{
    IconFiles icons;
    const auto make = [&icons, size] {
        EntityWorld world = make_entities({Shape::Flat, size}, 0);
        world.model->setIcons(&icons);
        return world;
    };
    measure(state, make, [](EntityWorld& world) {
        const QModelIndex parent = world.model->index(0, 0);
        for (int i = 0; i < paint_count; ++i) {
            for (int row = 0; row < painted_rows; ++row) {
                benchmark::DoNotOptimize(
                    world.model->data(world.model->index(row, 0, parent), Qt::DecorationRole));
            }
        }
    });
}

void decorate_floor(benchmark::State& state, int size)
{
    IconFiles icons;
    QHash<QString, QIcon> loaded;
    measure(
        state, [size] { return make_items(size, 0); },
        [&](std::vector<EntityItem*>& items) {
            for (int i = 0; i < paint_count; ++i) {
                for (int row = 0; row < painted_rows; ++row) {
                    const QString path = QString::fromUtf8(icons.getIconPath(items[row]));
                    auto known = loaded.find(path);
                    if (known == loaded.end()) {
                        known = loaded.insert(path, QIcon(path));
                    }
                    benchmark::DoNotOptimize(QVariant(*known));
                }
            }
        });
}

} // namespace

void register_read()
{
    const auto add = [](const char* shape, Shape::Kind kind, int size) {
        const std::string work = std::string("walk/") + shape;
        register_once(work + "/model", size, walk_model(kind));
        register_once(work + "/standard", size, walk_standard(kind));
        register_once(work + "/widget", size, walk_widget(kind));
    };
    for (int size : {10'000, 100'000, 1'000'000}) {
        add("flat", Shape::Flat, size);
        add("tree", Shape::Tree, size);
    }
    add("wide", Shape::Wide, 10'000);
    register_once("search/flat/model", 100'000, search_model);
    register_once("search/flat/floor", 100'000, search_floor);
    register_once("decorate/flat/model", 10'000, decorate_model);
    register_once("decorate/flat/floor", 10'000, decorate_floor);
}
