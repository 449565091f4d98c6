// Selection, both ways: from the kernel to records, and from records to the one
// command line that the library ever sends.

#include <treemodel/kernel/KernelText.hpp>
#include <treemodel/kernel/radix_sort.hpp>
#include <treemodel/kernel/RecordFamily.hpp>
#include <treemodel/kernel/TreeKestoObserver.hpp>
#include <treemodel/models/TreeGeomModel.hpp>
#include <treemodel/models/TreeGroupModel.hpp>
#include <treemodel/models/TreeMeshModel.hpp>
#include <treemodel/models/TreeSimModel.hpp>
#include <treemodel/treedata/KindTable.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <limits>
#include <map>
#include <QString>
#include <string>

using KestoInterface::EntityRef;

namespace {

std::string lower_case(const std::string& word)
{
    return kernel_text(word).toLower().toUtf8().toStdString();
}

// The word that a record stands under, by the class of the record and, where that has several
// words, by its type. In the order of the command line.
struct CommandWord
{
    RecordFamily family;
    int rank = 0;

    auto operator<=>(const CommandWord&) const = default;
};

CommandWord command_word(RecordFamily family, TreeData* record)
{
    switch (family) {
    case RecordFamily::GEOMETRY:
        return {family,
            TreeGeometryData::BODY - static_cast<TreeGeometryData*>(record)->geometry_type()};
    case RecordFamily::EXODUS:
        return {family, static_cast<TreeExodusData*>(record)->exodus_type()};
    case RecordFamily::FEA_BC:
        return {family, static_cast<TreeFeaBCData*>(record)->fea_bc_type()};
    default:
        return {family};
    }
}

// The word of the families that have one alone.
constexpr KindTable<RecordFamily, const char*, 8> family_words{
    {"", "group", "boundary_layer", "sizing_source", "", "", "cfd_bc", "material"},
    "",
};

// Empty for a type out of range: such a record is not written.
std::string text_of(const CommandWord& word)
{
    switch (word.family) {
    case RecordFamily::GEOMETRY:
        return TreeGeometryData::type_to_string(
            static_cast<TreeGeometryData::GeometryType>(TreeGeometryData::BODY - word.rank));
    case RecordFamily::EXODUS:
        return TreeExodusData::type_to_string(static_cast<TreeExodusData::ExodusType>(word.rank));
    case RecordFamily::FEA_BC:
        return TreeFeaBCData::type_to_string(static_cast<TreeFeaBCData::FEAType>(word.rank));
    default:
        return family_words[word.family];
    }
}

// By address, each once.
std::vector<TreeData*> in_order(std::vector<TreeData*> records)
{
    radix_sort(records, [](TreeData* record) { return reinterpret_cast<std::uintptr_t>(record); });
    records.erase(std::unique(records.begin(), records.end()), records.end());
    return records;
}

// In the order of addresses.
using IdsByWord = std::map<CommandWord, std::deque<int>>;

IdsByWord ids_by_word(const std::vector<TreeData*>& entities)
{
    IdsByWord result;
    auto entry = result.end();
    for_each_with_family(in_order(entities), [&](TreeData* entity, RecordFamily family) {
        if (family == RecordFamily::OTHER || family == RecordFamily::MESH) {
            return;
        }
        const CommandWord word = command_word(family, entity);
        if (entry == result.end() || entry->first != word) {
            entry = result.try_emplace(word).first;
        }
        entry->second.push_back(entity->id());
    });
    return result;
}

// Each id followed by one blank.
void append_ids(std::string& text, const std::deque<int>& ids)
{
    constexpr std::size_t longest = std::numeric_limits<int>::digits10 + 3; // with sign and blank
    text.reserve(text.size() + longest * ids.size());
    std::array<char, 64 * longest> block;
    char* end = block.data();
    for (const int id : ids) {
        if (end > block.data() + block.size() - longest) {
            text.append(block.data(), end);
            end = block.data();
        }
        end = std::to_chars(end, end + longest, id).ptr;
        *end++ = ' ';
    }
    text.append(block.data(), end);
}

// Each word once, before its ids.
std::string select_command(const IdsByWord& ids_by_word, bool selected)
{
    std::string command = "select ";
    for (const auto& [word, ids] : ids_by_word) {
        const std::string text = text_of(word);
        if (!text.empty()) {
            command.append(text).append(" ");
            append_ids(command, ids);
        }
    }
    return command.append(selected ? "" : "remove");
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
    const IdsByWord ids = ids_by_word(entities);
    if (!ids.empty()) {
        KestoInterface::silent_cmd(select_command(ids, selected).c_str());
    }
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
