// On the real driver: a frame of each scene, and what a start spends its time on. With GALLIUM_NOOP=1 Mesa
// does all but rasterise, so that what is left is the cost of the calls.

#include "bench/counting_renderer.h"
#include "engine/model_loader.h"
#include "gl/renderer-impl.h"
#include "scenes/bottle_scene.h"
#include "scenes/burger_scene.h"
#include "scenes/credits_scene.h"
#include "scenes/people_scene.h"
#include "scenes/room_scene.h"
#include "scenes/toilet_scene.h"
#include "sync/tools.h"
#include "tools/stage/show_context.h"

#include <SDL.h>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <optional>
#include <stdexcept>

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr std::pair<int, int> size(1920, 1080);

/// Adds the time until it goes to a sum.
class Stopwatch {
public:
    explicit Stopwatch(Milliseconds& sum) : sum(sum) {}
    ~Stopwatch() { sum += Clock::now() - start; }

    Stopwatch(const Stopwatch&) = delete;
    Stopwatch& operator=(const Stopwatch&) = delete;

private:
    Milliseconds& sum;
    Clock::time_point start = Clock::now();
};

/// The real renderer, with the time of what it makes.
class TimedRenderer : public zund::RendererImpl {
public:
    explicit TimedRenderer(SDL_Window* window) : RendererImpl(window, true) {}

    Milliseconds shaders{0};
    Milliseconds textures{0};
    Milliseconds geometry{0};

    zund::Shader createShader(zund::Shader::Type type, const char* source) override
    {
        const Stopwatch watch(shaders);
        return RendererImpl::createShader(type, source);
    }
    zund::ShaderProgram createProgram(const zund::Shader& first, const zund::Shader& second,
                                      const zund::Shader* third) override
    {
        const Stopwatch watch(shaders);
        return RendererImpl::createProgram(first, second, third);
    }
    zund::Texture loadTextureDXT(int width, int height, const void* data) override
    {
        const Stopwatch watch(textures);
        return RendererImpl::loadTextureDXT(width, height, data);
    }
    zund::VertexArray createIndexedBuffer(const float* positions, unsigned long positionCount,
                                          const unsigned int* indices, unsigned long indexCount,
                                          const float* uvs, unsigned long uvCount, const float* normals,
                                          unsigned long normalCount, const float* tangents,
                                          unsigned long tangentCount, const float* bitangents,
                                          unsigned long bitangentCount) override
    {
        const Stopwatch watch(geometry);
        return RendererImpl::createIndexedBuffer(positions, positionCount, indices, indexCount, uvs, uvCount,
                                                 normals, normalCount, tangents, tangentCount, bitangents,
                                                 bitangentCount);
    }
};

/// SDL without a window system, and a window with the renderer in it.
class Offscreen {
public:
    Offscreen()
    {
        setenv("SDL_VIDEODRIVER", "offscreen", 1);
        if (SDL_Init(SDL_INIT_VIDEO) < 0) {
            throw std::runtime_error(SDL_GetError());
        }
        tools::stage::askForShowContext();
        window = SDL_CreateWindow("bench", 0, 0, size.first, size.second, SDL_WINDOW_OPENGL);
        if (window == nullptr) {
            throw std::runtime_error(SDL_GetError());
        }
        renderer = std::make_unique<TimedRenderer>(window);
    }
    ~Offscreen()
    {
        renderer.reset();
        SDL_DestroyWindow(window);
        SDL_Quit();
    }

    Offscreen(const Offscreen&) = delete;
    Offscreen& operator=(const Offscreen&) = delete;

    void swap() { SDL_GL_SwapWindow(window); }

    std::unique_ptr<TimedRenderer> renderer;

private:
    SDL_Window* window = nullptr;
};

template<typename Scene>
void drawScene(benchmark::State& state)
{
    Offscreen screen;
    zund::Renderer& renderer = *screen.renderer;
    const pack::Packfile pack("assets/assets.pack");
    const tolv::SyncDevice sync("assets/sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    Scene scene(renderer, pack, sync, size);
    double time = 0.0;
    for ([[maybe_unused]] const auto pass : state) {
        renderer.clear(0.01F, 0.01F, 0.01F);
        scene.update(renderer, time, sync);
        scene.scene.draw(renderer, time);
        screen.swap();
        time += 0.041;
    }
}
BENCHMARK(drawScene<RoomScene>)->Name("frame drawn, room")->Unit(benchmark::kMicrosecond);
BENCHMARK(drawScene<PeopleScene>)->Name("frame drawn, people")->Unit(benchmark::kMicrosecond);
BENCHMARK(drawScene<BurgerScene>)->Name("frame drawn, burger")->Unit(benchmark::kMicrosecond);
BENCHMARK(drawScene<BottleScene>)->Name("frame drawn, bottle")->Unit(benchmark::kMicrosecond);
BENCHMARK(drawScene<ToiletScene>)->Name("frame drawn, toilet")->Unit(benchmark::kMicrosecond);

/// All scenes, as the player builds them.
struct AllScenes {
    AllScenes(zund::Renderer& renderer, const pack::Packfile& pack, const tolv::SyncDevice& sync)
        : room(renderer, pack, sync, size),
          bottle(renderer, pack, sync, size),
          burger(renderer, pack, sync, size),
          people(renderer, pack, sync, size),
          toilet(renderer, pack, sync, size),
          credits(renderer, pack, size)
    {
    }

    RoomScene room;
    BottleScene bottle;
    BurgerScene burger;
    PeopleScene people;
    ToiletScene toilet;
    CreditsScene credits;
};

void start(benchmark::State& state)
{
    Milliseconds context{0};
    Milliseconds scenesOnly{0}; // on a renderer that makes nothing: the imports, and little else
    Milliseconds shaders{0};
    Milliseconds textures{0};
    Milliseconds geometry{0};
    for ([[maybe_unused]] const auto pass : state) {
        std::optional<Offscreen> screen;
        {
            const Stopwatch watch(context);
            screen.emplace();
        }
        const pack::Packfile pack("assets/assets.pack");
        const tolv::SyncDevice sync("assets/sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
        AllScenes scenes(*screen->renderer, pack, sync);
        scenes.room.update(*screen->renderer, 0.0, sync);
        scenes.room.scene.draw(*screen->renderer, 0.0);
        screen->swap();
        shaders += screen->renderer->shaders;
        textures += screen->renderer->textures;
        geometry += screen->renderer->geometry;

        state.PauseTiming();
        {
            CountingRenderer nothing;
            const Stopwatch watch(scenesOnly);
            const AllScenes again(nothing, pack, sync);
        }
        state.ResumeTiming();
    }
    const auto average = [&](Milliseconds sum) {
        return sum.count() / static_cast<double>(state.iterations());
    };
    state.counters["context_ms"] = average(context);
    state.counters["imports_ms"] = average(scenesOnly);
    state.counters["shaders_ms"] = average(shaders);
    state.counters["textures_ms"] = average(textures);
    state.counters["geometry_ms"] = average(geometry);
}
BENCHMARK(start)->Name("start, up to the first swap")->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
