#include "tools/showcheck/near_plane_probe.h"

#include "tools/capture/hidden_window.h"
#include "tools/capture/stage.h"
#include "tools/capture/stage_folder.h"
#include "tools/capture/values.h"
#include "tools/common/quiet_output.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <string>

using tools::Overrides;

namespace {

constexpr tools::Size size = {192, 108};

/// A moment of the show, with tracks of its own.
struct Moment {
    const char* name;
    Overrides overrides;
    float scene;
    bool isCut; ///< by the near plane
};

// clang-format off
const Moment moments[] = {
    {"BottlesBehindText", {{"camera_pos_y", 0.5F}, {"camera_pos_z", 0.2F}, {"camera_tgt_z", 2.0F}},  6.0F, false},
    {"ToiletBehindText",  {{"camera_pos_y", 0.55F}, {"camera_pos_z", 1.75F}},                        8.0F, false},
    {"ToiletCutOpen",     {{"camera_pos_y", 0.3F}, {"camera_pos_z", 0.55F}},                         8.0F, true},
    {"PeopleAmidText",    {{"camera_pos_x", 0.5F}, {"camera_pos_y", 0.5F}, {"camera_pos_z", 2.5F}},  9.0F, false},
    {"PeopleCutOpen",     {{"camera_pos_x", 0.5F}, {"camera_pos_y", 0.1F}, {"camera_pos_z", 0.9F}},  9.0F, true},
    {"Credits",           {},                                                                        5.0F, false},
};
// clang-format on

class NearPlaneProbe : public testing::TestWithParam<Moment> {
protected:
    tools::QuietOutput quiet;
    tools::StageFolder folder{SHOW_ASSETS, GetParam().overrides};
    tools::HiddenWindow window{size};
    tools::NearPlaneProbe probe{window.renderer(), size};
};

TEST_P(NearPlaneProbe, SeesWhatIsCutAndLeavesThePictureAlone)
{
    tools::Stage probed(window, probe, "assets");
    tools::Stage plain(window, "assets");
    const double time = tools::timeOfRow(5312);
    const tools::RgbImage picture = probed.draw(GetParam().scene, time);
    const auto depths = probe.depths();
    EXPECT_EQ(std::find(depths.begin(), depths.end(), 0) != depths.end(), GetParam().isCut);
    EXPECT_TRUE(picture.pixels == plain.draw(GetParam().scene, time).pixels);
}

INSTANTIATE_TEST_SUITE_P(Moments, NearPlaneProbe, testing::ValuesIn(moments),
                         [](const auto& info) { return info.param.name; });

} // namespace
