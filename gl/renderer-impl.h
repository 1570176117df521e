#pragma once

#include "gl/renderer.h"

#include <string>
#include <vector>

struct SDL_Window;

namespace zund {

/// The renderer on a window of SDL. Holds the only GL context, current on the thread that made it.
///
/// Keeps no state of GL: a command binds what it needs and unbinds it again. The driver's debug messages go
/// to standard error.
class RendererImpl : public Renderer {
public:
    /// Makes the context in `window`, which must outlive the renderer, and loads the entry points; buffer
    /// swaps wait for the display from then on. With `depthTest` each command enables the depth test. Throws
    /// `zund::Exception`: "zund: failed to create gl context: ", "zund: glewInit failed: ", "zund: GLEW
    /// initialization failed".
    RendererImpl(SDL_Window* window, bool depthTest);
    /// Frees vertex arrays, buffers and shaders; all else goes with the context.
    ~RendererImpl() override;

    RendererImpl(const RendererImpl&) = delete;
    RendererImpl& operator=(const RendererImpl&) = delete;

    void clear(float r, float g, float b) override;
    VertexArray genVertexArray(int flags, unsigned long indexes) override;
    VertexArray createIndexedBuffer(const float* positions, unsigned long positionCount,
                                    const unsigned int* indices, unsigned long indexCount, const float* uvs,
                                    unsigned long uvCount, const float* normals, unsigned long normalCount,
                                    const float* tangents, unsigned long tangentCount,
                                    const float* bitangents, unsigned long bitangentCount) override;
    Shader createShader(Shader::Type type, const char* source) override;
    ShaderProgram createProgram(const Shader& first, const Shader& second, const Shader* third) override;
    void deleteShader(Shader& shader) override;
    void deleteProgram(ShaderProgram& program) override;
    /// Hands the array's name to `glDeleteBuffers`; the array itself goes with the renderer.
    void deleteVertexArray(VertexArray& vertexArray) override;
    void deleteBuffer(VertexBuffer& buffer) override;
    void deleteTexture(Texture& texture) override;
    void deleteRenderBuffer(RenderBuffer& renderBuffer) override;
    void deleteFrameBuffer(FrameBuffer& frameBuffer) override;
    void render(const std::vector<DrawCommand>& commands) override;
    void finish() override;
    Uniform getUniform(const ShaderProgram& program, const std::string& name) override;
    Texture loadTextureDXT(int width, int height, const void* data) override;
    Texture createTexture2d(TextureFormat format, int width, int height) override;
    Texture createTexture1d(int width) override;
    void uploadTexture2d(Texture& texture, int width, int height, const void* data) override;
    void uploadTexture1d(Texture& texture, int width, const void* data) override;
    Texture createCubemap() override;
    void uploadCubemap(Texture& texture, int width, int height, const void** faces) override;
    RenderBuffer createRenderBuffer2d(int width, int height) override;
    FrameBuffer createFrameBuffer() override;
    void framebufferTexture(FrameBuffer frameBuffer, Texture texture) override;
    void framebufferRenderbuffer(FrameBuffer frameBuffer, RenderBuffer renderBuffer) override;

    void render(const DrawCommand& command);
    void setUniformValue(const ShaderProgram& program, Uniform uniform, const UniformValue& value);
    void setUniformArrayValue(const ShaderProgram& program, Uniform uniform, const UniformArrayValue& value);

    /// The driver's debug callback: writes the message to standard error.
    static void errorCallback(unsigned int source, unsigned int type, unsigned int id, unsigned int severity,
                              int length, const char* message, const void* userParam);

private:
    static void initGlew();
    unsigned int genBuffer();

    bool depthTest;
    void* context = nullptr; ///< an `SDL_GLContext`
    // Every name ever made. A delete takes none out.
    std::vector<unsigned int> vertexArrays;
    std::vector<unsigned int> buffers;
    std::vector<unsigned int> shaders;
    std::vector<unsigned int> programs;
};

} // namespace zund
