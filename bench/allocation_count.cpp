// The program's own allocation functions hide the C library's, which keeps them under other names;
// operator new calls malloc.
#include "allocation_count.h"

#include <atomic>

extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* block, std::size_t size);

static std::atomic<std::size_t> s_count;

std::size_t AllocationCount() {
    return s_count.load(std::memory_order_relaxed);
}

extern "C" void* malloc(std::size_t size) {
    s_count.fetch_add(1, std::memory_order_relaxed);
    return __libc_malloc(size);
}
extern "C" void* calloc(std::size_t count, std::size_t size) {
    s_count.fetch_add(1, std::memory_order_relaxed);
    return __libc_calloc(count, size);
}
extern "C" void* realloc(void* block, std::size_t size) {
    s_count.fetch_add(1, std::memory_order_relaxed);
    return __libc_realloc(block, size);
}
