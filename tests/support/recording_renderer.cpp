#include "tests/support/recording_renderer.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <algorithm>
#include <fmt/format.h>

namespace {

template<typename Value>
std::vector<Value> copy(const Value* data, unsigned long count)
{
    return data == nullptr ? std::vector<Value>() : std::vector<Value>(data, data + count);
}

const char* typeName(zund::Shader::Type type)
{
    switch (type) {
    case zund::Shader::Fragment:
        return "fragment";
    case zund::Shader::Vertex:
        return "vertex";
    case zund::Shader::Geometry:
        return "geometry";
    }
    return "unknown";
}

const char* formatName(zund::TextureFormat format)
{
    switch (format) {
    case zund::TextureFormat::None:
        return "None";
    case zund::TextureFormat::RGB8:
        return "RGB8";
    case zund::TextureFormat::RGB16F:
        return "RGB16F";
    }
    return "unknown";
}

} // namespace

std::string RecordingRenderer::nameOf(const zund::Uniform& uniform) const
{
    const auto found = uniformNames.find(uniform.get());
    return found != uniformNames.end() ? found->second : "(none)";
}

std::string RecordingRenderer::sourceName(const std::string& source)
{
    auto found = std::find(sources.begin(), sources.end(), source);
    if (found == sources.end()) {
        found = sources.insert(sources.end(), source);
    }
    return fmt::format("source {}", found - sources.begin() + 1);
}

void RecordingRenderer::clear(float r, float g, float b)
{
    calls.push_back(fmt::format("clear({}, {}, {})", r, g, b));
}

zund::VertexArray RecordingRenderer::genVertexArray(int flags, unsigned long indexes)
{
    const int id = next();
    calls.push_back(fmt::format("genVertexArray({}, {}) = {}", flags, indexes, id));
    return {id, flags, indexes};
}

zund::VertexArray RecordingRenderer::createIndexedBuffer(const float* positions, unsigned long positionCount,
                                                         const unsigned int* indices,
                                                         unsigned long indexCount, const float* uvs,
                                                         unsigned long uvCount, const float* normals,
                                                         unsigned long normalCount, const float* tangents,
                                                         unsigned long tangentCount, const float* bitangents,
                                                         unsigned long bitangentCount)
{
    const int id = next();
    calls.push_back(fmt::format("createIndexedBuffer({}, {}, {}, {}, {}, {}) = {}", positionCount, indexCount,
                                uvCount, normalCount, tangentCount, bitangentCount, id));
    meshes.push_back({copy(positions, positionCount), copy(indices, indexCount), copy(uvs, uvCount),
                      copy(normals, normalCount), copy(tangents, tangentCount),
                      copy(bitangents, bitangentCount), id});
    return {id, 0, indexCount};
}

zund::Shader RecordingRenderer::createShader(zund::Shader::Type type, const char* source)
{
    const int id = next();
    calls.push_back(fmt::format("createShader({}, {}) = {}", typeName(type), sourceName(source), id));
    shaderSources[id] = source;
    return zund::Shader(id);
}

zund::ShaderProgram RecordingRenderer::createProgram(const zund::Shader& first, const zund::Shader& second,
                                                     const zund::Shader* third)
{
    const int id = next();
    calls.push_back(fmt::format("createProgram({}, {}, {}) = {}", first.get(), second.get(),
                                third != nullptr ? fmt::format("{}", third->get()) : "null", id));
    programs[id] = {shaderSources[first.get()], shaderSources[second.get()]};
    return zund::ShaderProgram(id);
}

void RecordingRenderer::deleteShader(zund::Shader& shader)
{
    calls.push_back(fmt::format("deleteShader({})", shader.get()));
}

void RecordingRenderer::deleteProgram(zund::ShaderProgram& program)
{
    calls.push_back(fmt::format("deleteProgram({})", program.get()));
}

void RecordingRenderer::deleteVertexArray(zund::VertexArray& vertexArray)
{
    calls.push_back(fmt::format("deleteVertexArray({})", vertexArray.get()));
}

void RecordingRenderer::deleteBuffer(zund::VertexBuffer& buffer)
{
    calls.push_back(fmt::format("deleteBuffer({})", buffer.get()));
}

void RecordingRenderer::deleteTexture(zund::Texture& texture)
{
    calls.push_back(fmt::format("deleteTexture({})", texture.get()));
}

void RecordingRenderer::deleteRenderBuffer(zund::RenderBuffer& renderBuffer)
{
    calls.push_back(fmt::format("deleteRenderBuffer({})", renderBuffer.get()));
}

void RecordingRenderer::deleteFrameBuffer(zund::FrameBuffer& frameBuffer)
{
    calls.push_back(fmt::format("deleteFrameBuffer({})", frameBuffer.get()));
}

void RecordingRenderer::render(const std::vector<zund::DrawCommand>& commands)
{
    calls.push_back(fmt::format("render({} commands)", commands.size()));
    frames.push_back(commands);
}

void RecordingRenderer::finish()
{
    calls.emplace_back("finish()");
}

zund::Uniform RecordingRenderer::getUniform(const zund::ShaderProgram& program, const std::string& name)
{
    const int id = name.empty() || name == withoutUniform ? -1 : next();
    calls.push_back(fmt::format("getUniform({}, \"{}\") = {}", program.get(), name, id));
    if (id != -1) {
        uniformNames[id] = name;
    }
    return zund::Uniform(id);
}

zund::Texture RecordingRenderer::loadTextureDXT(int width, int height, const void* data)
{
    const int id = next();
    calls.push_back(fmt::format("loadTextureDXT({}, {}) = {}", width, height, id));
    textures.push_back({id, width, height, data});
    return {id, GL_TEXTURE_2D};
}

zund::Texture RecordingRenderer::createTexture2d(zund::TextureFormat format, int width, int height)
{
    const int id = next();
    calls.push_back(fmt::format("createTexture2d({}, {}, {}) = {}", formatName(format), width, height, id));
    return {id, GL_TEXTURE_2D};
}

zund::Texture RecordingRenderer::createTexture1d(int width)
{
    const int id = next();
    calls.push_back(fmt::format("createTexture1d({}) = {}", width, id));
    return {id, GL_TEXTURE_1D};
}

void RecordingRenderer::uploadTexture2d(zund::Texture& texture, int width, int height, const void* /*data*/)
{
    calls.push_back(fmt::format("uploadTexture2d({}, {}, {})", texture.get(), width, height));
}

void RecordingRenderer::uploadTexture1d(zund::Texture& texture, int width, const void* /*data*/)
{
    calls.push_back(fmt::format("uploadTexture1d({}, {})", texture.get(), width));
}

zund::Texture RecordingRenderer::createCubemap()
{
    const int id = next();
    calls.push_back(fmt::format("createCubemap() = {}", id));
    return {id, GL_TEXTURE_CUBE_MAP};
}

void RecordingRenderer::uploadCubemap(zund::Texture& texture, int width, int height, const void** /*faces*/)
{
    calls.push_back(fmt::format("uploadCubemap({}, {}, {})", texture.get(), width, height));
}

zund::RenderBuffer RecordingRenderer::createRenderBuffer2d(int width, int height)
{
    const int id = next();
    calls.push_back(fmt::format("createRenderBuffer2d({}, {}) = {}", width, height, id));
    return zund::RenderBuffer(id);
}

zund::FrameBuffer RecordingRenderer::createFrameBuffer()
{
    const int id = next();
    calls.push_back(fmt::format("createFrameBuffer() = {}", id));
    return zund::FrameBuffer(id);
}

void RecordingRenderer::framebufferTexture(zund::FrameBuffer frameBuffer, zund::Texture texture)
{
    calls.push_back(fmt::format("framebufferTexture({}, {})", frameBuffer.get(), texture.get()));
}

void RecordingRenderer::framebufferRenderbuffer(zund::FrameBuffer frameBuffer,
                                                zund::RenderBuffer renderBuffer)
{
    calls.push_back(fmt::format("framebufferRenderbuffer({}, {})", frameBuffer.get(), renderBuffer.get()));
}
