#pragma once

#include "gl/renderer-impl.h"
#include "tools/stage/show_context.h"

#include <GL/glew.h>
#include <SDL.h>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

/// A window of SDL that no one sees, with the context attributes of the show.
class OffscreenWindow {
public:
    OffscreenWindow(int width, int height)
    {
        // A software rasteriser, on any machine.
        setenv("SDL_VIDEODRIVER", "offscreen", 1);
        setenv("LIBGL_ALWAYS_SOFTWARE", "1", 1);
        if (SDL_Init(SDL_INIT_VIDEO) < 0) {
            throw std::runtime_error(std::string("SDL_Init: ") + SDL_GetError());
        }
        tools::stage::askForShowContext();
        window = SDL_CreateWindow("test", 0, 0, width, height, SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN);
        if (window == nullptr) {
            throw std::runtime_error(std::string("SDL_CreateWindow: ") + SDL_GetError());
        }
    }
    ~OffscreenWindow()
    {
        SDL_DestroyWindow(window);
        SDL_Quit();
    }

    OffscreenWindow(const OffscreenWindow&) = delete;
    OffscreenWindow& operator=(const OffscreenWindow&) = delete;

    SDL_Window* get() const { return window; }

private:
    SDL_Window* window = nullptr;
};

/// A colour as four numbers that matchers can look into.
using Pixel = std::array<float, 4>;

/// Matches a pixel, each component within `tolerance`.
inline auto IsPixel(float r, float g, float b, float a, float tolerance)
{
    using testing::FloatNear;
    return testing::ElementsAre(FloatNear(r, tolerance), FloatNear(g, tolerance), FloatNear(b, tolerance),
                                FloatNear(a, tolerance));
}

/// Half a step of 8 bits, and rounding.
constexpr float byteTolerance = 0.503F / 255.0F;

/// The renderer on the real driver, with a window of `width` by `height`. A test fails if the driver
/// complains, unless it takes the complaints itself.
class OffscreenRenderer : public testing::Test {
protected:
    explicit OffscreenRenderer(int width = 64, int height = 64)
        : width(width), height(height), window(width, height), renderer(window.get(), true)
    {
        testing::internal::CaptureStderr();
    }
    ~OffscreenRenderer() override
    {
        if (capturing) {
            EXPECT_EQ(takeMessages(), "");
        }
    }

    /// What the driver has written so far. Nothing is captured any more.
    std::string takeMessages()
    {
        renderer.finish();
        capturing = false;
        return testing::internal::GetCapturedStderr();
    }

    /// A pixel of the window's framebuffer, or of the one that is bound; the origin is at the bottom left.
    static Pixel pixel(int x, int y)
    {
        Pixel components{};
        glReadPixels(x, y, 1, 1, GL_RGBA, GL_FLOAT, components.data());
        return components;
    }

    /// A pixel of a framebuffer.
    static Pixel pixelOf(const zund::FrameBuffer& frameBuffer, int x, int y)
    {
        glBindFramebuffer(GL_FRAMEBUFFER, static_cast<GLuint>(frameBuffer.get()));
        const Pixel components = pixel(x, y);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        return components;
    }

    zund::ShaderProgram link(const char* vertexSource, const char* fragmentSource)
    {
        const zund::Shader vertex = renderer.createShader(zund::Shader::Vertex, vertexSource);
        const zund::Shader fragment = renderer.createShader(zund::Shader::Fragment, fragmentSource);
        return renderer.createProgram(vertex, fragment, nullptr);
    }

    /// The triangle that covers the screen, at a depth.
    zund::VertexArray coverScreen(float z = 0.0F)
    {
        const float positions[] = {-1.0F, -1.0F, z, 3.0F, -1.0F, z, -1.0F, 3.0F, z};
        const unsigned int indices[] = {0, 1, 2};
        return renderer.createIndexedBuffer(positions, 9, indices, 3, nullptr, 0, nullptr, 0, nullptr, 0,
                                            nullptr, 0);
    }

    /// A framebuffer of the window's size with the colours of floats.
    zund::FrameBuffer createTarget(zund::Texture& texture)
    {
        texture = renderer.createTexture2d(zund::TextureFormat::RGB16F, width, height);
        zund::FrameBuffer frameBuffer = renderer.createFrameBuffer();
        renderer.framebufferTexture(frameBuffer, texture);
        renderer.framebufferRenderbuffer(frameBuffer, renderer.createRenderBuffer2d(width, height));
        return frameBuffer;
    }

    static zund::DrawCommand clearOf(const zund::FrameBuffer& frameBuffer)
    {
        zund::DrawCommand command;
        command.clear = true;
        command.frameBuffer = frameBuffer;
        return command;
    }

    int width;
    int height;
    OffscreenWindow window;
    zund::RendererImpl renderer;

private:
    bool capturing = true;
};
