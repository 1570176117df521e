#pragma once

#include "gl/draw-command.h"
#include "gl/framebuffer.h"
#include "gl/renderbuffer.h"
#include "gl/shader.h"
#include "gl/shaderprogram.h"
#include "gl/texture.h"
#include "gl/textureformat.h"
#include "gl/uniform.h"
#include "gl/vertex-array.h"
#include "gl/vertex-buffer.h"

#include <string>
#include <vector>

namespace zund {

/// Makes GL objects and plays draw commands. One thread: the one that holds the context.
///
/// Handles name what is made, and own nothing. A `delete...` resets the handle that it is given, and no copy
/// of it. Making shaders, programs, textures and framebuffers throws `zund::Exception` where the driver
/// objects; playing commands never looks.
class Renderer {
public:
    virtual ~Renderer() = default;

    /// Clears colour and depth of whatever framebuffer is bound. The colour stays set for later clear
    /// commands.
    virtual void clear(float r, float g, float b) = 0;

    /// An empty vertex array that will draw `indexes` indices.
    virtual VertexArray genVertexArray(int flags, unsigned long indexes) = 0;
    /// Uploads a mesh, one tight buffer an attribute. Counts are array elements (floats, indices), not
    /// vertices. `uvs`, `normals` and `tangents` may be null; `bitangents` come with `tangents`. The data may
    /// be freed after.
    virtual VertexArray createIndexedBuffer(const float* positions, unsigned long positionCount,
                                            const unsigned int* indices, unsigned long indexCount,
                                            const float* uvs, unsigned long uvCount, const float* normals,
                                            unsigned long normalCount, const float* tangents,
                                            unsigned long tangentCount, const float* bitangents,
                                            unsigned long bitangentCount) = 0;

    /// Throws "shader compilation error:\n" and the driver's log.
    virtual Shader createShader(Shader::Type type, const char* source) = 0;
    /// Links vertex, fragment and, if not null, geometry shader. Throws "program linking error:\n" and the
    /// log.
    virtual ShaderProgram createProgram(const Shader& first, const Shader& second, const Shader* third) = 0;

    virtual void deleteShader(Shader& shader) = 0;
    virtual void deleteProgram(ShaderProgram& program) = 0;
    virtual void deleteVertexArray(VertexArray& vertexArray) = 0;
    virtual void deleteBuffer(VertexBuffer& buffer) = 0;
    virtual void deleteTexture(Texture& texture) = 0;
    virtual void deleteRenderBuffer(RenderBuffer& renderBuffer) = 0;
    virtual void deleteFrameBuffer(FrameBuffer& frameBuffer) = 0;

    /// Plays the commands in order. Throws nothing; what the driver objects to goes to its debug output.
    virtual void render(const std::vector<DrawCommand>& commands) = 0;
    /// Waits for the driver to have done everything.
    virtual void finish() = 0;
    /// Location of a uniform; invalid if the program has none of that name. Not cached.
    virtual Uniform getUniform(const ShaderProgram& program, const std::string& name) = 0;

    /// A 2D texture from raw DXT1 blocks; `width` and `height` are multiples of 4. Repeats.
    /// Throws `std::runtime_error`, unlike the others.
    virtual Texture loadTextureDXT(int width, int height, const void* data) = 0;
    /// A 2D texture to draw into. Clamps to its edge.
    virtual Texture createTexture2d(TextureFormat format, int width, int height) = 0;
    /// A 1D texture of 16-bit floats. Clamps to its edge.
    virtual Texture createTexture1d(int width) = 0;
    /// Fills a 2D texture with 8-bit r, g, b.
    virtual void uploadTexture2d(Texture& texture, int width, int height, const void* data) = 0;
    /// Fills a 1D texture with floats.
    virtual void uploadTexture1d(Texture& texture, int width, const void* data) = 0;
    /// A cube map without storage.
    virtual Texture createCubemap() = 0;
    /// Fills the six faces, +X, -X, +Y, -Y, +Z, -Z, with raw DXT1 blocks.
    virtual void uploadCubemap(Texture& texture, int width, int height, const void** faces) = 0;

    /// A 16-bit depth buffer.
    virtual RenderBuffer createRenderBuffer2d(int width, int height) = 0;
    virtual FrameBuffer createFrameBuffer() = 0;
    /// Makes `texture` the colour of `frameBuffer`.
    virtual void framebufferTexture(FrameBuffer frameBuffer, Texture texture) = 0;
    /// Makes `renderBuffer` the depth of `frameBuffer`.
    virtual void framebufferRenderbuffer(FrameBuffer frameBuffer, RenderBuffer renderBuffer) = 0;
};

} // namespace zund
