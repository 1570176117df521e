// Whether the golden pictures would tell: the show is drawn by the real driver with one thing wrong at a
// time.

#include "engine/post_shaders.h"
#include "tests/golden/defects.h"
#include "tests/golden/golden_folder.h"
#include "tests/golden/still_stage.h"
#include "tests/support/in_temporary_folder.h"
#include "tools/common/quiet_output.h"

#include <algorithm>
#include <functional>
#include <glm/gtc/matrix_transform.hpp>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

const Still& find(std::string_view name)
{
    const auto found = std::find_if(stills().begin(), stills().end(),
                                    [name](const Still& still) { return still.name == name; });
    if (found == stills().end()) {
        throw std::out_of_range(std::string(name) + ": no such still");
    }
    return *found;
}

using Maker = std::function<std::unique_ptr<Defect>(zund::Renderer&)>;

template<typename Kind, typename... Arguments>
Maker make(Arguments... arguments)
{
    return [=](zund::Renderer& target) {
        return std::make_unique<Kind>(target, arguments...);
    };
}

struct Seed {
    const char* name;
    const char* still;
    Maker make;
};

constexpr std::size_t all = WrongMatrix::allDraws;

glm::mat4 moved(float x, float y, float z)
{
    return glm::translate(glm::mat4(1.0F), {x, y, z});
}

glm::mat4 wider(float factor)
{
    return glm::scale(glm::mat4(1.0F), glm::vec3(factor, 1.0F, 1.0F));
}

glm::mat4 turned(float radians)
{
    return glm::rotate(glm::mat4(1.0F), radians, glm::vec3(0.0F, 1.0F, 0.0F));
}

using glm::vec3;

// Textures count as the objects stand in the tables of the scenes.
// clang-format off
const Seed seeds[] = {
    // name                            still               defect
    {"ALightThatStandsElsewhere",      "burger_shut",      make<WrongLight>("light_position", 1U, vec3(2.0F, 3.0F, -3.0F))},
    {"ALightOfAnotherColour",          "people_front",     make<WrongLight>("light_diffuse", 0U, vec3(0.4F, 0.37F, 0.34F))},
    {"ALightWithoutShine",             "toilet_behind",    make<WrongLight>("light_specular", 0U, vec3(0.0F))},
    {"ALightThatIsOut",                "room_house",       make<WrongLight>("light_diffuse", 4U, vec3(0.0F))},
    {"TheTablesNormalsOnTheBottles",   "room_table",       make<WrongTexture>(5U)},
    {"TheSofasColoursForItsNormals",   "people_legs",      make<WrongTexture>(1U)},
    {"ALensThatIsOnePercentWider",     "toilet_shut",      make<WrongMatrix>("projection", wider(0.99F), all)},
    {"APartThatHangsALittleHigher",    "burger_layers",    make<WrongMatrix>("modelToView", moved(0.0F, 0.004F, 0.0F), 2U)},
    {"ABottleThatIsTurned",            "bottle_above",     make<WrongMatrix>("modelToView", turned(0.01F), 3U)},
    {"LightsThatGoWithAnotherCamera",  "toilet_open",      make<WrongMatrix>("worldToView", turned(0.2F), all)},
    {"BarsThatAreNotDrawn",            "bottle_below",     make<WrongShader>("letterbox", post_pass0_frag_src)},
    {"ATelevisionThatIsNotTorn",       "room_torn",        make<ChangedShader>("mod(time*1.5, 2) > 1", "false")},
    {"AShadeThatIsAlmostTheRightOne",  "burger_open",      make<ChangedShader>("vec3(0.9)", "vec3(0.88)")},
    {"TypeThatCastsItsShadowAside",    "people_tipped",    make<ChangedShader>("vec2(-0.004)", "vec2(0.004)")},
    {"LeavesWithoutHoles",             "room_plant",       make<ChangedShader>("discard;", ";")},
    {"AnotherGamma",                   "credits",          make<ChangedShader>("gamma = 2.2", "gamma = 2.3")},
    {"NoTypeOverTheBottles",           "bottle_ring",      make<MissingLayer>("const vec3 dark")},
    {"NoTypeOverTheBurger",            "burger_lettering", make<MissingLayer>("const vec3 dark")},
    {"NoTypeOverThePeople",            "people_glasses",   make<MissingLayer>("const vec3 dark")},
    {"NoTypeOverTheToilet",            "toilet_shut",      make<MissingLayer>("const vec3 dark")},
    {"TheLineItMissing",               "burger_lettering", make<MissingType>(Area{0.02, 0.43, 0.20, 0.82})},
    {"TheLineAfterEightMissing",       "people_front",     make<MissingType>(Area{0.11, 0.49, 0.89, 0.64})},
    {"TheLineStartsMissing",           "toilet_open",      make<MissingType>(Area{0.63, 0.14, 0.97, 0.34})},
    {"TheLineOfNamesMissing",          "credits",          make<MissingType>(Area{0.23, 0.925, 0.77, 0.97})},
};
// clang-format on

class GoldenPictures : public InTemporaryFolder {
protected:
    GoldenPictures() { drawBySoftware(); }

    /// Empty if the picture is the still's golden one.
    static std::string check(const Still& still, const tools::picture::RgbImage& picture)
    {
        return checkStill(still, picture, GOLDEN_PICTURES, "differences");
    }

    tools::QuietOutput quiet;
};

TEST_F(GoldenPictures, PassAsTheyAre)
{
    tools::stage::HiddenWindow window(stillSize);
    tools::renderers::ForwardingRenderer renderer(window.renderer());
    StillStage stage(window, renderer, SHOW_ASSETS);
    for (const Still& still : stills()) {
        EXPECT_EQ(check(still, stage.draw(still)), "");
    }
}

TEST_F(GoldenPictures, DoNotPassFourStepsTooDark)
{
    tools::stage::HiddenWindow window(stillSize);
    ChangedShader dark(window.renderer(), "(texture(fbo, texcoord).rgb), 1.0)", // of both that encode gamma
                       "(texture(fbo, texcoord).rgb) - 4.0 / 255.0, 1.0)");
    StillStage stage(window, dark, SHOW_ASSETS);
    for (const Still& still : stills()) {
        EXPECT_NE(check(still, stage.draw(still)), "") << still.name;
    }
    EXPECT_GT(dark.hits, 0U);
}

class WrongPicture : public GoldenPictures, public testing::WithParamInterface<Seed> {};

TEST_P(WrongPicture, DoesNotPass)
{
    const Still& still = find(GetParam().still);
    tools::stage::HiddenWindow window(stillSize);
    const std::unique_ptr<Defect> defect = GetParam().make(window.renderer());
    StillStage stage(window, *defect, SHOW_ASSETS);
    const std::string fault = check(still, stage.draw(still));
    EXPECT_GT(defect->hits, 0U);
    EXPECT_NE(fault, "");
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, WrongPicture, testing::ValuesIn(seeds),
                         [](const auto& info) { return info.param.name; });

} // namespace
