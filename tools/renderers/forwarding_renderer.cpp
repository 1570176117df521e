#include "tools/renderers/forwarding_renderer.h"

namespace tools::renderers {

void ForwardingRenderer::clear(float r, float g, float b)
{
    target.clear(r, g, b);
}

zund::VertexArray ForwardingRenderer::genVertexArray(int flags, unsigned long indexes)
{
    return target.genVertexArray(flags, indexes);
}

zund::VertexArray ForwardingRenderer::createIndexedBuffer(const float* positions, unsigned long positionCount,
                                                          const unsigned int* indices,
                                                          unsigned long indexCount, const float* uvs,
                                                          unsigned long uvCount, const float* normals,
                                                          unsigned long normalCount, const float* tangents,
                                                          unsigned long tangentCount, const float* bitangents,
                                                          unsigned long bitangentCount)
{
    return target.createIndexedBuffer(positions, positionCount, indices, indexCount, uvs, uvCount, normals,
                                      normalCount, tangents, tangentCount, bitangents, bitangentCount);
}

zund::Shader ForwardingRenderer::createShader(zund::Shader::Type type, const char* source)
{
    return target.createShader(type, source);
}

zund::ShaderProgram ForwardingRenderer::createProgram(const zund::Shader& first, const zund::Shader& second,
                                                      const zund::Shader* third)
{
    return target.createProgram(first, second, third);
}

void ForwardingRenderer::deleteShader(zund::Shader& shader)
{
    target.deleteShader(shader);
}

void ForwardingRenderer::deleteProgram(zund::ShaderProgram& program)
{
    target.deleteProgram(program);
}

void ForwardingRenderer::deleteVertexArray(zund::VertexArray& vertexArray)
{
    target.deleteVertexArray(vertexArray);
}

void ForwardingRenderer::deleteBuffer(zund::VertexBuffer& buffer)
{
    target.deleteBuffer(buffer);
}

void ForwardingRenderer::deleteTexture(zund::Texture& texture)
{
    target.deleteTexture(texture);
}

void ForwardingRenderer::deleteRenderBuffer(zund::RenderBuffer& renderBuffer)
{
    target.deleteRenderBuffer(renderBuffer);
}

void ForwardingRenderer::deleteFrameBuffer(zund::FrameBuffer& frameBuffer)
{
    target.deleteFrameBuffer(frameBuffer);
}

void ForwardingRenderer::render(const std::vector<zund::DrawCommand>& commands)
{
    target.render(commands);
}

void ForwardingRenderer::finish()
{
    target.finish();
}

zund::Uniform ForwardingRenderer::getUniform(const zund::ShaderProgram& program, const std::string& name)
{
    return target.getUniform(program, name);
}

zund::Texture ForwardingRenderer::loadTextureDXT(int width, int height, const void* data)
{
    return target.loadTextureDXT(width, height, data);
}

zund::Texture ForwardingRenderer::createTexture2d(zund::TextureFormat format, int width, int height)
{
    return target.createTexture2d(format, width, height);
}

zund::Texture ForwardingRenderer::createTexture1d(int width)
{
    return target.createTexture1d(width);
}

void ForwardingRenderer::uploadTexture2d(zund::Texture& texture, int width, int height, const void* data)
{
    target.uploadTexture2d(texture, width, height, data);
}

void ForwardingRenderer::uploadTexture1d(zund::Texture& texture, int width, const void* data)
{
    target.uploadTexture1d(texture, width, data);
}

zund::Texture ForwardingRenderer::createCubemap()
{
    return target.createCubemap();
}

void ForwardingRenderer::uploadCubemap(zund::Texture& texture, int width, int height, const void** faces)
{
    target.uploadCubemap(texture, width, height, faces);
}

zund::RenderBuffer ForwardingRenderer::createRenderBuffer2d(int width, int height)
{
    return target.createRenderBuffer2d(width, height);
}

zund::FrameBuffer ForwardingRenderer::createFrameBuffer()
{
    return target.createFrameBuffer();
}

void ForwardingRenderer::framebufferTexture(zund::FrameBuffer frameBuffer, zund::Texture texture)
{
    target.framebufferTexture(frameBuffer, texture);
}

void ForwardingRenderer::framebufferRenderbuffer(zund::FrameBuffer frameBuffer,
                                                 zund::RenderBuffer renderBuffer)
{
    target.framebufferRenderbuffer(frameBuffer, renderBuffer);
}

} // namespace tools::renderers
