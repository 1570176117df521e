#include "gl/renderer-impl.h"

#include "gl/exception.h"

#include <GL/glew.h>
#include <SDL.h>
#include <cstdio>
#include <glm/gtc/type_ptr.hpp>

namespace zund {

namespace {

constexpr GLbitfield colorAndDepth = GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT;

/// Sends a value to a location of the program in use.
struct ApplyUniform {
    GLint location;

    void operator()(float value) const { glUniform1f(location, value); }
    void operator()(int value) const { glUniform1i(location, value); }
    void operator()(bool value) const { glUniform1i(location, value ? 1 : 0); }
    void operator()(const glm::vec2& value) const { glUniform2f(location, value.x, value.y); }
    void operator()(const glm::vec3& value) const { glUniform3f(location, value.x, value.y, value.z); }
    void operator()(const glm::vec4& value) const
    {
        glUniform4f(location, value.x, value.y, value.z, value.w);
    }
    void operator()(const glm::mat4& value) const
    {
        glUniformMatrix4fv(location, 1, GL_FALSE, glm::value_ptr(value));
    }
};

/// Sends an array: floats in one call, vectors one call an element, at locations that follow one another.
struct ApplyUniformArray {
    GLint location;

    void operator()(const std::vector<float>& values) const
    {
        glUniform1fv(location, static_cast<GLsizei>(values.size()), values.data());
    }
    void operator()(const std::vector<glm::vec2>& values) const
    {
        for (std::size_t i = 0; i < values.size(); ++i) {
            glUniform2fv(elementLocation(i), 1, glm::value_ptr(values[i]));
        }
    }
    void operator()(const std::vector<glm::vec3>& values) const
    {
        for (std::size_t i = 0; i < values.size(); ++i) {
            glUniform3fv(elementLocation(i), 1, glm::value_ptr(values[i]));
        }
    }
    void operator()(const std::vector<glm::vec4>& values) const
    {
        for (std::size_t i = 0; i < values.size(); ++i) {
            glUniform4fv(elementLocation(i), 1, glm::value_ptr(values[i]));
        }
    }

    GLint elementLocation(std::size_t i) const { return location + static_cast<GLint>(i); }
};

GLuint nameOf(const Resource& resource)
{
    return static_cast<GLuint>(resource.get());
}

} // namespace

RendererImpl::RendererImpl(SDL_Window* window, bool depthTest) : depthTest(depthTest)
{
    context = SDL_GL_CreateContext(window);
    if (context == nullptr) {
        throw Exception(std::string("zund: failed to create gl context: ") + SDL_GetError());
    }
    initGlew();
    // The context's debug flag is what turns the output on.
    glDebugMessageCallback(errorCallback, nullptr);
    SDL_GL_SetSwapInterval(1);
}

void RendererImpl::initGlew()
{
    glewExperimental = GL_TRUE;
    const GLenum result = glewInit();
    // Where the context doesn't come from GLX, GLEW misses its display, having loaded all entry points.
    if ((result & ~static_cast<GLenum>(GLEW_ERROR_NO_GLX_DISPLAY)) != GLEW_OK) {
        const auto* text = reinterpret_cast<const char*>(glewGetErrorString(result));
        throw Exception(std::string("zund: glewInit failed: ") + text);
    }
    // GLEW leaves errors of this kind behind. The one that ends the loop is dropped as well.
    while (glGetError() == GL_INVALID_ENUM) {
    }
    if (glGetError() != GL_NO_ERROR) {
        throw Exception("zund: GLEW initialization failed");
    }
}

RendererImpl::~RendererImpl()
{
    glDeleteVertexArrays(static_cast<GLsizei>(vertexArrays.size()), vertexArrays.data());
    glDeleteBuffers(static_cast<GLsizei>(buffers.size()), buffers.data());
    for (const unsigned int shader : shaders) {
        glDeleteShader(shader);
    }
    // Programs go with the context.
    SDL_GL_DeleteContext(context);
}

void RendererImpl::errorCallback(unsigned int /*source*/, unsigned int /*type*/, unsigned int /*id*/,
                                 unsigned int /*severity*/, int /*length*/, const char* message,
                                 const void* /*userParam*/)
{
    std::fprintf(stderr, "OpenGL Debug: %s\n", message);
}

void RendererImpl::clear(float r, float g, float b)
{
    glClearColor(r, g, b, 1.0F);
    glClear(colorAndDepth);
}

void RendererImpl::render(const std::vector<DrawCommand>& commands)
{
    for (const DrawCommand& command : commands) {
        render(command);
    }
}

void RendererImpl::render(const DrawCommand& command)
{
    if (depthTest) {
        glEnable(GL_DEPTH_TEST);
    }
    const bool offScreen = command.frameBuffer.isValid();
    glBindFramebuffer(GL_FRAMEBUFFER, offScreen ? nameOf(command.frameBuffer) : 0);
    if (command.clear) {
        glClear(colorAndDepth);
        return;
    }
    if (!command.vertexArray.isValid()) {
        return;
    }
    glDepthMask(command.depthWrite ? GL_TRUE : GL_FALSE);
    for (const auto& [uniform, value] : command.uniforms) {
        setUniformValue(command.program, uniform, value);
    }
    for (const auto& [uniform, value] : command.uniformArrays) {
        setUniformArrayValue(command.program, uniform, value);
    }
    glUseProgram(nameOf(command.program));
    for (std::size_t unit = 0; unit < command.textures.size(); ++unit) {
        const Texture& texture = command.textures[unit];
        if (texture.isValid()) {
            glActiveTexture(static_cast<GLenum>(GL_TEXTURE0 + unit));
            glBindTexture(texture.getType(), nameOf(texture));
        }
    }
    glBindVertexArray(nameOf(command.vertexArray));
    glDrawElements(GL_TRIANGLES, static_cast<GLsizei>(command.vertexArray.getIndexes()), GL_UNSIGNED_INT,
                   nullptr);
    glBindVertexArray(0);
    for (std::size_t unit = 0; unit < command.textures.size(); ++unit) {
        const Texture& texture = command.textures[unit];
        if (texture.isValid()) {
            glActiveTexture(static_cast<GLenum>(GL_TEXTURE0 + unit));
            glBindTexture(texture.getType(), 0);
        }
    }
    glUseProgram(0);
    glDepthMask(GL_TRUE); // or a later clear would leave the depth as it is
    if (offScreen) {
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
    }
}

void RendererImpl::setUniformValue(const ShaderProgram& program, Uniform uniform, const UniformValue& value)
{
    if (!uniform.isValid()) {
        return;
    }
    glUseProgram(nameOf(program));
    std::visit(ApplyUniform{uniform.get()}, value);
    glUseProgram(0);
}

void RendererImpl::setUniformArrayValue(const ShaderProgram& program, Uniform uniform,
                                        const UniformArrayValue& value)
{
    if (!uniform.isValid()) {
        return;
    }
    glUseProgram(nameOf(program));
    std::visit(ApplyUniformArray{uniform.get()}, value);
    glUseProgram(0);
}

void RendererImpl::finish()
{
    glFinish();
}

Uniform RendererImpl::getUniform(const ShaderProgram& program, const std::string& name)
{
    return Uniform(glGetUniformLocation(nameOf(program), name.c_str()));
}

} // namespace zund
