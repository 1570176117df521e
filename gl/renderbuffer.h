#pragma once

#include "gl/resource.h"

namespace zund {

/// A render buffer; in this system always a depth buffer. Goes with the context.
class RenderBuffer : public Resource {
public:
    RenderBuffer() : Resource(invalid) {}
    explicit RenderBuffer(int id) : Resource(id) {}
};

} // namespace zund
