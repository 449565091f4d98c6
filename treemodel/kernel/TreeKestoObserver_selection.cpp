// Selection, both ways: from the kernel to records, and from records to the one
// command line that the library ever sends.

#include <treemodel/kernel/TreeKestoObserver.hpp>
#include <treemodel/models/TreeGeomModel.hpp>
#include <treemodel/models/TreeGroupModel.hpp>
#include <treemodel/models/TreeMeshModel.hpp>
#include <treemodel/models/TreeSimModel.hpp>

#include <algorithm>
#include <QByteArray>
#include <QString>
#include <tuple>

using KestoInterface::EntityRef;

namespace {

std::string lower_case(const std::string& word)
{
    return QString::fromUtf8(word.c_str()).toLower().toUtf8().toStdString();
}

// A record in a command line: the word that it stands under, and where among the
// words that is. One whose type is out of range has no word and is not written.
struct SelectedRecord
{
    // In the order of the command line.
    enum Family : int {
        Geometry,
        Group,
        BoundaryLayer,
        SizingSource,
        Exodus,
        Fea,
        Cfd,
        Material,
        Unselectable,
    };

    explicit SelectedRecord(TreeData* selected)
        : record(selected)
    {
        if (auto* geometry = qobject_cast<TreeGeometryData*>(selected)) {
            family = Geometry;
            rank = TreeGeometryData::BODY - geometry->geometry_type();
        } else if (qobject_cast<TreeGroupData*>(selected)) {
            family = Group;
        } else if (qobject_cast<TreeBoundaryLayerData*>(selected)) {
            family = BoundaryLayer;
        } else if (qobject_cast<TreeSizingSourceData*>(selected)) {
            family = SizingSource;
        } else if (auto* exodus = qobject_cast<TreeExodusData*>(selected)) {
            family = Exodus;
            rank = exodus->exodus_type();
        } else if (auto* fea = qobject_cast<TreeFeaBCData*>(selected)) {
            family = Fea;
            rank = fea->fea_bc_type();
        } else if (qobject_cast<TreeCfdBCData*>(selected)) {
            family = Cfd;
        } else if (qobject_cast<TreeMaterialData*>(selected)) {
            family = Material;
        }
    }

    std::string word() const
    {
        switch (family) {
        case Geometry:
            return TreeGeometryData::type_to_string(
                static_cast<TreeGeometryData::GeometryType>(TreeGeometryData::BODY - rank));
        case Group:
            return "group";
        case BoundaryLayer:
            return "boundary_layer";
        case SizingSource:
            return "sizing_source";
        case Exodus:
            return TreeExodusData::type_to_string(static_cast<TreeExodusData::ExodusType>(rank));
        case Fea:
            return TreeFeaBCData::type_to_string(static_cast<TreeFeaBCData::FEAType>(rank));
        case Cfd:
            return "cfd_bc";
        case Material:
            return "material";
        case Unselectable:
            break;
        }
        return {};
    }

    bool is_under_same_word(const SelectedRecord& other) const
    {
        return family == other.family && rank == other.rank;
    }

    // By word, then by address.
    bool operator<(const SelectedRecord& other) const
    {
        return std::tie(family, rank, record) < std::tie(other.family, other.rank, other.record);
    }

    bool operator==(const SelectedRecord& other) const { return record == other.record; }

    TreeData* record;
    Family family = Unselectable;
    int rank = 0;
};

// In the order of the command line, each once.
std::vector<SelectedRecord> selected_records(const std::vector<TreeData*>& entities)
{
    std::vector<SelectedRecord> result;
    result.reserve(entities.size());
    for (TreeData* entity : entities) {
        const SelectedRecord selected(entity);
        if (selected.family != SelectedRecord::Unselectable) {
            result.push_back(selected);
        }
    }
    std::sort(result.begin(), result.end());
    result.erase(std::unique(result.begin(), result.end()), result.end());
    return result;
}

// Each word once, before its ids; everything is followed by one blank.
QByteArray words_and_ids(const std::vector<SelectedRecord>& selection)
{
    QByteArray text;
    QByteArray word;
    for (auto entry = selection.begin(); entry != selection.end(); ++entry) {
        const bool begins_word =
            entry == selection.begin() || !entry->is_under_same_word(*std::prev(entry));
        if (begins_word) {
            word = QByteArray::fromStdString(entry->word());
            text += word.isEmpty() ? word : word + ' ';
        }
        if (!word.isEmpty()) {
            text += QByteArray::number(entry->record->id()) + ' ';
        }
    }
    return text;
}

} // namespace

void TreeKestoObserver::select_entities(const std::vector<TreeData*>& entities, bool selected)
{
    if (m_echoing_selection) {
        return;
    }
    if (entities.empty()) {
        KestoInterface::silent_cmd("select none");
        return;
    }
    const std::vector<SelectedRecord> selection = selected_records(entities);
    if (selection.empty()) {
        return;
    }
    const QByteArray command =
        "select " + words_and_ids(selection) + (selected ? QByteArray() : QByteArray("remove"));
    KestoInterface::silent_cmd(command.constData());
}

void TreeKestoObserver::report_selection(const std::vector<EntityRef>& refs, bool selected)
{
    std::vector<TreeData*> records;
    for (const EntityRef& ref : refs) {
        if (TreeData* record = find_record(ref)) {
            records.push_back(record);
        }
    }
    if (records.empty()) {
        return;
    }
    m_echoing_selection = true;
    Q_EMIT selection_changed(records, selected);
    m_echoing_selection = false;
}

void TreeKestoObserver::notify_entities_selected(const std::vector<EntityRef>& refs)
{
    report_selection(refs, true);
}

void TreeKestoObserver::notify_entities_deselected(const std::vector<EntityRef>& refs)
{
    report_selection(refs, false);
}

void TreeKestoObserver::report_kernel_selection(bool (*is_wanted)(const std::string& word))
{
    std::vector<EntityRef> refs;
    const int count = KestoInterface::current_selection_count();
    for (int index = 0; index < count; ++index) {
        const std::string word = lower_case(KestoInterface::get_selected_type(index));
        if (is_wanted(word)) {
            refs.push_back({word, KestoInterface::get_selected_id(index)});
        }
    }
    report_selection(refs, true);
}

TreeData* TreeKestoObserver::find_record(const EntityRef& ref)
{
    TreeGeometryData::GeometryType geometry_type{};
    TreeExodusData::ExodusType exodus_type{};
    TreeFeaBCData::FEAType fea_type{};
    TreeCfdBCData::CFDType cfd_type{};
    if (TreeGeometryData::string_to_type(ref.type, geometry_type)) {
        return m_geom_model->find_geometry(geometry_type, ref.id);
    }
    if (ref.type == "group") {
        return m_group_model->find_group(ref.id);
    }
    if (TreeExodusData::string_to_type(ref.type, exodus_type)) {
        return m_sim_model->find_exodus(exodus_type, ref.id);
    }
    if (TreeFeaBCData::string_to_type(ref.type, fea_type)) {
        return m_sim_model->find_fea_bc(fea_type, ref.id);
    }
    if (TreeCfdBCData::string_to_type(ref.type, cfd_type)) {
        return m_sim_model->find_cfd_bc(ref.id);
    }
    if (ref.type == "sizing_source") {
        return m_mesh_model->find_sizing_source(ref.id);
    }
    if (ref.type == "boundary_layer") {
        return m_mesh_model->find_boundary_layer(ref.id);
    }
    return nullptr;
}
