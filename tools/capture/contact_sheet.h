#pragma once

#include "tools/picture/rgb_image.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tools::capture {

/// Stills of one size side by side, rows from the top, with a line of text under each.
class ContactSheet {
public:
    /// An empty sheet for `count` stills. `columns` is at least 1; it is cut down to `count`.
    /// Throws `Error` "capture: the sheet would be ..., at most 16384x16384 fit" for more than a picture
    /// viewer takes.
    ContactSheet(picture::Size still, std::uint32_t count, std::uint32_t columns);

    /// Puts in the next frame, of the size of a still, with what is written under it. At most `count` times.
    void add(const picture::RgbImage& frame, const std::string& text);

    const picture::RgbImage& picture() const { return sheet; }

    /// Height of the strip under a still of that size, in pixels.
    static std::uint32_t textHeight(picture::Size still);

private:
    picture::Size still;
    std::uint32_t columns;
    std::uint32_t filled = 0;
    picture::RgbImage sheet;
};

/// The rows of the timeline at which a sheet shows the show: `every` bars, from bar `from` to bar `to`, both
/// of them in it if the step hits. Fractions of a bar fall on the nearest row. Throws `Error` with the option
/// for a negative bar, an empty range, a step below a row, and above 4096 stills.
std::vector<std::int32_t> sheetRows(double every, double from, double to);

} // namespace tools::capture
