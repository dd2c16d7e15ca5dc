// Version numbers: parsing and comparing allocate nothing. The peer reads narrow text and checks
// less: neither what follows the numbers nor their range.
#include <quorvel/types/version_number.h>

#include "allocation_count.h"

#include <cstdio>

namespace {

void VersionParse(benchmark::State& state) {
    DWORD parts[4];
    const AllocationCounter allocations(state);
    for (auto _ : state) {
        CVersionNumber::ParseVersionNumberString(_T("10.0.19041.1234"), parts[0], parts[1],
                                                 parts[2], parts[3]);
        benchmark::DoNotOptimize(parts);
    }
}
BENCHMARK(VersionParse)->Name("VersionParse/Quorvel");

void VersionParseScanf(benchmark::State& state) {
    unsigned parts[4];
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::sscanf("10.0.19041.1234", "%u.%u.%u.%u", &parts[0], &parts[1],
                                             &parts[2], &parts[3]));
        benchmark::DoNotOptimize(parts);
    }
}
BENCHMARK(VersionParseScanf)->Name("VersionParse/sscanf");

void VersionCompare(benchmark::State& state) {
    CVersionNumber left(10, 0, 19041, 1234);
    CVersionNumber right(10, 0, 19041, 1235);
    const AllocationCounter allocations(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(left);
        benchmark::DoNotOptimize(right);
        benchmark::DoNotOptimize(left < right);
    }
}
BENCHMARK(VersionCompare);

void VersionText(benchmark::State& state) {
    const CVersionNumber number(10, 0, 19041, 1234);
    const AllocationCounter allocations(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(number.GetText());
}
BENCHMARK(VersionText);

} // namespace
