#include "engine/default_material.h"

#include "engine/display_list_item.h"
#include "engine/display_object.h"
#include "engine/scene.h"
#include "tests/engine/matrices.h"
#include "tests/support/recording_renderer.h"

#include <GL/gl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Each;
using testing::ElementsAre;
using testing::SizeIs;

namespace {

using lumeth::Light;

constexpr float aspect = 2.35F;

class DefaultMaterial : public testing::Test {
protected:
    DefaultMaterial() : item("", glm::vec3(0.0F), glm::quat(1.0F, 0.0F, 0.0F, 0.0F), glm::vec3(1.0F))
    {
        item.worldMatrix = placed(glm::vec3(1.0F, 2.0F, 3.0F), askew, glm::vec3(2.0F));
        object.modelMatrix =
            placed(glm::vec3(0.5F, 0.25F, -4.0F), glm::quat(0.0F, 0.6F, 0.0F, 0.8F), glm::vec3(3.0F));
        object.color = glm::vec3(0.25F, 0.5F, 0.75F);
        object.ambient = 0.1F;
        object.diffuse = 0.9F;
        object.specular = 0.3F;
        object.shininess = 30.0F;
    }

    std::vector<zund::UniformCommand> commands()
    {
        return material.getUniformCommands(view, object, item, {}, 12.5);
    }

    /// Names of the commands in order.
    template<typename Commands>
    std::vector<std::string> namesOf(const Commands& list)
    {
        std::vector<std::string> names;
        names.reserve(list.size());
        for (const auto& [uniform, value] : list) {
            names.push_back(renderer.nameOf(uniform));
        }
        return names;
    }

    template<typename Value>
    Value valueOf(const std::string& name)
    {
        for (const auto& [uniform, value] : commands()) {
            if (renderer.nameOf(uniform) == name) {
                return std::get<Value>(value); // throws for another kind
            }
        }
        throw std::runtime_error("no command for " + name);
    }

    std::vector<std::vector<glm::vec3>> arraysOf(const std::vector<Light>& lights)
    {
        std::vector<std::vector<glm::vec3>> arrays;
        for (const auto& [uniform, value] : material.getUniformArrayCommands(object, item, lights, 12.5)) {
            arrays.push_back(std::get<std::vector<glm::vec3>>(value));
        }
        return arrays;
    }

    static std::vector<Light> lightsOf(int count)
    {
        std::vector<Light> lights;
        for (int i = 1; i <= count; ++i) {
            const auto n = static_cast<float>(i);
            lights.push_back(
                {glm::vec3(n, -n, 2.0F * n), glm::vec3(n + 0.25F, n, 0.5F), glm::vec3(n + 0.5F, 0.0F, n)});
        }
        return lights;
    }

    RecordingRenderer renderer;
    lumeth::DefaultMaterial material{renderer, aspect};
    glm::mat4 view = placed(glm::vec3(7.0F, 8.0F, 9.0F), askew, glm::vec3(1.0F));
    lumeth::DisplayObject object;
    lumeth::DisplayListItem item;
};

TEST_F(DefaultMaterial, BuildsTheStockShadersAndLooksEighteenUniformsUpInOrder)
{
    EXPECT_THAT(renderer.take(),
                ElementsAre("createShader(vertex, source 1) = 1", "createShader(fragment, source 2) = 2",
                            "createProgram(1, 2, null) = 3", "getUniform(3, \"modelToView\") = 4",
                            "getUniform(3, \"worldToView\") = 5", "getUniform(3, \"projection\") = 6",
                            "getUniform(3, \"tex_color\") = 7", "getUniform(3, \"tex_normal\") = 8",
                            "getUniform(3, \"tex_emissivity\") = 9", "getUniform(3, \"mat_shaded\") = 10",
                            "getUniform(3, \"mat_textured\") = 11", "getUniform(3, \"mat_transparent\") = 12",
                            "getUniform(3, \"mat_normalmapped\") = 13", "getUniform(3, \"mat_color\") = 14",
                            "getUniform(3, \"mat_ambient\") = 15", "getUniform(3, \"mat_diffuse\") = 16",
                            "getUniform(3, \"mat_specular\") = 17", "getUniform(3, \"mat_shininess\") = 18",
                            "getUniform(3, \"light_position\") = 19", "getUniform(3, \"light_diffuse\") = 20",
                            "getUniform(3, \"light_specular\") = 21"));
    EXPECT_THAT(renderer.sources, ElementsAre(lumeth::Scene::material_vert, lumeth::Scene::material_frag));
}

TEST_F(DefaultMaterial, GivesFifteenValuesInOrder)
{
    EXPECT_THAT(namesOf(commands()),
                ElementsAre("modelToView", "worldToView", "projection", "tex_color", "tex_normal",
                            "tex_emissivity", "mat_shaded", "mat_textured", "mat_normalmapped", "mat_color",
                            "mat_ambient", "mat_diffuse", "mat_specular", "mat_shininess",
                            "mat_transparent"));
}

TEST_F(DefaultMaterial, PlacesTheModelInsideTheItem)
{
    expectNear(valueOf<glm::mat4>("modelToView"), productOf(item.worldMatrix, object.modelMatrix), 4e-6F);
}

TEST_F(DefaultMaterial, HandsTheViewOn)
{
    EXPECT_EQ(valueOf<glm::mat4>("worldToView"), view);
}

TEST_F(DefaultMaterial, ProjectsByAQuarterOfPiFromAHalfToTwenty)
{
    expectNear(valueOf<glm::mat4>("projection"), projectionOf(0.7853982, 2.35, 0.5, 20.0), 1e-6F);
}

TEST_F(DefaultMaterial, PutsItsSamplersAtTheFirstThreeUnits)
{
    EXPECT_EQ(valueOf<int>("tex_color"), 0);
    EXPECT_EQ(valueOf<int>("tex_normal"), 1);
    EXPECT_EQ(valueOf<int>("tex_emissivity"), 2);
}

TEST_F(DefaultMaterial, HandsTheSurfacesConstantsOnBitForBit)
{
    EXPECT_EQ(valueOf<glm::vec3>("mat_color"), glm::vec3(0.25F, 0.5F, 0.75F));
    EXPECT_EQ(valueOf<float>("mat_ambient"), 0.1F);
    EXPECT_EQ(valueOf<float>("mat_diffuse"), 0.9F);
    EXPECT_EQ(valueOf<float>("mat_specular"), 0.3F);
    EXPECT_EQ(valueOf<float>("mat_shininess"), 30.0F);
}

TEST_F(DefaultMaterial, AlwaysShades)
{
    EXPECT_TRUE(valueOf<bool>("mat_shaded"));
}

TEST_F(DefaultMaterial, TellsWhichMapsThereAre)
{
    EXPECT_FALSE(valueOf<bool>("mat_textured"));
    EXPECT_FALSE(valueOf<bool>("mat_normalmapped"));
    object.colorTexture = zund::Texture(0, GL_TEXTURE_2D);
    EXPECT_TRUE(valueOf<bool>("mat_textured"));
    EXPECT_FALSE(valueOf<bool>("mat_normalmapped"));
    object.colorTexture = zund::Texture();
    object.normalTexture = zund::Texture(5, GL_TEXTURE_2D);
    EXPECT_FALSE(valueOf<bool>("mat_textured"));
    EXPECT_TRUE(valueOf<bool>("mat_normalmapped"));
}

TEST_F(DefaultMaterial, TellsWhetherBlackIsCutOut)
{
    EXPECT_FALSE(valueOf<bool>("mat_transparent"));
    object.transparent = true;
    EXPECT_TRUE(valueOf<bool>("mat_transparent"));
}

TEST_F(DefaultMaterial, TakesNoNoticeOfTimeAndLights)
{
    const auto first = material.getUniformCommands(view, object, item, {}, 0.0);
    const auto second = material.getUniformCommands(view, object, item, lightsOf(3), 99.0);
    ASSERT_EQ(first.size(), second.size());
    for (std::size_t i = 0; i < first.size(); ++i) {
        EXPECT_EQ(first[i].second, second[i].second) << i;
    }
}

TEST_F(DefaultMaterial, GivesThreeArraysOfLightsInOrder)
{
    EXPECT_THAT(namesOf(material.getUniformArrayCommands(object, item, {}, 0.0)),
                ElementsAre("light_position", "light_diffuse", "light_specular"));
}

TEST_F(DefaultMaterial, SendsEightZerosWithoutLights)
{
    EXPECT_THAT(arraysOf({}),
                testing::AllOf(SizeIs(3), Each(testing::AllOf(SizeIs(8), Each(glm::vec3(0.0F))))));
}

class LightCount : public DefaultMaterial, public testing::WithParamInterface<int> {};

TEST_P(LightCount, FillsEightSlotsInListOrderAndTheRestWithZeros)
{
    const auto arrays = arraysOf(lightsOf(GetParam()));
    ASSERT_EQ(arrays.size(), 3U);
    for (int i = 0; i < 8; ++i) {
        const auto slot = static_cast<std::size_t>(i);
        const auto n = static_cast<float>(i + 1);
        const bool lit = i < GetParam();
        EXPECT_EQ(arrays[0].at(slot), lit ? glm::vec3(n, -n, 2.0F * n) : glm::vec3(0.0F)) << i;
        EXPECT_EQ(arrays[1].at(slot), lit ? glm::vec3(n + 0.25F, n, 0.5F) : glm::vec3(0.0F)) << i;
        EXPECT_EQ(arrays[2].at(slot), lit ? glm::vec3(n + 0.5F, 0.0F, n) : glm::vec3(0.0F)) << i;
    }
    EXPECT_THAT(arrays, Each(SizeIs(8)));
}

INSTANTIATE_TEST_SUITE_P(Lights, LightCount, testing::Values(0, 3, 8, 9), testing::PrintToStringParamName());

TEST_F(DefaultMaterial, ChangesNothingForANinthLight)
{
    EXPECT_EQ(arraysOf(lightsOf(9)), arraysOf(lightsOf(8)));
}

TEST(DefaultMaterialWithoutAUniform, SendsItsValueToAnInvalidHandle)
{
    RecordingRenderer renderer;
    renderer.withoutUniform = "mat_shaded";
    lumeth::DefaultMaterial material(renderer, aspect);
    const lumeth::DisplayObject object;
    const lumeth::DisplayListItem item("", glm::vec3(0.0F), glm::quat(1.0F, 0.0F, 0.0F, 0.0F),
                                       glm::vec3(1.0F));
    const auto commands = material.getUniformCommands(glm::mat4(1.0F), object, item, {}, 0.0);
    ASSERT_EQ(commands.size(), 15U);
    EXPECT_FALSE(commands[6].first.isValid());
    EXPECT_TRUE(commands[7].first.isValid());
}

} // namespace
