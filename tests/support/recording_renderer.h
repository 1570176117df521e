#pragma once

#include "tools/renderers/null_renderer.h"

#include <map>
#include <string>
#include <vector>

/// A renderer that makes nothing and writes everything down. A call reads
/// "createTexture2d(RGB16F, 320, 200) = 5". Shader texts are kept whole, and stand in calls by the order of
/// their first appearance: "source 1". An attribute of a mesh is the number of its floats, "null" without
/// any. A delete resets its handle.
class RecordingRenderer : public tools::renderers::NullRenderer {
public:
    /// A mesh as `createIndexedBuffer` got it; what was null is empty.
    struct Mesh {
        std::vector<float> positions;
        std::vector<unsigned int> indices;
        std::vector<float> uvs;
        std::vector<float> normals;
        std::vector<float> tangents;
        std::vector<float> bitangents;
        int id = 0; ///< of the vertex array
    };
    /// What a program was linked of.
    struct Program {
        std::string vertexSource;
        std::string fragmentSource;
    };
    struct Texture {
        int id;
        int width;
        int height;
        const void* data;
    };
    /// What a framebuffer draws into, by handle.
    struct Target {
        int color = 0;
        int depth = 0;
    };

    std::vector<std::string> calls;
    std::vector<std::string> sources;                   ///< each text once
    std::vector<Mesh> meshes;                           ///< in order of `createIndexedBuffer`
    std::vector<Texture> textures;                      ///< in order of `loadTextureDXT`
    std::vector<const void*> uploads;                   ///< the data of each upload; six for a cube map
    std::map<int, Program> programs;                    ///< by handle; the first two shaders of each
    std::map<int, Target> targets;                      ///< by handle of the framebuffer
    std::map<int, std::string> surfaces;                ///< "RGB16F 320x200" by handle of what is drawn into
    std::map<int, std::string> uniformNames;            ///< by location
    std::vector<std::vector<zund::DrawCommand>> frames; ///< the lists given to `render`
    std::string withoutUniform;                         ///< a name that no program knows

    std::vector<std::string> take() { return std::exchange(calls, {}); }
    /// Name of the uniform at a location; "(none)" for an invalid one.
    std::string nameOf(const zund::Uniform& uniform) const;

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
    std::string sourceName(const std::string& source);

    std::map<int, std::string> shaderSources; ///< by handle
};
