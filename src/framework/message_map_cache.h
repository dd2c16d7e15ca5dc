// Finds rows of message maps. A window receives the same few messages again and again, and its
// classes have dozens of rows.
#pragma once

#include <quorvel/framework/wnd.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace quorvel {

// Counts the extension modules that were detached. Their maps may be unloaded now.
inline std::atomic<unsigned> g_detachedModules = 0;

class MessageMapCache {
public:
    // Returns null if there is no row. The row of the most derived class has priority.
    const AFX_MSGMAP_ENTRY* Find(const AFX_MSGMAP& map, UINT message, UINT code, UINT id) {
        if (const unsigned detached = g_detachedModules.load(std::memory_order_relaxed);
            detached != m_detachedModules) {
            m_slots = {};
            m_detachedModules = detached;
        }
        Slot& slot = m_slots[(reinterpret_cast<std::uintptr_t>(&map) / alignof(AFX_MSGMAP) +
                              message * 7 + code * 5 + id * 3) %
                             kSlots];
        // The rows are compared because a module may be loaded where another one was unloaded.
        if (slot.map != &map || slot.rows != map.lpEntries || slot.message != message ||
            slot.code != code || slot.id != id)
            slot = {&map, map.lpEntries, message, code, id, Search(map, message, code, id)};
        return slot.found;
    }

private:
    struct Slot {
        const AFX_MSGMAP* map;
        const AFX_MSGMAP_ENTRY* rows;
        UINT message;
        UINT code;
        UINT id;
        const AFX_MSGMAP_ENTRY* found;
    };

    static const AFX_MSGMAP_ENTRY* Search(const AFX_MSGMAP& first, UINT message, UINT code,
                                          UINT id) {
        const AFX_MSGMAP* map = &first;
        while (map != nullptr) {
            for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->nMessage != 0; ++entry)
                if (entry->nMessage == message && entry->nCode == code && entry->nID <= id &&
                    id <= entry->nLastID)
                    return entry;
            map = map->pfnGetBaseMap != nullptr ? map->pfnGetBaseMap() : nullptr;
        }
        return nullptr;
    }

    static constexpr std::size_t kSlots = 512;
    std::array<Slot, kSlots> m_slots = {};
    unsigned m_detachedModules = 0;
};

} // namespace quorvel
