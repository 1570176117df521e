// Opening a pack: how the time grows with its records.

#include "pack/format.h"
#include "pack/packfile.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

std::string makePack(std::int64_t records)
{
    std::string bytes(pack::format::magic);
    for (std::int64_t i = 0; i < records; ++i) {
        std::string record = "texture_" + std::to_string(i) + ".dds";
        record.resize(pack::format::recordSize, '\0');
        record.back() = static_cast<char>(i + 1 == records);
        bytes += record;
    }
    return bytes;
}

void openPack(benchmark::State& state)
{
    const std::filesystem::path path = std::filesystem::temp_directory_path() / "vesperal-bench.pack";
    std::ofstream(path, std::ios::binary) << makePack(state.range(0));
    for ([[maybe_unused]] const auto pass : state) {
        const pack::Packfile pack(path.string());
        benchmark::DoNotOptimize(pack.getFile("texture_0.dds", true));
    }
    std::filesystem::remove(path);
    state.SetComplexityN(state.range(0));
}
BENCHMARK(openPack)
    ->Name("pack opened, records")
    ->RangeMultiplier(2)
    ->Range(1, 1024)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMicrosecond);

} // namespace
