#pragma once

#include <map>
#include <memory>
#include <QObject>
#include <QtAlgorithms>
#include <treemodel/treedata/RecordDeaths.hpp>
#include <utility>
#include <vector>

// What the domain models have in common: the records that they own, by id. Internal.

template <typename Record>
using RecordMap = std::map<int, Record*>;

/// The record of that id and whether it is new; a new one is made of `arguments`.
template <typename Record, typename... Arguments>
std::pair<Record*, bool> find_or_add_record(
    RecordMap<Record>& records, int id, Arguments&&... arguments)
{
    const auto place = records.lower_bound(id);
    if (place != records.end() && place->first == id) {
        return {place->second, false};
    }
    auto owner = std::make_unique<Record>(std::forward<Arguments>(arguments)...);
    records.emplace_hint(place, id, owner.get());
    return {owner.release(), true};
}

/// Null if there is none.
template <typename Record>
Record* find_record(const RecordMap<Record>& records, int id)
{
    const auto entry = records.find(id);
    return entry == records.end() ? nullptr : entry->second;
}

/// The record of that id; a new one is made of `arguments` and told of by the `added` signal
/// of `model`. Null if a receiver has had it removed.
template <typename Model, typename Record, typename... Arguments>
Record* add_record(RecordMap<Record>& records, Model* model, void (Model::*added)(Record*), int id,
    Arguments&&... arguments)
{
    const quint64 deaths = RecordDeaths::count();
    const auto [record, is_new] =
        find_or_add_record(records, id, std::forward<Arguments>(arguments)...);
    if (is_new) {
        Q_EMIT(model->*added)(record);
    }
    return deaths == RecordDeaths::count() ? record : find_record(records, id);
}

/// Hands the record over to the caller, so that it goes also if a receiver of its removed
/// signal throws; null if there is none.
template <typename Record>
std::unique_ptr<Record> take_record(RecordMap<Record>& records, int id)
{
    const auto node = records.extract(id);
    return std::unique_ptr<Record>(node.empty() ? nullptr : node.mapped());
}

/// Moves a record to a new id, if it is there. A record that stood under that id
/// leaves the map and stays alive, with its links, until `model` goes.
template <typename Record>
void change_record_id(RecordMap<Record>& records, int old_id, int new_id, QObject* model)
{
    auto node = records.extract(old_id);
    if (node.empty()) {
        return;
    }
    Record* record = node.mapped();
    node.key() = new_id;
    const auto place = records.insert(std::move(node));
    if (!place.inserted) {
        Record* displaced = std::exchange(place.position->second, record);
        displaced->setParent(model);
    }
    record->set_id(new_id);
}

/// Deletes the records that change_record_id() displaced, while `model` is still whole for
/// those that are told of their deaths.
inline void delete_displaced_records(QObject* model)
{
    // Each leaves the list as it dies. NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const QObjectList displaced = model->children();
    qDeleteAll(displaced);
}

/// Deletes the records by ascending id, each after `unlink(record)`. The map is empty before
/// the first one dies, so that whoever is told of a death finds no record that is already gone.
template <typename Record, typename Unlink>
void delete_records(RecordMap<Record>& records, Unlink unlink)
{
    for (const auto& [id, record] : std::exchange(records, {})) {
        unlink(record);
        delete record;
    }
}

/// Deletes records that have no links.
template <typename Record>
void delete_records(RecordMap<Record>& records)
{
    delete_records(records, [](Record*) {});
}

/// By ascending id.
template <typename Record>
std::vector<Record*> all_records(const RecordMap<Record>& records)
{
    std::vector<Record*> result;
    result.reserve(records.size());
    for (const auto& [id, record] : records) {
        result.push_back(record);
    }
    return result;
}
