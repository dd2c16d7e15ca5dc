#include "xml_process.h"

#include "xml_documents.h"

#include <quorvel/xml/markup.h>
#include <quorvel/xml/xml_file.h>

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

constexpr std::string_view kLoadOwn = "--load-xml-here";
constexpr std::string_view kLoadPugi = "--load-xml-with-pugixml-here";

double ProcessorMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// Not getrusage: a process inherits that peak from the one that has started it.
double PeakMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmHWM:"))
            return std::atof(line.c_str() + 6) / 1024;
    return 0;
}

bool LoadOwn(const char* path) {
    static CMarkup s_markup;
    CString error;
    return AfxLoadXMLFile(CString(path), s_markup, error) != 0;
}

bool LoadPugi(const char* path) {
    static pugi::xml_document s_tree;
    return s_tree.load_file(path);
}

struct Child {
    double milliseconds = 0;
    double peak = 0;
};

Child RunChild(std::string_view option, const XmlDocument& document) {
    const std::string command = "exec /proc/" + std::to_string(getpid()) + "/exe " +
                                std::string(option) + " '" + document.path.string() + "'";
    Child child;
    FILE* const output = popen(command.c_str(), "r");
    if (output == nullptr)
        return child;
    if (std::fscanf(output, "%lf %lf", &child.milliseconds, &child.peak) != 2)
        child = {};
    pclose(output);
    return child;
}

// What is allowed for a document loaded from a file: its text, its index with half of it to spare,
// and 4 MB.
double AllowedMegabytes(const XmlDocument& document) {
    class Probe : public CMarkup {
    public:
        using CMarkup::CMarkup;
        int Elements() const { return m_iPosFree; }
        int Records() const { return m_aPos.GetSize(); }
    };
    const Probe markup(document.text);
    const double index = 32.0 * markup.Records();
    return (2.0 * markup.GetDocConstRef().GetLength() + index) / (1 << 20) + 4;
}

void LoadInChild(benchmark::State& state, std::string_view option) {
    const XmlDocument& document = XmlDocumentOf(state);
    static const double s_empty = RunChild(option, XmlDocumentOf(XmlCorpus::Rss, 10)).peak;
    Child child;
    for (auto _ : state) {
        // The first takes memory back from the host of a virtual machine, which a process on a
        // machine of its own need not.
        RunChild(option, document);
        child = RunChild(option, document);
    }
    if (child.milliseconds == 0)
        state.SkipWithError("not loaded");
    state.counters["milliseconds"] = child.milliseconds;
    state.counters["peak"] = child.peak - s_empty;
    if (option == kLoadOwn)
        state.counters["allowed"] = AllowedMegabytes(document);
}

void EveryLargeCorpus(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgsProduct({{0, 1, 2, 3}, {static_cast<std::int64_t>(kLargeXml)}})->Iterations(1);
}

void EveryLanguage(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgsProduct({{4, 5}, {static_cast<std::int64_t>(kLargeXml)}})->Iterations(1);
}

BENCHMARK_CAPTURE(LoadInChild, own, kLoadOwn)
    ->Name("XmlColdLoad/AfxLoadXMLFile")
    ->Apply(EveryLargeCorpus);
BENCHMARK_CAPTURE(LoadInChild, pugi, kLoadPugi)
    ->Name("XmlColdLoad/pugixml")
    ->Apply(EveryLargeCorpus);
BENCHMARK_CAPTURE(LoadInChild, own, kLoadOwn)
    ->Name("XmlColdLoadText/AfxLoadXMLFile")
    ->Apply(EveryLanguage);
BENCHMARK_CAPTURE(LoadInChild, pugi, kLoadPugi)
    ->Name("XmlColdLoadText/pugixml")
    ->Apply(EveryLanguage);

} // namespace

void LoadXmlIfAsked(int argc, char** argv) {
    if (argc != 3 || (argv[1] != kLoadOwn && argv[1] != kLoadPugi))
        return;
    const double begin = ProcessorMilliseconds();
    const bool loaded = argv[1] == kLoadOwn ? LoadOwn(argv[2]) : LoadPugi(argv[2]);
    const double end = ProcessorMilliseconds();
    if (loaded)
        std::printf("%f %f\n", end - begin, PeakMegabytes());
    std::exit(loaded ? 0 : 1);
}
