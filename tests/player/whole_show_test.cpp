#include "scenes/catalogue.h"
#include "tests/player/show_output.h"
#include "tests/standins/model_boxes.h"
#include "tests/support/test_assets.h"

#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <sstream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using Seconds = std::chrono::duration<double>;

using Environment = std::vector<std::pair<std::string, std::string>>;
using Arguments = std::vector<std::string>;

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

/// What the show's calls told the witness, see witness.cpp.
struct Testimony {
    /// What stood in the music when.
    struct Position {
        double seconds; ///< of the music
        double time;    ///< of the clock
    };

    std::set<std::string> files;        ///< that were asked for
    std::vector<std::string> variables; ///< of the environment, that the program asked for
    double start = 0.0;                 ///< of the music, as time of the clock
    std::vector<Position> positions;    ///< as they were asked for
    std::vector<double> swaps;          ///< times of the clock
};

Testimony readTestimony(const std::filesystem::path& path)
{
    Testimony testimony;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line) && !file.eof();) {
        std::istringstream fields(line);
        std::string kind;
        std::string text;
        double number = 0.0;
        fields >> kind;
        if (kind == "file" && fields >> text) {
            testimony.files.insert(text);
        } else if (kind == "variable" && fields >> text) {
            testimony.variables.push_back(text);
        } else if (kind == "play" && fields >> number) {
            testimony.start = number;
        } else if (double time = 0.0; kind == "position" && fields >> number >> time) {
            testimony.positions.push_back({number, time});
        } else if (kind == "swap" && fields >> number) {
            testimony.swaps.push_back(number);
        } else {
            ADD_FAILURE() << "the witness said: " << line;
        }
    }
    return testimony;
}

/// The real program, running in a folder.
class Show {
public:
    Show(const ShowFolder& folder, const Environment& environment, const Arguments& arguments = {})
        : folder(folder.path())
    {
        std::filesystem::remove(this->folder / "witness");
        child = fork();
        if (child == 0) {
            start(environment, arguments);
        }
    }

    void kill(int signal) const { ::kill(child, signal); }

    Testimony testimony() const { return readTestimony(folder / "witness"); }

    /// Waits until `holds` is true of the testimony so far. False if that takes too long.
    template<typename Condition>
    bool waitUntil(Condition holds) const
    {
        const auto end = std::chrono::steady_clock::now() + Seconds(60);
        while (!holds(testimony())) {
            if (std::chrono::steady_clock::now() > end) {
                return false;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        return true;
    }

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
    [[noreturn]] void start(const Environment& environment, Arguments arguments) const
    {
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"}) {
            unsetenv(name);
        }
        for (const auto& [name, value] : environment) {
            setenv(name.c_str(), value.c_str(), 1);
        }
        setenv("LD_PRELOAD", VESPERAL_WITNESS, 1);
        setenv("WITNESS_LOG", (folder / "witness").c_str(), 1);
        redirect("output", STDOUT_FILENO);
        redirect("errors", STDERR_FILENO);
        arguments.insert(arguments.begin(), "vesperal");
        std::vector<char*> pointers;
        for (std::string& argument : arguments) {
            pointers.push_back(argument.data());
        }
        pointers.push_back(nullptr);
        if (chdir(folder.c_str()) == 0) {
            execv(VESPERAL_SHOW "/vesperal", pointers.data());
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

constexpr int modelsLoaded = 29; ///< by all scenes together; some load the same
constexpr const char* destroyed = "syncdevice: Rocket sync device destroyed\n";

} // namespace

TEST_F(WholeShow, RunsToItsEndAtFullSpeedInSilenceOfTheDriver)
{
    const auto start = std::chrono::steady_clock::now();
    const Result result = Show(folder, unseenAndFast).wait(Seconds(60));
    const Seconds taken = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, SaysNoMoreThanTheShow(modelsLoaded));
    EXPECT_THAT(result.errors, Not(HasSubstr("OpenGL Debug")));
    EXPECT_LT(taken.count(), 30.0);
}

TEST_F(WholeShow, FollowsTheMusicInRealTimeAtItsOwnPace)
{
    remove("sync_scene.track");
    folder.writeTrack("scene", {{0, 5.0F, 0}, {102, -1.0F, 0}}); // 3 seconds of the music
    Show show(folder, unseenInRealTime);
    const Result result = show.wait(Seconds(60));
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.errors, Not(HasSubstr("OpenGL Debug")));

    const Testimony testimony = show.testimony();
    ASSERT_GT(testimony.positions.size(), 5U);
    EXPECT_GT(testimony.positions.back().seconds, 2.9);
    for (const Testimony::Position& position : testimony.positions) {
        // The decoder stands a little ahead; a busy machine may be late with the sound.
        const double elapsed = position.time - testimony.start;
        EXPECT_LT(position.seconds, elapsed + 0.25);
        EXPECT_GT(position.seconds, elapsed * 0.7 - 0.5);
    }
    for (std::size_t i = 1; i < testimony.positions.size(); ++i) {
        // 41 milliseconds a frame, less what the clock in milliseconds may miss at both ends.
        EXPECT_GT(testimony.positions[i].time - testimony.positions[i - 1].time, 0.039);
    }
    EXPECT_EQ(testimony.swaps.size(), testimony.positions.size() - 1);
}

TEST_F(WholeShow, EndsWithOneWhenItsWindowIsClosed)
{
    Show show(folder, unseenInRealTime);
    EXPECT_TRUE(show.waitUntil([](const Testimony& told) { return told.swaps.size() > 2; }));
    show.kill(SIGTERM); // which SDL turns into a quit event
    const Result result = show.wait(Seconds(30));
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, EndsWith(destroyed));
}

TEST_F(WholeShow, GoesOnWithoutASceneTrackUntilItsWindowIsClosed)
{
    remove("sync_scene.track");
    Show show(folder, unseenAndFast);
    // Long after the music has run out.
    EXPECT_TRUE(show.waitUntil([](const Testimony& told) {
        const std::size_t count = told.positions.size();
        return count > 10 && told.positions[count - 1].seconds > 0.0 &&
               told.positions[count - 1].seconds == told.positions[count - 10].seconds;
    }));
    show.kill(SIGTERM);
    EXPECT_EQ(show.wait(Seconds(30)).status, 1);
}

TEST_F(WholeShow, ReadsNoArgumentsNoEnvironmentAndNoConfiguration)
{
    remove("sync_scene.track");
    folder.writeTrack("scene", {{0, -1.0F, 0}});
    std::set<std::string> assets;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path() / "assets")) {
        assets.insert("assets/" + entry.path().filename().string());
    }
    Show plain(folder, unseenAndFast);
    const Result plainResult = plain.wait(Seconds(60));
    EXPECT_EQ(plainResult.status, 0);
    EXPECT_EQ(plain.testimony().files, assets);
    EXPECT_THAT(plain.testimony().variables, IsEmpty());

    const std::filesystem::path home = folder.path() / "home";
    std::filesystem::create_directories(home / ".config" / "vesperal");
    for (const std::filesystem::path& bait :
         {home / ".vesperalrc", home / ".config" / "vesperal" / "config", folder.path() / "vesperal.cfg"})
    {
        std::ofstream(bait) << "scene=4\n";
    }
    Environment environment = unseenAndFast;
    environment.insert(environment.end(),
                       {{"HOME", home.string()}, {"VESPERAL_SCENE", "4"}, {"LANG", "de_DE.UTF-8"}});
    Show baited(folder, environment, {"--help", "--scene=4", "720p", "vesperal.cfg"});
    const Result baitedResult = baited.wait(Seconds(60));
    EXPECT_EQ(baitedResult.status, 0);
    EXPECT_EQ(baitedResult.output, plainResult.output);
    EXPECT_EQ(baited.testimony().files, assets);
    EXPECT_THAT(baited.testimony().variables, IsEmpty());
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
