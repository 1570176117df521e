#include "tools/showcheck/seen_rows.h"

#include <algorithm>
#include <cmath>

namespace tools::showcheck {

SeenRows seenRows(picture::Size size)
{
    // As the shader of the bars has it: a row is seen if its middle is.
    const double bar = std::max((size.height - size.width * 27.0 / 64.0) / 2.0, 0.0);
    const auto first = static_cast<std::uint32_t>(std::ceil(bar - 0.5));
    return {first, size.height - first};
}

} // namespace tools::showcheck
