// How often the benchmark program allocates.
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>

// Calls of malloc, calloc, realloc and operator new so far, on all threads.
std::size_t AllocationCount();

// Reports the allocations of one iteration, from its construction to its end.
class AllocationCounter {
public:
    explicit AllocationCounter(benchmark::State& state)
        : m_state(state), m_start(AllocationCount()) {}
    AllocationCounter(const AllocationCounter&) = delete;
    ~AllocationCounter() {
        m_state.counters["allocations"] = benchmark::Counter(
            static_cast<double>(AllocationCount() - m_start), benchmark::Counter::kAvgIterations);
    }

private:
    benchmark::State& m_state;
    const std::size_t m_start;
};
