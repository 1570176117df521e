#include "tests/player/fake_platform.h"

#include "tests/support/sdl_names.h"

#include <SDL_mixer.h>
#include <fmt/format.h>
#include <gtest/gtest.h>

namespace {

FakePlatform* platform = nullptr;

// Never looked into, only passed around.
int windowObject = 0;
int musicObject = 0;
SDL_Window* const theWindow = reinterpret_cast<SDL_Window*>(&windowObject);
Mix_Music* const theMusic = reinterpret_cast<Mix_Music*>(&musicObject);

std::string nameOf(const void* object)
{
    if (object == theWindow) {
        return "window";
    }
    return object == theMusic ? "music" : "something else";
}

void note(std::string call)
{
    platform->gl.note(std::move(call));
}

} // namespace

FakePlatform::FakePlatform()
{
    platform = this;
}

FakePlatform::~FakePlatform()
{
    platform = nullptr;
}

FakePlatform& FakePlatform::current()
{
    return *platform;
}

SDL_Event makeEvent(Uint32 type, SDL_Keycode key)
{
    SDL_Event event = {};
    event.type = type;
    event.key.keysym.sym = key;
    return event;
}

// Defined here, these stand before those of the shared libraries.
extern "C" {

int SDL_ShowCursor(int toggle)
{
    note(fmt::format("SDL_ShowCursor({})", toggle));
    return 0;
}

int SDL_Init(Uint32 flags)
{
    note(fmt::format("SDL_Init({})", flags));
    return 0;
}

void SDL_Quit()
{
    note("SDL_Quit()");
}

int SDL_GL_SetAttribute(SDL_GLattr attribute, int value)
{
    note(fmt::format("SDL_GL_SetAttribute({}, {})", attributeName(attribute), value));
    return 0;
}

SDL_bool SDL_SetHint(const char* name, const char* value)
{
    note(fmt::format("SDL_SetHint({}, {})", name, value));
    return SDL_TRUE;
}

SDL_Window* SDL_CreateWindow(const char* title, int x, int y, int w, int h, Uint32 flags)
{
    note(fmt::format("SDL_CreateWindow({}, 0x{:X}, 0x{:X}, {}, {}, 0x{:X})", title, x, y, w, h, flags));
    return theWindow;
}

void SDL_DestroyWindow(SDL_Window* window)
{
    note("SDL_DestroyWindow(" + nameOf(window) + ")");
}

void SDL_GL_GetDrawableSize(SDL_Window* window, int* w, int* h)
{
    note("SDL_GL_GetDrawableSize(" + nameOf(window) + ")");
    *w = 640;
    *h = 360;
}

void SDL_GL_SwapWindow(SDL_Window* window)
{
    note("SDL_GL_SwapWindow(" + nameOf(window) + ")");
}

Uint32 SDL_GetTicks()
{
    note("SDL_GetTicks()");
    const Uint32 now = platform->ticks.empty() ? 0 : platform->ticks.front();
    if (platform->ticks.size() > 1) {
        platform->ticks.pop_front();
    }
    return now;
}

void SDL_Delay(Uint32 ms)
{
    note(fmt::format("SDL_Delay({})", ms));
}

int SDL_PollEvent(SDL_Event* event)
{
    std::vector<SDL_Event>& queue = platform->queue;
    const std::vector<std::string>& calls = platform->gl.calls;
    const bool firstOfTheFrame = !calls.empty() && calls.back() == "SDL_GetTicks()";
    note("SDL_PollEvent()");
    if (firstOfTheFrame) {
        if (!platform->events.empty()) {
            queue = platform->events.front();
            platform->events.pop_front();
        } else if (platform->positions.empty()) {
            queue = {makeEvent(SDL_QUIT)};
        }
    }
    if (queue.empty()) {
        return 0;
    }
    *event = queue.front();
    queue.erase(queue.begin());
    return platform->pollAnswer;
}

int Mix_Init(int flags)
{
    note(fmt::format("Mix_Init({})", flags));
    return flags;
}

void Mix_Quit()
{
    note("Mix_Quit()");
}

int Mix_OpenAudio(int frequency, Uint16 format, int channels, int chunk)
{
    note(fmt::format("Mix_OpenAudio({}, 0x{:X}, {}, {})", frequency, format, channels, chunk));
    return 0;
}

void Mix_CloseAudio()
{
    note("Mix_CloseAudio()");
}

Mix_Music* Mix_LoadMUS(const char* file)
{
    note(fmt::format("Mix_LoadMUS({})", file));
    return theMusic;
}

int Mix_PlayMusic(Mix_Music* music, int loops)
{
    note(fmt::format("Mix_PlayMusic({}, {})", nameOf(music), loops));
    return 0;
}

double Mix_GetMusicPosition(Mix_Music* music)
{
    if (platform->positions.empty()) {
        ADD_FAILURE() << "the position is asked for more than once a frame";
        return 0.0;
    }
    const double position = platform->positions.front();
    platform->positions.pop_front();
    note(fmt::format("Mix_GetMusicPosition({}) = {}", nameOf(music), position));
    return position;
}

} // extern "C"
