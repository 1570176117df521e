#include "engine/material.h"

namespace lumeth {

Material::Material(zund::Renderer& renderer, const char* vertexSource, const char* fragmentSource,
                   const char* geometrySource)
{
    const zund::Shader vertex = renderer.createShader(zund::Shader::Vertex, vertexSource);
    const zund::Shader fragment = renderer.createShader(zund::Shader::Fragment, fragmentSource);
    if (geometrySource != nullptr) {
        const zund::Shader geometry = renderer.createShader(zund::Shader::Geometry, geometrySource);
        program = renderer.createProgram(vertex, fragment, &geometry);
    } else {
        program = renderer.createProgram(vertex, fragment, nullptr);
    }
}

} // namespace lumeth
