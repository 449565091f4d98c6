#pragma once

#include <cstddef>

/// Has an object that will soon be read fetched from memory: two cache lines, which is what items
/// and records take up at the most. It may be null, or have died.
template <typename T>
void prefetch([[maybe_unused]] const T* object)
{
#if defined(__GNUC__)
    if (object) {
        __builtin_prefetch(object);
        __builtin_prefetch(reinterpret_cast<const char*>(object) + 48);
    }
#endif
}

/// Calls `visit(object)` for each object of a list of pointers, which are fetched from memory
/// before their turn comes: most of the time for a long list goes by waiting for them.
template <typename List, typename Visit>
void for_each_prefetched(const List& objects, Visit visit)
{
    constexpr std::size_t distance = 16;
    for (std::size_t place = 0; place < objects.size(); ++place) {
        if (place + distance < objects.size()) {
            prefetch(objects[place + distance]);
        }
        visit(objects[place]);
    }
}
