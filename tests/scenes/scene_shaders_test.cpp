#include "scenes/backgrounds.h"
#include "scenes/full_frame.h"
#include "tests/scenes/scene_stage.h"
#include "tests/support/shader_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

namespace scenes = catalogue::scenes;

/// The lines of a text without what stands before them, comments and empty lines.
std::vector<std::string> statements(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        const std::size_t start = line.find_first_not_of(' ');
        if (start != std::string::npos && line.compare(start, 2, "//") != 0) {
            lines.push_back(line.substr(start));
        }
    }
    return lines;
}

class SceneShader : public SceneStage {
protected:
    /// Vertex and fragment shader of an object.
    RecordingRenderer::Program programIn(const catalogue::Scene& row, const std::string& object)
    {
        return programOf(drawn(build(row), object));
    }
};

TEST_F(SceneShader, OfTheTvIsTheStockOneWithAUniformAndATear)
{
    const RecordingRenderer::Program tv = programIn(scenes::room, "tv");
    EXPECT_STREQ(tv.vertexSource.c_str(), lumeth::Scene::material_vert);

    std::string text = tv.fragmentSource;
    const std::string declaration = "uniform float time;\n";
    const std::size_t declared = text.find(declaration);
    ASSERT_NE(declared, std::string::npos);
    EXPECT_LT(declared, text.find("void main()"));
    text.erase(declared, declaration.size());

    // After the line that samples the emission map, and before the normal.
    const std::string sampling =
        "    vec3 emissivity = gammaDecode(vec3(texture(tex_emissivity, vs_out.vert_uv)), gamma);\n\n";
    ASSERT_NE(text.find(sampling), std::string::npos);
    const std::size_t start = text.find(sampling) + sampling.size();
    const std::size_t end = text.find("    vec3 normal = vec3(0, 0, 1);\n");
    ASSERT_NE(end, std::string::npos);
    ASSERT_LT(start, end);
    const std::string tear = text.substr(start, end - start);
    text.erase(start, end - start);
    EXPECT_EQ(text, lumeth::Scene::material_frag);

    // `move` has no effect.
    EXPECT_THAT(statements(tear),
                ElementsAre("float move = 0;", "float fuzz = 0;", "if (mod(time*1.5, 2) > 1) {",
                            "move = 0.01;", "fuzz = 0.01+sin(time*3)*0.1;", "}",
                            "vec2 p = vs_out.vert_uv+fract(sin(vs_out.vert_uv.x*vs_out.vert_uv.y*time*8831))"
                            "*fuzz*vec2(1,0);",
                            "vec3 emi = gammaDecode(vec3(texture(tex_emissivity, p)), gamma);",
                            "if (emissivity != vec3(0)) {", "emissivity = emi;", "}"));
}

TEST_F(SceneShader, OfTheVertexIsOneForAllTextLayersAndTheCredits)
{
    EXPECT_STREQ(programIn(scenes::people, "scroller").vertexSource.c_str(), scroller_vert);
    EXPECT_STREQ(programIn(scenes::burger, "scroller").vertexSource.c_str(), scroller_vert);
    EXPECT_STREQ(programIn(scenes::bottle, "scroller").vertexSource.c_str(), scroller_vert);
    EXPECT_STREQ(programIn(scenes::toilet, "scroller").vertexSource.c_str(), scroller_vert);
    EXPECT_STREQ(credits_vert, scroller_vert);
    EXPECT_THAT(statements(scroller_vert),
                ElementsAre("#version 330", "layout(location = 0) in vec3 in_position;",
                            "layout(location = 1) in vec2 in_uv;", "out vec2 position;", "void main()", "{",
                            "gl_Position = vec4(in_position, 1.0f);", "position = gl_Position.xy;", "}"));
}

TEST_F(SceneShader, OfABackgroundIsSharedByBurgerAndToiletAlone)
{
    const auto backgroundIn = [this](const catalogue::Scene& row) {
        build(row).draw(renderer, 0.0);
        return fragmentShaderOf(renderer.frames.back().at(2)); // after the clears of two passes
    };
    const std::string shared = backgroundIn(scenes::burger);
    EXPECT_EQ(backgroundIn(scenes::toilet), shared);
    EXPECT_NE(backgroundIn(scenes::people), shared);
    EXPECT_NE(backgroundIn(scenes::bottle), shared);
    EXPECT_NE(backgroundIn(scenes::people), backgroundIn(scenes::bottle));
}

TEST_F(SceneShader, OfATextLayerDeclaresTimeAndAResolutionThatNothingReads)
{
    const std::string sources[] = {programIn(scenes::people, "scroller").fragmentSource,
                                   programIn(scenes::burger, "scroller").fragmentSource,
                                   programIn(scenes::bottle, "scroller").fragmentSource,
                                   programIn(scenes::toilet, "scroller").fragmentSource};
    for (const std::string& source : sources) {
        SCOPED_TRACE(shaderFile(source));
        EXPECT_THAT(source, StartsWith("#version 450\n"));
        EXPECT_THAT(source, HasSubstr("uniform float time;\n"));
        EXPECT_THAT(source, HasSubstr("uniform vec2 resolution;\n"));
        EXPECT_THAT(source, HasSubstr("uniform sampler2D tex_color;\n"));
        EXPECT_THAT(source.substr(source.find("void main()")), Not(HasSubstr("resolution")));
    }
    EXPECT_THAT(sources[3], HasSubstr("uniform sampler2D tex_normal;"));
    EXPECT_THAT(sources[3].substr(sources[3].find("void main()")), Not(HasSubstr("tex_normal")));
}

TEST(BackgroundText, DeclaresATimeThatNothingReads)
{
    for (const char* text : {background_frag, grey_blue_background_frag, warm_teal_background_frag}) {
        const std::string source = text;
        EXPECT_THAT(source, StartsWith("#version 450\n"));
        EXPECT_THAT(source, HasSubstr("uniform vec2 resolution;\n"));
        EXPECT_THAT(source, HasSubstr("uniform float time;\n"));
        EXPECT_THAT(source.substr(source.find("void main()")), Not(HasSubstr("time")));
    }
}

} // namespace
