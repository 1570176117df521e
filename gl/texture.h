#pragma once

#include "gl/resource.h"

namespace zund {

/// A texture with the GL target that it is bound to. Goes with the context.
class Texture : public Resource {
public:
    Texture() : Resource(invalid) {}
    Texture(int id, unsigned int type) : Resource(id), type(type) {}

    /// `GL_TEXTURE_2D`, `GL_TEXTURE_1D` or `GL_TEXTURE_CUBE_MAP`; 0 for no texture.
    unsigned int getType() const { return type; }

private:
    unsigned int type = 0;
};

} // namespace zund
