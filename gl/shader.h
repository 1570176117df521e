#pragma once

#include "gl/resource.h"

namespace zund {

/// A compiled shader. Deleted by the renderer's destructor.
class Shader : public Resource {
public:
    enum Type : int { Fragment = 0, Vertex = 1, Geometry = 2 };

    Shader() : Resource(invalid) {}
    explicit Shader(int id) : Resource(id) {}
};

} // namespace zund
