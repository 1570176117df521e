#include "tests/support/recording_renderer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TheRecordingRenderer, WritesDownEachOperationWithItsArgumentsAndItsHandle)
{
    RecordingRenderer renderer;
    const float floats[] = {0.0F, 1.0F, 2.0F};
    const unsigned int indices[] = {0, 1, 2};
    const void* faces[] = {floats, floats + 1, floats + 2, floats, floats + 1, floats + 2};
    renderer.clear(0.25F, 0.5F, 1.0F);
    zund::VertexArray vertexArray = renderer.genVertexArray(2, 36);
    renderer.createIndexedBuffer(floats, 3, indices, 3, nullptr, 0, floats, 2, nullptr, 1, floats, 0);
    zund::Shader vertex = renderer.createShader(zund::Shader::Vertex, "one");
    const zund::Shader fragment = renderer.createShader(zund::Shader::Fragment, "two");
    const zund::Shader geometry = renderer.createShader(zund::Shader::Geometry, "one");
    zund::ShaderProgram program = renderer.createProgram(vertex, fragment, nullptr);
    renderer.createProgram(fragment, vertex, &geometry);
    renderer.deleteShader(vertex);
    renderer.getUniform(program, "time");
    renderer.deleteProgram(program);
    renderer.deleteVertexArray(vertexArray);
    zund::VertexBuffer buffer(70);
    renderer.deleteBuffer(buffer);
    renderer.render({{}, {}});
    renderer.finish();
    renderer.loadTextureDXT(8, 4, floats);
    zund::Texture texture = renderer.createTexture2d(zund::TextureFormat::RGB16F, 16, 9);
    zund::Texture line = renderer.createTexture1d(5);
    renderer.uploadTexture2d(texture, 3, 2, floats + 1);
    renderer.uploadTexture1d(line, 7, floats + 2);
    zund::Texture cube = renderer.createCubemap();
    renderer.uploadCubemap(cube, 4, 8, faces);
    zund::RenderBuffer renderBuffer = renderer.createRenderBuffer2d(20, 10);
    zund::FrameBuffer frameBuffer = renderer.createFrameBuffer();
    renderer.framebufferTexture(frameBuffer, texture);
    renderer.framebufferRenderbuffer(frameBuffer, renderBuffer);
    renderer.deleteTexture(texture);
    renderer.deleteRenderBuffer(renderBuffer);
    renderer.deleteFrameBuffer(frameBuffer);
    EXPECT_THAT(renderer.take(),
                ElementsAre("clear(0.25, 0.5, 1)", "genVertexArray(2, 36) = 1",
                            "createIndexedBuffer(3, 3, null, 2, null of 1, 0) = 2",
                            "createShader(vertex, source 1) = 3", "createShader(fragment, source 2) = 4",
                            "createShader(geometry, source 1) = 5", "createProgram(3, 4, null) = 6",
                            "createProgram(4, 3, 5) = 7", "deleteShader(3)", "getUniform(6, \"time\") = 8",
                            "deleteProgram(6)", "deleteVertexArray(1)", "deleteBuffer(70)",
                            "render(2 commands)", "finish()", "loadTextureDXT(8, 4) = 9",
                            "createTexture2d(RGB16F, 16, 9) = 10", "createTexture1d(5) = 11",
                            "uploadTexture2d(10, 3, 2)", "uploadTexture1d(11, 7)", "createCubemap() = 12",
                            "uploadCubemap(12, 4, 8)", "createRenderBuffer2d(20, 10) = 13",
                            "createFrameBuffer() = 14", "framebufferTexture(14, 10)",
                            "framebufferRenderbuffer(14, 13)", "deleteTexture(10)", "deleteRenderBuffer(13)",
                            "deleteFrameBuffer(14)"));
    EXPECT_THAT(renderer.take(), IsEmpty());
    EXPECT_THAT(renderer.uploads, ElementsAre(floats + 1, floats + 2, faces[0], faces[1], faces[2], faces[3],
                                              faces[4], faces[5]));
    EXPECT_EQ(renderer.textures.front().data, floats);
}

TEST(TheRecordingRenderer, ResetsTheHandleThatItDeletes)
{
    RecordingRenderer renderer;
    zund::Shader shader(1);
    zund::ShaderProgram program(1);
    zund::VertexArray vertexArray(1, 0, 36);
    zund::VertexBuffer buffer(1);
    zund::Texture texture(1, 2);
    zund::RenderBuffer renderBuffer(1);
    zund::FrameBuffer frameBuffer(1);
    renderer.deleteShader(shader);
    renderer.deleteProgram(program);
    renderer.deleteVertexArray(vertexArray);
    renderer.deleteBuffer(buffer);
    renderer.deleteTexture(texture);
    renderer.deleteRenderBuffer(renderBuffer);
    renderer.deleteFrameBuffer(frameBuffer);
    EXPECT_FALSE(shader.isValid());
    EXPECT_FALSE(program.isValid());
    EXPECT_FALSE(vertexArray.isValid());
    EXPECT_EQ(vertexArray.getIndexes(), 0U);
    EXPECT_EQ(buffer.get(), 0U);
    EXPECT_FALSE(texture.isValid());
    EXPECT_EQ(texture.getType(), 0U);
    EXPECT_FALSE(renderBuffer.isValid());
    EXPECT_FALSE(frameBuffer.isValid());
}

} // namespace
