#include "tests/tools/capture/capture_runs.h"

#include "sync/tools.h"
#include "tools/timeline/track_file.h"

#include <map>

namespace {

/// Where to look at a scene from, and at what.
const std::map<std::string, std::string> cameras = {
    {"room", " --eye 1.7,0.9,2.6 --target -0.2,0,0.3"}, {"credits", ""},
    {"bottle", " --eye 0,0.8,4 --target 0,0,2"},        {"burger", " --eye 0,0.3,1.8 --target 0,0,1"},
    {"toilet", " --eye 0.7,0.7,1 --target 0,0.1,0"},    {"people", " --eye 0.8,0.6,3.2 --target 0,0.2,0"},
};

} // namespace

CaptureRuns::CaptureRuns()
{
    std::filesystem::create_directory("assets");
    for (const auto& entry : std::filesystem::directory_iterator(STAND_IN_ASSETS)) {
        std::filesystem::create_symlink(entry.path(), "assets" / entry.path().filename());
    }
    const float scenes[] = {4.0F, 6.0F, 7.0F, 9.0F, 8.0F, 5.0F, 0.0F, -1.0F};
    std::vector<sync_key> keys;
    for (const float scene : scenes) {
        keys.push_back({static_cast<std::int32_t>(tempo::rowsPerBar * keys.size()), scene, SYNC_STEP});
    }
    write("assets/sync_scene.track", tools::timeline::encodeTrack(keys));
    writeTrack("camera_pos_y", 0.5F);
    writeTrack("camera_pos_z", 3.0F);
}

ToolResult CaptureRuns::capture(const std::string& arguments)
{
    return runTool(std::string(CAPTURE) + " " + arguments);
}

std::vector<std::uint8_t> CaptureRuns::pixelsOf(const std::string& arguments)
{
    const ToolResult result = capture(arguments + " --size 160x90 out.rgb");
    EXPECT_EQ(result.status, 0) << result.error;
    EXPECT_EQ(result.error.find("OpenGL Debug"), std::string::npos) << result.error;
    const std::string bytes = read("out.rgb");
    EXPECT_EQ(bytes.size(), 160U * 90 * 3);
    std::filesystem::remove("out.rgb");
    return {bytes.begin(), bytes.end()};
}

std::vector<std::uint8_t> CaptureRuns::pixelsOfScene(const std::string& scene, const std::string& more)
{
    return pixelsOf("scene --scene " + scene + cameras.at(scene) + more);
}

void CaptureRuns::writeTrack(const std::string& name, float value)
{
    write("assets/sync_" + name + ".track", tools::timeline::encodeTrack({{0, value, SYNC_STEP}}));
}
