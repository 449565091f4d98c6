#include "entity_data.hpp"
#include "entity_measure.hpp"

#include <algorithm>
#include <QStandardItemModel>
#include <QTreeView>
#include <treemodel/entity/EntityModel.hpp>
#include <treemodel/entity/SimpleItem.hpp>
#include <utility>

// Renames that move a row, removals one by one, and the end of everything.

namespace {

constexpr int rename_count = 500;
constexpr int removal_count = 10'000;

struct Entities
{
    EntityWorld world;
    std::unique_ptr<QTreeView> view;
};

struct Standard
{
    StandardWorld* world;
    std::unique_ptr<QTreeView> view;
};

/// Items in a plain vector, sorted by name, and in order of ids.
struct Plain
{
    std::vector<EntityItem*> sorted;
    std::vector<EntityItem*> leaves;
    ~Plain()
    {
        for (EntityItem* item : sorted) {
            delete item;
        }
    }
};

auto entities(int size, bool in_view)
{
    return [=] {
        Entities result{make_entities({Shape::Flat, size}, 0), nullptr};
        if (in_view) {
            result.view = make_view(result.world.model.get(), result.world.model->index(0, 0));
        }
        return result;
    };
}

auto standard(int size, bool in_view)
{
    return [=] {
        Standard result{&make_standard({Shape::Flat, size}, 0), nullptr};
        if (in_view) {
            result.view = make_view(result.world->model, result.world->model->index(0, 0));
        }
        return result;
    };
}

auto plain(int size)
{
    return [size] {
        auto result = std::make_unique<Plain>();
        result->sorted = make_items(size, 0);
        result->leaves = result->sorted;
        std::sort(result->leaves.begin(), result->leaves.end(),
            [](const EntityItem* a, const EntityItem* b) { return a->getId() < b->getId(); });
        return result;
    };
}

auto name_less = [](const EntityItem* a, const EntityItem* b) {
    return a->getDisplayName() < b->getDisplayName();
};

auto rename_model(bool in_view)
{
    return [in_view](benchmark::State& state, int size) {
        const std::vector<int> chosen = random_positions(size, rename_count);
        const std::vector<QString>& names = other_names(size);
        measure(state, entities(size, in_view), [&](Entities& entities) {
            for (int position : chosen) {
                auto* item = static_cast<SimpleItem*>(entities.world.leaves[position]);
                item->setName(names[position]);
                entities.world.model->updateEntity(item);
            }
        });
    };
}

void rename_floor(benchmark::State& state, int size)
{
    const std::vector<int> chosen = random_positions(size, rename_count);
    const std::vector<QString>& names = other_names(size);
    measure(state, plain(size), [&](std::unique_ptr<Plain>& plain) {
        for (int position : chosen) {
            auto* item = static_cast<SimpleItem*>(plain->leaves[position]);
            item->setName(names[position]);
            auto& rows = plain->sorted;
            const auto row = std::find(rows.begin(), rows.end(), item);
            if (const auto above = std::lower_bound(rows.begin(), row, item, name_less);
                above != row) {
                std::rotate(above, row, row + 1);
            } else {
                std::rotate(row, row + 1, std::lower_bound(row + 1, rows.end(), item, name_less));
            }
        }
    });
}

/// Items and names for one round of renames after the other, on a model that is used again.
class Renames
{
public:
    explicit Renames(int size)
        : m_names(other_names(size))
        , m_positions(random_positions(size, size))
    {
    }

    /// Calls `rename(position, name)` for items that were not renamed in the rounds before.
    template <class Rename>
    void make(Rename rename)
    {
        for (int i = 0; i < rename_count; ++i, ++m_next) {
            const int position = m_positions[m_next % m_positions.size()];
            rename(position, m_names[position]);
        }
    }

private:
    const std::vector<QString>& m_names;
    std::vector<int> m_positions;
    size_t m_next = 0;
};

/// A row is taken out, its new place found by halving, and put in again.
auto rename_standard(bool in_view)
{
    return [=, renames = std::shared_ptr<Renames>()](benchmark::State& state, int size) mutable {
        if (!renames) {
            renames = std::make_shared<Renames>(size);
        }
        measure(state, standard(size, in_view), [&](Standard& standard) {
            QStandardItem* parent = standard.world->parent;
            renames->make([&](int position, const QString& name) {
                QStandardItem* item = standard.world->leaves[position];
                const QList<QStandardItem*> row = parent->takeRow(item->row());
                item->setText(name);
                int first = 0;
                for (int count = parent->rowCount(); count > 0;) {
                    const int half = count / 2;
                    const bool before = *parent->child(first + half) < *item;
                    first = before ? first + half + 1 : first;
                    count = before ? count - half - 1 : half;
                }
                parent->insertRow(first, row);
            });
        });
    };
}

auto remove_model(bool in_view)
{
    return [in_view](benchmark::State& state, int size) {
        const std::vector<int> chosen = random_positions(size, removal_count);
        measure(state, entities(size, in_view), [&chosen](Entities& entities) {
            for (int position : chosen) {
                entities.world.model->removeEntity(entities.world.leaves[position]);
            }
        });
    };
}

void remove_floor(benchmark::State& state, int size)
{
    const std::vector<int> chosen = random_positions(size, removal_count);
    measure(state, plain(size), [&chosen](std::unique_ptr<Plain>& plain) {
        auto& rows = plain->sorted;
        for (int position : chosen) {
            EntityItem* item = plain->leaves[position];
            rows.erase(std::find(rows.begin(), rows.end(), item));
            delete item;
        }
    });
}

auto remove_standard(bool in_view)
{
    return [in_view](benchmark::State& state, int size) {
        const std::vector<int> chosen = random_positions(size, removal_count);
        const auto make = [=] {
            StandardWorld world = fill_standard({Shape::Flat, size}, 0);
            auto view = in_view ? make_view(world.model, world.model->index(0, 0)) : nullptr;
            return std::pair(std::move(world), std::move(view));
        };
        measure(state, make, [&chosen](auto& made) {
            for (int position : chosen) {
                made.first.parent->removeRow(made.first.leaves[position]->row());
            }
        });
    };
}

auto clear_model(bool in_view)
{
    return [in_view](benchmark::State& state, int size) {
        measure(state, entities(size, in_view),
            [](Entities& entities) { entities.world.model->clear(); });
    };
}

void clear_floor(benchmark::State& state, int size)
{
    measure(state, plain(size), [](std::unique_ptr<Plain>& plain) {
        // The vector goes as well, as the list of the model's parent does.
        const auto items = std::exchange(plain->sorted, {});
        for (EntityItem* item : items) {
            delete item;
        }
    });
}

void clear_standard(benchmark::State& state, int size)
{
    measure(
        state,
        [size] {
            return fill_standard({Shape::Flat, size}, 0);
        },
        [](StandardWorld& world) { world.model->clear(); });
}

} // namespace

void register_edit()
{
    for (int size : {10'000, 100'000, 1'000'000}) {
        register_once("rename/flat/floor", size, rename_floor);
        register_once("rename/flat/standard", size, rename_standard(false));
        register_once("clear/flat/floor", size, clear_floor);
        for (const bool in_view : {false, true}) {
            const std::string shape = in_view ? "flat, view" : "flat";
            register_once("rename/" + shape + "/model", size, rename_model(in_view));
            register_once("clear/" + shape + "/model", size, clear_model(in_view));
        }
    }
    register_once("rename/flat, view/standard", 100'000, rename_standard(true));
    register_once("clear/flat/standard", 10'000, clear_standard);
    register_once("remove/flat/floor", 100'000, remove_floor);
    for (const bool in_view : {false, true}) {
        const std::string shape = in_view ? "flat, view" : "flat";
        register_once("remove/" + shape + "/model", 100'000, remove_model(in_view));
        register_once("remove/" + shape + "/standard", 100'000, remove_standard(in_view));
    }
}
