#include "gl/exception.h"
#include "tests/gl/offscreen_renderer.h"
#include "tests/support/message_of.h"

#include <GL/glew.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace {

constexpr const char* vertexSource = R"glsl(#version 330
layout(location = 0) in vec3 in_position;
out vec2 texcoord;
void main()
{
    gl_Position = vec4(in_position, 1.0);
    texcoord = in_position.xy * 0.5 + 0.5;
}
)glsl";

constexpr const char* flatSource = R"glsl(#version 450
uniform vec4 color;
out vec4 outputColor;
void main() { outputColor = color; }
)glsl";

constexpr const char* textureSource = R"glsl(#version 450
uniform sampler2D image;
uniform float factor;
in vec2 texcoord;
out vec4 outputColor;
void main() { outputColor = texture(image, texcoord) * factor; }
)glsl";

class RendererOnTheDriver : public OffscreenRenderer {
protected:
    RendererOnTheDriver() : flat(link(vertexSource, flatSource)), color(renderer.getUniform(flat, "color")) {}

    zund::DrawCommand drawFlat(const glm::vec4& value, float z = 0.0F)
    {
        zund::DrawCommand command;
        command.vertexArray = coverScreen(z);
        command.program = flat;
        command.uniforms = {{color, value}};
        return command;
    }

    /// Draws the texture at unit 0 over the whole window.
    zund::DrawCommand drawTexture(const zund::Texture& texture, float factor = 1.0F)
    {
        zund::DrawCommand command;
        command.vertexArray = coverScreen();
        command.program = link(vertexSource, textureSource);
        command.textures[0] = texture;
        command.uniforms = {{renderer.getUniform(command.program, "image"), 0},
                            {renderer.getUniform(command.program, "factor"), factor}};
        return command;
    }

    static int integer(GLenum what)
    {
        GLint value = -1;
        glGetIntegerv(what, &value);
        return value;
    }

    zund::ShaderProgram flat;
    zund::Uniform color;
};

const glm::vec4 red(1.0F, 0.0F, 0.0F, 1.0F);
const glm::vec4 green(0.0F, 1.0F, 0.0F, 1.0F);

TEST_F(RendererOnTheDriver, CoversTheWholeWindowWithOneTriangle)
{
    renderer.render({clearOf({}), drawFlat({0.2F, 0.4F, 0.6F, 1.0F})});
    for (const int x : {0, 31, 63}) {
        for (const int y : {0, 31, 63}) {
            EXPECT_THAT(pixel(x, y), IsPixel(0.2F, 0.4F, 0.6F, 1.0F, byteTolerance)) << x << ", " << y;
        }
    }
}

TEST_F(RendererOnTheDriver, DrawsOnlyWhatTheIndicesSay)
{
    // The lower left half: a triangle of corners 0, 1, 3 out of four.
    const float positions[] = {-1.0F, -1.0F, 0.0F, 1.0F, -1.0F, 0.0F, 1.0F, 1.0F, 0.0F, -1.0F, 1.0F, 0.0F};
    const unsigned int indices[] = {0, 1, 3};
    zund::DrawCommand command = drawFlat(red);
    command.vertexArray = renderer.createIndexedBuffer(positions, 12, indices, 3, nullptr, 0, nullptr, 0,
                                                       nullptr, 0, nullptr, 0);
    renderer.clear(0.0F, 0.0F, 0.0F);
    renderer.render({command});
    EXPECT_THAT(pixel(5, 5), IsPixel(1.0F, 0.0F, 0.0F, 1.0F, 0.0F));
    EXPECT_THAT(pixel(58, 58), IsPixel(0.0F, 0.0F, 0.0F, 1.0F, 0.0F));
}

TEST_F(RendererOnTheDriver, DecodesDxt1Blocks)
{
    // Two blocks side by side: two end colours as 5-6-5 bits, then 2 bits a texel. The first is all of its
    // first colour, pure red; the second all of its second, pure blue.
    const unsigned char blocks[] = {0x00, 0xF8, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
                                    0xE0, 0x07, 0x1F, 0x00, 0x55, 0x55, 0x55, 0x55};
    const zund::Texture texture = renderer.loadTextureDXT(8, 4, blocks);
    renderer.render({clearOf({}), drawTexture(texture)});
    EXPECT_THAT(pixel(16, 32), IsPixel(1.0F, 0.0F, 0.0F, 1.0F, byteTolerance));
    EXPECT_THAT(pixel(48, 32), IsPixel(0.0F, 0.0F, 1.0F, 1.0F, byteTolerance));
    // It repeats: at the left edge the last texel is mixed in by half.
    EXPECT_THAT(pixel(0, 32), IsPixel(0.5625F, 0.0F, 0.4375F, 1.0F, 2.0F * byteTolerance));
}

TEST_F(RendererOnTheDriver, InterpolatesTheColoursOfADxt1Block)
{
    // Ends white and black, texel code 2: two thirds of the first, one third of the second.
    const unsigned char block[] = {0xFF, 0xFF, 0x00, 0x00, 0xAA, 0xAA, 0xAA, 0xAA};
    const zund::Texture texture = renderer.loadTextureDXT(4, 4, block);
    renderer.render({clearOf({}), drawTexture(texture)});
    EXPECT_THAT(pixel(32, 32), IsPixel(2.0F / 3.0F, 2.0F / 3.0F, 2.0F / 3.0F, 1.0F, 2.0F * byteTolerance));
}

TEST_F(RendererOnTheDriver, HidesNothingBehindADrawThatWroteNoDepth)
{
    zund::DrawCommand near = drawFlat(red, -0.5F);
    zund::DrawCommand far = drawFlat(green, 0.5F);
    renderer.render({clearOf({}), near, far});
    EXPECT_THAT(pixel(32, 32), IsPixel(0.0F, 1.0F, 0.0F, 1.0F, 0.0F));
    near.depthWrite = true;
    renderer.render({clearOf({}), near, far});
    EXPECT_THAT(pixel(32, 32), IsPixel(1.0F, 0.0F, 0.0F, 1.0F, 0.0F));
}

TEST_F(RendererOnTheDriver, ClearsDepthAgainAfterADrawWithoutDepthWrites)
{
    zund::DrawCommand near = drawFlat(red, -0.5F);
    near.depthWrite = true;
    renderer.render({clearOf({}), near, drawFlat(green, -0.9F), clearOf({}), drawFlat(green, 0.5F)});
    EXPECT_THAT(pixel(32, 32), IsPixel(0.0F, 1.0F, 0.0F, 1.0F, 0.0F));
}

TEST_F(RendererOnTheDriver, KeepsTheClearColourForLaterClearCommands)
{
    renderer.clear(0.25F, 0.5F, 0.75F);
    renderer.render({drawFlat(red)});
    EXPECT_THAT(pixel(32, 32), IsPixel(1.0F, 0.0F, 0.0F, 1.0F, 0.0F));
    renderer.render({clearOf({})});
    EXPECT_THAT(pixel(32, 32), IsPixel(0.25F, 0.5F, 0.75F, 1.0F, byteTolerance));
    zund::Texture texture;
    const zund::FrameBuffer target = createTarget(texture);
    renderer.render({clearOf(target)});
    EXPECT_THAT(pixelOf(target, 32, 32), IsPixel(0.25F, 0.5F, 0.75F, 1.0F, 0.0F));
}

TEST_F(RendererOnTheDriver, KeepsValuesAboveOneInAFloatTarget)
{
    zund::Texture texture;
    const zund::FrameBuffer target = createTarget(texture);
    zund::DrawCommand bright = drawFlat({4.0F, 1.5F, 0.25F, 1.0F});
    bright.frameBuffer = target;
    renderer.render({clearOf(target), bright, clearOf({}), drawTexture(texture, 0.125F)});
    EXPECT_THAT(pixelOf(target, 10, 50), IsPixel(4.0F, 1.5F, 0.25F, 1.0F, 0.0F));
    EXPECT_THAT(pixel(10, 50),
                IsPixel(0.5F, 0.1875F, 0.03125F, 1.0F, byteTolerance)); // the window has no alpha
}

TEST_F(RendererOnTheDriver, CutsValuesAboveOneInATargetOfBytes)
{
    const zund::Texture texture = renderer.createTexture2d(zund::TextureFormat::RGB8, width, height);
    const zund::FrameBuffer target = renderer.createFrameBuffer();
    renderer.framebufferTexture(target, texture);
    zund::DrawCommand bright = drawFlat({4.0F, 1.5F, 0.25F, 1.0F});
    bright.frameBuffer = target;
    renderer.render({clearOf(target), bright});
    EXPECT_THAT(pixelOf(target, 10, 50), IsPixel(1.0F, 1.0F, 0.25F, 1.0F, byteTolerance));
}

TEST_F(RendererOnTheDriver, LeavesNothingBoundAfterADraw)
{
    zund::Texture texture;
    const zund::FrameBuffer target = createTarget(texture);
    zund::DrawCommand command = drawFlat(red);
    command.frameBuffer = target;
    command.textures[0] = renderer.createTexture2d(zund::TextureFormat::RGB8, 4, 4);
    command.textures[3] = command.textures[0];
    command.textures[5] = renderer.createTexture1d(4);
    renderer.render({clearOf(target), command});
    EXPECT_EQ(integer(GL_FRAMEBUFFER_BINDING), 0);
    EXPECT_EQ(integer(GL_CURRENT_PROGRAM), 0);
    EXPECT_EQ(integer(GL_VERTEX_ARRAY_BINDING), 0);
    EXPECT_EQ(integer(GL_DEPTH_WRITEMASK), 1);
    EXPECT_EQ(integer(GL_ACTIVE_TEXTURE), GL_TEXTURE0 + 5);
    for (const GLenum unit : {0U, 3U, 5U}) {
        glActiveTexture(GL_TEXTURE0 + unit);
        EXPECT_EQ(integer(GL_TEXTURE_BINDING_2D), 0) << unit;
        EXPECT_EQ(integer(GL_TEXTURE_BINDING_1D), 0) << unit;
    }
}

TEST_F(RendererOnTheDriver, LeavesTheFramebufferOfAClearBound)
{
    zund::Texture texture;
    const zund::FrameBuffer target = createTarget(texture);
    renderer.render({clearOf(target)});
    EXPECT_EQ(integer(GL_FRAMEBUFFER_BINDING), target.get());
}

TEST_F(RendererOnTheDriver, TouchesNoOtherStateOfADraw)
{
    renderer.render({clearOf({}), drawFlat(red)});
    EXPECT_EQ(glIsEnabled(GL_DEPTH_TEST), GL_TRUE);
    EXPECT_EQ(integer(GL_DEPTH_FUNC), GL_LESS);
    EXPECT_EQ(glIsEnabled(GL_BLEND), GL_FALSE);
    EXPECT_EQ(glIsEnabled(GL_CULL_FACE), GL_FALSE);
    EXPECT_EQ(glIsEnabled(GL_FRAMEBUFFER_SRGB), GL_FALSE);
    GLint viewport[4] = {};
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_THAT(viewport, testing::ElementsAre(0, 0, 64, 64));
}

TEST_F(RendererOnTheDriver, BindsNoTextureButTheLoadedOne)
{
    const unsigned char block[8] = {};
    const zund::Texture loaded = renderer.loadTextureDXT(4, 4, block);
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_2D), loaded.get());
    zund::Texture flatTexture = renderer.createTexture2d(zund::TextureFormat::RGB8, 4, 4);
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_2D), 0);
    const unsigned char pixels[48] = {};
    renderer.uploadTexture2d(flatTexture, 4, 4, pixels);
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_2D), 0);
    zund::Texture line = renderer.createTexture1d(4);
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_1D), 0);
    const float weights[4] = {};
    renderer.uploadTexture1d(line, 4, weights);
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_1D), 0);
    zund::Texture cube = renderer.createCubemap();
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_CUBE_MAP), 0);
    const void* faces[6] = {block, block, block, block, block, block};
    renderer.uploadCubemap(cube, 4, 4, faces);
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_CUBE_MAP), 0);
    renderer.createRenderBuffer2d(4, 4);
    EXPECT_EQ(integer(GL_RENDERBUFFER_BINDING), 0);
}

TEST_F(RendererOnTheDriver, ShowsUploadedBytesAndFloats)
{
    zund::Texture flatTexture = renderer.createTexture2d(zund::TextureFormat::RGB16F, 2, 2);
    const unsigned char pixels[] = {51, 102, 153, 51,  102, 153, 0,
                                    0,  51,  102, 153, 51,  102, 153}; // rows of 8 bytes
    renderer.uploadTexture2d(flatTexture, 2, 2, pixels);
    renderer.render({clearOf({}), drawTexture(flatTexture)});
    EXPECT_THAT(pixel(32, 32), IsPixel(0.2F, 0.4F, 0.6F, 1.0F, byteTolerance));

    zund::Texture line = renderer.createTexture1d(4);
    const float weights[] = {0.25F, 0.5F, 2.0F, -1.0F};
    renderer.uploadTexture1d(line, 4, weights);
    float read[4] = {};
    glBindTexture(GL_TEXTURE_1D, static_cast<GLuint>(line.get()));
    glGetTexImage(GL_TEXTURE_1D, 0, GL_RED, GL_FLOAT, read);
    EXPECT_THAT(read, testing::ElementsAre(0.25F, 0.5F, 2.0F, -1.0F));
}

TEST_F(RendererOnTheDriver, GivesADepthBufferOfSixteenBits)
{
    const zund::RenderBuffer buffer = renderer.createRenderBuffer2d(32, 16);
    glBindRenderbuffer(GL_RENDERBUFFER, static_cast<GLuint>(buffer.get()));
    GLint bits = 0;
    glGetRenderbufferParameteriv(GL_RENDERBUFFER, GL_RENDERBUFFER_DEPTH_SIZE, &bits);
    EXPECT_EQ(bits, 16);
}

TEST_F(RendererOnTheDriver, LeavesTheLocationOfMissingAttributesDisabled)
{
    const float positions[9] = {};
    const float directions[9] = {};
    const unsigned int indices[3] = {};
    const zund::VertexArray vertexArray = renderer.createIndexedBuffer(
        positions, 9, indices, 3, nullptr, 0, nullptr, 0, directions, 9, directions, 9);
    glBindVertexArray(static_cast<GLuint>(vertexArray.get()));
    const int expected[] = {1, 0, 0, 1, 1};
    for (GLuint location = 0; location < 5; ++location) {
        GLint enabled = -1;
        glGetVertexAttribiv(location, GL_VERTEX_ATTRIB_ARRAY_ENABLED, &enabled);
        EXPECT_EQ(enabled, expected[location]) << location;
    }
    EXPECT_NE(integer(GL_ELEMENT_ARRAY_BUFFER_BINDING), 0);
}

TEST_F(RendererOnTheDriver, ReachesEachElementOfAnArrayUniform)
{
    constexpr const char* arraySource = R"glsl(#version 450
uniform float weights[3];
uniform vec2 pairs[2];
uniform vec3 colors[3];
uniform vec4 wide[2];
uniform int which;
out vec4 outputColor;
void main()
{
    vec3 parts = vec3(weights[which], pairs[min(which, 1)].y, wide[min(which, 1)].w);
    outputColor = vec4(which == 2 ? colors[2] : parts + colors[which], 1.0);
}
)glsl";
    zund::DrawCommand command;
    command.vertexArray = coverScreen();
    command.program = link(vertexSource, arraySource);
    const auto uniform = [&](const char* name) {
        return renderer.getUniform(command.program, name);
    };
    command.uniformArrays = {
        {uniform("weights"), std::vector<float>{0.125F, 0.25F, 0.5F}},
        {uniform("pairs"), std::vector<glm::vec2>{{9.0F, 0.25F}, {9.0F, 0.5F}}},
        {uniform("colors"),
         std::vector<glm::vec3>{{0.125F, 0.0F, 0.0F}, {0.0F, 0.0F, 0.25F}, {0.5F, 1.0F, 0.25F}}},
        {uniform("wide"), std::vector<glm::vec4>{{9.0F, 9.0F, 9.0F, 0.5F}, {9.0F, 9.0F, 9.0F, 0.75F}}},
    };
    const Pixel expected[] = {
        {0.125F + 0.125F, 0.25F, 0.5F, 1.0F}, {0.25F, 0.5F, 0.75F + 0.25F, 1.0F}, {0.5F, 1.0F, 0.25F, 1.0F}};
    for (int which = 0; which < 3; ++which) {
        command.uniforms = {{uniform("which"), which}};
        renderer.render({clearOf({}), command});
        const Pixel& e = expected[which];
        EXPECT_THAT(pixel(32, 32), IsPixel(e[0], e[1], e[2], e[3], byteTolerance)) << which;
    }
}

TEST_F(RendererOnTheDriver, LinksAGeometryShader)
{
    constexpr const char* geometrySource = R"glsl(#version 330
layout(triangles) in;
layout(triangle_strip, max_vertices = 3) out;
void main()
{
    for (int i = 0; i < 3; ++i) {
        gl_Position = vec4(gl_in[i].gl_Position.xy * vec2(-1, 1), 0, 1);
        EmitVertex();
    }
}
)glsl";
    constexpr const char* plainVertexSource = R"glsl(#version 330
layout(location = 0) in vec3 in_position;
void main() { gl_Position = vec4(in_position, 1.0); }
)glsl";
    const zund::Shader vertex = renderer.createShader(zund::Shader::Vertex, plainVertexSource);
    const zund::Shader fragment = renderer.createShader(zund::Shader::Fragment, flatSource);
    const zund::Shader geometry = renderer.createShader(zund::Shader::Geometry, geometrySource);
    // The left half, which the geometry shader mirrors.
    const float positions[] = {-1.0F, -1.0F, 0.0F, 0.0F, 0.0F, 0.0F, -1.0F, 1.0F, 0.0F};
    const unsigned int indices[] = {0, 1, 2};
    zund::DrawCommand command;
    command.program = renderer.createProgram(vertex, fragment, &geometry);
    command.vertexArray = renderer.createIndexedBuffer(positions, 9, indices, 3, nullptr, 0, nullptr, 0,
                                                       nullptr, 0, nullptr, 0);
    command.uniforms = {{renderer.getUniform(command.program, "color"), green}};
    renderer.clear(0.0F, 0.0F, 0.0F);
    renderer.render({command});
    EXPECT_THAT(pixel(60, 32), IsPixel(0.0F, 1.0F, 0.0F, 1.0F, 0.0F));
    EXPECT_THAT(pixel(3, 32), IsPixel(0.0F, 0.0F, 0.0F, 1.0F, 0.0F));
}

TEST_F(RendererOnTheDriver, ThrowsTheDriversLogOfAShaderThatDoesNotCompile)
{
    try {
        renderer.createShader(zund::Shader::Fragment, "#version 450\nvoid main() { nonsense = 1; }\n");
        FAIL() << "compiled";
    } catch (const zund::Exception& exception) {
        EXPECT_THAT(exception.what(), StartsWith("shader compilation error:\n"));
        EXPECT_THAT(exception.what(), HasSubstr("nonsense"));
    }
    EXPECT_THAT(takeMessages(), HasSubstr("nonsense"));
}

TEST_F(RendererOnTheDriver, ThrowsTheDriversLogOfAProgramThatDoesNotLink)
{
    const zund::Shader vertex = renderer.createShader(zund::Shader::Vertex, vertexSource);
    const zund::Shader fragment = renderer.createShader(zund::Shader::Fragment, R"glsl(#version 450
in vec4 neverWritten;
out vec4 outputColor;
void main() { outputColor = neverWritten; }
)glsl");
    try {
        renderer.createProgram(vertex, fragment, nullptr);
        FAIL() << "linked";
    } catch (const zund::Exception& exception) {
        EXPECT_THAT(exception.what(), StartsWith("program linking error:\n"));
        EXPECT_THAT(exception.what(), HasSubstr("neverWritten"));
    }
    takeMessages();
}

TEST_F(RendererOnTheDriver, GivesTheDriversWordingOfABadUpload)
{
    const unsigned char block[8] = {};
    EXPECT_EQ(messageOf<std::runtime_error>([&] { renderer.loadTextureDXT(-4, 4, block); }),
              "glCompressedTexImage2D error: invalid value");
    EXPECT_THAT(takeMessages(), HasSubstr("OpenGL Debug: "));
}

TEST_F(RendererOnTheDriver, ReportsAnInvalidProgramOnStandardErrorAndGoesOn)
{
    zund::DrawCommand command = drawFlat(red);
    command.program = zund::ShaderProgram();
    command.uniforms.clear();
    EXPECT_NO_THROW(renderer.render({clearOf({}), command}));
    EXPECT_THAT(takeMessages(), StartsWith("OpenGL Debug: "));
}

TEST_F(RendererOnTheDriver, FailsWithItsOwnTextWhereTheDriverRefusesATexture)
{
    EXPECT_THAT([&] { renderer.createTexture2d(zund::TextureFormat::RGB16F, -1, 4); },
                testing::ThrowsMessage<zund::Exception>("zund: texture allocation failed"));
    EXPECT_THAT([&] { renderer.createRenderBuffer2d(-1, 4); },
                testing::ThrowsMessage<zund::Exception>("zund: failed to allocate renderbuffer"));
    takeMessages();
}

} // namespace
