// The part of the renderer that makes textures, render buffers and framebuffers, and deletes them. Unlike
// drawing, each step looks for errors: these run while scenes are built.

#include "gl/error.h"
#include "gl/exception.h"
#include "gl/renderer-impl.h"

#include <GL/glew.h>

namespace zund {

namespace {

constexpr GLenum dxt1 = GL_COMPRESSED_RGB_S3TC_DXT1_EXT;

/// Bytes of a DXT1 image: blocks of 4 by 4 texels, 8 bytes each.
GLsizei dxtSize(int width, int height)
{
    return (width / 4) * (height / 4) * 8;
}

void failOnError(const char* text)
{
    if (glGetError() != GL_NO_ERROR) {
        throw Exception(text);
    }
}

void failIfInvalid(const Texture& texture)
{
    if (!texture.isValid()) {
        throw Exception("zund: texture is not valid");
    }
}

void setFiltersAndWraps(GLenum target, GLint wrap)
{
    glTexParameteri(target, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(target, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(target, GL_TEXTURE_WRAP_S, wrap);
    glTexParameteri(target, GL_TEXTURE_WRAP_T, wrap);
}

/// Generates a texture on unit 0 and leaves it bound.
GLuint bindNewTexture(GLenum target)
{
    GLuint name = 0;
    glActiveTexture(GL_TEXTURE0);
    glGenTextures(1, &name);
    glBindTexture(target, name);
    failOnError("zund: texture binding failed");
    return name;
}

void bindForUpload(const Texture& texture)
{
    glBindTexture(texture.getType(), static_cast<GLuint>(texture.get()));
    failOnError("zund: texture binding failed");
}

} // namespace

Texture RendererImpl::loadTextureDXT(int width, int height, const void* data)
{
    GLuint name = 0;
    glGenTextures(1, &name);
    glBindTexture(GL_TEXTURE_2D, name);
    setFiltersAndWraps(GL_TEXTURE_2D, GL_REPEAT);
    glCompressedTexImage2D(GL_TEXTURE_2D, 0, dxt1, width, height, 0, dxtSize(width, height), data);
    Error::CheckGLError("glCompressedTexImage2D");
    return {static_cast<int>(name), GL_TEXTURE_2D}; // and stays bound
}

Texture RendererImpl::createTexture2d(TextureFormat format, int width, int height)
{
    const GLint internalFormat = toGLFormat(format);
    const GLuint name = bindNewTexture(GL_TEXTURE_2D);
    setFiltersAndWraps(GL_TEXTURE_2D, GL_CLAMP_TO_EDGE);
    failOnError("zund: failed to set texture parameters");
    glTexImage2D(GL_TEXTURE_2D, 0, internalFormat, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    failOnError("zund: texture allocation failed");
    glBindTexture(GL_TEXTURE_2D, 0);
    return {static_cast<int>(name), GL_TEXTURE_2D};
}

Texture RendererImpl::createTexture1d(int width)
{
    const GLuint name = bindNewTexture(GL_TEXTURE_1D);
    setFiltersAndWraps(GL_TEXTURE_1D, GL_CLAMP_TO_EDGE);
    failOnError("zund: failed to set texture parameters");
    glTexImage1D(GL_TEXTURE_1D, 0, GL_R16F, width, 0, GL_RED, GL_FLOAT, nullptr);
    failOnError("zund: texture allocation failed");
    glBindTexture(GL_TEXTURE_1D, 0);
    return {static_cast<int>(name), GL_TEXTURE_1D};
}

void RendererImpl::uploadTexture2d(Texture& texture, int width, int height, const void* data)
{
    failIfInvalid(texture);
    bindForUpload(texture);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, width, height, 0, GL_RGB, GL_UNSIGNED_BYTE, data);
    failOnError("zund: texture upload failed");
    glBindTexture(texture.getType(), 0);
}

void RendererImpl::uploadTexture1d(Texture& texture, int width, const void* data)
{
    failIfInvalid(texture);
    bindForUpload(texture);
    glTexImage1D(GL_TEXTURE_1D, 0, GL_R16F, width, 0, GL_RED, GL_FLOAT, data);
    failOnError("zund: texture upload failed");
    glBindTexture(texture.getType(), 0);
}

Texture RendererImpl::createCubemap()
{
    const GLuint name = bindNewTexture(GL_TEXTURE_CUBE_MAP);
    setFiltersAndWraps(GL_TEXTURE_CUBE_MAP, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_CUBE_MAP, GL_TEXTURE_WRAP_R, GL_CLAMP_TO_EDGE);
    failOnError("zund: failed to set texture parameters");
    glBindTexture(GL_TEXTURE_CUBE_MAP, 0);
    return {static_cast<int>(name), GL_TEXTURE_CUBE_MAP};
}

void RendererImpl::uploadCubemap(Texture& texture, int width, int height, const void** faces)
{
    failIfInvalid(texture);
    if (texture.getType() != GL_TEXTURE_CUBE_MAP) {
        throw Exception("zund: not a cube map!");
    }
    bindForUpload(texture);
    const GLsizei size = dxtSize(width, height);
    for (GLenum i = 0; i < 6; ++i) {
        glCompressedTexImage2D(GL_TEXTURE_CUBE_MAP_POSITIVE_X + i, 0, dxt1, width, height, 0, size, faces[i]);
        failOnError("zund: texture upload failed");
    }
    glBindTexture(GL_TEXTURE_CUBE_MAP, 0);
}

RenderBuffer RendererImpl::createRenderBuffer2d(int width, int height)
{
    GLuint name = 0;
    glGenRenderbuffers(1, &name);
    glBindRenderbuffer(GL_RENDERBUFFER, name);
    failOnError("zund: failed to bind renderbuffer");
    glRenderbufferStorage(GL_RENDERBUFFER, GL_DEPTH_COMPONENT16, width, height);
    failOnError("zund: failed to allocate renderbuffer");
    glBindRenderbuffer(GL_RENDERBUFFER, 0);
    return RenderBuffer(static_cast<int>(name));
}

FrameBuffer RendererImpl::createFrameBuffer()
{
    GLuint name = 0;
    glGenFramebuffers(1, &name);
    return FrameBuffer(static_cast<int>(name));
}

void RendererImpl::framebufferTexture(FrameBuffer frameBuffer, Texture texture)
{
    glBindFramebuffer(GL_FRAMEBUFFER, static_cast<GLuint>(frameBuffer.get()));
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D,
                           static_cast<GLuint>(texture.get()), 0);
    failOnError("zund: failed to bind framebuffer texture");
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
}

void RendererImpl::framebufferRenderbuffer(FrameBuffer frameBuffer, RenderBuffer renderBuffer)
{
    glBindFramebuffer(GL_FRAMEBUFFER, static_cast<GLuint>(frameBuffer.get()));
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER,
                              static_cast<GLuint>(renderBuffer.get()));
    failOnError("zund: failed to bind framebuffer renderbuffer");
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
}

void RendererImpl::deleteTexture(Texture& texture)
{
    const auto name = static_cast<GLuint>(texture.get());
    glDeleteTextures(1, &name);
    texture = Texture();
}

void RendererImpl::deleteRenderBuffer(RenderBuffer& renderBuffer)
{
    const auto name = static_cast<GLuint>(renderBuffer.get());
    glDeleteRenderbuffers(1, &name);
    renderBuffer = RenderBuffer();
}

void RendererImpl::deleteFrameBuffer(FrameBuffer& frameBuffer)
{
    const auto name = static_cast<GLuint>(frameBuffer.get());
    glDeleteFramebuffers(1, &name);
    frameBuffer = FrameBuffer();
}

} // namespace zund
