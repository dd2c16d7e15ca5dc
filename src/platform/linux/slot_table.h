// Reusable slots behind this platform's handles. A slot's generation changes when its object is
// removed, so the key of a removed object finds nothing. The caller holds a lock.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace quorvel {

// `Pointer` owns an object and is null for a free slot. Generations count from 1 to
// `lastGeneration` and then start again.
template <class Pointer, std::uint32_t lastGeneration>
class SlotTable {
public:
    struct Key {
        std::size_t index;
        std::uint32_t generation;
    };

    std::size_t Count() const { return m_slots.size() - m_free.size(); }

    // Changes nothing when it throws std::bad_alloc.
    Key Insert(Pointer object) {
        if (m_free.empty()) {
            m_free.reserve(m_slots.size() + 1); // so that Remove cannot fail
            m_slots.emplace_back();
            m_free.push_back(m_slots.size() - 1);
        }
        const std::size_t index = m_free.back();
        m_free.pop_back();
        m_slots[index].object = std::move(object);
        return {index, m_slots[index].generation};
    }

    Pointer* Find(Key key) {
        if (key.index >= m_slots.size())
            return nullptr;
        Slot& slot = m_slots[key.index];
        return slot.generation == key.generation && slot.object != nullptr ? &slot.object : nullptr;
    }

    // Returns the removed object; the caller destroys it after releasing the lock. Null when the
    // key finds nothing.
    Pointer Remove(Key key) {
        Pointer* const found = Find(key);
        if (found == nullptr)
            return nullptr;
        Slot& slot = m_slots[key.index];
        slot.generation = slot.generation % lastGeneration + 1;
        m_free.push_back(key.index);
        return std::exchange(slot.object, nullptr);
    }

    // Calls visit(key, object) for each object, in the order of the slots.
    template <class Visit>
    void ForEach(Visit visit) const {
        for (std::size_t index = 0; index < m_slots.size(); ++index)
            if (m_slots[index].object != nullptr)
                visit(Key{index, m_slots[index].generation}, *m_slots[index].object);
    }

private:
    struct Slot {
        Pointer object;
        std::uint32_t generation = 1;
    };

    std::vector<Slot> m_slots;
    std::vector<std::size_t> m_free;
};

} // namespace quorvel
