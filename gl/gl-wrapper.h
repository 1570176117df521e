#pragma once

#include "gl/gl-interface.h"

namespace zund {

/// The call table that leads to the driver, arguments unchanged.
class GLWrapper : public GLInterface {
public:
    unsigned int GetError() override;
    void DeleteShader(unsigned int shader) override;
    unsigned int CreateShader(unsigned int type) override;
    void GenVertexArrays(int count, unsigned int* names) override;
    void DeleteVertexArrays(int count, const unsigned int* names) override;
    void BindVertexArray(unsigned int name) override;
    void GenBuffers(int count, unsigned int* names) override;
    void DeleteBuffers(int count, const unsigned int* names) override;
    void BindBuffer(unsigned int target, unsigned int name) override;
    void BufferData(unsigned int target, long size, const void* data, unsigned int usage) override;
    void VertexAttribPointer(unsigned int index, int components, unsigned int type, unsigned char normalized,
                             int stride, const void* offset) override;
    void EnableVertexAttribArray(unsigned int index) override;
    void ClearColor(float r, float g, float b, float a) override;
    void Clear(unsigned int mask) override;
    void Viewport(int x, int y, int width, int height) override;
    void Enable(unsigned int capability) override;
    const unsigned char* ErrorString(unsigned int code) override;
};

} // namespace zund
