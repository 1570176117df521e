#include "tools/showcheck/near_plane_meter.h"

#include "tools/stage/hidden_window.h"
#include "tools/stage/stage.h"
#include "tools/stage/stage_folder.h"
#include "tools/stage/values.h"
#include "tools/timeline/show_row.h"

#include <algorithm>
#include <glm/vec3.hpp>
#include <gmock/gmock.h>
#include <string>

using tools::stage::Overrides;

namespace {

constexpr tools::picture::Size size = {192, 108};

/// A scene as its camera sees it; among the people the eye is angle, height and radius.
struct Moment {
    const char* name;
    glm::vec3 eye;
    glm::vec3 target;
    float scene;
    bool isCut; ///< by the near plane
};

// clang-format off
constexpr Moment moments[] = {
    // name               eye                     target               scene cut
    {"BottlesBehindText", {0.0F, 0.50F, 0.20F},   {0.0F, 0.0F, 2.0F},  6.0F, false},
    {"ToiletBehindText",  {0.0F, 0.55F, 1.75F},   {0.0F, 0.2F, 0.0F},  8.0F, false},
    {"ToiletCutOpen",     {0.0F, 0.30F, 0.55F},   {0.0F, 0.2F, 0.0F},  8.0F, true},
    {"PeopleAmidText",    {0.5F, 0.50F, 2.50F},   {0.0F, 0.3F, 0.0F},  9.0F, false},
    {"PeopleCutOpen",     {0.5F, 0.10F, 0.60F},   {0.0F, 0.1F, 0.0F},  9.0F, true},
    {"Credits",           {0.0F, 0.00F, 0.00F},   {0.0F, 0.0F, 0.0F},  5.0F, false},
};
// clang-format on

/// The camera's tracks, which the show's own timeline is not to have a say in.
Overrides tracksOf(const Moment& moment)
{
    return {{"camera_pos_x", moment.eye.x},    {"camera_pos_y", moment.eye.y},
            {"camera_pos_z", moment.eye.z},    {"camera_tgt_x", moment.target.x},
            {"camera_tgt_y", moment.target.y}, {"camera_tgt_z", moment.target.z}};
}

class NearPlaneMeter : public testing::TestWithParam<Moment> {
protected:
    tools::stage::StageFolder folder{SHOW_ASSETS, tracksOf(GetParam())};
    tools::stage::HiddenWindow window{size};
    tools::showcheck::NearPlaneMeter meter{window.renderer(), size};
};

TEST_P(NearPlaneMeter, SeesWhatIsCutAndLeavesThePictureAlone)
{
    tools::stage::Stage measured(window, meter, "assets");
    tools::stage::Stage plain(window, "assets");
    const double time = tools::timeline::timeOfRow(5312);
    const tools::picture::RgbImage picture = measured.draw(GetParam().scene, time);
    const auto depths = meter.depths();
    EXPECT_EQ(std::find(depths.begin(), depths.end(), 0) != depths.end(), GetParam().isCut);
    EXPECT_TRUE(picture.pixels == plain.draw(GetParam().scene, time).pixels);
}

INSTANTIATE_TEST_SUITE_P(Moments, NearPlaneMeter, testing::ValuesIn(moments),
                         [](const auto& info) { return info.param.name; });

} // namespace
