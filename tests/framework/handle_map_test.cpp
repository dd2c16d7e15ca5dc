#include "framework/handle_map.h"

#include <gtest/gtest.h>

namespace {

struct Counted {
    Counted() { ++s_count; }
    Counted(const Counted&) = delete;
    ~Counted() { --s_count; }
    static inline int s_count = 0;
};

// Every hundredth handle is still valid.
struct Traits {
    using Object = Counted;
    using Handle = int;
    static Counted* Make(int) { return new Counted; }
    static void Release(Counted*) {}
    static bool IsAlive(int handle) { return handle % 100 == 0; }
};

TEST(HandleMap, DropsTemporaryObjectsOfDeadHandlesAlone) {
    quorvel::HandleMap<Traits> map;
    const Counted* const first = map.FindOrMake(0);
    for (int handle = 1; handle <= 2000; ++handle) {
        map.FindOrMake(handle);
        ASSERT_LE(Counted::s_count, 64) << handle;
    }
    EXPECT_EQ(map.FindOrMake(0), first);
    EXPECT_GE(Counted::s_count, 21);
}

} // namespace
