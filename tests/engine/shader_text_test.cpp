#include "engine/light.h"
#include "engine/post_shaders.h"
#include "engine/scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <string>

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

TEST(ShaderText, DeclaresVersionPictureAndOutputInEachPass)
{
    std::vector<std::string> texts = {post_pass0_frag_src, post_pass1_frag_src, shader_letterbox,
                                      shader_gamma_encode};
    for (const lumeth::PostEffect& effect : lumeth::getSpareEffects()) {
        texts.emplace_back(effect.source);
    }
    EXPECT_EQ(texts.size(), 10U);
    for (const std::string& text : texts) {
        EXPECT_THAT(text, StartsWith("#version 450\n"));
        EXPECT_THAT(text, HasSubstr("uniform vec2 resolution;"));
        EXPECT_THAT(text, HasSubstr("uniform sampler2D fbo;"));
        EXPECT_THAT(text, HasSubstr("out vec4 outputColor;"));
    }
    EXPECT_EQ(std::set<std::string>(texts.begin(), texts.end()).size(), 10U) << "no text twice";
}

TEST(ShaderText, NamesTheSixSpareEffects)
{
    std::vector<std::string> names;
    for (const lumeth::PostEffect& effect : lumeth::getSpareEffects()) {
        names.emplace_back(effect.name);
    }
    EXPECT_THAT(names,
                testing::ElementsAre("green card", "brightness threshold", "lift",
                                     "blur with horizontal kernel", "blur with vertical kernel", "sobel"));
}

TEST(ShaderText, LeavesTheCoordinateOutOfTheGreenCardAlone)
{
    for (const lumeth::PostEffect& effect : lumeth::getSpareEffects()) {
        const bool green = std::string(effect.name) == "green card";
        EXPECT_EQ(std::string(effect.source).find("in vec2 texcoord;") == std::string::npos, green)
            << effect.name;
    }
}

TEST(ShaderText, NamesItsTwoGammaEncodersDifferently)
{
    EXPECT_THAT(post_pass1_frag_src, HasSubstr("gE("));
    EXPECT_THAT(shader_gamma_encode, HasSubstr("gammaEncode("));
    EXPECT_THAT(shader_gamma_encode, Not(HasSubstr("gE(")));
}

TEST(ShaderText, KeepsAShiftOfColoursThatTheHorizontalBlurThrowsAway)
{
    const std::string blur = lumeth::getSpareEffects()[3].source;
    EXPECT_THAT(blur, HasSubstr("vec3 offsetColors(vec2 coord)\n"));
    EXPECT_THAT(blur, HasSubstr("    vec3 color_out = offsetColors(texcoord);\n"
                                "    color_out = gauss_blur(texcoord, texel_size);\n"));
}

TEST(ShaderText, HandsOverANormalAndAPlaceThatAreNotRead)
{
    EXPECT_THAT(lumeth::Scene::material_vert, HasSubstr("vs_out.vert_normal = normal;"));
    EXPECT_THAT(lumeth::Scene::material_vert, HasSubstr("vs_out.vert_pos = view_pos;"));
    EXPECT_THAT(lumeth::Scene::material_frag, HasSubstr("    vec3 vert_normal;\n    vec3 vert_pos;\n"));
    EXPECT_THAT(lumeth::Scene::material_frag, Not(HasSubstr("vs_out.vert_normal")));
    EXPECT_THAT(lumeth::Scene::material_frag, Not(HasSubstr("vs_out.vert_pos")));
}

TEST(ShaderText, CountsAsManyLightsAsTheEngine)
{
    const std::string define = "#define LIGHTS_MAX " + std::to_string(lumeth::LIGHTS_MAX) + "\n";
    EXPECT_EQ(lumeth::LIGHTS_MAX, 8U);
    EXPECT_THAT(lumeth::Scene::material_vert, HasSubstr(define));
    EXPECT_THAT(lumeth::Scene::material_frag, HasSubstr(define));
    EXPECT_THAT(lumeth::Scene::material_vert, StartsWith("#version 330\n"));
    EXPECT_THAT(lumeth::Scene::material_frag, StartsWith("#version 450\n"));
}

} // namespace
