#include "tests/gl/recorded_renderer.h"

#include <GL/glew.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using zund::DrawCommand;
using zund::Texture;
using zund::Uniform;

class RendererRender : public RecordedRenderer {
protected:
    static constexpr int programName = 9;
    const zund::ShaderProgram program{programName};

    /// A draw into the window without uniforms and textures.
    DrawCommand plainDraw() const
    {
        DrawCommand command;
        command.vertexArray = zund::VertexArray(5, 0, 36);
        command.program = program;
        return command;
    }

    std::vector<std::string> callsOf(const DrawCommand& command)
    {
        renderer.render(std::vector<DrawCommand>{command});
        return gl.take();
    }

    std::vector<std::string> callsOf(const Uniform& uniform, const zund::UniformValue& value)
    {
        renderer.setUniformValue(program, uniform, value);
        return gl.take();
    }

    std::vector<std::string> arrayCallsOf(const Uniform& uniform, const zund::UniformArrayValue& value)
    {
        renderer.setUniformArrayValue(program, uniform, value);
        return gl.take();
    }
};

TEST_F(RendererRender, CallsNothingForAnEmptyList)
{
    renderer.render(std::vector<DrawCommand>{});
    EXPECT_THAT(gl.take(), IsEmpty());
}

TEST_F(RendererRender, BindsTheWindowAndDrawsNothingForAValueInitialisedCommand)
{
    EXPECT_THAT(callsOf(DrawCommand{}),
                ElementsAre("glEnable(GL_DEPTH_TEST)", "glBindFramebuffer(GL_FRAMEBUFFER, 0)"));
}

TEST_F(RendererRender, LeavesTheFramebufferOfACommandWithoutGeometryBound)
{
    DrawCommand command;
    command.frameBuffer = zund::FrameBuffer(7);
    command.depthWrite = true;
    command.program = program;
    command.uniforms = {{Uniform(1), 1.0F}};
    command.textures[0] = Texture(2, GL_TEXTURE_2D);
    EXPECT_THAT(callsOf(command),
                ElementsAre("glEnable(GL_DEPTH_TEST)", "glBindFramebuffer(GL_FRAMEBUFFER, 7)"));
}

TEST_F(RendererRender, TellsGeometryByItsNameNotByTheCountOfItsIndices)
{
    DrawCommand command = plainDraw();
    command.vertexArray = zund::VertexArray(5, 0, 0);
    EXPECT_THAT(callsOf(command),
                testing::Contains("glDrawElements(GL_TRIANGLES, 0, GL_UNSIGNED_INT, null)"));
    command.vertexArray = zund::VertexArray(-1, 0, 36);
    EXPECT_THAT(callsOf(command),
                ElementsAre("glEnable(GL_DEPTH_TEST)", "glBindFramebuffer(GL_FRAMEBUFFER, 0)"));
    command.vertexArray = zund::VertexArray(0, 0, 36);
    EXPECT_THAT(callsOf(command), testing::Contains("glBindVertexArray(0)").Times(2));
}

TEST_F(RendererRender, RunsAFullCommandStepByStep)
{
    DrawCommand command;
    command.depthWrite = true;
    command.frameBuffer = zund::FrameBuffer(7);
    command.vertexArray = zund::VertexArray(5, 0, 36);
    command.program = program;
    command.uniforms = {{Uniform(3), 0.5F}, {Uniform(1), 8}};
    command.uniformArrays = {{Uniform(20), std::vector<glm::vec2>{{1.0F, 2.0F}, {3.0F, 4.0F}}}};
    for (int i = 0; i < 8; ++i) {
        command.textures[static_cast<std::size_t>(i)] = Texture(30 + i, GL_TEXTURE_2D);
    }
    EXPECT_THAT(
        callsOf(command),
        ElementsAre("glEnable(GL_DEPTH_TEST)", "glBindFramebuffer(GL_FRAMEBUFFER, 7)", "glDepthMask(GL_TRUE)",
                    // uniforms, each with its own change of program
                    "glUseProgram(9)", "glUniform1f(3, 0.5)", "glUseProgram(0)", //
                    "glUseProgram(9)", "glUniform1i(1, 8)", "glUseProgram(0)",   //
                    "glUseProgram(9)", "glUniform2fv(20, 1, [1, 2])", "glUniform2fv(21, 1, [3, 4])",
                    "glUseProgram(0)",
                    // the draw
                    "glUseProgram(9)",                                                      //
                    "glActiveTexture(GL_TEXTURE0 + 0)", "glBindTexture(GL_TEXTURE_2D, 30)", //
                    "glActiveTexture(GL_TEXTURE0 + 1)", "glBindTexture(GL_TEXTURE_2D, 31)", //
                    "glActiveTexture(GL_TEXTURE0 + 2)", "glBindTexture(GL_TEXTURE_2D, 32)", //
                    "glActiveTexture(GL_TEXTURE0 + 3)", "glBindTexture(GL_TEXTURE_2D, 33)", //
                    "glActiveTexture(GL_TEXTURE0 + 4)", "glBindTexture(GL_TEXTURE_2D, 34)", //
                    "glActiveTexture(GL_TEXTURE0 + 5)", "glBindTexture(GL_TEXTURE_2D, 35)", //
                    "glActiveTexture(GL_TEXTURE0 + 6)", "glBindTexture(GL_TEXTURE_2D, 36)", //
                    "glActiveTexture(GL_TEXTURE0 + 7)", "glBindTexture(GL_TEXTURE_2D, 37)", //
                    "glBindVertexArray(5)", "glDrawElements(GL_TRIANGLES, 36, GL_UNSIGNED_INT, null)",
                    "glBindVertexArray(0)",
                    // and back
                    "glActiveTexture(GL_TEXTURE0 + 0)", "glBindTexture(GL_TEXTURE_2D, 0)", //
                    "glActiveTexture(GL_TEXTURE0 + 1)", "glBindTexture(GL_TEXTURE_2D, 0)", //
                    "glActiveTexture(GL_TEXTURE0 + 2)", "glBindTexture(GL_TEXTURE_2D, 0)", //
                    "glActiveTexture(GL_TEXTURE0 + 3)", "glBindTexture(GL_TEXTURE_2D, 0)", //
                    "glActiveTexture(GL_TEXTURE0 + 4)", "glBindTexture(GL_TEXTURE_2D, 0)", //
                    "glActiveTexture(GL_TEXTURE0 + 5)", "glBindTexture(GL_TEXTURE_2D, 0)", //
                    "glActiveTexture(GL_TEXTURE0 + 6)", "glBindTexture(GL_TEXTURE_2D, 0)", //
                    "glActiveTexture(GL_TEXTURE0 + 7)", "glBindTexture(GL_TEXTURE_2D, 0)", //
                    "glUseProgram(0)", "glDepthMask(GL_TRUE)", "glBindFramebuffer(GL_FRAMEBUFFER, 0)"));
}

TEST_F(RendererRender, WritesNoDepthUnlessToldAndRestoresTheMask)
{
    EXPECT_THAT(callsOf(plainDraw()),
                ElementsAre("glEnable(GL_DEPTH_TEST)", "glBindFramebuffer(GL_FRAMEBUFFER, 0)",
                            "glDepthMask(GL_FALSE)", "glUseProgram(9)", "glBindVertexArray(5)",
                            "glDrawElements(GL_TRIANGLES, 36, GL_UNSIGNED_INT, null)", "glBindVertexArray(0)",
                            "glUseProgram(0)", "glDepthMask(GL_TRUE)"));
}

TEST_F(RendererRender, UnbindsAFramebufferOfNameZeroAsWell)
{
    DrawCommand command = plainDraw();
    command.frameBuffer = zund::FrameBuffer(0);
    EXPECT_EQ(callsOf(command).back(), "glBindFramebuffer(GL_FRAMEBUFFER, 0)");
}

TEST_F(RendererRender, ClearsTheWindow)
{
    DrawCommand command;
    command.clear = true;
    EXPECT_THAT(callsOf(command), ElementsAre("glEnable(GL_DEPTH_TEST)",
                                              "glBindFramebuffer(GL_FRAMEBUFFER, 0)", "glClear(0x4100)"));
}

TEST_F(RendererRender, ClearsATargetAndRunsNoOtherStepWhateverTheCommandHolds)
{
    DrawCommand command = plainDraw();
    command.clear = true;
    command.depthWrite = true;
    command.frameBuffer = zund::FrameBuffer(7);
    command.uniforms = {{Uniform(1), 1.0F}};
    command.uniformArrays = {{Uniform(2), std::vector<float>{1.0F}}};
    command.textures.fill(Texture(3, GL_TEXTURE_2D));
    EXPECT_THAT(callsOf(command), ElementsAre("glEnable(GL_DEPTH_TEST)",
                                              "glBindFramebuffer(GL_FRAMEBUFFER, 7)", "glClear(0x4100)"));
}

TEST_F(RendererRender, PlaysCommandsFrontToBack)
{
    DrawCommand clear;
    clear.clear = true;
    clear.frameBuffer = zund::FrameBuffer(7);
    DrawCommand other = plainDraw();
    other.vertexArray = zund::VertexArray(6, 0, 3);
    renderer.render({other, clear, plainDraw()});
    EXPECT_THAT(gl.takeWithout({"glEnable", "glUseProgram", "glDepthMask"}),
                ElementsAre("glBindFramebuffer(GL_FRAMEBUFFER, 0)", "glBindVertexArray(6)",
                            "glDrawElements(GL_TRIANGLES, 3, GL_UNSIGNED_INT, null)", "glBindVertexArray(0)",
                            "glBindFramebuffer(GL_FRAMEBUFFER, 7)", "glClear(0x4100)",
                            "glBindFramebuffer(GL_FRAMEBUFFER, 0)", "glBindVertexArray(5)",
                            "glDrawElements(GL_TRIANGLES, 36, GL_UNSIGNED_INT, null)",
                            "glBindVertexArray(0)"));
}

TEST_F(RendererRender, LeavesAGapInTheTexturesAlone)
{
    DrawCommand command = plainDraw();
    command.textures[0] = Texture(40, GL_TEXTURE_2D);
    command.textures[3] = Texture(43, GL_TEXTURE_2D);
    EXPECT_THAT(callsOf(command),
                ElementsAre("glEnable(GL_DEPTH_TEST)", "glBindFramebuffer(GL_FRAMEBUFFER, 0)",
                            "glDepthMask(GL_FALSE)",
                            "glUseProgram(9)",                                                      //
                            "glActiveTexture(GL_TEXTURE0 + 0)", "glBindTexture(GL_TEXTURE_2D, 40)", //
                            "glActiveTexture(GL_TEXTURE0 + 3)", "glBindTexture(GL_TEXTURE_2D, 43)", //
                            "glBindVertexArray(5)", "glDrawElements(GL_TRIANGLES, 36, GL_UNSIGNED_INT, null)",
                            "glBindVertexArray(0)",                                                //
                            "glActiveTexture(GL_TEXTURE0 + 0)", "glBindTexture(GL_TEXTURE_2D, 0)", //
                            "glActiveTexture(GL_TEXTURE0 + 3)", "glBindTexture(GL_TEXTURE_2D, 0)", //
                            "glUseProgram(0)", "glDepthMask(GL_TRUE)"));
}

TEST_F(RendererRender, BindsEachTextureToItsOwnTarget)
{
    DrawCommand command = plainDraw();
    command.textures[0] = Texture(40, GL_TEXTURE_CUBE_MAP);
    command.textures[1] = Texture(41, GL_TEXTURE_2D);
    command.textures[2] = Texture(42, GL_TEXTURE_1D);
    renderer.render(command);
    EXPECT_THAT(gl.takeWithout({"glEnable", "glBindFramebuffer", "glDepthMask", "glUseProgram",
                                "glBindVertexArray", "glActiveTexture"}),
                ElementsAre("glBindTexture(GL_TEXTURE_CUBE_MAP, 40)", "glBindTexture(GL_TEXTURE_2D, 41)",
                            "glBindTexture(GL_TEXTURE_1D, 42)",
                            "glDrawElements(GL_TRIANGLES, 36, GL_UNSIGNED_INT, null)",
                            "glBindTexture(GL_TEXTURE_CUBE_MAP, 0)", "glBindTexture(GL_TEXTURE_2D, 0)",
                            "glBindTexture(GL_TEXTURE_1D, 0)"));
}

TEST_F(RendererRender, TruncatesTheCountOfIndicesToTheDriversInt)
{
    DrawCommand command = plainDraw();
    command.vertexArray = zund::VertexArray(5, 0, (1UL << 32U) + 3UL);
    EXPECT_THAT(callsOf(command),
                testing::Contains("glDrawElements(GL_TRIANGLES, 3, GL_UNSIGNED_INT, null)"));
}

TEST_F(RendererRender, HandsAnInvalidProgramToTheDriver)
{
    DrawCommand command = plainDraw();
    command.program = zund::ShaderProgram();
    EXPECT_THAT(callsOf(command),
                ElementsAre("glEnable(GL_DEPTH_TEST)", "glBindFramebuffer(GL_FRAMEBUFFER, 0)",
                            "glDepthMask(GL_FALSE)", "glUseProgram(4294967295)", "glBindVertexArray(5)",
                            "glDrawElements(GL_TRIANGLES, 36, GL_UNSIGNED_INT, null)", "glBindVertexArray(0)",
                            "glUseProgram(0)", "glDepthMask(GL_TRUE)"));
}

TEST_F(RendererRender, SkipsAnInvalidUniformAndAppliesTheOthersInOrder)
{
    DrawCommand command = plainDraw();
    command.uniforms = {{Uniform(4), 1.0F}, {Uniform(), 2.0F}, {Uniform(0), 3.0F}};
    command.uniformArrays = {{Uniform(), std::vector<float>{1.0F}}, {Uniform(5), std::vector<float>{2.0F}}};
    EXPECT_THAT(callsOf(command),
                ElementsAre("glEnable(GL_DEPTH_TEST)", "glBindFramebuffer(GL_FRAMEBUFFER, 0)",
                            "glDepthMask(GL_FALSE)", "glUseProgram(9)", "glUniform1f(4, 1)",
                            "glUseProgram(0)",                                               //
                            "glUseProgram(9)", "glUniform1f(0, 3)", "glUseProgram(0)",       //
                            "glUseProgram(9)", "glUniform1fv(5, 1, [2])", "glUseProgram(0)", //
                            "glUseProgram(9)", "glBindVertexArray(5)",
                            "glDrawElements(GL_TRIANGLES, 36, GL_UNSIGNED_INT, null)", "glBindVertexArray(0)",
                            "glUseProgram(0)", "glDepthMask(GL_TRUE)"));
}

TEST_F(RendererRender, NeverAsksForErrorsAndNeverThrows)
{
    gl.errors = {GL_INVALID_OPERATION};
    DrawCommand command = plainDraw();
    command.uniforms = {{Uniform(4), 1.0F}};
    command.textures[0] = Texture(40, GL_TEXTURE_2D);
    EXPECT_NO_THROW(renderer.render({command, DrawCommand{}}));
    renderer.clear(0.0F, 0.0F, 0.0F);
    EXPECT_EQ(gl.errors.size(), 1U);
}

TEST(RendererWithoutDepthTest, NeverEnablesIt)
{
    GlRecorder gl;
    zund::RendererImpl renderer(nullptr, false);
    gl.take();
    DrawCommand clear;
    clear.clear = true;
    renderer.render({clear, DrawCommand{}});
    EXPECT_THAT(gl.take(), ElementsAre("glBindFramebuffer(GL_FRAMEBUFFER, 0)", "glClear(0x4100)",
                                       "glBindFramebuffer(GL_FRAMEBUFFER, 0)"));
}

// --- Uniforms by kind ---

TEST_F(RendererRender, SendsAFloat)
{
    EXPECT_THAT(callsOf(Uniform(2), 0.75F),
                ElementsAre("glUseProgram(9)", "glUniform1f(2, 0.75)", "glUseProgram(0)"));
}

TEST_F(RendererRender, SendsAnInt)
{
    EXPECT_THAT(callsOf(Uniform(2), -7),
                ElementsAre("glUseProgram(9)", "glUniform1i(2, -7)", "glUseProgram(0)"));
}

TEST_F(RendererRender, SendsABoolAsOneOrZero)
{
    EXPECT_THAT(callsOf(Uniform(2), true),
                ElementsAre("glUseProgram(9)", "glUniform1i(2, 1)", "glUseProgram(0)"));
    EXPECT_THAT(callsOf(Uniform(2), false),
                ElementsAre("glUseProgram(9)", "glUniform1i(2, 0)", "glUseProgram(0)"));
}

TEST_F(RendererRender, SendsVectors)
{
    EXPECT_THAT(callsOf(Uniform(2), glm::vec2(1.0F, 2.0F)),
                ElementsAre("glUseProgram(9)", "glUniform2f(2, 1, 2)", "glUseProgram(0)"));
    EXPECT_THAT(callsOf(Uniform(2), glm::vec3(1.0F, 2.0F, 3.0F)),
                ElementsAre("glUseProgram(9)", "glUniform3f(2, 1, 2, 3)", "glUseProgram(0)"));
    EXPECT_THAT(callsOf(Uniform(2), glm::vec4(1.0F, 2.0F, 3.0F, 4.0F)),
                ElementsAre("glUseProgram(9)", "glUniform4f(2, 1, 2, 3, 4)", "glUseProgram(0)"));
}

TEST_F(RendererRender, SendsAMatrixColumnByColumnWithoutTransposing)
{
    const glm::mat4 matrix(glm::vec4(1.0F, 2.0F, 3.0F, 4.0F), glm::vec4(5.0F, 6.0F, 7.0F, 8.0F),
                           glm::vec4(9.0F, 10.0F, 11.0F, 12.0F), glm::vec4(13.0F, 14.0F, 15.0F, 16.0F));
    EXPECT_THAT(
        callsOf(Uniform(2), matrix),
        ElementsAre(
            "glUseProgram(9)",
            "glUniformMatrix4fv(2, 1, GL_FALSE, [1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16])",
            "glUseProgram(0)"));
}

TEST_F(RendererRender, SendsNothingToAnInvalidUniform)
{
    EXPECT_THAT(callsOf(Uniform(), 1.0F), IsEmpty());
    EXPECT_THAT(arrayCallsOf(Uniform(), std::vector<float>{1.0F}), IsEmpty());
    EXPECT_THAT(arrayCallsOf(Uniform(), std::vector<glm::vec3>{glm::vec3(1.0F)}), IsEmpty());
}

TEST_F(RendererRender, SendsAllFloatsOfAnArrayInOneCall)
{
    EXPECT_THAT(arrayCallsOf(Uniform(2), std::vector<float>{1.0F, 2.5F, 3.0F}),
                ElementsAre("glUseProgram(9)", "glUniform1fv(2, 3, [1, 2.5, 3])", "glUseProgram(0)"));
}

TEST_F(RendererRender, SendsTheVectorsOfAnArrayOneByOneToLocationsInARow)
{
    EXPECT_THAT(arrayCallsOf(Uniform(10), std::vector<glm::vec2>{{1.0F, 2.0F}, {3.0F, 4.0F}}),
                ElementsAre("glUseProgram(9)", "glUniform2fv(10, 1, [1, 2])", "glUniform2fv(11, 1, [3, 4])",
                            "glUseProgram(0)"));
    EXPECT_THAT(arrayCallsOf(Uniform(10), std::vector<glm::vec3>{{1.0F, 2.0F, 3.0F}, {4.0F, 5.0F, 6.0F}}),
                ElementsAre("glUseProgram(9)", "glUniform3fv(10, 1, [1, 2, 3])",
                            "glUniform3fv(11, 1, [4, 5, 6])", "glUseProgram(0)"));
    EXPECT_THAT(
        arrayCallsOf(Uniform(10), std::vector<glm::vec4>{{1.0F, 2.0F, 3.0F, 4.0F}, {5.0F, 6.0F, 7.0F, 8.0F}}),
        ElementsAre("glUseProgram(9)", "glUniform4fv(10, 1, [1, 2, 3, 4])",
                    "glUniform4fv(11, 1, [5, 6, 7, 8])", "glUseProgram(0)"));
}

TEST_F(RendererRender, StillChangesTheProgramForAnEmptyArrayOfVectors)
{
    EXPECT_THAT(arrayCallsOf(Uniform(2), std::vector<glm::vec2>{}),
                ElementsAre("glUseProgram(9)", "glUseProgram(0)"));
    EXPECT_THAT(arrayCallsOf(Uniform(2), std::vector<glm::vec3>{}),
                ElementsAre("glUseProgram(9)", "glUseProgram(0)"));
    EXPECT_THAT(arrayCallsOf(Uniform(2), std::vector<glm::vec4>{}),
                ElementsAre("glUseProgram(9)", "glUseProgram(0)"));
}

TEST_F(RendererRender, SendsAnEmptyArrayOfFloatsWithCountZero)
{
    EXPECT_THAT(arrayCallsOf(Uniform(2), std::vector<float>{}),
                ElementsAre("glUseProgram(9)", "glUniform1fv(2, 0, [])", "glUseProgram(0)"));
}

TEST(UniformValue, HasItsKindsInAFixedOrder)
{
    using Value = zund::UniformValue;
    EXPECT_TRUE(
        (std::is_same_v<Value, std::variant<float, int, bool, glm::vec2, glm::vec3, glm::vec4, glm::mat4>>));
    using Array = zund::UniformArrayValue;
    EXPECT_TRUE((std::is_same_v<Array, std::variant<std::vector<float>, std::vector<glm::vec2>,
                                                    std::vector<glm::vec3>, std::vector<glm::vec4>>>));
}

TEST(DrawCommand, StartsUnset)
{
    const DrawCommand command{};
    EXPECT_FALSE(command.clear);
    EXPECT_FALSE(command.depthWrite);
    EXPECT_FALSE(command.frameBuffer.isValid());
    EXPECT_FALSE(command.vertexArray.isValid());
    EXPECT_FALSE(command.program.isValid());
    EXPECT_THAT(command.uniforms, IsEmpty());
    EXPECT_THAT(command.uniformArrays, IsEmpty());
    ASSERT_EQ(command.textures.size(), 8U);
    for (const Texture& texture : command.textures) {
        EXPECT_FALSE(texture.isValid());
    }
}

TEST(DrawCommand, CopiesItsListsDeep)
{
    DrawCommand command;
    command.uniforms = {{Uniform(1), 1.0F}};
    command.uniformArrays = {{Uniform(2), std::vector<float>{2.0F}}};
    const DrawCommand copy = command;
    command.uniforms.front().second = 5.0F;
    std::get<std::vector<float>>(command.uniformArrays.front().second).front() = 6.0F;
    EXPECT_EQ(std::get<float>(copy.uniforms.front().second), 1.0F);
    EXPECT_THAT(std::get<std::vector<float>>(copy.uniformArrays.front().second), ElementsAre(2.0F));
}

// --- What else draws or asks ---

TEST_F(RendererRender, ClearsWithAColourOfAlphaOne)
{
    renderer.clear(0.25F, 0.5F, 0.75F);
    EXPECT_THAT(gl.take(), ElementsAre("glClearColor(0.25, 0.5, 0.75, 1)", "glClear(0x4100)"));
}

TEST_F(RendererRender, FinishesInTheDriver)
{
    renderer.finish();
    EXPECT_THAT(gl.take(), ElementsAre("glFinish()"));
}

TEST_F(RendererRender, LooksAUniformUpByItsNameEachTime)
{
    gl.uniforms = {{"time", 0}, {"resolution", 12}};
    gl.knowsAllUniforms = false;
    EXPECT_EQ(renderer.getUniform(program, "time").get(), 0);
    EXPECT_EQ(renderer.getUniform(program, "resolution").get(), 12);
    EXPECT_EQ(renderer.getUniform(program, "time").get(), 0);
    EXPECT_THAT(gl.take(), ElementsAre("glGetUniformLocation(9, time)", "glGetUniformLocation(9, resolution)",
                                       "glGetUniformLocation(9, time)"));
}

TEST_F(RendererRender, GivesAnInvalidUniformForANameThatTheProgramLacks)
{
    gl.knowsAllUniforms = false;
    EXPECT_FALSE(renderer.getUniform(program, "nothing").isValid());
    EXPECT_FALSE(renderer.getUniform(program, "").isValid());
    EXPECT_THAT(gl.take(), ElementsAre("glGetUniformLocation(9, nothing)", "glGetUniformLocation(9, )"));
}

} // namespace
