#include "tools/renderers/null_renderer.h"

#include <GL/gl.h>
#include <GL/glext.h>

namespace tools::renderers {

void NullRenderer::clear(float /*r*/, float /*g*/, float /*b*/) {}

zund::VertexArray NullRenderer::genVertexArray(int flags, unsigned long indexes)
{
    return {next(), flags, indexes};
}

zund::VertexArray NullRenderer::createIndexedBuffer(
    const float* /*positions*/, unsigned long /*positionCount*/, const unsigned int* /*indices*/,
    unsigned long indexCount, const float* /*uvs*/, unsigned long /*uvCount*/, const float* /*normals*/,
    unsigned long /*normalCount*/, const float* /*tangents*/, unsigned long /*tangentCount*/,
    const float* /*bitangents*/, unsigned long /*bitangentCount*/)
{
    return {next(), 0, indexCount};
}

zund::Shader NullRenderer::createShader(zund::Shader::Type /*type*/, const char* /*source*/)
{
    return zund::Shader(next());
}

zund::ShaderProgram NullRenderer::createProgram(const zund::Shader& /*first*/, const zund::Shader& /*second*/,
                                                const zund::Shader* /*third*/)
{
    return zund::ShaderProgram(next());
}

void NullRenderer::deleteShader(zund::Shader& /*shader*/) {}
void NullRenderer::deleteProgram(zund::ShaderProgram& /*program*/) {}
void NullRenderer::deleteVertexArray(zund::VertexArray& /*vertexArray*/) {}
void NullRenderer::deleteBuffer(zund::VertexBuffer& /*buffer*/) {}
void NullRenderer::deleteTexture(zund::Texture& /*texture*/) {}
void NullRenderer::deleteRenderBuffer(zund::RenderBuffer& /*renderBuffer*/) {}
void NullRenderer::deleteFrameBuffer(zund::FrameBuffer& /*frameBuffer*/) {}

void NullRenderer::render(const std::vector<zund::DrawCommand>& /*commands*/) {}
void NullRenderer::finish() {}

zund::Uniform NullRenderer::getUniform(const zund::ShaderProgram& /*program*/, const std::string& name)
{
    return name.empty() ? zund::Uniform() : zund::Uniform(next());
}

zund::Texture NullRenderer::loadTextureDXT(int /*width*/, int /*height*/, const void* /*data*/)
{
    return {next(), GL_TEXTURE_2D};
}

zund::Texture NullRenderer::createTexture2d(zund::TextureFormat /*format*/, int /*width*/, int /*height*/)
{
    return {next(), GL_TEXTURE_2D};
}

zund::Texture NullRenderer::createTexture1d(int /*width*/)
{
    return {next(), GL_TEXTURE_1D};
}
void NullRenderer::uploadTexture2d(zund::Texture& /*texture*/, int /*width*/, int /*height*/,
                                   const void* /*data*/)
{
}
void NullRenderer::uploadTexture1d(zund::Texture& /*texture*/, int /*width*/, const void* /*data*/) {}
zund::Texture NullRenderer::createCubemap()
{
    return {next(), GL_TEXTURE_CUBE_MAP};
}
void NullRenderer::uploadCubemap(zund::Texture& /*texture*/, int /*width*/, int /*height*/,
                                 const void** /*faces*/)
{
}
zund::RenderBuffer NullRenderer::createRenderBuffer2d(int /*width*/, int /*height*/)
{
    return zund::RenderBuffer(next());
}
zund::FrameBuffer NullRenderer::createFrameBuffer()
{
    return zund::FrameBuffer(next());
}
void NullRenderer::framebufferTexture(zund::FrameBuffer /*frameBuffer*/, zund::Texture /*texture*/) {}
void NullRenderer::framebufferRenderbuffer(zund::FrameBuffer /*frameBuffer*/,
                                           zund::RenderBuffer /*renderBuffer*/)
{
}

} // namespace tools::renderers
