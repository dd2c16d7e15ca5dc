#include "xml_process.h"

#include <benchmark/benchmark.h>

int main(int argc, char** argv) {
    LoadXmlIfAsked(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
