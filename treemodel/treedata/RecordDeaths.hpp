#pragma once

#include <QtGlobal>
#include <utility>

class TreeData;

/// The records that have died in this process and those whose death is under way. Internal.
///
/// Code which holds a record across a call out of the library can tell, by
/// comparing two counts, that nothing it holds has gone.
class RecordDeaths
{
public:
    /// The death of one record, for as long as its receivers are told of it.
    class UnderWay
    {
    public:
        explicit UnderWay(const TreeData* record)
            : m_record(record)
            , m_outer(std::exchange(s_innermost, this))
        {
            ++s_count;
        }

        ~UnderWay() { s_innermost = m_outer; }

    private:
        Q_DISABLE_COPY_MOVE(UnderWay)

        friend RecordDeaths;

        const TreeData* m_record;
        const UnderWay* m_outer;
    };

    static quint64 count() { return s_count; }

    /// False for null and for a record that is telling of its death: nothing
    /// may be made to point to it any more.
    static bool is_alive(const TreeData* record)
    {
        for (const UnderWay* death = s_innermost; death; death = death->m_outer) {
            if (death->m_record == record) {
                return false;
            }
        }
        return record;
    }

private:
    static inline quint64 s_count = 0;
    static inline const UnderWay* s_innermost = nullptr;
};
