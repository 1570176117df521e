// A frame's command list: of each scene of the show, and how the time grows with nodes and lights. The
// renderer only counts.

#include "bench/counting_renderer.h"
#include "scenes/bottle_scene.h"
#include "scenes/burger_scene.h"
#include "scenes/credits_scene.h"
#include "scenes/people_scene.h"
#include "scenes/room_scene.h"
#include "scenes/toilet_scene.h"
#include "sync/tools.h"

#include <benchmark/benchmark.h>
#include <string>
#include <type_traits>

namespace {

constexpr std::pair<int, int> size(1920, 1080);

template<typename Scene>
void assembleScene(benchmark::State& state)
{
    CountingRenderer renderer;
    const pack::Packfile pack("assets/assets.pack");
    const tolv::SyncDevice sync("assets/sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    auto scene = [&] {
        if constexpr (std::is_same_v<Scene, CreditsScene>) {
            return Scene(renderer, pack, size);
        } else {
            return Scene(renderer, pack, sync, size);
        }
    }();
    double time = 0.0;
    for ([[maybe_unused]] const auto pass : state) {
        scene.update(renderer, time, sync);
        scene.scene.draw(renderer, time);
        time += 0.041;
    }
    state.counters["commands"] =
        static_cast<double>(renderer.commands) / static_cast<double>(state.iterations());
}
BENCHMARK(assembleScene<RoomScene>)->Name("frame assembled, room")->Unit(benchmark::kMicrosecond);
BENCHMARK(assembleScene<PeopleScene>)->Name("frame assembled, people")->Unit(benchmark::kMicrosecond);
BENCHMARK(assembleScene<BurgerScene>)->Name("frame assembled, burger")->Unit(benchmark::kMicrosecond);
BENCHMARK(assembleScene<BottleScene>)->Name("frame assembled, bottle")->Unit(benchmark::kMicrosecond);
BENCHMARK(assembleScene<ToiletScene>)->Name("frame assembled, toilet")->Unit(benchmark::kMicrosecond);
BENCHMARK(assembleScene<CreditsScene>)->Name("frame assembled, credits")->Unit(benchmark::kMicrosecond);

void assemble(benchmark::State& state, std::int64_t nodes, std::int64_t lights)
{
    CountingRenderer renderer;
    lumeth::Scene scene;
    scene.init(renderer, size);
    lumeth::DisplayObject object;
    object.vertexArray = renderer.genVertexArray(0, 3);
    scene.addObject("thing", std::move(object));
    const glm::quat unturned(1.0F, 0.0F, 0.0F, 0.0F);
    for (std::int64_t i = 0; i < nodes; ++i) {
        scene.getGraph().addNode(
            "node" + std::to_string(i),
            lumeth::DisplayListItem("thing", glm::vec3(0.0F), unturned, glm::vec3(1.0F)));
    }
    for (std::int64_t i = 0; i < lights; ++i) {
        scene.addLight({glm::vec3(1.0F), glm::vec3(1.0F), glm::vec3(1.0F)});
    }
    for ([[maybe_unused]] const auto pass : state) {
        scene.draw(renderer, 1.0);
    }
}

void assembleNodes(benchmark::State& state)
{
    assemble(state, state.range(0), 5);
    state.SetComplexityN(state.range(0));
}
BENCHMARK(assembleNodes)
    ->Name("frame assembled, nodes")
    ->RangeMultiplier(2)
    ->Range(8, 256)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMicrosecond);

void assembleLights(benchmark::State& state)
{
    assemble(state, 23, state.range(0));
}
BENCHMARK(assembleLights)
    ->Name("frame assembled, 23 nodes, lights")
    ->RangeMultiplier(2)
    ->Range(1, 16)
    ->Unit(benchmark::kMicrosecond);

} // namespace
