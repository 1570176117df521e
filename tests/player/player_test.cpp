#include "player/player.h"

#include "scenes/catalogue.h"
#include "sync/tools.h"
#include "tests/player/fake_platform.h"
#include "tests/player/show_output.h"
#include "tests/standins/model_boxes.h"
#include "tests/standins/stand_ins.h"
#include "tests/support/test_assets.h"

#include <algorithm>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <limits>
#include <stdexcept>

int runShow(); // the entry point, under its test name

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using testing::ThrowsMessage;

using Calls = std::vector<std::string>;

constexpr double secondsPerRow = 60.0 / (tempo::beatsPerMinute * tempo::rowsPerBeat);

/// The calls that say how the show runs. The driver's are left out while the scenes are built and while one
/// draws, which is one line; of those at the end the deletes stay.
Calls outline(const Calls& calls)
{
    Calls lines;
    bool leftOut = true;
    for (const std::string& call : calls) {
        if (call.starts_with("glDrawElements") && leftOut) {
            if (lines.back() != "drawing") {
                lines.emplace_back("drawing");
            }
        } else if (!call.starts_with("gl") || !leftOut || call.starts_with("glDelete")) {
            lines.push_back(call);
        }
        if (call.starts_with("Mix_PlayMusic") || call == "drawn") {
            leftOut = false;
        } else if (call.starts_with("draw(")) {
            leftOut = true;
        }
    }
    return lines;
}

/// The lines from the first one of that text on.
Calls from(const Calls& lines, const std::string& text)
{
    return {std::find(lines.begin(), lines.end(), text), lines.end()};
}

Calls upTo(const Calls& lines, const std::string& text)
{
    return {lines.begin(), std::find(lines.begin(), lines.end(), text)};
}

std::ptrdiff_t countOf(const Calls& lines, const std::string& text)
{
    return std::count(lines.begin(), lines.end(), text);
}

const std::string screenClear = "glClearColor(0.01, 0.01, 0.01, 1)";

/// A show with stand-ins for its art and a scene track, on doubles of all that it stands on.
class Player : public testing::Test {
protected:
    Player()
    {
        for (const standins::ModelBoxes& model : standins::standInModels()) {
            folder.write(std::string(model.name) + ".glb", standins::modelFile(model.name));
        }
        std::vector<std::pair<std::string, std::string>> textures;
        for (const catalogue::Texture& texture : catalogue::allTextures) {
            textures.emplace_back(std::string(texture.name) + ".dds", ""); // no one looks at the texels here
        }
        folder.writePack(textures);
        folder.writeTrack("scene", {{0, 5.0F, 0}, {64, -1.0F, 0}});
        folder.enter();
    }

    /// Runs the show, a frame at each of these rows, and gives its exit status. Beyond them the window is
    /// closed.
    int run(const std::vector<double>& rows)
    {
        for (const double row : rows) {
            platform.positions.push_back(row * secondsPerRow);
        }
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int status = runShow();
        output = testing::internal::GetCapturedStdout();
        errors = testing::internal::GetCapturedStderr();
        calls = platform.gl.take();
        lines = outline(calls);
        return status;
    }

    /// Of `lines` those that say which scene runs.
    Calls sceneCalls() const
    {
        Calls found;
        std::copy_if(lines.begin(), lines.end(), std::back_inserter(found), [](const std::string& line) {
            return line.starts_with("update(") || line.starts_with("draw(");
        });
        return found;
    }

    ShowFolder folder;
    FakePlatform platform;
    std::string output;
    std::string errors;
    Calls calls;
    Calls lines; ///< of `calls`
};

} // namespace

TEST_F(Player, BuildsEverythingInOrderBeforeTheMusicStarts)
{
    run({64.0});
    EXPECT_THAT(
        upTo(lines, "SDL_GetTicks()"),
        ElementsAre("SDL_ShowCursor(0)", //
                    "Display(1080p, true, true, true)", "SDL_Init(32)",
                    "SDL_GL_SetAttribute(CONTEXT_FLAGS, 1)", "SDL_GL_SetAttribute(CONTEXT_PROFILE_MASK, 1)",
                    "SDL_GL_SetAttribute(CONTEXT_MAJOR_VERSION, 4)",
                    "SDL_GL_SetAttribute(CONTEXT_MINOR_VERSION, 5)", "SDL_GL_SetAttribute(DOUBLEBUFFER, 1)",
                    "SDL_GL_SetAttribute(DEPTH_SIZE, 24)", "SDL_SetHint(SDL_VIDEO_MINIMIZE_ON_FOCUS_LOSS, 0)",
                    "SDL_CreateWindow(vesperal, 0x2FFF0000, 0x2FFF0000, 1920, 1080, 0x1007)",
                    "SDL_GL_CreateContext()", "SDL_GL_SetSwapInterval(1)", //
                    "SyncDevice(assets/sync, 128, 16)",                    //
                    "Mix_Init(16)", "Mix_OpenAudio(44100, 0x8010, 2, 1024)",
                    "Mix_LoadMUS(assets/house99.ogg)", //
                    "Packfile(assets/assets.pack)",    //
                    "SDL_GL_GetDrawableSize(window)",  //
                    "RoomScene(640, 360)", "BottleScene(640, 360)", "BurgerScene(640, 360)",
                    "PeopleScene(640, 360)", "ToiletScene(640, 360)", "CreditsScene(640, 360)", //
                    "Mix_PlayMusic(music, 1)", "getTrack(scene)"));
    EXPECT_THAT(from(calls, "Mix_PlayMusic(music, 1)"), Not(Contains(StartsWith("glCompileShader"))));
    EXPECT_THAT(from(calls, "Mix_PlayMusic(music, 1)"), Not(Contains(StartsWith("glCompressedTexImage2D"))));
}

TEST_F(Player, RunsAFrameFromTheClockToTheDelay)
{
    EXPECT_EQ(run({8.0, 64.0}), 0);
    const Calls running = from(lines, "SDL_GetTicks()");
    EXPECT_THAT(upTo(running, "SDL_Delay(41)"),
                ElementsAre("SDL_GetTicks()", "SDL_PollEvent()", "Mix_GetMusicPosition(music) = 0.234375",
                            "getValue(scene, 8)", screenClear, "glClear(0x4100)", "update(Credits, 0.234375)",
                            "draw(Credits, 0.234375)", "drawing", "drawn", "SDL_GL_SwapWindow(window)",
                            "SDL_GetTicks()"));
    EXPECT_EQ(countOf(running, "SDL_Delay(41)"), 1);
    EXPECT_EQ(countOf(running, "SDL_GetTicks()"), 3); // the last one is of the frame that ends the show
}

TEST_F(Player, TestsTheDepthOfAllThatItDraws)
{
    run({8.0, 64.0});
    // Two targets and the window are cleared; backdrop, title and two passes are drawn.
    EXPECT_EQ(countOf(calls, "glEnable(GL_DEPTH_TEST)"), 3 + 1 + 1 + 2);
}

TEST_F(Player, UpdatesAndThenDrawsTheSceneOnScreenAndNoOther)
{
    folder.writeTrack("scene", {{0, 4.0F, 0},
                                {8, 9.0F, 0},
                                {16, 6.0F, 0},
                                {24, 1.0F, 0},
                                {32, 8.0F, 0},
                                {40, 5.0F, 0},
                                {48, 7.0F, 0},
                                {64, -1.0F, 0}});
    EXPECT_EQ(run({0.0, 8.0, 16.0, 24.0, 32.0, 40.0, 48.0, 64.0}), 0);
    EXPECT_THAT(sceneCalls(),
                ElementsAre("update(Room, 0)", "draw(Room, 0)", "update(People, 0.234375)",
                            "draw(People, 0.234375)", "update(Bottle, 0.46875)", "draw(Bottle, 0.46875)",
                            "update(Toilet, 0.9375)", "draw(Toilet, 0.9375)", "update(Credits, 1.171875)",
                            "draw(Credits, 1.171875)", "update(Burger, 1.40625)", "draw(Burger, 1.40625)"));
}

TEST_F(Player, EndsAtMinusOneHavingClearedButNeitherSwappedNorWaited)
{
    EXPECT_EQ(run({64.0}), 0);
    const Calls running = upTo(from(lines, "SDL_GetTicks()"), "Mix_CloseAudio()");
    EXPECT_THAT(running,
                ElementsAre("SDL_GetTicks()", "SDL_PollEvent()", "Mix_GetMusicPosition(music) = 1.875",
                            "getValue(scene, 64)", screenClear, "glClear(0x4100)"));
}

TEST_F(Player, EndsOnTheFirstFrameThatReachesTheRow)
{
    EXPECT_EQ(run({0.0, 63.999, 64.25, 70.0}), 0);
    EXPECT_EQ(countOf(lines, "SDL_GL_SwapWindow(window)"), 2);
    EXPECT_EQ(platform.positions.size(), 1U); // the last one was not asked for
}

TEST_F(Player, HoldsTheFirstValueBeforeTheFirstKeyAndTheLastOneAfterTheLast)
{
    folder.writeTrack("scene", {{10, 5.0F, 0}, {20, -1.0F, 0}});
    EXPECT_EQ(run({0.0, 9.0, 1e6}), 0);
    EXPECT_EQ(countOf(lines, "drawing"), 2);
}

TEST_F(Player, GoesOnAfterTheMusicHasRunOut)
{
    EXPECT_EQ(run({30.0, 30.0, 30.0}), 1); // the position stands still; then the window is closed
    EXPECT_EQ(countOf(lines, "drawing"), 3);
}

TEST_F(Player, TearsDownInReverseWithTheDisplayLast)
{
    run({64.0});
    const Calls end = from(lines, "Mix_CloseAudio()");
    ASSERT_GE(end.size(), 6U);
    EXPECT_EQ(end[0], "Mix_CloseAudio()");
    EXPECT_EQ(end[1], "Mix_Quit()");
    EXPECT_THAT(end[2], StartsWith("glDeleteVertexArrays"));
    EXPECT_THAT(Calls(end.end() - 3, end.end()),
                ElementsAre("SDL_GL_DeleteContext(context)", "SDL_DestroyWindow(window)", "SDL_Quit()"));
}

TEST_F(Player, SaysOnlyWhatTheSyncDeviceAndTheModelsSay)
{
    run({0.0, 64.0});
    EXPECT_THAT(errors, IsEmpty());
    // Models of room, bottle, burger, people and toilet.
    EXPECT_THAT(output, SaysNoMoreThanTheShow(14 + 1 + 7 + 5 + 2));
}

TEST_F(Player, EndsByItsViewerWithNothingOfThatFrame)
{
    platform.events = {{}, {makeEvent(SDL_QUIT)}};
    EXPECT_EQ(run({0.0, 1.0}), 1);
    EXPECT_EQ(countOf(lines, screenClear), 1);
    EXPECT_EQ(countOf(lines, "SDL_GL_SwapWindow(window)"), 1);
    EXPECT_EQ(platform.positions.size(), 1U);
    EXPECT_EQ(countOf(lines, "SDL_Quit()"), 1);
}

TEST_F(Player, EndsWhenEscIsReleasedAndNotBefore)
{
    const SDL_Event press = makeEvent(SDL_KEYDOWN, SDLK_ESCAPE);
    platform.events = {{press}, {press, press}, {makeEvent(SDL_KEYUP, SDLK_ESCAPE)}};
    EXPECT_EQ(run({0.0, 1.0, 2.0, 3.0}), 1);
    EXPECT_EQ(countOf(lines, "SDL_GL_SwapWindow(window)"), 2);
}

TEST_F(Player, ShowsANearBlackFrameWithoutASceneTrack)
{
    std::filesystem::remove(folder.asset("sync_scene.track"));
    EXPECT_EQ(run({0.0, 5000.0}), 1); // only the viewer ends it
    EXPECT_EQ(countOf(lines, "drawing"), 0);
    EXPECT_EQ(countOf(lines, screenClear), 2);
    EXPECT_EQ(countOf(lines, "SDL_GL_SwapWindow(window)"), 2);
}

TEST_F(Player, SelectsNothingHalfwayBetweenTwoScenes)
{
    folder.writeTrack("scene", {{0, 5.0F, 1}, {10, 6.0F, 0}, {20, -1.0F, 0}});
    run({5.0, 20.0});
    EXPECT_EQ(countOf(lines, "drawing"), 0);
}

TEST_F(Player, LeavesAFailureToTheRuntime)
{
    folder.write("assets.pack", "pk");
    testing::internal::CaptureStdout();
    EXPECT_THAT([] { runShow(); }, ThrowsMessage<std::runtime_error>("invalid packfile"));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "syncdevice: Rocket sync device created\nsyncdevice: Rocket sync device destroyed\n");
    lines = outline(platform.gl.take());
    EXPECT_THAT(Calls(lines.end() - 3, lines.end()),
                ElementsAre("SDL_GL_DeleteContext(context)", "SDL_DestroyWindow(window)", "SDL_Quit()"));
}

// Each value of the scene track, and the scene that runs.

struct SceneValue {
    const char* name;
    float value;
    const char* scene; ///< null: none
    int draws;
};

class SceneSelection : public Player, public testing::WithParamInterface<SceneValue> {};

TEST_P(SceneSelection, ComparesExactly)
{
    folder.writeTrack("scene", {{0, GetParam().value, 0}, {32, -1.0F, 0}});
    EXPECT_EQ(run({8.0, 32.0}), 0);
    Calls expected;
    if (GetParam().scene != nullptr) {
        const std::string arguments = std::string(GetParam().scene) + ", 0.234375)";
        expected = {"update(" + arguments, "draw(" + arguments};
    }
    EXPECT_EQ(sceneCalls(), expected);
    EXPECT_EQ(std::count_if(calls.begin(), calls.end(),
                            [](const std::string& call) { return call.starts_with("glDrawElements"); }),
              GetParam().draws);
    EXPECT_EQ(countOf(lines, screenClear), 2);
    EXPECT_EQ(countOf(lines, "SDL_GL_SwapWindow(window)"), 1);
    EXPECT_EQ(countOf(lines, "SDL_Delay(41)"), 1);
}

// clang-format off
// Draws: a backdrop, the visible items, two passes.
constexpr SceneValue sceneValues[] = {
    // name            value        scene       draws
    {"Zero",           0.0F,        nullptr,    0},
    {"One",            1.0F,        nullptr,    0},
    {"Two",            2.0F,        nullptr,    0},
    {"Three",          3.0F,        nullptr,    0},
    {"Room",           4.0F,        "Room",     1 + 23 + 2},
    {"Credits",        5.0F,        "Credits",  1 + 1 + 2},
    {"Bottle",         6.0F,        "Bottle",   1 + 11 + 2},
    {"Burger",         7.0F,        "Burger",   1 + 9 + 2}, // without its text
    {"Toilet",         8.0F,        "Toilet",   1 + 3 + 2},
    {"People",         9.0F,        "People",   1 + 7 + 2},
    {"Half",           5.5F,        nullptr,    0},
    {"JustBelow",      4.9999995F,  nullptr,    0},
    {"JustAbove",      5.0000005F,  nullptr,    0},
    {"Ten",            10.0F,       nullptr,    0},
    {"MinusTwo",       -2.0F,       nullptr,    0},
    {"NearMinusOne",   -1.0000001F, nullptr,    0},
    {"NotANumber",     std::numeric_limits<float>::quiet_NaN(), nullptr, 0},
    {"Infinity",       std::numeric_limits<float>::infinity(), nullptr, 0},
};
// clang-format on
constexpr bool isSelected(const catalogue::Scene& scene)
{
    return std::any_of(std::begin(sceneValues), std::end(sceneValues), [&scene](const SceneValue& row) {
        return row.value == scene.number && row.scene != nullptr;
    });
}
static_assert(std::all_of(std::begin(catalogue::allScenes), std::end(catalogue::allScenes), isSelected),
              "a scene of the show is tried by no row");
INSTANTIATE_TEST_SUITE_P(All, SceneSelection, testing::ValuesIn(sceneValues),
                         [](const auto& row) { return row.param.name; });

// How long a frame waits.

struct Pace {
    const char* name;
    Uint32 start;
    Uint32 end;
    int delay;
};

class Pacing : public Player, public testing::WithParamInterface<Pace> {};

TEST_P(Pacing, SleepsOutWhatIsLeftOf41Milliseconds)
{
    platform.ticks = {GetParam().start, GetParam().end};
    run({0.0, 64.0});
    EXPECT_EQ(countOf(lines, "SDL_Delay(" + std::to_string(GetParam().delay) + ")"), 1);
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                            [](const std::string& l) { return l.starts_with("SDL_Delay"); }),
              1);
}

// clang-format off
constexpr Pace paces[] = {
    // name                 start        end         delay
    {"NoTimeAtAll",         1000,        1000,       41},
    {"OneLeft",             1000,        1040,       1},
    {"JustInTime",          1000,        1041,       0},
    {"TooLate",             1000,        1500,       0},
    {"ClockThatWrapsRound", 0xFFFFFFF0U, 4,          21},
    {"ClockThatRunsBack",   1000,        990,        51},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(All, Pacing, testing::ValuesIn(paces),
                         [](const auto& row) { return row.param.name; });

// The event queue.

class Events : public testing::Test {
protected:
    FakePlatform platform;
};

TEST_F(Events, GoOnWhenThereAreNone)
{
    EXPECT_TRUE(handleEvents());
}

TEST_F(Events, AreAllTakenWhenNoneEndsTheShow)
{
    platform.queue = {makeEvent(SDL_KEYDOWN, SDLK_ESCAPE), makeEvent(SDL_KEYUP, SDLK_r),
                      makeEvent(SDL_KEYUP, SDLK_p),        makeEvent(SDL_MOUSEMOTION),
                      makeEvent(SDL_KEYUP, SDLK_q),        makeEvent(SDL_WINDOWEVENT)};
    EXPECT_TRUE(handleEvents());
    EXPECT_TRUE(platform.queue.empty());
}

TEST_F(Events, BehindTheOneThatEndsTheShowStayUnread)
{
    platform.queue = {makeEvent(SDL_MOUSEMOTION), makeEvent(SDL_QUIT), makeEvent(SDL_MOUSEMOTION)};
    EXPECT_FALSE(handleEvents());
    EXPECT_EQ(platform.queue.size(), 1U);

    platform.queue = {makeEvent(SDL_KEYUP, SDLK_ESCAPE), makeEvent(SDL_KEYUP, SDLK_ESCAPE),
                      makeEvent(SDL_QUIT)};
    EXPECT_FALSE(handleEvents());
    EXPECT_EQ(platform.queue.size(), 2U);
}

TEST_F(Events, AreOverAtAnyAnswerButOne)
{
    for (const int answer : {-1, 2}) {
        platform.pollAnswer = answer;
        platform.queue = {makeEvent(SDL_QUIT), makeEvent(SDL_QUIT)};
        EXPECT_TRUE(handleEvents()) << answer;
        EXPECT_EQ(platform.queue.size(), 1U) << answer;
    }
}
