#pragma once

#include "gl/renderer.h"
#include "tools/packer/rgb_image.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tools {

/// A renderer between a scene and the one of a window, that finds out what of each frame the near plane cuts
/// off. The window shows what it would show without it.
///
/// Models are drawn first without being cut: what would be, leaves depth 0. Text layers, which lie on the
/// near plane on purpose, are drawn after that; their turn among the models makes no difference to the depth
/// test.
class NearPlaneProbe : public zund::Renderer {
public:
    /// For frames of that size. `inner` draws on the current context, and outlives the probe.
    NearPlaneProbe(zund::Renderer& inner, Size size);

    /// The depths of the models of the last frame, one a pixel in rows from the bottom; all at the far plane
    /// for a frame without models. Borrowed: changes with the next frame.
    std::span<const std::uint16_t> depths() const { return depthRows; }

    void clear(float r, float g, float b) override { inner.clear(r, g, b); }
    void render(const std::vector<zund::DrawCommand>& commands) override;

    zund::VertexArray genVertexArray(int flags, unsigned long indexes) override;
    zund::VertexArray createIndexedBuffer(const float* positions, unsigned long positionCount,
                                          const unsigned int* indices, unsigned long indexCount,
                                          const float* uvs, unsigned long uvCount, const float* normals,
                                          unsigned long normalCount, const float* tangents,
                                          unsigned long tangentCount, const float* bitangents,
                                          unsigned long bitangentCount) override;
    zund::Shader createShader(zund::Shader::Type type, const char* source) override;
    zund::ShaderProgram createProgram(const zund::Shader& first, const zund::Shader& second,
                                      const zund::Shader* third) override;
    void deleteShader(zund::Shader& shader) override;
    void deleteProgram(zund::ShaderProgram& program) override;
    void deleteVertexArray(zund::VertexArray& vertexArray) override;
    void deleteBuffer(zund::VertexBuffer& buffer) override;
    void deleteTexture(zund::Texture& texture) override;
    void deleteRenderBuffer(zund::RenderBuffer& renderBuffer) override;
    void deleteFrameBuffer(zund::FrameBuffer& frameBuffer) override;
    void finish() override;
    zund::Uniform getUniform(const zund::ShaderProgram& program, const std::string& name) override;
    zund::Texture loadTextureDXT(int width, int height, const void* data) override;
    zund::Texture createTexture2d(zund::TextureFormat format, int width, int height) override;
    zund::Texture createTexture1d(int width) override;
    void uploadTexture2d(zund::Texture& texture, int width, int height, const void* data) override;
    void uploadTexture1d(zund::Texture& texture, int width, const void* data) override;
    zund::Texture createCubemap() override;
    void uploadCubemap(zund::Texture& texture, int width, int height, const void** faces) override;
    zund::RenderBuffer createRenderBuffer2d(int width, int height) override;
    zund::FrameBuffer createFrameBuffer() override;
    void framebufferTexture(zund::FrameBuffer frameBuffer, zund::Texture texture) override;
    void framebufferRenderbuffer(zund::FrameBuffer frameBuffer, zund::RenderBuffer renderBuffer) override;

private:
    void readDepths(zund::FrameBuffer frameBuffer);

    zund::Renderer& inner;
    Size size;
    std::vector<std::uint16_t> depthRows;
};

/// The commands of a frame in the order in which the probe plays them.
struct FrameParts {
    std::vector<zund::DrawCommand>
        models;                          ///< and all that comes before the last of them, but for text layers
    std::vector<zund::DrawCommand> rest; ///< text layers, then what carries the picture to the window
};
FrameParts splitFrame(const std::vector<zund::DrawCommand>& commands);

} // namespace tools
