#pragma once

#include "tools/picture/rgb_image.h"

#include <cstdint>

namespace tools::showcheck {

/// Rows of pixels of a picture of that size that the bars above and below leave free, at 64:27. They are the
/// same counted from above and from below.
struct SeenRows {
    std::uint32_t first;
    std::uint32_t end;
};
SeenRows seenRows(picture::Size size);

} // namespace tools::showcheck
