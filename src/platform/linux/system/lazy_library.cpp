#include "platform/linux/system/lazy_library.h"

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>

namespace quorvel {

void* LazyLibrary::Find(const char* function) {
    void* handle = m_handle.load(std::memory_order_acquire);
    if (handle == nullptr) {
        handle = dlopen(m_fileName, RTLD_NOW | RTLD_LOCAL); // a second thread gets the same one
        if (handle != nullptr)
            m_handle.store(handle, std::memory_order_release);
    }
    void* const address = handle != nullptr ? dlsym(handle, function) : nullptr;
    if (address == nullptr) {
        std::fprintf(stderr, "quorvel: %s\n", dlerror());
        std::abort();
    }
    return address;
}

} // namespace quorvel
