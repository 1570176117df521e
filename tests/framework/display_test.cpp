// The window, on an SDL and a GLEW that only write down what they are told. The functions at the end stand in
// the place of those of the libraries.
#include "framework/display.h"

#include "framework/exception.h"
#include "gl/exception.h"
#include "gl/gl-wrapper.h"
#include "tests/support/message_of.h"
#include "tests/support/refused_calls.h"
#include "tests/support/sdl_names.h"

#include <GL/glew.h>
#include <SDL.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using tolv::Display;

/// What the libraries were told, and what they are to answer.
struct Libraries {
    std::vector<std::string> calls;
    int initResult = 0;
    bool windowFails = false;
    bool contextFails = false;
    GLenum glewResult = GLEW_OK;
    std::vector<GLenum> glErrors; ///< for `glGetError`, the last one first; none after them
    std::pair<int, int> drawable = {1280, 720};
    bool drawableKnown = true; ///< without it SDL fills in nothing
};

Libraries libraries;

// Never looked into, only passed around.
int windowObject = 0;
int contextObject = 0;
SDL_Window* const theWindow = reinterpret_cast<SDL_Window*>(&windowObject);
const SDL_GLContext theContext = &contextObject;

std::string nameOf(const void* object)
{
    if (object == theWindow) {
        return "window";
    }
    return object == theContext ? "context" : "something else";
}

template<class... Parts>
void note(const Parts&... parts)
{
    std::ostringstream line;
    (line << ... << parts);
    libraries.calls.push_back(line.str());
}

void GLAPIENTRY debugMessageCallback(GLDEBUGPROC /*callback*/, const void* /*userParam*/)
{
    note("glDebugMessageCallback");
}

void GLAPIENTRY deleteNames(GLsizei n, const GLuint* /*names*/)
{
    note("delete ", n, " names");
}

void GLAPIENTRY bindFramebuffer(GLenum /*target*/, GLuint framebuffer)
{
    note("glBindFramebuffer ", framebuffer);
}

} // namespace

// Their parameters are named as in the libraries' own headers.
extern "C" {

int SDL_Init(Uint32 flags)
{
    note("SDL_Init ", flags);
    return libraries.initResult;
}

void SDL_Quit()
{
    note("SDL_Quit");
    SDL_ClearError(); // the text of an error is gone with SDL
}

int SDL_GL_SetAttribute(SDL_GLattr attr, int value)
{
    note("SDL_GL_SetAttribute ", attributeName(attr), " ", value);
    return -1; // no one looks
}

SDL_bool SDL_SetHint(const char* name, const char* value)
{
    note("SDL_SetHint ", name, " ", value);
    return SDL_FALSE; // no one looks
}

SDL_Window* SDL_CreateWindow(const char* title, int x, int y, int w, int h, Uint32 flags)
{
    note("SDL_CreateWindow ", title, std::hex, " 0x", x, " 0x", y, std::dec, " ", w, " ", h, std::hex, " 0x",
         flags);
    return libraries.windowFails ? nullptr : theWindow;
}

void SDL_DestroyWindow(SDL_Window* window)
{
    note("SDL_DestroyWindow ", nameOf(window));
}

SDL_GLContext SDL_GL_CreateContext(SDL_Window* window)
{
    note("SDL_GL_CreateContext ", nameOf(window));
    return libraries.contextFails ? nullptr : theContext;
}

void SDL_GL_DeleteContext(SDL_GLContext context)
{
    note("SDL_GL_DeleteContext ", nameOf(context));
}

int SDL_GL_SetSwapInterval(int interval)
{
    note("SDL_GL_SetSwapInterval ", interval);
    return 0;
}

void SDL_GL_SwapWindow(SDL_Window* window)
{
    note("SDL_GL_SwapWindow ", nameOf(window));
}

void SDL_GL_GetDrawableSize(SDL_Window* window, int* w, int* h)
{
    note("SDL_GL_GetDrawableSize ", nameOf(window));
    if (libraries.drawableKnown) {
        *w = libraries.drawable.first;
        *h = libraries.drawable.second;
    }
}

GLenum GLEWAPIENTRY glewInit()
{
    note("glewInit");
    refuseEntryPoints();
    glBindFramebuffer = bindFramebuffer;
    glDebugMessageCallback = debugMessageCallback;
    glDeleteVertexArrays = deleteNames;
    glDeleteBuffers = deleteNames;
    return libraries.glewResult;
}

void GLAPIENTRY glEnable(GLenum cap)
{
    note("glEnable ", cap == GL_DEPTH_TEST ? "GL_DEPTH_TEST" : "something else");
}

GLenum GLAPIENTRY glGetError()
{
    if (libraries.glErrors.empty()) {
        return GL_NO_ERROR;
    }
    const GLenum error = libraries.glErrors.back();
    libraries.glErrors.pop_back();
    return error;
}

} // extern "C"

namespace {

class DisplayTest : public testing::Test {
protected:
    DisplayTest()
    {
        libraries = {};
        SDL_ClearError();
    }

    /// The calls since the last time it was asked.
    static std::vector<std::string> calls() { return std::exchange(libraries.calls, {}); }

    /// The one call among those so far that begins so.
    static std::string callOf(const std::string& function)
    {
        std::string found;
        for (const std::string& call : libraries.calls) {
            if (call.rfind(function + " ", 0) == 0) {
                EXPECT_EQ(found, "") << "called twice";
                found = call;
            }
        }
        return found;
    }

    zund::GLWrapper gl;
};

// Named sizes.

TEST_F(DisplayTest, KnowsThreeSizesByName)
{
    EXPECT_THAT(Display::resolutionNameToSize("720p"), Pair(1280, 720));
    EXPECT_THAT(Display::resolutionNameToSize("1080p"), Pair(1920, 1080));
    EXPECT_THAT(Display::resolutionNameToSize("2160p"), Pair(3840, 2160));
}

TEST_F(DisplayTest, KnowsNoOtherSize)
{
    for (const char* name : {"", "720", "720P", "1440p", "4k", " 720p", "1280x720"}) {
        EXPECT_EQ(messageOf<tolv::Exception>([&] { Display::resolutionNameToSize(name); }),
                  std::string("Unknown resolution string: ") + name);
    }
}

// What the constructor does.

TEST_F(DisplayTest, SetsUpSdlThenTheAttributesThenTheWindowThenTheRenderer)
{
    const Display display(gl, "1080p", true, true, true);
    EXPECT_THAT(
        calls(),
        ElementsAre(
            "SDL_Init 32", "SDL_GL_SetAttribute CONTEXT_FLAGS 1",
            "SDL_GL_SetAttribute CONTEXT_PROFILE_MASK 1", "SDL_GL_SetAttribute CONTEXT_MAJOR_VERSION 4",
            "SDL_GL_SetAttribute CONTEXT_MINOR_VERSION 5", "SDL_GL_SetAttribute DOUBLEBUFFER 1",
            "SDL_GL_SetAttribute DEPTH_SIZE 24", "SDL_SetHint SDL_VIDEO_MINIMIZE_ON_FOCUS_LOSS 0",
            "SDL_CreateWindow vesperal 0x2fff0000 0x2fff0000 1920 1080 0x1007", "SDL_GL_CreateContext window",
            "glewInit", "glDebugMessageCallback", "SDL_GL_SetSwapInterval 1"));
}

TEST_F(DisplayTest, AsksForNoSecondBufferWithoutDoubleBuffering)
{
    const Display display(gl, "1080p", true, false, true);
    EXPECT_THAT(libraries.calls, testing::Contains("SDL_GL_SetAttribute DOUBLEBUFFER 0"));
    EXPECT_THAT(libraries.calls, testing::Not(testing::Contains("SDL_GL_SetAttribute DOUBLEBUFFER 1")));
}

TEST_F(DisplayTest, OpensAWindowOfTheNamedSizeWithoutFullscreen)
{
    const Display display(gl, "720p", false, true, true);
    EXPECT_EQ(callOf("SDL_CreateWindow"), "SDL_CreateWindow vesperal 0x2fff0000 0x2fff0000 1280 720 0x6");
}

TEST_F(DisplayTest, NamesTheSizeInFullscreenToo)
{
    const Display display(gl, "2160p", true, true, true);
    EXPECT_EQ(callOf("SDL_CreateWindow"), "SDL_CreateWindow vesperal 0x2fff0000 0x2fff0000 3840 2160 0x1007");
}

TEST_F(DisplayTest, AsksTheDriverForTheSameWithoutDepthTest)
{
    {
        const Display display(gl, "720p", true, true, true);
    }
    const std::vector<std::string> with = calls();
    {
        const Display display(gl, "720p", true, true, false);
    }
    EXPECT_EQ(calls(), with);
}

TEST_F(DisplayTest, HandsTheDepthTestToItsRenderer)
{
    {
        Display display(gl, "720p", true, true, true);
        calls();
        display.getContext().render({zund::DrawCommand{}});
        EXPECT_THAT(calls(), ElementsAre("glEnable GL_DEPTH_TEST", "glBindFramebuffer 0"));
    }
    {
        Display display(gl, "720p", true, true, false);
        calls();
        display.getContext().render({zund::DrawCommand{}});
        EXPECT_THAT(calls(), ElementsAre("glBindFramebuffer 0"));
    }
}

TEST_F(DisplayTest, TakesInitThatCountsForSuccess)
{
    libraries.initResult = 1;
    EXPECT_NO_THROW(Display(gl, "720p", true, true, true));
}

// What it does when something fails.

TEST_F(DisplayTest, RejectsAnUnknownSizeBeforeItTouchesSdl)
{
    EXPECT_EQ(messageOf<tolv::Exception>([&] { const Display display(gl, "8k", true, true, true); }),
              "Unknown resolution string: 8k");
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(DisplayTest, FailsWithTheTextOfSdlRightBehindItsOwnWhenSdlDoesNotStart)
{
    libraries.initResult = -1;
    SDL_SetError("no screen");
    EXPECT_EQ(messageOf<tolv::Exception>([&] { const Display display(gl, "720p", true, true, true); }),
              "SDL_Init failedno screen");
    EXPECT_THAT(calls(), ElementsAre("SDL_Init 32"));
}

TEST_F(DisplayTest, ShutsSdlDownWhenThereIsNoWindowButTellsItsTextFromBefore)
{
    libraries.windowFails = true;
    SDL_SetError("no room");
    EXPECT_EQ(messageOf<tolv::Exception>([&] { const Display display(gl, "720p", false, true, true); }),
              "Failed to create window: no room");
    EXPECT_THAT(calls(), testing::IsSupersetOf({"SDL_Init 32", "SDL_Quit"}));
    EXPECT_STREQ(SDL_GetError(), "");
}

TEST_F(DisplayTest, DoesNothingMoreThanShutSdlDownWithoutAWindow)
{
    libraries.windowFails = true;
    EXPECT_THROW(Display(gl, "720p", false, true, true), tolv::Exception);
    ASSERT_EQ(libraries.calls.size(), 10U);
    EXPECT_EQ(libraries.calls[8], "SDL_CreateWindow vesperal 0x2fff0000 0x2fff0000 1280 720 0x6");
    EXPECT_EQ(libraries.calls[9], "SDL_Quit");
}

/// The calls behind the last one that begins so.
std::vector<std::string> callsBehind(const std::string& function)
{
    std::vector<std::string> rest;
    for (const std::string& call : libraries.calls) {
        if (call.rfind(function, 0) == 0) {
            rest.clear();
        } else {
            rest.push_back(call);
        }
    }
    return rest;
}

TEST_F(DisplayTest, DestroysTheWindowThenShutsSdlDownWithoutAContext)
{
    libraries.contextFails = true;
    SDL_SetError("no 4.5");
    EXPECT_EQ(messageOf<zund::Exception>([&] { const Display display(gl, "720p", false, true, true); }),
              "zund: failed to create gl context: no 4.5");
    EXPECT_THAT(callsBehind("SDL_GL_CreateContext"), ElementsAre("SDL_DestroyWindow window", "SDL_Quit"));
}

TEST_F(DisplayTest, DestroysTheWindowThenShutsSdlDownWithoutEntryPoints)
{
    libraries.glewResult = GLEW_ERROR_NO_GL_VERSION;
    EXPECT_EQ(messageOf<zund::Exception>([&] { const Display display(gl, "720p", false, true, true); }),
              "zund: glewInit failed: Missing GL version");
    EXPECT_THAT(callsBehind("glewInit"), ElementsAre("SDL_DestroyWindow window", "SDL_Quit"));
}

TEST_F(DisplayTest, DestroysTheWindowThenShutsSdlDownAtAnErrorOfTheDriver)
{
    libraries.glErrors = {GL_OUT_OF_MEMORY, GL_NO_ERROR, GL_INVALID_ENUM};
    EXPECT_EQ(messageOf<zund::Exception>([&] { const Display display(gl, "720p", false, true, true); }),
              "zund: GLEW initialization failed");
    EXPECT_THAT(callsBehind("glewInit"), ElementsAre("SDL_DestroyWindow window", "SDL_Quit"));
}

// What it does afterwards.

TEST_F(DisplayTest, DestroysTheRendererThenTheWindowThenShutsSdlDown)
{
    {
        const Display display(gl, "720p", true, true, true);
        calls();
    }
    EXPECT_THAT(calls(), ElementsAre("delete 0 names", "delete 0 names", "SDL_GL_DeleteContext context",
                                     "SDL_DestroyWindow window", "SDL_Quit"));
}

TEST_F(DisplayTest, DoesNothingButSwapInSwap)
{
    Display display(gl, "720p", true, true, true);
    calls();
    display.Swap();
    EXPECT_THAT(calls(), ElementsAre("SDL_GL_SwapWindow window"));
    display.Swap();
    display.Swap();
    EXPECT_THAT(calls(), ElementsAre("SDL_GL_SwapWindow window", "SDL_GL_SwapWindow window"));
}

TEST_F(DisplayTest, ReportsTheSizeOfTheDrawableNotOfTheTable)
{
    const Display display(gl, "1080p", true, true, true);
    libraries.drawable = {2560, 1440};
    EXPECT_THAT(display.getResolution(), Pair(2560, 1440));
}

TEST_F(DisplayTest, AsksSdlForTheSizeEachTimeAndOnlyThen)
{
    const Display display(gl, "1080p", true, true, true);
    EXPECT_EQ(callOf("SDL_GL_GetDrawableSize"), "");
    calls();
    libraries.drawable = {100, 200};
    EXPECT_THAT(display.getResolution(), Pair(100, 200));
    libraries.drawable = {300, 50};
    EXPECT_THAT(display.getResolution(), Pair(300, 50));
    EXPECT_THAT(calls(), ElementsAre("SDL_GL_GetDrawableSize window", "SDL_GL_GetDrawableSize window"));
}

TEST_F(DisplayTest, ReportsZerosWhereSdlSaysNothing)
{
    const Display display(gl, "1080p", true, true, true);
    libraries.drawableKnown = false;
    EXPECT_THAT(display.getResolution(), Pair(0, 0));
}

TEST_F(DisplayTest, GivesTheSameRendererAtEachCallAndTouchesNothing)
{
    Display display(gl, "720p", true, true, true);
    calls();
    EXPECT_EQ(&display.getContext(), &display.getContext());
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(DisplayTest, IsUsedAndDestroyedThroughItsInterface)
{
    {
        const std::unique_ptr<tolv::DisplayInterface> display =
            std::make_unique<Display>(gl, "720p", true, true, true);
        calls();
        display->Swap();
        EXPECT_THAT(display->getResolution(), Pair(1280, 720));
    }
    EXPECT_EQ(calls().back(), "SDL_Quit");
}

} // namespace
