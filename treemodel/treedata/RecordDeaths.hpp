#pragma once

#include <QtGlobal>

/// Counts the records that have died in this process, so that code which holds
/// a record across a call out of the library can tell, by comparing two
/// numbers, that nothing it holds has gone. Internal.
class RecordDeaths
{
public:
    static quint64 count() { return s_count; }
    static void add_one() { ++s_count; }

private:
    static inline quint64 s_count = 0;
};
