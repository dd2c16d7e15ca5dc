// A catalogue text out of the library's own module, as every message box loads it.
#include "platform/win32.h"

#include <quorvel/res/message_ids.h>

#include <benchmark/benchmark.h>

namespace {

void LoadCatalogueText(benchmark::State& state) {
    constexpr UINT kIds[] = {21000, 21240, 22520, 22534};
    WCHAR text[256];
    std::size_t next = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(LoadStringW(nullptr, kIds[next++ % 4], text, 256));
}
BENCHMARK(LoadCatalogueText);

} // namespace
