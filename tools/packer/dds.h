#pragma once

#include "tools/picture/rgb_image.h"

#include <string>
#include <string_view>

namespace tools::packer {

/// Header of a DDS file that holds one level in DXT1. `size` is a multiple of 4 in both directions.
std::string makeDdsHeader(picture::Size size);

/// Size of a DDS file that has been checked to hold exactly one level in DXT1.
/// Throws `Error` with `place` and the reason.
picture::Size checkDds(std::string_view bytes, const std::string& place);

/// Throws `Error` with `place` if width or height is 0 or no multiple of 4.
void checkBlockSize(picture::Size size, const std::string& place);

} // namespace tools::packer
