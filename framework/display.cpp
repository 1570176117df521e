#include "framework/display.h"

#include "framework/exception.h"
#include "gl/exception.h"
#include "gl/renderer-impl.h"

#include <SDL.h>

namespace tolv {

const std::unordered_map<std::string, std::pair<int, int>> Display::resolutions = {
    {"720p", {1280, 720}},
    {"1080p", {1920, 1080}},
    {"2160p", {3840, 2160}},
};

Display::Display(zund::GLInterface& gl, const std::string& resolution, bool fullscreen, bool doubleBuffer,
                 bool depthTest)
    : gl(gl), fullscreen(fullscreen)
{
    const std::pair<int, int> size = resolutionNameToSize(resolution);
    initSdl();
    configureWindow(doubleBuffer);
    window = createWindow(size);
    try {
        context = std::make_unique<zund::RendererImpl>(window, depthTest);
    } catch (const zund::Exception&) {
        SDL_DestroyWindow(window);
        SDL_Quit();
        throw;
    }
}

Display::~Display()
{
    context.reset(); // while the window still exists
    if (window != nullptr) {
        SDL_DestroyWindow(window);
    }
    SDL_Quit();
}

void Display::initSdl()
{
    if (SDL_Init(SDL_INIT_VIDEO) < 0) {
        // Without a separator: whoever looks for the text finds it by its letters.
        throw Exception(std::string("SDL_Init failed") + SDL_GetError());
    }
}

void Display::configureWindow(bool doubleBuffer)
{
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_FLAGS, SDL_GL_CONTEXT_DEBUG_FLAG);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_CORE);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, 4);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, 5);
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, doubleBuffer ? 1 : 0);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 24);
    SDL_SetHint(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0");
}

SDL_Window* Display::createWindow(const std::pair<int, int>& size)
{
    Uint32 flags = SDL_WINDOW_OPENGL | SDL_WINDOW_SHOWN;
    if (fullscreen) {
        flags |= SDL_WINDOW_FULLSCREEN_DESKTOP;
    }
    SDL_Window* created = SDL_CreateWindow("vesperal", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                                           size.first, size.second, flags);
    if (created == nullptr) {
        const Exception failure(std::string("Failed to create window: ") + SDL_GetError());
        SDL_Quit();
        throw failure;
    }
    return created;
}

void Display::Swap()
{
    SDL_GL_SwapWindow(window);
}

std::pair<int, int> Display::getResolution() const
{
    std::pair<int, int> size(0, 0);
    SDL_GL_GetDrawableSize(window, &size.first, &size.second);
    return size;
}

zund::Renderer& Display::getContext()
{
    return *context;
}

std::pair<int, int> Display::resolutionNameToSize(const std::string& name)
{
    const auto found = resolutions.find(name);
    if (found == resolutions.end()) {
        throw Exception("Unknown resolution string: " + name);
    }
    return found->second;
}

} // namespace tolv
