// printf forms against the C library's, whose text is narrow and which allocates nothing.
#include <quorvel/framework/string.h>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>

namespace {

template <class... Arguments>
void Format(benchmark::State& state, const WCHAR* format, Arguments... arguments) {
    CString text;
    for (auto _ : state) {
        text.Format(format, arguments...);
        benchmark::DoNotOptimize(text.GetString());
    }
}

template <class... Arguments>
void CLibrary(benchmark::State& state, const char* format, Arguments... arguments) {
    char text[4096];
    for (auto _ : state) {
        std::snprintf(text, sizeof text, format, arguments...);
        benchmark::DoNotOptimize(text);
    }
}

const std::string kLong(2000, 'x');
const std::basic_string<WCHAR> kLongWide(2000, 'x');

BENCHMARK_CAPTURE(Format, Integers, _T("%d of %u bytes, %08x"), -12345, 4000000000u, 48879u)
    ->Name("Format/Quorvel/Integers");
BENCHMARK_CAPTURE(CLibrary, Integers, "%d of %u bytes, %08x", -12345, 4000000000u, 48879u)
    ->Name("Format/snprintf/Integers");
BENCHMARK_CAPTURE(Format, Texts, _T("Column %d: %s\\%s"), 7, _T("Software"), _T("Settings"))
    ->Name("Format/Quorvel/Texts");
BENCHMARK_CAPTURE(CLibrary, Texts, "Column %d: %s\\%s", 7, "Software", "Settings")
    ->Name("Format/snprintf/Texts");
BENCHMARK_CAPTURE(Format, LongText, _T("[%s]"), kLongWide.c_str())->Name("Format/Quorvel/LongText");
BENCHMARK_CAPTURE(CLibrary, LongText, "[%s]", kLong.c_str())->Name("Format/snprintf/LongText");
BENCHMARK_CAPTURE(Format, General, _T("%g"), 3.14159)->Name("Format/Quorvel/General");
BENCHMARK_CAPTURE(CLibrary, General, "%g", 3.14159)->Name("Format/snprintf/General");
BENCHMARK_CAPTURE(Format, Fixed, _T("%.2f"), 1536.127)->Name("Format/Quorvel/Fixed");
BENCHMARK_CAPTURE(CLibrary, Fixed, "%.2f", 1536.127)->Name("Format/snprintf/Fixed");
BENCHMARK_CAPTURE(Format, LargeFixed, _T("%f"), 1e300)->Name("Format/Quorvel/LargeFixed");
BENCHMARK_CAPTURE(CLibrary, LargeFixed, "%f", 1e300)->Name("Format/snprintf/LargeFixed");

} // namespace
