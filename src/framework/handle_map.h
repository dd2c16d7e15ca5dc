// The objects that stand for handles: permanent ones, which are their owners' own, and temporary
// ones, which belong to the map.
#pragma once

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <utility>

namespace quorvel {

// Traits name the types and say how an object of a handle is made, let go of (so that its
// destructor leaves the handle alone), and whether a handle still means something.
template <class Traits>
class HandleMap {
public:
    using Object = typename Traits::Object;
    using Handle = typename Traits::Handle;

    Object* FindPermanent(Handle handle) const {
        const auto found = m_permanent.find(handle);
        return found != m_permanent.end() ? found->second : nullptr;
    }
    // False when the handle has an object.
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
    struct LetGo {
        void operator()(Object* object) const {
            Traits::LetGo(object);
            delete object;
        }
    };
    using Temporary = std::unique_ptr<Object, LetGo>;

    // Temporary objects of handles that are no more would gather without end.
    void Sweep() {
        std::erase_if(m_temporary, [](const auto& each) { return !Traits::IsAlive(each.first); });
        m_sweepSize = std::max<std::size_t>(kFirstSweepSize, m_temporary.size() * 2);
    }

    static constexpr std::size_t kFirstSweepSize = 64;
    std::unordered_map<Handle, Object*> m_permanent;
    std::unordered_map<Handle, Temporary> m_temporary;
    std::size_t m_sweepSize = kFirstSweepSize;
};

// The calling thread's one State, made when it is first asked for. Objects with static storage may
// ask after the thread's own objects are gone: they get a new one, which stays.
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
