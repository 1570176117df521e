#pragma once

#include "tools/picture/rgb_image.h"

#include <string>
#include <string_view>

namespace tools::picture {

/// The size that a PNG file says it has. Throws `Error` with `file` if it is no PNG, or one of 16 bits a
/// channel.
Size readPngSize(std::string_view bytes, const std::string& file);

/// Decodes a whole PNG file of up to 8 bits a channel, of any colour type; alpha is dropped, and the colours
/// stay as they are in the file. Throws `Error` with `file` for what is damaged or cut off anywhere.
RgbImage decodePng(std::string_view bytes, const std::string& file);

} // namespace tools::picture
