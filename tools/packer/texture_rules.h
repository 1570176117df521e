#pragma once

#include "scenes/catalogue.h"
#include "tools/picture/rgb_image.h"

#include <string>

namespace tools::packer {

/// The size that a texture of the show has.
constexpr picture::Size sizeOf(const catalogue::Texture& texture)
{
    return {static_cast<std::uint32_t>(texture.width), static_cast<std::uint32_t>(texture.height)};
}

/// Throws `Error` with `place` unless the show has a texture of that name and size.
void checkTexture(const std::string& name, picture::Size size, const std::string& place);

} // namespace tools::packer
