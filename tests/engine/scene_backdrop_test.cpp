#include "engine/scene.h"
#include "gl/exception.h"
#include "tests/engine/matrices.h"
#include "tests/support/recording_renderer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

using zund::DrawCommand;

class Backdrop : public testing::Test {
protected:
    Backdrop()
    {
        scene.init(renderer, {320, 200});
        renderer.take();
    }

    static glm::mat4 skyMatrixOf(const DrawCommand& command)
    {
        return std::get<glm::mat4>(command.uniforms.at(0).second);
    }

    std::vector<std::string> uniformsOf(const DrawCommand& command)
    {
        std::vector<std::string> names;
        for (const auto& [uniform, value] : command.uniforms) {
            names.push_back(renderer.nameOf(uniform));
        }
        return names;
    }

    /// The command between the clears of two passes and the clear of the screen, of a scene without items.
    DrawCommand backdropOfAFrame()
    {
        scene.draw(renderer, 0.0);
        EXPECT_THAT(renderer.frames.back(), SizeIs(6));
        return renderer.frames.back().at(2);
    }

    RecordingRenderer renderer;
    lumeth::Scene scene;
};

TEST_F(Backdrop, IsACubeOfEightCornersAndTwelveTriangles)
{
    const RecordingRenderer::Mesh& cube = renderer.meshes.at(1);
    // clang-format off
    EXPECT_THAT(cube.positions, ElementsAre(
         2.0F,  2.0F,  2.0F,
         2.0F,  2.0F, -2.0F,
         2.0F, -2.0F,  2.0F,
         2.0F, -2.0F, -2.0F,
        -2.0F,  2.0F,  2.0F,
        -2.0F,  2.0F, -2.0F,
        -2.0F, -2.0F,  2.0F,
        -2.0F, -2.0F, -2.0F));
    EXPECT_THAT(cube.indices, testing::ElementsAreArray({
        7, 3, 1, 1, 5, 7, 6, 7, 5, 5, 4, 6, 3, 2, 0, 0, 1, 3,
        2, 6, 4, 4, 0, 2, 6, 2, 3, 3, 7, 6, 5, 1, 0, 0, 4, 5}));
    // clang-format on
    EXPECT_THAT(cube.uvs, IsEmpty());
    EXPECT_THAT(cube.normals, IsEmpty());
    EXPECT_THAT(cube.tangents, IsEmpty());
    EXPECT_THAT(cube.bitangents, IsEmpty());
}

TEST_F(Backdrop, IsABlackSkyUnlessToldOtherwise)
{
    const DrawCommand command = backdropOfAFrame();
    EXPECT_FALSE(command.clear);
    EXPECT_FALSE(command.depthWrite);
    EXPECT_EQ(command.vertexArray.get(), 41);
    EXPECT_EQ(command.vertexArray.getIndexes(), 36UL);
    EXPECT_EQ(command.program.get(), 44);
    EXPECT_EQ(command.frameBuffer.get(), 24) << "the first pass";
    for (const zund::Texture& texture : command.textures) {
        EXPECT_FALSE(texture.isValid());
    }
    EXPECT_THAT(uniformsOf(command), ElementsAre("projection", "textured", "background_color"));
    EXPECT_FALSE(std::get<bool>(command.uniforms[1].second));
    EXPECT_EQ(std::get<glm::vec3>(command.uniforms[2].second), glm::vec3(0.0F));
    EXPECT_THAT(command.uniformArrays, IsEmpty());
}

TEST_F(Backdrop, ShowsTheSkysColour)
{
    scene.setSkyboxColor(glm::vec3(0.05F, 0.05F, 0.12F));
    EXPECT_EQ(std::get<glm::vec3>(scene.drawSkybox().uniforms.at(2).second), glm::vec3(0.05F, 0.05F, 0.12F));
    EXPECT_THAT(renderer.take(), IsEmpty());
}

TEST_F(Backdrop, SeesTheSkyThroughALensOfItsOwn)
{
    expectNear(skyMatrixOf(scene.drawSkybox()), projectionOf(2.0943952, 1.6, 1.0, 20.0), 1e-5F);
}

TEST_F(Backdrop, TurnsTheSkyWithTheCamera)
{
    const glm::dvec3 eye(3.0, -1.5, 4.0);
    const glm::dvec3 target(-0.5, 2.0, 1.0);
    scene.lookAt(glm::vec3(eye), glm::vec3(target), glm::vec3(0.0F, 1.0F, 0.0F));
    glm::mat4 rotation = viewOf(eye, target, glm::dvec3(0.0, 1.0, 0.0));
    rotation[3] = glm::vec4(0.0F, 0.0F, 0.0F, 1.0F);
    const glm::mat4 projection = projectionOf(2.0943952, 1.6, 1.0, 20.0);
    expectNear(skyMatrixOf(scene.drawSkybox()), productOf(projection, rotation), 1e-5F);
}

TEST_F(Backdrop, StaysWhereItIsWhenTheCameraOnlyMoves)
{
    scene.lookAt(glm::vec3(1.0F, 2.0F, 3.0F), glm::vec3(2.0F, 2.5F, 1.0F), glm::vec3(0.0F, 1.0F, 0.0F));
    const glm::mat4 before = skyMatrixOf(scene.drawSkybox());
    const glm::vec3 step(5.0F, -2.0F, 8.0F);
    scene.lookAt(glm::vec3(1.0F, 2.0F, 3.0F) + step, glm::vec3(2.0F, 2.5F, 1.0F) + step,
                 glm::vec3(0.0F, 1.0F, 0.0F));
    expectNear(skyMatrixOf(scene.drawSkybox()), before, 1e-6F);
}

TEST_F(Backdrop, BuildsABackgroundWithTheVertexShaderOfThePasses)
{
    scene.setBackground(renderer, "my background");
    EXPECT_THAT(renderer.take(),
                ElementsAre("createShader(vertex, source 3) = 48", "createShader(fragment, source 8) = 49",
                            "createProgram(48, 49, null) = 50", "getUniform(50, \"resolution\") = 51",
                            "getUniform(50, \"time\") = 52"));
    EXPECT_EQ(renderer.sources.at(7), "my background");
}

TEST_F(Backdrop, DrawsTheBackgroundOverTheWholePictureInPlaceOfTheSky)
{
    scene.setBackground(renderer, "my background");
    scene.setSkyboxColor(glm::vec3(1.0F));
    const DrawCommand command = backdropOfAFrame();
    EXPECT_FALSE(command.clear);
    EXPECT_FALSE(command.depthWrite);
    EXPECT_EQ(command.vertexArray.get(), 40);
    EXPECT_EQ(command.program.get(), 50);
    EXPECT_EQ(command.frameBuffer.get(), 24);
    for (const zund::Texture& texture : command.textures) {
        EXPECT_FALSE(texture.isValid());
    }
    EXPECT_THAT(uniformsOf(command), ElementsAre("resolution", "time"));
    for (const DrawCommand& other : renderer.frames.back()) {
        EXPECT_NE(other.program.get(), 44) << "no sky";
    }
}

TEST_F(Backdrop, SendsResolutionAndTimeToTheBackground)
{
    scene.setBackground(renderer, "my background");
    const DrawCommand command = scene.drawBackground(123.4567890123);
    EXPECT_EQ(std::get<glm::vec2>(command.uniforms.at(0).second), glm::vec2(320.0F, 200.0F));
    EXPECT_EQ(std::get<float>(command.uniforms.at(1).second), 123.4567890123F);
}

TEST_F(Backdrop, SkipsAUniformThatTheBackgroundDoesNotUse)
{
    renderer.withoutUniform = "time";
    scene.setBackground(renderer, "my background");
    const DrawCommand command = scene.drawBackground(1.0);
    ASSERT_THAT(command.uniforms, SizeIs(2));
    EXPECT_TRUE(command.uniforms[0].first.isValid());
    EXPECT_FALSE(command.uniforms[1].first.isValid());
}

TEST_F(Backdrop, ReplacesAnEarlierBackgroundAndDeletesNoneOfIt)
{
    scene.setBackground(renderer, "first");
    renderer.take();
    scene.setBackground(renderer, "second");
    EXPECT_THAT(renderer.take(),
                ElementsAre("createShader(vertex, source 3) = 53", "createShader(fragment, source 9) = 54",
                            "createProgram(53, 54, null) = 55", "getUniform(55, \"resolution\") = 56",
                            "getUniform(55, \"time\") = 57"));
    EXPECT_EQ(scene.drawBackground(0.0).program.get(), 55);
}

TEST_F(Backdrop, KeepsTheSkyWhereABackgroundDoesNotCompile)
{
    class Refusing : public RecordingRenderer {
        zund::Shader createShader(zund::Shader::Type /*type*/, const char* /*source*/) override
        {
            throw zund::Exception("shader compilation error:\nno");
        }
    };
    Refusing refusing;
    EXPECT_THROW(scene.setBackground(refusing, "bad"), zund::Exception);
    EXPECT_EQ(backdropOfAFrame().program.get(), 44);
}

} // namespace
