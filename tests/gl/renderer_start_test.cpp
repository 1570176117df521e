#include "gl/exception.h"
#include "gl/renderer-impl.h"
#include "tests/gl/slots.h"
#include "tests/support/gl_recorder.h"

#include <GL/glew.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>

using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using testing::ThrowsMessage;

namespace {

struct RendererStart : testing::Test {
    GlRecorder gl;

    static std::unique_ptr<zund::RendererImpl> start()
    {
        return std::make_unique<zund::RendererImpl>(nullptr, true);
    }
};

TEST_F(RendererStart, MakesTheContextThenLoadsGlewThenDrainsErrorsThenListensThenWaitsForTheDisplay)
{
    glewExperimental = GL_FALSE;
    const auto renderer = start();
    EXPECT_THAT(gl.take(), ElementsAre("SDL_GL_CreateContext()", "glewInit(experimental)", "glGetError()",
                                       "glGetError()", "glDebugMessageCallback(callback, null)",
                                       "SDL_GL_SetSwapInterval(1)"));
}

TEST_F(RendererStart, MakesTheContextInTheWindowItIsGiven)
{
    int stand = 0;
    auto* window = reinterpret_cast<SDL_Window*>(&stand);
    const zund::RendererImpl renderer(window, true);
    EXPECT_EQ(gl.window, window);
}

TEST_F(RendererStart, TakesARefusedSwapIntervalAsItIs)
{
    gl.swapIntervalResult = -1;
    EXPECT_NO_THROW(start());
}

TEST_F(RendererStart, FailsWithSdlsTextWithoutAContext)
{
    gl.contextFails = true;
    EXPECT_THAT([] { start(); },
                ThrowsMessage<zund::Exception>("zund: failed to create gl context: no context today"));
    EXPECT_THAT(gl.take(), ElementsAre("SDL_GL_CreateContext()"));
}

TEST_F(RendererStart, GoesOnWhereGlewOnlyMissesAGlxDisplay)
{
    gl.glewResult = 4;
    EXPECT_NO_THROW(start());
    EXPECT_THAT(gl.take(), Contains("SDL_GL_SetSwapInterval(1)"));
}

class GlewFailure : public testing::TestWithParam<unsigned int> {};

TEST_P(GlewFailure, EndsTheStartWithGlewsText)
{
    GlRecorder gl;
    gl.glewResult = GetParam();
    const std::string text = reinterpret_cast<const char*>(glewGetErrorString(GetParam()));
    EXPECT_THAT([] { RendererStart::start(); },
                ThrowsMessage<zund::Exception>("zund: glewInit failed: " + text));
    // No further call: the context isn't deleted either.
    EXPECT_THAT(gl.take(), ElementsAre("SDL_GL_CreateContext()", "glewInit(experimental)"));
}

INSTANTIATE_TEST_SUITE_P(Result, GlewFailure, testing::Values(1, 2, 3, 5, 6, 7, 8),
                         testing::PrintToStringParamName());

TEST(GlewFailure, SpeaksOfAMissingVersionAsGlewDoes)
{
    GlRecorder gl;
    gl.glewResult = GLEW_ERROR_NO_GL_VERSION;
    EXPECT_THAT([] { RendererStart::start(); },
                ThrowsMessage<zund::Exception>("zund: glewInit failed: Missing GL version"));
}

/// What glGetError gives after glewInit, one read after the other.
struct Drain {
    const char* name;
    std::vector<unsigned int> errors;
    std::size_t reads; ///< of glGetError
    bool starts;
};

void PrintTo(const Drain& drain, std::ostream* out)
{
    *out << drain.name;
}

class ErrorDrain : public testing::TestWithParam<Drain> {};

TEST_P(ErrorDrain, DropsInvalidEnumsAndOneOther)
{
    GlRecorder gl;
    gl.errors = GetParam().errors;
    if (GetParam().starts) {
        EXPECT_NO_THROW(RendererStart::start());
    } else {
        EXPECT_THAT([] { RendererStart::start(); },
                    ThrowsMessage<zund::Exception>("zund: GLEW initialization failed"));
        EXPECT_THAT(gl.calls, Not(Contains("SDL_GL_DeleteContext(context)")));
        EXPECT_THAT(gl.calls, Not(Contains("glDebugMessageCallback(callback, null)")));
    }
    EXPECT_THAT(gl.take(), Contains("glGetError()").Times(GetParam().reads));
}

INSTANTIATE_TEST_SUITE_P(
    Pending, ErrorDrain,
    testing::Values(Drain{"Nothing", {}, 2, true}, Drain{"OneInvalidEnum", {0x500}, 3, true},
                    Drain{"ManyInvalidEnums", std::vector<unsigned int>(20, 0x500), 22, true},
                    Drain{"OneOther", {0x502}, 2, true},
                    Drain{"InvalidEnumsThenOneOther", {0x500, 0x500, 0x501}, 4, true},
                    Drain{"TwoOthers", {0x502, 0x501}, 2, false},
                    Drain{"OneOtherThenInvalidEnum", {0x502, 0x500}, 2, false},
                    Drain{"InvalidEnumsThenTwoOthers", {0x500, 0x501, 0x505}, 3, false}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(RendererStart, WritesTheDriversMessagesToStandardError)
{
    const auto renderer = start();
    ASSERT_NE(gl.debugCallback, nullptr);
    testing::internal::CaptureStderr();
    gl.debugCallback(GL_DEBUG_SOURCE_API, GL_DEBUG_TYPE_ERROR, 1, GL_DEBUG_SEVERITY_HIGH, 3, "first message",
                     nullptr);
    gl.debugCallback(0, 0, 0, 0, 0, "100%s second", this);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "OpenGL Debug: first message\nOpenGL Debug: 100%s second\n");
}

struct RendererEnd : RendererStart {};

TEST_F(RendererEnd, MakesBothBulkDeletesWithEmptyLists)
{
    auto renderer = start();
    gl.take();
    renderer.reset();
    EXPECT_THAT(gl.take(), ElementsAre("glDeleteVertexArrays(0, [])", "glDeleteBuffers(0, [])",
                                       "SDL_GL_DeleteContext(context)"));
}

TEST_F(RendererEnd, DeletesArraysThenBuffersThenEachShaderThenTheContextAndNoProgram)
{
    auto renderer = start();
    const float positions[9] = {};
    const unsigned int indices[3] = {};
    renderer->genVertexArray(0, 3);
    renderer->createIndexedBuffer(positions, 9, indices, 3, nullptr, 0, nullptr, 0, nullptr, 0, nullptr, 0);
    const zund::Shader first = renderer->createShader(zund::Shader::Vertex, "");
    const zund::Shader second = renderer->createShader(zund::Shader::Fragment, "");
    renderer->createProgram(first, second, nullptr);
    renderer->createTexture1d(4);
    renderer->createFrameBuffer();
    renderer->createRenderBuffer2d(4, 4);
    gl.take();
    renderer.reset();
    EXPECT_THAT(gl.take(),
                ElementsAre("glDeleteVertexArrays(2, [1, 2])", "glDeleteBuffers(3, [1, 2, 3])",
                            "glDeleteShader(1)", "glDeleteShader(2)", "SDL_GL_DeleteContext(context)"));
}

TEST_F(RendererEnd, DeletesAShaderThatFailedToCompile)
{
    auto renderer = start();
    renderer->createShader(zund::Shader::Vertex, "");
    gl.compileStatus = 0;
    EXPECT_THROW(renderer->createShader(zund::Shader::Fragment, ""), zund::Exception);
    gl.take();
    renderer.reset();
    EXPECT_THAT(gl.take(),
                ElementsAre("glDeleteVertexArrays(0, [])", "glDeleteBuffers(0, [])", "glDeleteShader(1)",
                            "glDeleteShader(2)", "SDL_GL_DeleteContext(context)"));
}

TEST_F(RendererEnd, DeletesOnceMoreWhatWasDeletedBefore)
{
    auto renderer = start();
    zund::Shader shader = renderer->createShader(zund::Shader::Vertex, "");
    zund::VertexArray vertexArray = renderer->genVertexArray(0, 3);
    const float positions[9] = {};
    const unsigned int indices[3] = {};
    renderer->createIndexedBuffer(positions, 9, indices, 3, nullptr, 0, nullptr, 0, nullptr, 0, nullptr, 0);
    zund::VertexBuffer buffer(2);
    renderer->deleteShader(shader);
    renderer->deleteVertexArray(vertexArray);
    renderer->deleteBuffer(buffer);
    gl.take();
    renderer.reset();
    EXPECT_THAT(gl.take(), ElementsAre("glDeleteVertexArrays(2, [1, 2])", "glDeleteBuffers(3, [1, 2, 3])",
                                       "glDeleteShader(1)", "SDL_GL_DeleteContext(context)"));
}

TEST(Renderer, HasItsOperationsInAFixedOrderBehindTheDestructor)
{
    using R = zund::Renderer;
    const std::size_t slots[] = {
        slotOf(&R::clear),
        slotOf(&R::genVertexArray),
        slotOf(&R::createIndexedBuffer),
        slotOf(&R::createShader),
        slotOf(&R::createProgram),
        slotOf(&R::deleteShader),
        slotOf(&R::deleteProgram),
        slotOf(&R::deleteVertexArray),
        slotOf(&R::deleteBuffer),
        slotOf(&R::deleteTexture),
        slotOf(&R::deleteRenderBuffer),
        slotOf(&R::deleteFrameBuffer),
        slotOf(&R::render),
        slotOf(&R::finish),
        slotOf(&R::getUniform),
        slotOf(&R::loadTextureDXT),
        slotOf(&R::createTexture2d),
        slotOf(&R::createTexture1d),
        slotOf(&R::uploadTexture2d),
        slotOf(&R::uploadTexture1d),
        slotOf(&R::createCubemap),
        slotOf(&R::uploadCubemap),
        slotOf(&R::createRenderBuffer2d),
        slotOf(&R::createFrameBuffer),
        slotOf(&R::framebufferTexture),
        slotOf(&R::framebufferRenderbuffer),
    };
    for (std::size_t i = 0; i < std::size(slots); ++i) {
        EXPECT_EQ(slots[i], i + 2);
    }
}

} // namespace
