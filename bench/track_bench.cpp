// Reading a track: how the time grows with its keys.

#include "sync/track.h"

#include <benchmark/benchmark.h>
#include <vector>

namespace {

void readTrack(benchmark::State& state)
{
    std::vector<sync_key> keys;
    keys.reserve(static_cast<std::size_t>(state.range(0)));
    for (int i = 0; i < state.range(0); ++i) {
        keys.push_back({i * 4, static_cast<float>(i % 7), SYNC_SMOOTH});
    }
    char name[] = "bench";
    const sync_track track = {name, keys.data(), static_cast<std::int32_t>(keys.size())};
    const double last = static_cast<double>(keys.size()) * 4.0;
    double row = 0.0;
    for ([[maybe_unused]] const auto pass : state) {
        benchmark::DoNotOptimize(sync_get_val(&track, row));
        row += 1.37; // as frames do, a little further each time
        if (row > last) {
            row -= last;
        }
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(readTrack)
    ->Name("track read, keys")
    ->RangeMultiplier(2)
    ->Range(1, 4096)
    ->Complexity(benchmark::oLogN);

} // namespace
