// The part of the renderer that makes geometry, shaders and programs, and deletes them.

#include "gl/exception.h"
#include "gl/renderer-impl.h"

#include <GL/glew.h>

namespace zund {

namespace {

constexpr std::size_t logSize = 2048; ///< characters of a driver's log that are kept

/// Uploads one attribute to a tight buffer of its own, for the vertex array that is bound.
void uploadAttribute(GLuint location, GLint components, GLuint buffer, const float* data, unsigned long count)
{
    glBindBuffer(GL_ARRAY_BUFFER, buffer);
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(count * sizeof(float)), data, GL_STATIC_DRAW);
    glVertexAttribPointer(location, components, GL_FLOAT, GL_FALSE, 0, nullptr);
    glEnableVertexAttribArray(location);
}

GLenum toGLType(Shader::Type type)
{
    switch (type) {
    case Shader::Fragment:
        return GL_FRAGMENT_SHADER;
    case Shader::Vertex:
        return GL_VERTEX_SHADER;
    case Shader::Geometry:
        return GL_GEOMETRY_SHADER;
    }
    return 0; // left for the driver to refuse
}

} // namespace

VertexArray RendererImpl::genVertexArray(int flags, unsigned long indexes)
{
    GLuint name = 0;
    glGenVertexArrays(1, &name);
    vertexArrays.push_back(name);
    return {static_cast<int>(name), flags, indexes};
}

unsigned int RendererImpl::genBuffer()
{
    GLuint name = 0;
    glGenBuffers(1, &name);
    buffers.push_back(name);
    return name;
}

VertexArray RendererImpl::createIndexedBuffer(const float* positions, unsigned long positionCount,
                                              const unsigned int* indices, unsigned long indexCount,
                                              const float* uvs, unsigned long uvCount, const float* normals,
                                              unsigned long normalCount, const float* tangents,
                                              unsigned long tangentCount, const float* bitangents,
                                              unsigned long bitangentCount)
{
    VertexArray vertexArray = genVertexArray(normals == nullptr ? 2 : 0, indexCount);

    const GLuint positionBuffer = genBuffer();
    const GLuint indexBuffer = genBuffer();
    const GLuint uvBuffer = genBuffer(); // without uvs it stays empty
    const GLuint normalBuffer = normals != nullptr ? genBuffer() : 0;
    const GLuint tangentBuffer = tangents != nullptr ? genBuffer() : 0;
    const GLuint bitangentBuffer = tangents != nullptr ? genBuffer() : 0;

    glBindVertexArray(static_cast<GLuint>(vertexArray.get()));
    uploadAttribute(0, 3, positionBuffer, positions, positionCount);
    if (uvs != nullptr) {
        uploadAttribute(1, 2, uvBuffer, uvs, uvCount);
    }
    if (normals != nullptr) {
        uploadAttribute(2, 3, normalBuffer, normals, normalCount);
    }
    if (tangents != nullptr) {
        uploadAttribute(3, 3, tangentBuffer, tangents, tangentCount);
        uploadAttribute(4, 3, bitangentBuffer, bitangents, bitangentCount);
    }
    // While the vertex array is bound, so that it keeps the index buffer.
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, indexBuffer);
    glBufferData(GL_ELEMENT_ARRAY_BUFFER, static_cast<GLsizeiptr>(indexCount * sizeof(unsigned int)), indices,
                 GL_STATIC_DRAW);
    glBindVertexArray(0);
    return vertexArray;
}

Shader RendererImpl::createShader(Shader::Type type, const char* source)
{
    const GLuint name = glCreateShader(toGLType(type));
    shaders.push_back(name);
    glShaderSource(name, 1, &source, nullptr);
    glCompileShader(name);
    GLint status = 0;
    glGetShaderiv(name, GL_COMPILE_STATUS, &status);
    std::string log(logSize, '\0');
    if (status == 1) {
        return Shader(static_cast<int>(name));
    }
    glGetShaderInfoLog(name, static_cast<GLsizei>(log.size() + 1), nullptr, log.data());
    throw Exception("shader compilation error:\n" + log + "\n");
}

ShaderProgram RendererImpl::createProgram(const Shader& first, const Shader& second, const Shader* third)
{
    const GLuint name = glCreateProgram();
    programs.push_back(name);
    glAttachShader(name, static_cast<GLuint>(first.get()));
    glAttachShader(name, static_cast<GLuint>(second.get()));
    if (third != nullptr) {
        glAttachShader(name, static_cast<GLuint>(third->get()));
    }
    glLinkProgram(name);
    GLint status = 0;
    glGetProgramiv(name, GL_LINK_STATUS, &status);
    std::string log(logSize, '\0');
    if (status == 1) {
        return ShaderProgram(static_cast<int>(name));
    }
    glGetProgramInfoLog(name, static_cast<GLsizei>(log.size() + 1), nullptr, log.data());
    throw Exception("program linking error:\n" + log + "\n");
}

void RendererImpl::deleteShader(Shader& shader)
{
    glDeleteShader(static_cast<GLuint>(shader.get()));
    shader = Shader();
}

void RendererImpl::deleteProgram(ShaderProgram& program)
{
    glDeleteProgram(static_cast<GLuint>(program.get()));
    program = ShaderProgram();
}

void RendererImpl::deleteVertexArray(VertexArray& vertexArray)
{
    const auto name = static_cast<GLuint>(vertexArray.get());
    // Of buffers: the array's own name stays in the list that the destructor deletes. Freed here, it could be
    // that of another array by then.
    glDeleteBuffers(1, &name);
    vertexArray = VertexArray();
}

void RendererImpl::deleteBuffer(VertexBuffer& buffer)
{
    const GLuint name = buffer.get();
    glDeleteBuffers(1, &name);
    buffer = VertexBuffer();
}

} // namespace zund
