#include "engine/post_shaders.h"
#include "engine/scene.h"
#include "tests/support/recording_renderer.h"

#include <GL/gl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

using lumeth::PostProcessing::ExtraInputs;
using zund::DrawCommand;

class PostChain : public testing::Test {
protected:
    PostChain()
    {
        scene.init(renderer, {320, 200});
        renderer.take();
    }

    /// Uniforms as "name = unit"; the resolution as "name = width x height".
    std::vector<std::string> uniformsOf(const DrawCommand& command)
    {
        std::vector<std::string> texts;
        for (const auto& [uniform, value] : command.uniforms) {
            std::string text = renderer.nameOf(uniform) + " = ";
            if (const auto* size = std::get_if<glm::vec2>(&value)) {
                text += std::to_string(static_cast<int>(size->x)) + " x " +
                        std::to_string(static_cast<int>(size->y));
            } else {
                text += std::to_string(std::get<int>(value));
            }
            texts.push_back(text);
        }
        return texts;
    }

    RecordingRenderer renderer;
    lumeth::Scene scene;
};

TEST_F(PostChain, MakesAPassOfPictureDepthTargetAndProgramInOrder)
{
    const lumeth::PostProcessing::Pass pass = scene.createPostPass(renderer, {64, 32}, "effect");
    EXPECT_THAT(renderer.take(),
                ElementsAre("createTexture2d(RGB16F, 64, 32) = 48", "createRenderBuffer2d(64, 32) = 49",
                            "createFrameBuffer() = 50", "framebufferTexture(50, 48)",
                            "framebufferRenderbuffer(50, 49)", "createShader(vertex, source 3) = 51",
                            "createShader(fragment, source 8) = 52", "createProgram(51, 52, null) = 53",
                            "getUniform(53, \"resolution\") = 54"));
    EXPECT_EQ(pass.program.get(), 53);
    EXPECT_EQ(pass.resolutionUniform.get(), 54);
    EXPECT_EQ(pass.inputTexture.get(), 48);
    EXPECT_FALSE(pass.fboUniform.isValid());
    EXPECT_FALSE(pass.fboOriginalUniform.isValid());
    EXPECT_EQ(pass.depthBuffer.get(), 49);
    EXPECT_EQ(pass.frameBuffer.get(), 50);
    for (const auto& extra : pass.extraInputs) {
        EXPECT_FALSE(extra.uniform.isValid());
        EXPECT_FALSE(extra.texture.isValid());
    }
    EXPECT_THAT(scene.drawPostprocess(), SizeIs(2)) << "in no chain yet";
}

TEST_F(PostChain, AddsAPassOfTheScenesSizeAndAsksForAllItsSamplers)
{
    scene.addPostPass(renderer, "effect", {});
    EXPECT_THAT(renderer.take(),
                ElementsAre("createTexture2d(RGB16F, 320, 200) = 48", "createRenderBuffer2d(320, 200) = 49",
                            "createFrameBuffer() = 50", "framebufferTexture(50, 48)",
                            "framebufferRenderbuffer(50, 49)", "createShader(vertex, source 3) = 51",
                            "createShader(fragment, source 8) = 52", "createProgram(51, 52, null) = 53",
                            "getUniform(53, \"resolution\") = 54", "getUniform(53, \"fbo\") = 55",
                            "getUniform(53, \"fbo_original\") = 56", "getUniform(53, \"\") = -1",
                            "getUniform(53, \"\") = -1", "getUniform(53, \"\") = -1",
                            "getUniform(53, \"\") = -1", "getUniform(53, \"\") = -1",
                            "getUniform(53, \"\") = -1"));
    EXPECT_THAT(scene.drawPostprocess(), SizeIs(3));
}

TEST_F(PostChain, LeadsEachPictureToTheNextPassAndTheLastToTheScreen)
{
    scene.addPostPass(renderer, "third", {});
    const std::vector<DrawCommand> commands = scene.drawPostprocess();
    ASSERT_THAT(commands, SizeIs(3));
    const int programs[] = {27, 36, 53};
    const int inputs[] = {22, 31, 48};
    const int targets[] = {33, 50, -1};
    for (std::size_t i = 0; i < 3; ++i) {
        const DrawCommand& command = commands[i];
        EXPECT_FALSE(command.clear) << i;
        EXPECT_FALSE(command.depthWrite) << i;
        EXPECT_EQ(command.vertexArray.get(), 40) << i;
        EXPECT_EQ(command.program.get(), programs[i]) << i;
        EXPECT_EQ(command.frameBuffer.get(), targets[i]) << i;
        EXPECT_EQ(command.textures[0].get(), inputs[i]) << i;
        EXPECT_EQ(command.textures[1].get(), 22) << "the scene's picture, in pass " << i;
        for (std::size_t unit = 2; unit < 8; ++unit) {
            EXPECT_FALSE(command.textures[unit].isValid()) << i << ", " << unit;
        }
        EXPECT_THAT(uniformsOf(command), ElementsAre("resolution = 320 x 200", "fbo = 0", "fbo_original = 1"))
            << i;
        EXPECT_THAT(command.uniformArrays, IsEmpty()) << i;
    }
}

TEST_F(PostChain, PutsExtraInputsAtUnitsTwoToSeven)
{
    ExtraInputs extras;
    for (std::size_t i = 0; i < extras.size(); ++i) {
        const auto number = static_cast<int>(i);
        extras[i] = {"extra" + std::to_string(number), zund::Texture(200 + number, GL_TEXTURE_1D)};
    }
    scene.addPostPass(renderer, "effect", extras);
    const DrawCommand command = scene.drawPostprocess().back();
    EXPECT_THAT(uniformsOf(command),
                ElementsAre("resolution = 320 x 200", "fbo = 0", "fbo_original = 1", "extra0 = 2",
                            "extra1 = 3", "extra2 = 4", "extra3 = 5", "extra4 = 6", "extra5 = 7"));
    for (std::size_t unit = 2; unit < 8; ++unit) {
        EXPECT_EQ(command.textures[unit].get(), 200 + static_cast<int>(unit) - 2);
        EXPECT_EQ(command.textures[unit].getType(), 0x0DE0U);
    }
}

TEST_F(PostChain, KeepsTheUnitOfAnExtraInputBehindAGap)
{
    ExtraInputs extras;
    extras[1] = {"weights", zund::Texture(201, GL_TEXTURE_1D)};
    extras[4] = {"", zund::Texture(204, GL_TEXTURE_2D)}; // bound all the same
    extras[5] = {"last", zund::Texture()};
    scene.addPostPass(renderer, "effect", extras);
    const DrawCommand command = scene.drawPostprocess().back();
    EXPECT_THAT(uniformsOf(command), ElementsAre("resolution = 320 x 200", "fbo = 0", "fbo_original = 1",
                                                 "weights = 3", "last = 7"));
    EXPECT_FALSE(command.textures[2].isValid());
    EXPECT_EQ(command.textures[3].get(), 201);
    EXPECT_EQ(command.textures[6].get(), 204);
    EXPECT_FALSE(command.textures[7].isValid());
}

TEST_F(PostChain, SendsTheFirstThreeValuesWhetherThePassHasThemOrNot)
{
    renderer.withoutUniform = "fbo_original";
    scene.addPostPass(renderer, "effect", {});
    EXPECT_THAT(uniformsOf(scene.drawPostprocess().back()),
                ElementsAre("resolution = 320 x 200", "fbo = 0", "(none) = 1"));
}

TEST_F(PostChain, IsEmptiedWithoutDeletingAnything)
{
    scene.resetPostPasses();
    EXPECT_THAT(renderer.take(), IsEmpty());
    EXPECT_THAT(scene.drawPostprocess(), IsEmpty());
    scene.addPostPass(renderer, shader_letterbox, {});
    scene.addPostPass(renderer, shader_gamma_encode, {});
    const std::vector<DrawCommand> commands = scene.drawPostprocess();
    ASSERT_THAT(commands, SizeIs(2));
    EXPECT_EQ(commands[1].textures[1].get(), commands[0].textures[0].get()) << "the new first pass";
}

TEST(PostChainBeforeInit, MakesObjectsOfSizeZero)
{
    RecordingRenderer renderer;
    lumeth::Scene scene;
    scene.addPostPass(renderer, "effect", {});
    EXPECT_THAT(renderer.take(), testing::Contains("createTexture2d(RGB16F, 0, 0) = 1"));
}

} // namespace
