#include "gl/exception.h"
#include "tests/gl/recorded_renderer.h"
#include "tests/support/message_of.h"

#include <GL/glew.h>
#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <typeinfo>

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::ThrowsMessage;

namespace {

using zund::RendererImpl;
using zund::Texture;
using zund::TextureFormat;

const unsigned char blocks[64] = {};
const void* cubeFaces[6] = {blocks, blocks + 1, blocks + 2, blocks + 3, blocks + 4, blocks + 5};

/// An operation, the calls that it makes, and what it throws at each of its reads of glGetError.
struct Operation {
    std::string name;
    std::function<void(RendererImpl&)> run;
    std::vector<std::string> calls;
    std::vector<std::string> failures; ///< one for each "glGetError()" of `calls`, in order
    bool plain = false;                ///< throws a plain std::runtime_error
};

void PrintTo(const Operation& operation, std::ostream* out)
{
    *out << operation.name;
}

/// The call that uploads a face of the cube map.
std::string uploadOfFace(int face)
{
    return "glCompressedTexImage2D(GL_TEXTURE_CUBE_MAP_POSITIVE_X + " + std::to_string(face) +
           ", 0, GL_COMPRESSED_RGB_S3TC_DXT1_EXT, 8, 8, 0, 32, data)";
}

std::vector<Operation> operations()
{
    Texture texture1d(11, GL_TEXTURE_1D);
    Texture texture2d(12, GL_TEXTURE_2D);
    Texture cubeMap(13, GL_TEXTURE_CUBE_MAP);
    return {
        {"loadTextureDXT",
         [](RendererImpl& r) { r.loadTextureDXT(16, 8, blocks); },
         {"glGenTextures(1)", "glBindTexture(GL_TEXTURE_2D, 1)",
          "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR)",
          "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR)",
          "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT)",
          "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT)",
          "glCompressedTexImage2D(GL_TEXTURE_2D, 0, GL_COMPRESSED_RGB_S3TC_DXT1_EXT, 16, 8, 0, 64, data)",
          "glGetError()"},
         {"glCompressedTexImage2D error: invalid operation"},
         true},
        {"createTexture2d",
         [](RendererImpl& r) { r.createTexture2d(TextureFormat::RGB16F, 320, 200); },
         {"glActiveTexture(GL_TEXTURE0 + 0)", "glGenTextures(1)", "glBindTexture(GL_TEXTURE_2D, 1)",
          "glGetError()", "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR)",
          "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR)",
          "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE)",
          "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE)", "glGetError()",
          "glTexImage2D(GL_TEXTURE_2D, 0, GL_RGB16F, 320, 200, 0, GL_RGBA, GL_UNSIGNED_BYTE, null)",
          "glGetError()", "glBindTexture(GL_TEXTURE_2D, 0)"},
         {"zund: texture binding failed", "zund: failed to set texture parameters",
          "zund: texture allocation failed"}},
        {"createTexture2dOfBytes",
         [](RendererImpl& r) { r.createTexture2d(TextureFormat::RGB8, 4, 2); },
         {"glActiveTexture(GL_TEXTURE0 + 0)", "glGenTextures(1)", "glBindTexture(GL_TEXTURE_2D, 1)",
          "glGetError()", "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR)",
          "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR)",
          "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE)",
          "glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE)", "glGetError()",
          "glTexImage2D(GL_TEXTURE_2D, 0, GL_RGB8, 4, 2, 0, GL_RGBA, GL_UNSIGNED_BYTE, null)", "glGetError()",
          "glBindTexture(GL_TEXTURE_2D, 0)"},
         {"zund: texture binding failed", "zund: failed to set texture parameters",
          "zund: texture allocation failed"}},
        {"createTexture1d",
         [](RendererImpl& r) { r.createTexture1d(256); },
         {"glActiveTexture(GL_TEXTURE0 + 0)", "glGenTextures(1)", "glBindTexture(GL_TEXTURE_1D, 1)",
          "glGetError()", "glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MAG_FILTER, GL_LINEAR)",
          "glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MIN_FILTER, GL_LINEAR)",
          "glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE)",
          "glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE)", "glGetError()",
          "glTexImage1D(GL_TEXTURE_1D, 0, GL_R16F, 256, 0, GL_RED, GL_FLOAT, null)", "glGetError()",
          "glBindTexture(GL_TEXTURE_1D, 0)"},
         {"zund: texture binding failed", "zund: failed to set texture parameters",
          "zund: texture allocation failed"}},
        {"createCubemap",
         [](RendererImpl& r) { r.createCubemap(); },
         {"glActiveTexture(GL_TEXTURE0 + 0)", "glGenTextures(1)", "glBindTexture(GL_TEXTURE_CUBE_MAP, 1)",
          "glGetError()", "glTexParameteri(GL_TEXTURE_CUBE_MAP, GL_TEXTURE_MAG_FILTER, GL_LINEAR)",
          "glTexParameteri(GL_TEXTURE_CUBE_MAP, GL_TEXTURE_MIN_FILTER, GL_LINEAR)",
          "glTexParameteri(GL_TEXTURE_CUBE_MAP, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE)",
          "glTexParameteri(GL_TEXTURE_CUBE_MAP, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE)",
          "glTexParameteri(GL_TEXTURE_CUBE_MAP, GL_TEXTURE_WRAP_R, GL_CLAMP_TO_EDGE)", "glGetError()",
          "glBindTexture(GL_TEXTURE_CUBE_MAP, 0)"},
         {"zund: texture binding failed", "zund: failed to set texture parameters"}},
        {"uploadTexture2d",
         [texture2d](RendererImpl& r) mutable { r.uploadTexture2d(texture2d, 5, 3, blocks); },
         {"glBindTexture(GL_TEXTURE_2D, 12)", "glGetError()",
          "glTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, 5, 3, 0, GL_RGB, GL_UNSIGNED_BYTE, data)", "glGetError()",
          "glBindTexture(GL_TEXTURE_2D, 0)"},
         {"zund: texture binding failed", "zund: texture upload failed"}},
        {"uploadTexture2dOfAnotherType", // binds the handle's type, fills the fixed target
         [texture1d](RendererImpl& r) mutable { r.uploadTexture2d(texture1d, 5, 3, nullptr); },
         {"glBindTexture(GL_TEXTURE_1D, 11)", "glGetError()",
          "glTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, 5, 3, 0, GL_RGB, GL_UNSIGNED_BYTE, null)", "glGetError()",
          "glBindTexture(GL_TEXTURE_1D, 0)"},
         {"zund: texture binding failed", "zund: texture upload failed"}},
        {"uploadTexture1d",
         [texture1d](RendererImpl& r) mutable { r.uploadTexture1d(texture1d, 9, blocks); },
         {"glBindTexture(GL_TEXTURE_1D, 11)", "glGetError()",
          "glTexImage1D(GL_TEXTURE_1D, 0, GL_R16F, 9, 0, GL_RED, GL_FLOAT, data)", "glGetError()",
          "glBindTexture(GL_TEXTURE_1D, 0)"},
         {"zund: texture binding failed", "zund: texture upload failed"}},
        {"uploadTexture1dOfAnotherType",
         [texture2d](RendererImpl& r) mutable { r.uploadTexture1d(texture2d, 9, blocks); },
         {"glBindTexture(GL_TEXTURE_2D, 12)", "glGetError()",
          "glTexImage1D(GL_TEXTURE_1D, 0, GL_R16F, 9, 0, GL_RED, GL_FLOAT, data)", "glGetError()",
          "glBindTexture(GL_TEXTURE_2D, 0)"},
         {"zund: texture binding failed", "zund: texture upload failed"}},
        {"uploadCubemap",
         [cubeMap](RendererImpl& r) mutable { r.uploadCubemap(cubeMap, 8, 8, cubeFaces); },
         {"glBindTexture(GL_TEXTURE_CUBE_MAP, 13)", "glGetError()", uploadOfFace(0), "glGetError()",
          uploadOfFace(1), "glGetError()", uploadOfFace(2), "glGetError()", uploadOfFace(3), "glGetError()",
          uploadOfFace(4), "glGetError()", uploadOfFace(5), "glGetError()",
          "glBindTexture(GL_TEXTURE_CUBE_MAP, 0)"},
         {"zund: texture binding failed", "zund: texture upload failed", "zund: texture upload failed",
          "zund: texture upload failed", "zund: texture upload failed", "zund: texture upload failed",
          "zund: texture upload failed"}},
        {"createRenderBuffer2d",
         [](RendererImpl& r) { r.createRenderBuffer2d(320, 200); },
         {"glGenRenderbuffers(1)", "glBindRenderbuffer(GL_RENDERBUFFER, 1)", "glGetError()",
          "glRenderbufferStorage(GL_RENDERBUFFER, GL_DEPTH_COMPONENT16, 320, 200)", "glGetError()",
          "glBindRenderbuffer(GL_RENDERBUFFER, 0)"},
         {"zund: failed to bind renderbuffer", "zund: failed to allocate renderbuffer"}},
        {"createFrameBuffer", [](RendererImpl& r) { r.createFrameBuffer(); }, {"glGenFramebuffers(1)"}, {}},
        {"framebufferTexture",
         [](RendererImpl& r) { r.framebufferTexture(zund::FrameBuffer(3), Texture(4, GL_TEXTURE_CUBE_MAP)); },
         {"glBindFramebuffer(GL_FRAMEBUFFER, 3)",
          "glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, 4, 0)", "glGetError()",
          "glBindFramebuffer(GL_FRAMEBUFFER, 0)"},
         {"zund: failed to bind framebuffer texture"}},
        {"framebufferRenderbuffer",
         [](RendererImpl& r) { r.framebufferRenderbuffer(zund::FrameBuffer(3), zund::RenderBuffer(4)); },
         {"glBindFramebuffer(GL_FRAMEBUFFER, 3)",
          "glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, 4)",
          "glGetError()", "glBindFramebuffer(GL_FRAMEBUFFER, 0)"},
         {"zund: failed to bind framebuffer renderbuffer"}},
    };
}

class TextureOperation : public testing::TestWithParam<Operation> {};

TEST_P(TextureOperation, MakesItsCallsInOrder)
{
    GlRecorder gl;
    RendererImpl renderer(nullptr, true);
    gl.take();
    GetParam().run(renderer);
    EXPECT_THAT(gl.take(), ElementsAreArray(GetParam().calls));
}

TEST_P(TextureOperation, FailsAtEachReadWithTheTextOfThatStageAndGoesNoFurther)
{
    const Operation& operation = GetParam();
    const auto isRead = [](const std::string& call) {
        return call == "glGetError()";
    };
    ASSERT_EQ(static_cast<std::size_t>(std::count_if(operation.calls.begin(), operation.calls.end(), isRead)),
              operation.failures.size());
    auto end = operation.calls.begin();
    for (std::size_t read = 0; read < operation.failures.size(); ++read) {
        GlRecorder gl;
        RendererImpl renderer(nullptr, true);
        gl.take();
        // As many reads without an error, then one with.
        gl.errors.assign(read, GL_NO_ERROR);
        gl.errors.push_back(GL_INVALID_OPERATION);
        if (operation.plain) {
            EXPECT_EQ(messageOf<std::runtime_error>([&] { operation.run(renderer); }),
                      operation.failures[read]);
        } else {
            EXPECT_THAT([&] { operation.run(renderer); },
                        ThrowsMessage<zund::Exception>(operation.failures[read]));
        }
        end = std::find_if(end, operation.calls.end(), isRead) + 1;
        EXPECT_THAT(gl.take(), ElementsAreArray(operation.calls.begin(), end)) << "at read " << read;
    }
}

INSTANTIATE_TEST_SUITE_P(Renderer, TextureOperation, testing::ValuesIn(operations()),
                         [](const auto& info) { return info.param.name; });

class RendererTextures : public RecordedRenderer {};

TEST_F(RendererTextures, GiveHandlesOfTheNamesAndTypesMade)
{
    const Texture compressed = renderer.loadTextureDXT(4, 4, blocks);
    const Texture flat = renderer.createTexture2d(TextureFormat::RGB8, 4, 4);
    const Texture line = renderer.createTexture1d(4);
    const Texture cube = renderer.createCubemap();
    EXPECT_EQ(compressed.get(), 1);
    EXPECT_EQ(compressed.getType(), 0x0DE1U);
    EXPECT_EQ(flat.get(), 2);
    EXPECT_EQ(flat.getType(), 0x0DE1U);
    EXPECT_EQ(line.get(), 3);
    EXPECT_EQ(line.getType(), 0x0DE0U);
    EXPECT_EQ(cube.get(), 4);
    EXPECT_EQ(cube.getType(), 0x8513U);
    EXPECT_EQ(renderer.createRenderBuffer2d(4, 4).get(), 1);
    EXPECT_EQ(renderer.createRenderBuffer2d(4, 4).get(), 2);
    EXPECT_EQ(renderer.createFrameBuffer().get(), 1);
    EXPECT_EQ(renderer.createFrameBuffer().get(), 2);
}

TEST_F(RendererTextures, UploadTheCallersData)
{
    const unsigned char data[4] = {};
    Texture texture2d(12, GL_TEXTURE_2D);
    Texture texture1d(11, GL_TEXTURE_1D);
    Texture cubeMap(13, GL_TEXTURE_CUBE_MAP);
    renderer.loadTextureDXT(4, 4, data);
    renderer.uploadTexture2d(texture2d, 1, 1, data + 1);
    renderer.uploadTexture1d(texture1d, 1, data + 2);
    renderer.uploadCubemap(cubeMap, 4, 4, cubeFaces);
    EXPECT_THAT(gl.imageData, ElementsAre(data, data + 1, data + 2, cubeFaces[0], cubeFaces[1], cubeFaces[2],
                                          cubeFaces[3], cubeFaces[4], cubeFaces[5]));
}

TEST_F(RendererTextures, LeaveTheLoadedTextureBoundAndUnbindAllOthers)
{
    renderer.loadTextureDXT(4, 4, blocks);
    EXPECT_EQ(gl.takeWithout({"glTexParameteri", "glCompressed", "glGetError"}).back(),
              "glBindTexture(GL_TEXTURE_2D, 1)");
    renderer.createTexture2d(TextureFormat::RGB8, 4, 4);
    EXPECT_EQ(gl.take().back(), "glBindTexture(GL_TEXTURE_2D, 0)");
}

TEST_F(RendererTextures, RejectABadFormatBeforeAnyCall)
{
    EXPECT_EQ(messageOf<std::runtime_error>([this] { renderer.createTexture2d(TextureFormat::None, 4, 4); }),
              "unknown texture format");
    EXPECT_EQ(messageOf<std::runtime_error>(
                  [this] { renderer.createTexture2d(static_cast<TextureFormat>(3), 4, 4); }),
              "unknown texture format");
    EXPECT_THAT(gl.take(), IsEmpty());
}

TEST_F(RendererTextures, RejectAnInvalidHandleBeforeAnyCall)
{
    Texture none;
    Texture typed(-1, GL_TEXTURE_CUBE_MAP);
    EXPECT_THAT([&] { renderer.uploadTexture2d(none, 1, 1, blocks); },
                ThrowsMessage<zund::Exception>("zund: texture is not valid"));
    EXPECT_THAT([&] { renderer.uploadTexture1d(none, 1, blocks); },
                ThrowsMessage<zund::Exception>("zund: texture is not valid"));
    EXPECT_THAT([&] { renderer.uploadCubemap(none, 4, 4, cubeFaces); },
                ThrowsMessage<zund::Exception>("zund: texture is not valid"));
    EXPECT_THAT([&] { renderer.uploadCubemap(typed, 4, 4, cubeFaces); },
                ThrowsMessage<zund::Exception>("zund: texture is not valid"));
    EXPECT_THAT(gl.take(), IsEmpty());
}

TEST_F(RendererTextures, RejectACubeMapUploadToAnotherTypeBeforeAnyCall)
{
    for (const unsigned int type : {GLenum{GL_TEXTURE_2D}, GLenum{GL_TEXTURE_1D}, GLenum{GL_NONE}}) {
        Texture other(12, type);
        EXPECT_THAT([&] { renderer.uploadCubemap(other, 4, 4, cubeFaces); },
                    ThrowsMessage<zund::Exception>("zund: not a cube map!"));
    }
    EXPECT_THAT(gl.take(), IsEmpty());
}

TEST_F(RendererTextures, ChargeAnErrorLeftPendingToTheNextRead)
{
    gl.errorOf = {{"glDrawElements", GL_INVALID_OPERATION}};
    zund::DrawCommand draw;
    draw.vertexArray = zund::VertexArray(1, 0, 3);
    renderer.render({draw});
    EXPECT_THAT([this] { renderer.createRenderBuffer2d(4, 4); },
                ThrowsMessage<zund::Exception>("zund: failed to bind renderbuffer"));
    EXPECT_NO_THROW(renderer.createRenderBuffer2d(4, 4));
}

TEST_F(RendererTextures, TakeNoCareOfWhatAFailureLeavesBehind)
{
    gl.errorOf = {{"glTexImage2D", GL_OUT_OF_MEMORY}};
    EXPECT_THROW(renderer.createTexture2d(TextureFormat::RGB8, 4, 4), zund::Exception);
    const std::vector<std::string> calls = gl.take();
    EXPECT_THAT(calls, testing::Not(testing::Contains(testing::StartsWith("glDeleteTextures"))));
    EXPECT_THAT(calls, testing::Not(testing::Contains("glBindTexture(GL_TEXTURE_2D, 0)")));
}

// --- Sizes of compressed images ---

struct BlockSize {
    int width;
    int height;
    int bytes; ///< whole blocks only, 8 bytes each
};

class CompressedSize : public testing::TestWithParam<BlockSize> {};

TEST_P(CompressedSize, CountsWholeBlocks)
{
    const auto [width, height, bytes] = GetParam();
    GlRecorder gl;
    RendererImpl renderer(nullptr, true);
    gl.take();
    const std::string arguments = "GL_COMPRESSED_RGB_S3TC_DXT1_EXT, " + std::to_string(width) + ", " +
                                  std::to_string(height) + ", 0, " + std::to_string(bytes) + ", data)";
    renderer.loadTextureDXT(width, height, blocks);
    EXPECT_THAT(gl.take(), testing::Contains("glCompressedTexImage2D(GL_TEXTURE_2D, 0, " + arguments));
    Texture cubeMap(13, GL_TEXTURE_CUBE_MAP);
    renderer.uploadCubemap(cubeMap, width, height, cubeFaces);
    EXPECT_THAT(gl.take(), testing::Contains(
                               "glCompressedTexImage2D(GL_TEXTURE_CUBE_MAP_POSITIVE_X + 5, 0, " + arguments));
}

constexpr BlockSize blockSizes[] = {
    {4, 4, 8}, {8, 4, 16}, {4, 8, 16}, {6, 4, 8},     {6, 8, 16},
    {7, 7, 8}, {3, 4, 0},  {4, 3, 0},  {12, 20, 120}, {3840, 2160, 4147200},
};
INSTANTIATE_TEST_SUITE_P(Of, CompressedSize, testing::ValuesIn(blockSizes), [](const auto& info) {
    return std::to_string(info.param.width) + "x" + std::to_string(info.param.height);
});

// --- Deletes ---

TEST_F(RendererTextures, AreDeletedByNameAndThatHandleAloneIsReset)
{
    Texture texture(4, GL_TEXTURE_2D);
    const Texture copy = texture;
    renderer.deleteTexture(texture);
    EXPECT_EQ(texture.get(), -1);
    EXPECT_EQ(texture.getType(), 0U);
    EXPECT_EQ(copy.get(), 4);
    EXPECT_EQ(copy.getType(), 0x0DE1U);

    zund::RenderBuffer renderBuffer(5);
    const zund::RenderBuffer renderBufferCopy = renderBuffer;
    renderer.deleteRenderBuffer(renderBuffer);
    EXPECT_EQ(renderBuffer.get(), -1);
    EXPECT_EQ(renderBufferCopy.get(), 5);

    zund::FrameBuffer frameBuffer(6);
    const zund::FrameBuffer frameBufferCopy = frameBuffer;
    renderer.deleteFrameBuffer(frameBuffer);
    EXPECT_EQ(frameBuffer.get(), -1);
    EXPECT_EQ(frameBufferCopy.get(), 6);

    EXPECT_THAT(gl.take(), ElementsAre("glDeleteTextures(1, [4])", "glDeleteRenderbuffers(1, [5])",
                                       "glDeleteFramebuffers(1, [6])"));
}

TEST_F(RendererTextures, AreNotTestedBeforeTheyAreDeleted)
{
    Texture texture;
    zund::RenderBuffer renderBuffer;
    zund::FrameBuffer frameBuffer;
    renderer.deleteTexture(texture);
    renderer.deleteRenderBuffer(renderBuffer);
    renderer.deleteFrameBuffer(frameBuffer);
    EXPECT_THAT(gl.take(),
                ElementsAre("glDeleteTextures(1, [4294967295])", "glDeleteRenderbuffers(1, [4294967295])",
                            "glDeleteFramebuffers(1, [4294967295])"));
}

} // namespace
