#pragma once

#include "gl/resource.h"

namespace zund {

/// A framebuffer. Goes with the context.
class FrameBuffer : public Resource {
public:
    FrameBuffer() : Resource(invalid) {}
    explicit FrameBuffer(int id) : Resource(id) {}
};

} // namespace zund
