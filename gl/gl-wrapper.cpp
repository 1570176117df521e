#include "gl/gl-wrapper.h"

#include <GL/glew.h>

namespace zund {

unsigned int GLWrapper::GetError()
{
    return glGetError();
}

void GLWrapper::DeleteShader(unsigned int shader)
{
    glDeleteShader(shader);
}

unsigned int GLWrapper::CreateShader(unsigned int type)
{
    return glCreateShader(type);
}

void GLWrapper::GenVertexArrays(int count, unsigned int* names)
{
    glGenVertexArrays(count, names);
}

void GLWrapper::DeleteVertexArrays(int count, const unsigned int* names)
{
    glDeleteVertexArrays(count, names);
}

void GLWrapper::BindVertexArray(unsigned int name)
{
    glBindVertexArray(name);
}

void GLWrapper::GenBuffers(int count, unsigned int* names)
{
    glGenBuffers(count, names);
}

void GLWrapper::DeleteBuffers(int count, const unsigned int* names)
{
    glDeleteBuffers(count, names);
}

void GLWrapper::BindBuffer(unsigned int target, unsigned int name)
{
    glBindBuffer(target, name);
}

void GLWrapper::BufferData(unsigned int target, long size, const void* data, unsigned int usage)
{
    glBufferData(target, size, data, usage);
}

void GLWrapper::VertexAttribPointer(unsigned int index, int components, unsigned int type,
                                    unsigned char normalized, int stride, const void* offset)
{
    glVertexAttribPointer(index, components, type, normalized, stride, offset);
}

void GLWrapper::EnableVertexAttribArray(unsigned int index)
{
    glEnableVertexAttribArray(index);
}

void GLWrapper::ClearColor(float r, float g, float b, float a)
{
    glClearColor(r, g, b, a);
}

void GLWrapper::Clear(unsigned int mask)
{
    glClear(mask);
}

void GLWrapper::Viewport(int x, int y, int width, int height)
{
    glViewport(x, y, width, height);
}

void GLWrapper::Enable(unsigned int capability)
{
    glEnable(capability);
}

const unsigned char* GLWrapper::ErrorString(unsigned int code)
{
    return gluErrorString(code);
}

} // namespace zund
