#include "tools/common/quiet_output.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <unistd.h>

/// Runs all benchmarks in the folder of the show, on its real assets.
int main(int argc, char** argv)
{
    if (chdir(VESPERAL_SHOW) != 0) {
        std::perror("vesperal_bench: " VESPERAL_SHOW);
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    // What models and sync device say would tear the table apart; the reporter gets a stream of its own.
    std::ostream table(std::cout.rdbuf());
    const tools::QuietOutput quiet;
    benchmark::ConsoleReporter reporter(benchmark::ConsoleReporter::OO_Tabular);
    reporter.SetOutputStream(&table);
    reporter.SetErrorStream(&std::cerr);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
