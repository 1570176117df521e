#pragma once

#include "gl/resource.h"

namespace zund {

/// A linked program. Goes with the context.
class ShaderProgram : public Resource {
public:
    ShaderProgram() : Resource(invalid) {}
    explicit ShaderProgram(int id) : Resource(id) {}
};

} // namespace zund
