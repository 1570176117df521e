#include "tests/support/recording_renderer.h"

#include <algorithm>
#include <fmt/format.h>

namespace {

template<typename Value>
std::vector<Value> copy(const Value* data, unsigned long count)
{
    return data == nullptr ? std::vector<Value>() : std::vector<Value>(data, data + count);
}

/// An attribute that may be missing: the number of its floats, or "null".
std::string attribute(const float* data, unsigned long count)
{
    if (data != nullptr) {
        return fmt::format("{}", count);
    }
    return count == 0 ? "null" : fmt::format("null of {}", count);
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
    zund::VertexArray made = NullRenderer::genVertexArray(flags, indexes);
    calls.push_back(fmt::format("genVertexArray({}, {}) = {}", flags, indexes, made.get()));
    return made;
}

zund::VertexArray RecordingRenderer::createIndexedBuffer(const float* positions, unsigned long positionCount,
                                                         const unsigned int* indices,
                                                         unsigned long indexCount, const float* uvs,
                                                         unsigned long uvCount, const float* normals,
                                                         unsigned long normalCount, const float* tangents,
                                                         unsigned long tangentCount, const float* bitangents,
                                                         unsigned long bitangentCount)
{
    zund::VertexArray made = NullRenderer::createIndexedBuffer(positions, positionCount, indices, indexCount,
                                                               uvs, uvCount, normals, normalCount, tangents,
                                                               tangentCount, bitangents, bitangentCount);
    calls.push_back(fmt::format("createIndexedBuffer({}, {}, {}, {}, {}, {}) = {}", positionCount, indexCount,
                                attribute(uvs, uvCount), attribute(normals, normalCount),
                                attribute(tangents, tangentCount), attribute(bitangents, bitangentCount),
                                made.get()));
    meshes.push_back({copy(positions, positionCount), copy(indices, indexCount), copy(uvs, uvCount),
                      copy(normals, normalCount), copy(tangents, tangentCount),
                      copy(bitangents, bitangentCount), made.get()});
    return made;
}

zund::Shader RecordingRenderer::createShader(zund::Shader::Type type, const char* source)
{
    zund::Shader made = NullRenderer::createShader(type, source);
    calls.push_back(fmt::format("createShader({}, {}) = {}", typeName(type), sourceName(source), made.get()));
    shaderSources[made.get()] = source;
    return made;
}

zund::ShaderProgram RecordingRenderer::createProgram(const zund::Shader& first, const zund::Shader& second,
                                                     const zund::Shader* third)
{
    zund::ShaderProgram made = NullRenderer::createProgram(first, second, third);
    calls.push_back(fmt::format("createProgram({}, {}, {}) = {}", first.get(), second.get(),
                                third != nullptr ? fmt::format("{}", third->get()) : "null", made.get()));
    programs[made.get()] = {shaderSources[first.get()], shaderSources[second.get()]};
    return made;
}

void RecordingRenderer::deleteShader(zund::Shader& shader)
{
    calls.push_back(fmt::format("deleteShader({})", shader.get()));
    shader = zund::Shader();
}

void RecordingRenderer::deleteProgram(zund::ShaderProgram& program)
{
    calls.push_back(fmt::format("deleteProgram({})", program.get()));
    program = zund::ShaderProgram();
}

void RecordingRenderer::deleteVertexArray(zund::VertexArray& vertexArray)
{
    calls.push_back(fmt::format("deleteVertexArray({})", vertexArray.get()));
    vertexArray = zund::VertexArray();
}

void RecordingRenderer::deleteBuffer(zund::VertexBuffer& buffer)
{
    calls.push_back(fmt::format("deleteBuffer({})", buffer.get()));
    buffer = zund::VertexBuffer();
}

void RecordingRenderer::deleteTexture(zund::Texture& texture)
{
    calls.push_back(fmt::format("deleteTexture({})", texture.get()));
    texture = zund::Texture();
}

void RecordingRenderer::deleteRenderBuffer(zund::RenderBuffer& renderBuffer)
{
    calls.push_back(fmt::format("deleteRenderBuffer({})", renderBuffer.get()));
    renderBuffer = zund::RenderBuffer();
}

void RecordingRenderer::deleteFrameBuffer(zund::FrameBuffer& frameBuffer)
{
    calls.push_back(fmt::format("deleteFrameBuffer({})", frameBuffer.get()));
    frameBuffer = zund::FrameBuffer();
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
    zund::Uniform found = name == withoutUniform ? zund::Uniform() : NullRenderer::getUniform(program, name);
    calls.push_back(fmt::format("getUniform({}, \"{}\") = {}", program.get(), name, found.get()));
    if (found.isValid()) {
        uniformNames[found.get()] = name;
    }
    return found;
}

zund::Texture RecordingRenderer::loadTextureDXT(int width, int height, const void* data)
{
    zund::Texture made = NullRenderer::loadTextureDXT(width, height, data);
    calls.push_back(fmt::format("loadTextureDXT({}, {}) = {}", width, height, made.get()));
    textures.push_back({made.get(), width, height, data});
    return made;
}

zund::Texture RecordingRenderer::createTexture2d(zund::TextureFormat format, int width, int height)
{
    zund::Texture made = NullRenderer::createTexture2d(format, width, height);
    calls.push_back(
        fmt::format("createTexture2d({}, {}, {}) = {}", formatName(format), width, height, made.get()));
    surfaces[made.get()] = fmt::format("{} {}x{}", formatName(format), width, height);
    return made;
}

zund::Texture RecordingRenderer::createTexture1d(int width)
{
    zund::Texture made = NullRenderer::createTexture1d(width);
    calls.push_back(fmt::format("createTexture1d({}) = {}", width, made.get()));
    return made;
}

void RecordingRenderer::uploadTexture2d(zund::Texture& texture, int width, int height, const void* data)
{
    calls.push_back(fmt::format("uploadTexture2d({}, {}, {})", texture.get(), width, height));
    uploads.push_back(data);
}

void RecordingRenderer::uploadTexture1d(zund::Texture& texture, int width, const void* data)
{
    calls.push_back(fmt::format("uploadTexture1d({}, {})", texture.get(), width));
    uploads.push_back(data);
}

zund::Texture RecordingRenderer::createCubemap()
{
    zund::Texture made = NullRenderer::createCubemap();
    calls.push_back(fmt::format("createCubemap() = {}", made.get()));
    return made;
}

void RecordingRenderer::uploadCubemap(zund::Texture& texture, int width, int height, const void** faces)
{
    calls.push_back(fmt::format("uploadCubemap({}, {}, {})", texture.get(), width, height));
    uploads.insert(uploads.end(), faces, faces + 6);
}

zund::RenderBuffer RecordingRenderer::createRenderBuffer2d(int width, int height)
{
    zund::RenderBuffer made = NullRenderer::createRenderBuffer2d(width, height);
    calls.push_back(fmt::format("createRenderBuffer2d({}, {}) = {}", width, height, made.get()));
    surfaces[made.get()] = fmt::format("depth {}x{}", width, height);
    return made;
}

zund::FrameBuffer RecordingRenderer::createFrameBuffer()
{
    zund::FrameBuffer made = NullRenderer::createFrameBuffer();
    calls.push_back(fmt::format("createFrameBuffer() = {}", made.get()));
    return made;
}

void RecordingRenderer::framebufferTexture(zund::FrameBuffer frameBuffer, zund::Texture texture)
{
    calls.push_back(fmt::format("framebufferTexture({}, {})", frameBuffer.get(), texture.get()));
    targets[frameBuffer.get()].color = texture.get();
}

void RecordingRenderer::framebufferRenderbuffer(zund::FrameBuffer frameBuffer,
                                                zund::RenderBuffer renderBuffer)
{
    calls.push_back(fmt::format("framebufferRenderbuffer({}, {})", frameBuffer.get(), renderBuffer.get()));
    targets[frameBuffer.get()].depth = renderBuffer.get();
}
