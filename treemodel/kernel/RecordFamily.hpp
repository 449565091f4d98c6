#pragma once

#include <treemodel/prefetch.hpp>
#include <treemodel/treedata/TreeData.hpp>
#include <typeinfo>
#include <vector>

/// The classes of records that the kernel link tells apart.
enum class RecordFamily {
    GEOMETRY,
    GROUP,
    BOUNDARY_LAYER,
    SIZING_SOURCE,
    EXODUS,
    FEA_BC,
    CFD_BC,
    MATERIAL,
    MESH,
    OTHER,
};

/// Finds the families of records. Quick along records of one class, of which it looks at the first
/// alone.
class RecordFamilyFinder
{
public:
    /// OTHER for null.
    RecordFamily find(TreeData* record)
    {
        if (!record) {
            return RecordFamily::OTHER;
        }
        const std::type_info& record_class = typeid(*record);
        if (&record_class != m_class) {
            m_family = family_of(record);
            m_class = &record_class;
        }
        return m_family;
    }

private:
    static RecordFamily family_of(TreeData* record);

    const std::type_info* m_class = nullptr;
    RecordFamily m_family = RecordFamily::OTHER;
};

/// Calls `visit(record, family)` for each record in turn.
template <typename Visit>
void for_each_with_family(const std::vector<TreeData*>& records, Visit visit)
{
    RecordFamilyFinder families;
    for_each_prefetched(records, [&](TreeData* record) { visit(record, families.find(record)); });
}
