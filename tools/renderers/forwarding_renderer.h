#pragma once

#include "gl/renderer.h"

namespace tools::renderers {

/// A renderer that hands everything on to another one, for those that are to change or watch a little of it.
class ForwardingRenderer : public zund::Renderer {
public:
    /// `target` must outlive it.
    explicit ForwardingRenderer(zund::Renderer& target) : target(target) {}

    void clear(float r, float g, float b) override;
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
    void render(const std::vector<zund::DrawCommand>& commands) override;
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
    zund::Renderer& target;
};

} // namespace tools::renderers
