#include "player/player.h"

#include "framework/display.h"
#include "framework/mixer.h"
#include "gl/gl-wrapper.h"
#include "pack/packfile.h"
#include "player/keymap.h"
#include "scenes/bottle_scene.h"
#include "scenes/burger_scene.h"
#include "scenes/catalogue.h"
#include "scenes/credits_scene.h"
#include "scenes/people_scene.h"
#include "scenes/room_scene.h"
#include "scenes/toilet_scene.h"
#include "sync/syncdevice.h"
#include "sync/tools.h"

#include <SDL.h>
#include <utility>

namespace {

constexpr float clearColor = 0.01F; // of red, green and blue
constexpr int frameBudget = 41;     // milliseconds: about 24 frames a second

/// Lets one scene make the picture. `position` is that in the music, in seconds.
template<typename Scene>
void show(Scene& scene, zund::Renderer& renderer, double position, const tolv::SyncDevice& sync)
{
    scene.update(renderer, position, sync);
    scene.scene.draw(renderer, position);
}

/// Sleeps out what is left of the frame that began at `start`, in SDL's milliseconds.
void pace(Uint32 start)
{
    const auto elapsed = static_cast<int>(SDL_GetTicks() - start);
    SDL_Delay(elapsed < frameBudget ? static_cast<Uint32>(frameBudget - elapsed) : 0);
}

} // namespace

bool handleEvents()
{
    SDL_Event event = {};
    while (SDL_PollEvent(&event) == 1) {
        if (event.type == SDL_QUIT) {
            return false;
        }
        // On release: pressing and holding does nothing.
        if (event.type == SDL_KEYUP && tolv::Keymap::mapKey(event.key.keysym.sym) == tolv::Keymap::Quit) {
            return false;
        }
    }
    return true;
}

int main()
{
    zund::GLWrapper gl;
    SDL_ShowCursor(0); // before SDL has started: behind the display it would come after the first picture
    tolv::Display display(gl, "1080p", true, true, true);
    const tolv::SyncDevice sync("assets/sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    Mixer mixer;
    mixer.openAudio();
    mixer.loadMusic("assets/house99.ogg");
    zund::Renderer& renderer = display.getContext();
    const pack::Packfile pack("assets/assets.pack");
    const std::pair<int, int> resolution = display.getResolution();

    RoomScene room(renderer, pack, sync, resolution);
    BottleScene bottle(renderer, pack, sync, resolution);
    BurgerScene burger(renderer, pack, sync, resolution);
    PeopleScene people(renderer, pack, sync, resolution);
    ToiletScene toilet(renderer, pack, sync, resolution);
    CreditsScene credits(renderer, pack, resolution);

    mixer.playMusic();
    const tolv::SyncTrack sceneTrack = sync.getTrack("scene");

    for (;;) {
        const Uint32 start = SDL_GetTicks();
        if (!handleEvents()) {
            return 1;
        }
        const double position = mixer.getMusicPosition();
        const float value = sync.getValue(sceneTrack, timeToRow(position));
        renderer.clear(clearColor, clearColor, clearColor);
        if (value == catalogue::scenes::room.number) {
            show(room, renderer, position, sync);
        } else if (value == catalogue::scenes::credits.number) {
            show(credits, renderer, position, sync);
        } else if (value == catalogue::scenes::bottle.number) {
            show(bottle, renderer, position, sync);
        } else if (value == catalogue::scenes::burger.number) {
            show(burger, renderer, position, sync);
        } else if (value == catalogue::scenes::toilet.number) {
            show(toilet, renderer, position, sync);
        } else if (value == catalogue::scenes::people.number) {
            show(people, renderer, position, sync);
        } else if (value == catalogue::endOfShow) {
            return 0;
        }
        display.Swap();
        pace(start);
    }
}
