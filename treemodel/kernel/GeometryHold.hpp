#pragma once

#include <treemodel/models/TreeGeomModel.hpp>
#include <treemodel/treedata/RecordDeaths.hpp>

/// A geometry record held across queries and emissions, in which anyone may
/// delete anything. It is looked up again only when some record has died since.
class GeometryHold
{
public:
    GeometryHold(TreeGeomModel& model, TreeGeometryData* record)
        : m_model(&model)
        , m_record(record)
        , m_type(record->geometry_type())
        , m_id(record->id())
    {
    }

    /// The record, or null once it has gone.
    TreeGeometryData* get()
    {
        if (m_deaths != RecordDeaths::count()) {
            m_deaths = RecordDeaths::count();
            if (m_model->find_geometry(m_type, m_id) != m_record) {
                m_record = nullptr;
            }
        }
        return m_record;
    }

    TreeGeometryData::GeometryType type() const { return m_type; }
    int id() const { return m_id; }

private:
    TreeGeomModel* m_model;
    TreeGeometryData* m_record;
    TreeGeometryData::GeometryType m_type;
    int m_id;
    quint64 m_deaths = RecordDeaths::count();
};
