// Maps handles to objects. Permanent objects belong to their owners, temporary ones to the
// map.
#pragma once

#include "platform/win32.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <unordered_map>
#include <utility>

namespace quorvel {

// Traits name the types. They create an object for a handle, release it (its destructor then leaves
// the handle alone), and say whether a handle is still valid.
template <class Traits>
class HandleMap {
public:
    using Object = typename Traits::Object;
    using Handle = typename Traits::Handle;

    Object* FindPermanent(Handle handle) {
        Recent& recent = m_recent[RecentSlot(handle)];
        if (recent.handle != handle || handle == Handle()) {
            const auto found = m_permanent.find(handle);
            recent = {handle, found != m_permanent.end() ? found->second : nullptr};
        }
        return recent.object;
    }
    // Returns false when the handle already has an object.
    bool AddPermanent(Handle handle, Object* object) {
        m_recent[RecentSlot(handle)] = {};
        return m_permanent.emplace(handle, object).second;
    }
    void RemovePermanent(Handle handle) {
        m_recent[RecentSlot(handle)] = {};
        m_permanent.erase(handle);
    }

    Object* FindOrMake(Handle handle) {
        if (Object* const permanent = FindPermanent(handle))
            return permanent;
        const auto found = m_temporary.find(handle);
        if (found != m_temporary.end())
            return found->second.get();
        if (m_temporary.size() >= m_sweepSize)
            Sweep();
        return m_temporary.emplace(handle, Temporary(Traits::Make(handle))).first->second.get();
    }

private:
    struct Releaser {
        void operator()(Object* object) const {
            Traits::Release(object);
            delete object;
        }
    };
    using Temporary = std::unique_ptr<Object, Releaser>;

    // An answer of FindPermanent. The handlers of a window look it up again and again.
    struct Recent {
        Handle handle;
        Object* object;
    };
    static std::size_t RecentSlot(Handle handle) {
        return std::hash<Handle>()(handle) / 2 % kRecentSlots; // handles of windows are even
    }

    // Deletes the temporary objects of dead handles, which would otherwise accumulate.
    void Sweep() {
        std::erase_if(m_temporary, [](const auto& each) { return !Traits::IsAlive(each.first); });
        m_sweepSize = std::max<std::size_t>(kFirstSweepSize, m_temporary.size() * 2);
    }

    static constexpr std::size_t kFirstSweepSize = 64;
    static constexpr std::size_t kRecentSlots = 16;
    std::array<Recent, kRecentSlots> m_recent = {};
    std::unordered_map<Handle, Object*> m_permanent;
    std::unordered_map<Handle, Temporary> m_temporary;
    std::size_t m_sweepSize = kFirstSweepSize;
};

// A pointer for each thread and Tag.
#if defined(_WIN32)
// Every message reads these pointers, and the compiler's thread_local takes ten times as long.
template <class Tag>
class ThreadPointer {
public:
    static void* Get() {
        const DWORD error = ::GetLastError(); // TlsGetValue changes it
        void* const value = ::TlsGetValue(TheSlot().index);
        ::SetLastError(error);
        return value;
    }
    static void Set(void* value) { ::TlsSetValue(TheSlot().index, value); }

private:
    struct Slot {
        ~Slot() { ::TlsFree(std::exchange(index, TLS_OUT_OF_INDEXES)); }
        DWORD index = ::TlsAlloc();
    };
    static const Slot& TheSlot() {
        static Slot s_slot;
        return s_slot;
    }
};
#else
template <class Tag>
class ThreadPointer {
public:
    static void* Get() { return t_value; }
    static void Set(void* value) { t_value = value; }

private:
    static inline thread_local void* t_value = nullptr;
};
#endif

// The calling thread's State, created on first use. Destructors of static objects may call this
// after the thread's objects were destroyed. They get a new one, which is never deleted.
template <class State>
State& ThreadState() {
    typedef ThreadPointer<State> Pointer;
    void* state = Pointer::Get();
    if (state == nullptr) {
        struct Owner {
            ~Owner() {
                State* const owned = static_cast<State*>(Pointer::Get());
                Pointer::Set(nullptr);
                delete owned;
            }
        };
        state = new State;
        Pointer::Set(state);
        static thread_local Owner t_owner;
    }
    return *static_cast<State*>(state);
}

} // namespace quorvel
