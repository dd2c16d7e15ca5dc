// Maps handles to objects. Permanent objects belong to their owners, temporary ones to the
// map.
#pragma once

#include <algorithm>
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

    Object* FindPermanent(Handle handle) const {
        const auto found = m_permanent.find(handle);
        return found != m_permanent.end() ? found->second : nullptr;
    }
    // Returns false when the handle already has an object.
    bool AddPermanent(Handle handle, Object* object) {
        return m_permanent.emplace(handle, object).second;
    }
    void RemovePermanent(Handle handle) { m_permanent.erase(handle); }

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

    // Deletes the temporary objects of dead handles, which would otherwise accumulate.
    void Sweep() {
        std::erase_if(m_temporary, [](const auto& each) { return !Traits::IsAlive(each.first); });
        m_sweepSize = std::max<std::size_t>(kFirstSweepSize, m_temporary.size() * 2);
    }

    static constexpr std::size_t kFirstSweepSize = 64;
    std::unordered_map<Handle, Object*> m_permanent;
    std::unordered_map<Handle, Temporary> m_temporary;
    std::size_t m_sweepSize = kFirstSweepSize;
};

// The calling thread's State, created on first use. Destructors of static objects may call this
// after the thread's objects were destroyed. They get a new one, which is never deleted.
template <class State>
State& ThreadState() {
    static thread_local State* t_state = nullptr;
    struct Owner {
        ~Owner() { delete std::exchange(t_state, nullptr); }
    };
    if (t_state == nullptr) {
        t_state = new State;
        static thread_local Owner t_owner;
    }
    return *t_state;
}

} // namespace quorvel
