#include "tools/stage/stage.h"

#include "scenes/catalogue.h"
#include "tools/stage/hidden_window.h"
#include "tools/stage/stage_folder.h"

#include <gtest/gtest.h>
#include <string>

namespace {

constexpr tools::picture::Size size = {96, 54};
constexpr int frames = 120; // rounding shows in most pictures by then
constexpr double frameTime = 1.0 / 24.0;

class StageOfScene : public testing::TestWithParam<catalogue::Scene> {
protected:
    tools::stage::StageFolder folder{SHOW_ASSETS, {}};
    tools::stage::HiddenWindow window{size};
    float scene = GetParam().number;
};

/// A position in the music at which all that moves has moved.
double timeOf(int frame)
{
    return 60.0 + frame * frameTime;
}

TEST_P(StageOfScene, DrawsAFrameAlikeWhateverItDrewBefore)
{
    tools::stage::Stage worn(window, "assets");
    for (int frame = 0; frame < frames; ++frame) {
        worn.show(scene, timeOf(frame));
    }
    for (const int frame : {frames, frames / 2, 0}) {
        tools::stage::Stage fresh(window, "assets");
        const tools::picture::RgbImage expected = fresh.draw(scene, timeOf(frame));
        EXPECT_TRUE(worn.draw(scene, timeOf(frame)).pixels == expected.pixels) << frame;
    }
}

INSTANTIATE_TEST_SUITE_P(All, StageOfScene, testing::ValuesIn(catalogue::allScenes),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
