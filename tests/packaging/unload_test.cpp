// A process loads and unloads plugins; the last one must release the library's memory.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

static bool IsMapped(const std::string& name) {
    std::ifstream maps("/proc/self/maps");
    const std::string all(std::istreambuf_iterator<char>(maps), {});
    return all.find(name) != std::string::npos;
}

TEST(Unload, TheLibraryLeavesWithThePluginThatUsedIt) {
    for (int round = 0; round < 3; round++) {
        void* const plugin = dlopen(QUORVEL_PLUGIN, RTLD_NOW);
        ASSERT_NE(plugin, nullptr) << dlerror();
        EXPECT_TRUE(IsMapped("libquorvel.so"));
        const auto use = reinterpret_cast<bool (*)()>(dlsym(plugin, "UseServices"));
        ASSERT_NE(use, nullptr);
        EXPECT_TRUE(use());
        ASSERT_EQ(dlclose(plugin), 0);
        EXPECT_FALSE(IsMapped("libquorvel.so")) << "round " << round;
    }
}
