#pragma once

class EntityItem;

/// Has an item that will soon be read fetched from memory. Null does nothing.
inline void prefetch([[maybe_unused]] const EntityItem* item)
{
#if defined(__GNUC__)
    if (item) {
        // The items of this library take up two cache lines at the most.
        __builtin_prefetch(item);
        __builtin_prefetch(reinterpret_cast<const char*>(item) + 64);
    }
#endif
}
