// What is asked of SDL for a context. The functions at the end stand in the place of SDL's.
#include "tools/stage/show_context.h"

#include "framework/display.h"
#include "framework/exception.h"
#include "gl/gl-wrapper.h"

#include <SDL.h>
#include <gmock/gmock.h>
#include <map>
#include <utility>

namespace {

std::map<SDL_GLattr, int> asked;

template<typename Asking>
std::map<SDL_GLattr, int> attributesOf(Asking ask)
{
    asked.clear();
    ask();
    return std::exchange(asked, {});
}

TEST(ShowContext, IsTheOneThatTheShowsOwnWindowHas)
{
    const auto attributesOfShow = attributesOf([] {
        zund::GLWrapper gl;
        EXPECT_THROW(tolv::Display(gl, "720p", false, true, true), tolv::Exception); // its window fails
    });
    EXPECT_FALSE(attributesOfShow.empty());
    EXPECT_EQ(attributesOf(tools::stage::askForShowContext), attributesOfShow);
}

} // namespace

// Their parameters are named as in SDL's own headers.
extern "C" {

int SDL_Init(Uint32 /*flags*/)
{
    return 0;
}

void SDL_Quit() {}

int SDL_GL_SetAttribute(SDL_GLattr attr, int value)
{
    asked[attr] = value;
    return 0;
}

SDL_Window* SDL_CreateWindow(const char* /*title*/, int /*x*/, int /*y*/, int /*w*/, int /*h*/,
                             Uint32 /*flags*/)
{
    return nullptr;
}
}
