#pragma once

#include <browser/items/RecordItemData.hpp>
#include <deque>
#include <memory>
#include <QHash>
#include <QObject>
#include <QSet>
#include <vector>

class TreeGeometryData;
class TreeModel;

/// Hears every signal of a mirror and of the records that are shown, and notes what of the rows
/// has to be looked at again. It touches no row, and holds no record beyond its removal.
///
/// Many signals about one thing make one note.
class MirrorNotes : public QObject
{
    Q_OBJECT

public:
    /// Keeps the reference. Notes that all that there is has to be looked at.
    explicit MirrorNotes(TreeModel& mirror);

    /// Deletes the data, of which no node may be left.
    ~MirrorNotes() override;

    /// Null for a record that has no data, or has left the mirror.
    RecordItemData* data(TreeData* record) const;

    /// Makes the data of a record that has none, and follows the record from then on.
    RecordItemData& data_of(TreeData* record);

    /// True if nothing is noted.
    bool is_empty() const;

    /// Grows with each record that leaves the mirror: pointers to records that were held
    /// before may then be invalid.
    quint64 death_count() const { return m_death_count; }

    // Taking notes off. What is given back is noted no more.

    bool has_changed_children() const { return !m_changed_children.empty(); }

    /// Records that have other children now. Some may have left the mirror since.
    std::vector<RecordItemData*> take_changed_children();

    struct Change
    {
        RecordItemData* data;
        RecordItemData::Changes changes;
    };
    bool has_changes() const { return !m_changed.empty(); }

    /// One of the records that have changed themselves. It may have left the mirror since.
    Change take_change();

    int dead_count() const { return int(m_dead.size()); }

    /// Data of a record that has left the mirror.
    RecordItemData* first_dead() const { return m_dead.front().get(); }

    /// Deletes first_dead(), which no node may be over any more, and no other note tell of.
    void drop_first_dead();

    bool has_scans() const { return !m_scans.isEmpty(); }

    /// A kind of which any record may have to move to or from its category.
    ItemKind take_scan();

    bool has_unplaced() const { return !m_unplaced.isEmpty(); }

    /// A record that may have to move to or from its category.
    TreeData* take_unplaced();

    // Noting what the rows show.

    void note_record(TreeData* record);
    void note_kind(ItemKind kind);

Q_SIGNALS:
    /// There is a new note.
    void noted();

private:
    void follow_geometry();
    void follow_groups();
    void follow_mesh();
    void follow_simulation();
    void follow_record(RecordItemData& data);
    void note_children(TreeData* record);
    void note_change(RecordItemData& data, RecordItemData::Changes change);
    void forget_geometry(TreeGeometryData* record);
    void note_orphans(TreeGeometryData* record);
    void forget(TreeData* record);
    void forget_kinds(ItemKind first, ItemKind last);

    TreeModel& m_mirror;
    QHash<TreeData*, RecordItemData*> m_datas; // Owned
    std::deque<std::unique_ptr<RecordItemData>> m_dead;
    std::vector<RecordItemData*> m_changed;          // Each once
    std::vector<RecordItemData*> m_changed_children; // Each once
    QSet<ItemKind> m_scans;
    QSet<TreeData*> m_unplaced;
    std::deque<TreeData*> m_placing; // Those unplaced, as they came, and some that died
    quint64 m_death_count = 0;
};
