// Two ways to do the same in windows, in turns.
#pragma once

#include <quorvel/platform/platform.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

inline double MillisecondsOf(const std::function<void()>& act) {
    LARGE_INTEGER frequency, start, end;
    ::QueryPerformanceFrequency(&frequency);
    ::QueryPerformanceCounter(&start);
    act();
    ::QueryPerformanceCounter(&end);
    return 1000.0 * static_cast<double>(end.QuadPart - start.QuadPart) /
           static_cast<double>(frequency.QuadPart);
}

// Prints a line with the medians and the ratio of the library's to the bare way's.
inline void Compare(const char* name, int turns, const std::function<void()>& library,
                    const std::function<void()>& bare) {
    std::vector<double> times[2];
    for (int i = 0; i < turns; ++i) {
        times[0].push_back(MillisecondsOf(library));
        times[1].push_back(MillisecondsOf(bare));
    }
    for (std::vector<double>& each : times)
        std::ranges::sort(each);
    const std::size_t middle = times[0].size() / 2;
    std::printf("%-32s %9.3f ms, bare %9.3f ms, ratio %.2f\n", name, times[0][middle],
                times[1][middle], times[0][middle] / times[1][middle]);
}
