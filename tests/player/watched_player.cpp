// The very source of the show's entry point, under the name of `runShow`. What it makes is the real thing,
// and writes down what it is told; SDL, SDL_mixer and OpenGL below it are doubles.
//
// A call of a part reads "update(room, 1.5)", that of a constructor as in a program: "RoomScene(640, 360)".

#include "framework/display.h"
#include "framework/mixer.h"
#include "gl/gl-wrapper.h"
#include "pack/packfile.h"
#include "player/keymap.h"
#include "player/player.h"
#include "scenes/bottle_scene.h"
#include "scenes/burger_scene.h"
#include "scenes/catalogue.h"
#include "scenes/credits_scene.h"
#include "scenes/people_scene.h"
#include "scenes/room_scene.h"
#include "scenes/toilet_scene.h"
#include "sync/syncdevice.h"
#include "sync/tools.h"
#include "tests/player/fake_platform.h"

#include <SDL.h>
#include <fmt/format.h>
#include <string>
#include <utility>

namespace {

/// The first base of a watched part, so that its line stands before all that the making of the part calls.
class Note {
public:
    explicit Note(std::string call) { FakePlatform::current().gl.note(std::move(call)); }
};

} // namespace

namespace tolv {

class WatchedDisplay : private Note, public Display {
public:
    WatchedDisplay(zund::GLInterface& gl, const std::string& resolution, bool fullscreen, bool doubleBuffer,
                   bool depthTest)
        : Note(fmt::format("Display({}, {}, {}, {})", resolution, fullscreen, doubleBuffer, depthTest)),
          Display(gl, resolution, fullscreen, doubleBuffer, depthTest)
    {
    }
};

class WatchedSyncDevice : private Note, public SyncDevice {
public:
    WatchedSyncDevice(const std::string& path, double bpm, int rowsPerBeat)
        : Note(fmt::format("SyncDevice({}, {}, {})", path, bpm, rowsPerBeat)),
          SyncDevice(path, bpm, rowsPerBeat)
    {
    }

    SyncTrack getTrack(const std::string& name) const
    {
        Note(fmt::format("getTrack({})", name));
        return SyncDevice::getTrack(name);
    }
    float getValue(const SyncTrack& track, double row) const
    {
        Note(fmt::format("getValue({}, {})", track.get()->name, row));
        return SyncDevice::getValue(track, row);
    }
};

} // namespace tolv

namespace pack {

class WatchedPackfile : private Note, public Packfile {
public:
    explicit WatchedPackfile(const std::string& path) : Note("Packfile(" + path + ")"), Packfile(path) {}
};

} // namespace pack

namespace {

constexpr const char* titleOf(const RoomScene* /*scene*/)
{
    return "Room";
}
constexpr const char* titleOf(const BottleScene* /*scene*/)
{
    return "Bottle";
}
constexpr const char* titleOf(const BurgerScene* /*scene*/)
{
    return "Burger";
}
constexpr const char* titleOf(const PeopleScene* /*scene*/)
{
    return "People";
}
constexpr const char* titleOf(const ToiletScene* /*scene*/)
{
    return "Toilet";
}
constexpr const char* titleOf(const CreditsScene* /*scene*/)
{
    return "Credits";
}

/// A scene of the show, with what it draws.
template<typename Scene>
class Watched : private Note, public Scene {
    static constexpr const char* title = titleOf(static_cast<const Scene*>(nullptr));

    struct WatchedDraw {
        lumeth::Scene& scene;

        void draw(zund::Renderer& renderer, double time)
        {
            Note(fmt::format("draw({}, {})", title, time));
            scene.draw(renderer, time);
            Note("drawn");
        }
    };

public:
    Watched(zund::Renderer& renderer, const pack::Packfile& pack, const tolv::SyncDevice& sync,
            std::pair<int, int> size)
        : Note(madeOf(size)), Scene(renderer, pack, sync, size)
    {
    }
    Watched(zund::Renderer& renderer, const pack::Packfile& pack, std::pair<int, int> size)
        : Note(madeOf(size)), Scene(renderer, pack, size)
    {
    }

    void update(zund::Renderer& renderer, double time, const tolv::SyncDevice& sync) override
    {
        Note(fmt::format("update({}, {})", title, time));
        Scene::update(renderer, time, sync);
    }

    WatchedDraw scene{Scene::scene}; ///< before the real one

private:
    static std::string madeOf(const std::pair<int, int>& size)
    {
        return fmt::format("{}Scene({}, {})", title, size.first, size.second);
    }
};

} // namespace

#define main runShow
#define Display WatchedDisplay
#define SyncDevice WatchedSyncDevice
#define Packfile WatchedPackfile
#define RoomScene Watched<RoomScene>
#define BottleScene Watched<BottleScene>
#define BurgerScene Watched<BurgerScene>
#define PeopleScene Watched<PeopleScene>
#define ToiletScene Watched<ToiletScene>
#define CreditsScene Watched<CreditsScene>
#include "player/player.cpp" // NOLINT(bugprone-suspicious-include)
