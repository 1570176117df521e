#pragma once

namespace zund {

/// The entry points of OpenGL by their own names, less the prefix, as a table that can be replaced.
class GLInterface {
public:
    virtual ~GLInterface() = default;
    virtual unsigned int GetError() = 0;
    virtual void DeleteShader(unsigned int shader) = 0;
    virtual unsigned int CreateShader(unsigned int type) = 0;
    virtual void GenVertexArrays(int count, unsigned int* names) = 0;
    virtual void DeleteVertexArrays(int count, const unsigned int* names) = 0;
    virtual void BindVertexArray(unsigned int name) = 0;
    virtual void GenBuffers(int count, unsigned int* names) = 0;
    virtual void DeleteBuffers(int count, const unsigned int* names) = 0;
    virtual void BindBuffer(unsigned int target, unsigned int name) = 0;
    virtual void BufferData(unsigned int target, long size, const void* data, unsigned int usage) = 0;
    virtual void VertexAttribPointer(unsigned int index, int components, unsigned int type,
                                     unsigned char normalized, int stride, const void* offset) = 0;
    virtual void EnableVertexAttribArray(unsigned int index) = 0;
    virtual void ClearColor(float r, float g, float b, float a) = 0;
    virtual void Clear(unsigned int mask) = 0;
    virtual void Viewport(int x, int y, int width, int height) = 0;
    virtual void Enable(unsigned int capability) = 0;
    virtual const unsigned char* ErrorString(unsigned int code) = 0;
};

} // namespace zund
