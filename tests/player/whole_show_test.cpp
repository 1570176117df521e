#include "scenes/catalogue.h"
#include "tests/standins/model_boxes.h"
#include "tests/support/test_assets.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using Seconds = std::chrono::duration<double>;

using Environment = std::vector<std::pair<std::string, std::string>>;

/// No window, and the music as fast as it decodes, to nowhere.
const Environment unseenAndFast = {{"SDL_VIDEODRIVER", "offscreen"},
                                   {"SDL_AUDIODRIVER", "disk"},
                                   {"SDL_DISKAUDIODELAY", "0"},
                                   {"SDL_DISKAUDIOFILE", "/dev/null"}};
const Environment unseenInRealTime = {{"SDL_VIDEODRIVER", "offscreen"}, {"SDL_AUDIODRIVER", "dummy"}};

struct Result {
    int status; ///< exit status; -1 if a signal ended it
    int signal; ///< 0 if none
    std::string output;
    std::string errors;
};

std::string readFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The real program, running in a folder.
class Show {
public:
    Show(const ShowFolder& folder, const Environment& environment) : folder(folder.path())
    {
        child = fork();
        if (child == 0) {
            start(environment);
        }
    }

    void kill(int signal) const { ::kill(child, signal); }

    /// Waits for its end; a show that hangs is killed, and has failed.
    Result wait(Seconds limit)
    {
        const auto end = std::chrono::steady_clock::now() + limit;
        int status = 0;
        while (waitpid(child, &status, WNOHANG) == 0) {
            if (std::chrono::steady_clock::now() > end) {
                ADD_FAILURE() << "the show hangs";
                ::kill(child, SIGKILL);
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, WIFSIGNALED(status) ? WTERMSIG(status) : 0,
                readFile(folder / "output"), readFile(folder / "errors")};
    }

private:
    [[noreturn]] void start(const Environment& environment) const
    {
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"}) {
            unsetenv(name);
        }
        for (const auto& [name, value] : environment) {
            setenv(name.c_str(), value.c_str(), 1);
        }
        redirect("output", STDOUT_FILENO);
        redirect("errors", STDERR_FILENO);
        if (chdir(folder.c_str()) == 0) {
            execl(VESPERAL_SHOW "/vesperal", "vesperal", nullptr);
        }
        _exit(127);
    }

    void redirect(const char* file, int to) const
    {
        const int descriptor = open((folder / file).c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        dup2(descriptor, to);
        close(descriptor);
    }

    std::filesystem::path folder;
    pid_t child;
};

/// A folder with links to all that the real show loads.
class WholeShow : public testing::Test {
protected:
    WholeShow()
    {
        for (const auto& entry : std::filesystem::directory_iterator(VESPERAL_SHOW "/assets")) {
            std::filesystem::create_symlink(entry.path(), folder.asset(entry.path().filename()));
        }
    }

    void remove(const std::string& name) { std::filesystem::remove(folder.asset(name)); }

    /// Replaces an asset by other bytes.
    void replace(const std::string& name, const std::string& bytes)
    {
        remove(name);
        folder.write(name, bytes);
    }

    ShowFolder folder;
};

constexpr const char* created = "syncdevice: Rocket sync device created\n";
constexpr const char* destroyed = "syncdevice: Rocket sync device destroyed\n";

} // namespace

TEST_F(WholeShow, RunsToItsEndAtFullSpeedInSilenceOfTheDriver)
{
    const auto start = std::chrono::steady_clock::now();
    const Result result = Show(folder, unseenAndFast).wait(Seconds(60));
    const Seconds taken = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, testing::StartsWith(created));
    EXPECT_THAT(result.output, EndsWith(destroyed));
    EXPECT_THAT(result.errors, Not(HasSubstr("OpenGL Debug")));
    EXPECT_LT(taken.count(), 30.0);
}

TEST_F(WholeShow, FollowsTheMusicInRealTime)
{
    remove("sync_scene.track");
    folder.writeTrack("scene", {{0, 5.0F, 0}, {102, -1.0F, 0}}); // 3 seconds of the music
    const auto start = std::chrono::steady_clock::now();
    const Result result = Show(folder, unseenInRealTime).wait(Seconds(60));
    const Seconds taken = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(result.status, 0);
    EXPECT_GT(taken.count(), 2.7); // the decoder stands a little ahead
    EXPECT_THAT(result.errors, Not(HasSubstr("OpenGL Debug")));
}

TEST_F(WholeShow, EndsWithOneWhenItsWindowIsClosed)
{
    Show show(folder, unseenInRealTime);
    std::this_thread::sleep_for(std::chrono::seconds(4)); // it loads, then runs
    show.kill(SIGTERM);                                   // which SDL turns into a quit event
    const Result result = show.wait(Seconds(30));
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, EndsWith(destroyed));
}

TEST_F(WholeShow, GoesOnWithoutASceneTrackUntilItsWindowIsClosed)
{
    remove("sync_scene.track");
    Show show(folder, unseenAndFast);
    std::this_thread::sleep_for(std::chrono::seconds(5)); // long after the music has run out
    show.kill(SIGTERM);
    EXPECT_EQ(show.wait(Seconds(30)).status, 1);
}

TEST_F(WholeShow, ReadsNoArgumentsAndNoConfiguration)
{
    remove("sync_scene.track");
    folder.writeTrack("scene", {{0, -1.0F, 0}});
    folder.write("vesperal.cfg", "scene=4");
    EXPECT_EQ(Show(folder, unseenAndFast).wait(Seconds(30)).status, 0);
}

// What breaks it, and what it says.

struct Breakage {
    const char* name;
    const char* asset;  ///< to be replaced; null: none
    const char* bytes;  ///< by these; null: it is missing
    const char* driver; ///< SDL_VIDEODRIVER or SDL_AUDIODRIVER, to name a driver that isn't there; null: none
    const char* type;   ///< of the exception that ends the show
    const char* text;   ///< its `what()`
};

class BrokenShow : public WholeShow, public testing::WithParamInterface<Breakage> {};

TEST_P(BrokenShow, EndsByAnUncaughtException)
{
    const Breakage& breakage = GetParam();
    if (breakage.asset != nullptr) {
        remove(breakage.asset);
        if (breakage.bytes != nullptr) {
            folder.write(breakage.asset, breakage.bytes);
        }
    }
    Environment environment = unseenAndFast;
    if (breakage.driver != nullptr) {
        environment.emplace_back(breakage.driver, "nowhere");
    }
    const Result result = Show(folder, environment).wait(Seconds(30));
    EXPECT_EQ(result.signal, SIGABRT);
    EXPECT_THAT(result.errors, HasSubstr(std::string("terminate called after throwing an instance of '") +
                                         breakage.type + "'\n  what():  " + breakage.text + "\n"));
}

// clang-format off
const Breakage breakages[] = {
    // name          asset          bytes    driver             type                  text
    {"NoPack",       "assets.pack", nullptr, nullptr,           "std::system_error",  "Failed to open packfile: No such file or directory"},
    {"EmptyPack",    "assets.pack", "",      nullptr,           "std::runtime_error", "packfile is empty"},
    {"ShortMagic",   "assets.pack", "pk",    nullptr,           "std::runtime_error", "invalid packfile"},
    {"BadMagic",     "assets.pack", "PKF...", nullptr,          "std::runtime_error", "invalid packfile"},
    {"CutPack",      "assets.pack", "pkf",   nullptr,           "std::runtime_error", "failed to read chunk, unexpected end of data"},
    {"NoMusic",      "house99.ogg", nullptr, nullptr,           "std::runtime_error", "mixer failed to load music: Couldn't open 'assets/house99.ogg'"},
    {"BrokenMusic",  "house99.ogg", "OggS",  nullptr,           "std::runtime_error", "mixer failed to load music: Not an Ogg Vorbis audio stream"},
    {"NoAudio",      nullptr,       nullptr, "SDL_AUDIODRIVER", "std::runtime_error", "mixer failed to open audio"},
    {"NoVideo",      nullptr,       nullptr, "SDL_VIDEODRIVER", "tolv::Exception",    "SDL_Init failednowhere not available"},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(All, BrokenShow, testing::ValuesIn(breakages),
                         [](const auto& row) { return row.param.name; });

class MissingTexture : public WholeShow, public testing::WithParamInterface<catalogue::Texture> {};

TEST_P(MissingTexture, IsNamed)
{
    const std::string name = std::string(GetParam().name) + ".dds";
    std::string pack = readFile(VESPERAL_SHOW "/assets/assets.pack");
    const std::size_t record = pack.find(name + '\0');
    ASSERT_NE(record, std::string::npos);
    pack[record] = '?'; // now it is called something else
    replace("assets.pack", pack);
    const Result result = Show(folder, unseenAndFast).wait(Seconds(60));
    EXPECT_EQ(result.signal, SIGABRT);
    EXPECT_THAT(result.errors,
                HasSubstr("'std::out_of_range'\n  what():  No such file in pack: " + name + "\n"));
}
INSTANTIATE_TEST_SUITE_P(All, MissingTexture, testing::ValuesIn(catalogue::allTextures),
                         [](const auto& row) { return std::string(row.param.name); });

class MissingModel : public WholeShow, public testing::WithParamInterface<std::string> {};

TEST_P(MissingModel, IsNotImported)
{
    remove(GetParam() + ".glb");
    const Result result = Show(folder, unseenAndFast).wait(Seconds(60));
    EXPECT_EQ(result.signal, SIGABRT);
    EXPECT_THAT(result.errors, HasSubstr("'std::runtime_error'\n  what():  failed to import model\n"));
}

std::vector<std::string> modelNames()
{
    std::vector<std::string> names;
    for (const standins::ModelBoxes& model : standins::standInModels()) {
        names.emplace_back(model.name);
    }
    return names;
}
INSTANTIATE_TEST_SUITE_P(All, MissingModel, testing::ValuesIn(modelNames()),
                         [](const auto& row) { return row.param; });

TEST_F(WholeShow, BreaksOffOnAModelThatIsNoModel)
{
    replace("toilet.glb", "glTF, but no more");
    const Result result = Show(folder, unseenAndFast).wait(Seconds(60));
    EXPECT_EQ(result.signal, SIGABRT);
    EXPECT_THAT(result.errors, HasSubstr("'std::runtime_error'\n  what():  failed to import model\n"));
}

TEST_F(WholeShow, RefusesAPackWithANameThatDoesNotEnd)
{
    replace("assets.pack", "pkf" + std::string(300, 'x'));
    const Result result = Show(folder, unseenAndFast).wait(Seconds(30));
    EXPECT_EQ(result.signal, SIGABRT);
    EXPECT_THAT(result.errors, HasSubstr("what():  failed to read name\n"));
}
