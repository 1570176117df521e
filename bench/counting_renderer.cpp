#include "bench/counting_renderer.h"

#include <GL/gl.h>
#include <GL/glext.h>

void CountingRenderer::clear(float /*r*/, float /*g*/, float /*b*/) {}

zund::VertexArray CountingRenderer::genVertexArray(int flags, unsigned long indexes)
{
    return {next(), flags, indexes};
}

zund::VertexArray CountingRenderer::createIndexedBuffer(
    const float* /*positions*/, unsigned long /*positionCount*/, const unsigned int* /*indices*/,
    unsigned long indexCount, const float* /*uvs*/, unsigned long /*uvCount*/, const float* /*normals*/,
    unsigned long /*normalCount*/, const float* /*tangents*/, unsigned long /*tangentCount*/,
    const float* /*bitangents*/, unsigned long /*bitangentCount*/)
{
    return {next(), 0, indexCount};
}

zund::Shader CountingRenderer::createShader(zund::Shader::Type /*type*/, const char* /*source*/)
{
    return zund::Shader(next());
}

zund::ShaderProgram CountingRenderer::createProgram(const zund::Shader& /*first*/,
                                                    const zund::Shader& /*second*/,
                                                    const zund::Shader* /*third*/)
{
    return zund::ShaderProgram(next());
}

void CountingRenderer::deleteShader(zund::Shader& /*shader*/) {}
void CountingRenderer::deleteProgram(zund::ShaderProgram& /*program*/) {}
void CountingRenderer::deleteVertexArray(zund::VertexArray& /*vertexArray*/) {}
void CountingRenderer::deleteBuffer(zund::VertexBuffer& /*buffer*/) {}
void CountingRenderer::deleteTexture(zund::Texture& /*texture*/) {}
void CountingRenderer::deleteRenderBuffer(zund::RenderBuffer& /*renderBuffer*/) {}
void CountingRenderer::deleteFrameBuffer(zund::FrameBuffer& /*frameBuffer*/) {}

void CountingRenderer::render(const std::vector<zund::DrawCommand>& list)
{
    commands += list.size();
}

void CountingRenderer::finish() {}

zund::Uniform CountingRenderer::getUniform(const zund::ShaderProgram& /*program*/, const std::string& name)
{
    return name.empty() ? zund::Uniform() : zund::Uniform(next());
}

zund::Texture CountingRenderer::loadTextureDXT(int /*width*/, int /*height*/, const void* /*data*/)
{
    return {next(), GL_TEXTURE_2D};
}

zund::Texture CountingRenderer::createTexture2d(zund::TextureFormat /*format*/, int /*width*/, int /*height*/)
{
    return {next(), GL_TEXTURE_2D};
}

zund::Texture CountingRenderer::createTexture1d(int /*width*/)
{
    return {next(), GL_TEXTURE_1D};
}
void CountingRenderer::uploadTexture2d(zund::Texture& /*texture*/, int /*width*/, int /*height*/,
                                       const void* /*data*/)
{
}
void CountingRenderer::uploadTexture1d(zund::Texture& /*texture*/, int /*width*/, const void* /*data*/) {}
zund::Texture CountingRenderer::createCubemap()
{
    return {next(), GL_TEXTURE_CUBE_MAP};
}
void CountingRenderer::uploadCubemap(zund::Texture& /*texture*/, int /*width*/, int /*height*/,
                                     const void** /*faces*/)
{
}
zund::RenderBuffer CountingRenderer::createRenderBuffer2d(int /*width*/, int /*height*/)
{
    return zund::RenderBuffer(next());
}
zund::FrameBuffer CountingRenderer::createFrameBuffer()
{
    return zund::FrameBuffer(next());
}
void CountingRenderer::framebufferTexture(zund::FrameBuffer /*frameBuffer*/, zund::Texture /*texture*/) {}
void CountingRenderer::framebufferRenderbuffer(zund::FrameBuffer /*frameBuffer*/,
                                               zund::RenderBuffer /*renderBuffer*/)
{
}
