// Tells what the show would find on this machine, as lines "KEY=VALUE": it opens what the show opens (a
// window with a context of OpenGL 4.5, the default audio device), but keeps the window hidden and plays
// nothing. vesperal-check.sh reads the lines; a line that is missing could not be found out. Takes no
// arguments; the status is always 0.
//
//   video=NAME    screen=WIDTHxHEIGHT   video_error=TEXT
//   gl_vendor=, gl_renderer=, gl_version=TEXT     gl_error=TEXT, if there is no context such as the show's
//   s3tc=yes|no   audio=NAME            audio_error=TEXT

#include "tools/stage/show_context.h"

#include <SDL.h>
#include <SDL_opengl.h>
#include <cstdio>
#include <cstring>

namespace {

void tell(const char* key, const char* value)
{
    std::printf("%s=%s\n", key, value == nullptr ? "" : value);
}

template<typename Function>
Function load(const char* name)
{
    return reinterpret_cast<Function>(SDL_GL_GetProcAddress(name));
}

/// Of the current context.
void tellDriver()
{
    const auto getString = load<decltype(&glGetString)>("glGetString");
    if (getString == nullptr) {
        return;
    }
    const auto text = [getString](GLenum name) {
        return reinterpret_cast<const char*>(getString(name));
    };
    tell("gl_vendor", text(GL_VENDOR));
    tell("gl_renderer", text(GL_RENDERER));
    tell("gl_version", text(GL_VERSION));
    tell("s3tc", SDL_GL_ExtensionSupported("GL_EXT_texture_compression_s3tc") == SDL_TRUE ? "yes" : "no");
}

/// A window that may have a context of the kind last asked for.
SDL_GLContext makeContext(SDL_Window*& window)
{
    window = SDL_CreateWindow("vesperal", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, 320, 180,
                              SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN);
    return window == nullptr ? nullptr : SDL_GL_CreateContext(window);
}

void probeOpenGl()
{
    SDL_Window* window = nullptr;
    tools::stage::askForShowContext();
    SDL_GLContext context = makeContext(window);
    if (context == nullptr) {
        tell("gl_error", SDL_GetError());
        if (window != nullptr) {
            SDL_DestroyWindow(window);
        }
        SDL_GL_ResetAttributes(); // whatever there is, so that it can be named
        context = makeContext(window);
    }
    if (context != nullptr) {
        tellDriver();
        SDL_GL_DeleteContext(context);
    }
    if (window != nullptr) {
        SDL_DestroyWindow(window);
    }
}

void probeVideo()
{
    if (SDL_Init(SDL_INIT_VIDEO) < 0) {
        tell("video_error", SDL_GetError());
        return;
    }
    tell("video", SDL_GetCurrentVideoDriver());
    SDL_DisplayMode mode;
    if (SDL_GetDesktopDisplayMode(0, &mode) == 0) {
        std::printf("screen=%dx%d\n", mode.w, mode.h);
    }
    probeOpenGl();
}

void probeAudio()
{
    SDL_AudioSpec wanted = {};
    wanted.freq = 44100;
    wanted.format = AUDIO_S16LSB;
    wanted.channels = 2;
    wanted.samples = 1024;
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) < 0) {
        tell("audio_error", SDL_GetError());
        return;
    }
    wanted.callback = [](void*, Uint8* stream, int bytes) {
        std::memset(stream, 0, static_cast<std::size_t>(bytes));
    };
    const SDL_AudioDeviceID device = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (device == 0) {
        tell("audio_error", SDL_GetError());
        return;
    }
    tell("audio", SDL_GetCurrentAudioDriver());
    SDL_CloseAudioDevice(device);
}

} // namespace

int main(int, char**)
{
    probeVideo();
    probeAudio();
    std::fflush(stdout);
    SDL_Quit();
    return 0;
}
