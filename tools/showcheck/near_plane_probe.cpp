#include "tools/showcheck/near_plane_probe.h"

#include "tools/common/error.h"

#include <GL/glew.h>
#include <algorithm>
#include <fmt/format.h>
#include <limits>

namespace tools {

namespace {

constexpr int cornersOfATriangle = 3;

/// Items of a scene write depths, backdrops and post passes don't.
bool isItem(const zund::DrawCommand& command)
{
    return !command.clear && command.depthWrite;
}

/// No model is a single triangle, every picture over the whole frame is.
bool isTextLayer(const zund::DrawCommand& command)
{
    return isItem(command) && command.vertexArray.getIndexes() == cornersOfATriangle;
}

} // namespace

FrameParts splitFrame(const std::vector<zund::DrawCommand>& commands)
{
    const auto endOfItems = std::find_if(commands.rbegin(), commands.rend(), isItem).base();
    FrameParts parts;
    std::copy_if(commands.begin(), endOfItems, std::back_inserter(parts.models),
                 [](const zund::DrawCommand& command) { return !isTextLayer(command); });
    std::copy_if(commands.begin(), endOfItems, std::back_inserter(parts.rest), isTextLayer);
    parts.rest.insert(parts.rest.end(), endOfItems, commands.end());
    return parts;
}

NearPlaneProbe::NearPlaneProbe(zund::Renderer& inner, Size size)
    : inner(inner),
      size(size),
      depthRows(std::size_t{size.width} * size.height, std::numeric_limits<std::uint16_t>::max())
{
}

void NearPlaneProbe::render(const std::vector<zund::DrawCommand>& commands)
{
    const FrameParts parts = splitFrame(commands);
    const auto item = std::find_if(parts.models.begin(), parts.models.end(), isItem);
    if (item == parts.models.end()) {
        std::fill(depthRows.begin(), depthRows.end(), std::numeric_limits<std::uint16_t>::max());
        inner.render(commands);
        return;
    }
    // Behind the far plane it makes no difference: the cleared depth is as far, and wins.
    glEnable(GL_DEPTH_CLAMP);
    inner.render(parts.models);
    glDisable(GL_DEPTH_CLAMP);
    readDepths(item->frameBuffer);
    if (std::find(depthRows.begin(), depthRows.end(), 0) != depthRows.end()) {
        inner.render(parts.models); // once more, cut open as viewers see it
    }
    inner.render(parts.rest);
}

void NearPlaneProbe::readDepths(zund::FrameBuffer frameBuffer)
{
    glBindFramebuffer(GL_READ_FRAMEBUFFER, static_cast<GLuint>(frameBuffer.get()));
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, static_cast<GLsizei>(size.width), static_cast<GLsizei>(size.height),
                 GL_DEPTH_COMPONENT, GL_UNSIGNED_SHORT, depthRows.data());
    glBindFramebuffer(GL_READ_FRAMEBUFFER, 0);
    const GLenum error = glGetError();
    if (error != GL_NO_ERROR) {
        throw Error("showcheck",
                    fmt::format("cannot read the depths of a frame: OpenGL error 0x{:X}", error));
    }
}

zund::VertexArray NearPlaneProbe::genVertexArray(int flags, unsigned long indexes)
{
    return inner.genVertexArray(flags, indexes);
}

zund::VertexArray NearPlaneProbe::createIndexedBuffer(const float* positions, unsigned long positionCount,
                                                      const unsigned int* indices, unsigned long indexCount,
                                                      const float* uvs, unsigned long uvCount,
                                                      const float* normals, unsigned long normalCount,
                                                      const float* tangents, unsigned long tangentCount,
                                                      const float* bitangents, unsigned long bitangentCount)
{
    return inner.createIndexedBuffer(positions, positionCount, indices, indexCount, uvs, uvCount, normals,
                                     normalCount, tangents, tangentCount, bitangents, bitangentCount);
}

zund::Shader NearPlaneProbe::createShader(zund::Shader::Type type, const char* source)
{
    return inner.createShader(type, source);
}

zund::ShaderProgram NearPlaneProbe::createProgram(const zund::Shader& first, const zund::Shader& second,
                                                  const zund::Shader* third)
{
    return inner.createProgram(first, second, third);
}

void NearPlaneProbe::deleteShader(zund::Shader& shader)
{
    inner.deleteShader(shader);
}

void NearPlaneProbe::deleteProgram(zund::ShaderProgram& program)
{
    inner.deleteProgram(program);
}

void NearPlaneProbe::deleteVertexArray(zund::VertexArray& vertexArray)
{
    inner.deleteVertexArray(vertexArray);
}

void NearPlaneProbe::deleteBuffer(zund::VertexBuffer& buffer)
{
    inner.deleteBuffer(buffer);
}

void NearPlaneProbe::deleteTexture(zund::Texture& texture)
{
    inner.deleteTexture(texture);
}

void NearPlaneProbe::deleteRenderBuffer(zund::RenderBuffer& renderBuffer)
{
    inner.deleteRenderBuffer(renderBuffer);
}

void NearPlaneProbe::deleteFrameBuffer(zund::FrameBuffer& frameBuffer)
{
    inner.deleteFrameBuffer(frameBuffer);
}

void NearPlaneProbe::finish()
{
    inner.finish();
}

zund::Uniform NearPlaneProbe::getUniform(const zund::ShaderProgram& program, const std::string& name)
{
    return inner.getUniform(program, name);
}

zund::Texture NearPlaneProbe::loadTextureDXT(int width, int height, const void* data)
{
    return inner.loadTextureDXT(width, height, data);
}

zund::Texture NearPlaneProbe::createTexture2d(zund::TextureFormat format, int width, int height)
{
    return inner.createTexture2d(format, width, height);
}

zund::Texture NearPlaneProbe::createTexture1d(int width)
{
    return inner.createTexture1d(width);
}

void NearPlaneProbe::uploadTexture2d(zund::Texture& texture, int width, int height, const void* data)
{
    inner.uploadTexture2d(texture, width, height, data);
}

void NearPlaneProbe::uploadTexture1d(zund::Texture& texture, int width, const void* data)
{
    inner.uploadTexture1d(texture, width, data);
}

zund::Texture NearPlaneProbe::createCubemap()
{
    return inner.createCubemap();
}

void NearPlaneProbe::uploadCubemap(zund::Texture& texture, int width, int height, const void** faces)
{
    inner.uploadCubemap(texture, width, height, faces);
}

zund::RenderBuffer NearPlaneProbe::createRenderBuffer2d(int width, int height)
{
    return inner.createRenderBuffer2d(width, height);
}

zund::FrameBuffer NearPlaneProbe::createFrameBuffer()
{
    return inner.createFrameBuffer();
}

void NearPlaneProbe::framebufferTexture(zund::FrameBuffer frameBuffer, zund::Texture texture)
{
    inner.framebufferTexture(frameBuffer, texture);
}

void NearPlaneProbe::framebufferRenderbuffer(zund::FrameBuffer frameBuffer, zund::RenderBuffer renderBuffer)
{
    inner.framebufferRenderbuffer(frameBuffer, renderBuffer);
}

} // namespace tools
