#pragma once

#include "tools/packer/rgb_image.h"

#include <string>

namespace tools {

/// Throws `Error` with `place` if the show has no texture `name`, or asks for another size.
void checkTexture(const std::string& name, Size size, const std::string& place);

} // namespace tools
