#include "tools/capture/contact_sheet.h"

#include "sync/tools.h"
#include "tools/capture/bitmap_font.h"
#include "tools/common/error.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace tools::capture {

namespace {

constexpr std::uint32_t gap = 4; ///< around every still, in pixels
constexpr std::uint8_t paper = 40;
constexpr std::uint32_t largestSide = 16384;
constexpr double mostStills = 4096.0;
constexpr double mostBars = 1e6;

/// Pixels for a dot of the text: so that a line of 36 characters fits under a still, but two may touch on
/// tiny ones.
std::uint32_t textScale(picture::Size still)
{
    return std::max(1U, still.width / (36 * glyphWidth));
}

std::uint32_t cellWidth(picture::Size still)
{
    return still.width + gap;
}

std::uint32_t cellHeight(picture::Size still)
{
    return still.height + ContactSheet::textHeight(still) + gap;
}

picture::Size sheetSize(picture::Size still, std::uint32_t count, std::uint32_t columns)
{
    const std::uint64_t rows = (std::uint64_t{count} + columns - 1) / columns;
    const std::uint64_t width = gap + std::uint64_t{columns} * cellWidth(still);
    const std::uint64_t height = gap + rows * cellHeight(still);
    if (width > largestSide || height > largestSide) {
        throw Error("capture",
                    fmt::format("the sheet would be {}x{}, at most {}x{} fit; take fewer or smaller stills",
                                width, height, largestSide, largestSide));
    }
    return {static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height)};
}

void checkBar(const char* option, double bar)
{
    if (!(bar >= 0.0 && bar <= mostBars)) {
        throw Error(fmt::format("{} {}", option, bar), "expected a bar of the show, from 0 on");
    }
}

} // namespace

ContactSheet::ContactSheet(picture::Size still, std::uint32_t count, std::uint32_t columns)
    : still(still),
      columns(std::clamp(columns, 1U, std::max(count, 1U))),
      sheet{sheetSize(still, count, this->columns), {}}
{
    sheet.pixels.assign(std::size_t{3} * sheet.size.width * sheet.size.height, paper);
}

void ContactSheet::add(const picture::RgbImage& frame, const std::string& text)
{
    const std::uint32_t left = gap + filled % columns * cellWidth(still);
    const std::uint32_t top = gap + filled / columns * cellHeight(still);
    const auto line = static_cast<std::ptrdiff_t>(std::size_t{3} * still.width);
    for (std::uint32_t y = 0; y < still.height; ++y) {
        const std::size_t to = 3 * (std::size_t{top + y} * sheet.size.width + left);
        std::copy_n(frame.pixels.begin() + line * y, line,
                    sheet.pixels.begin() + static_cast<std::ptrdiff_t>(to));
    }
    const std::uint32_t scale = textScale(still);
    drawText(sheet, text, left, top + still.height + 2 * scale, left + still.width, scale);
    ++filled;
}

std::uint32_t ContactSheet::textHeight(picture::Size still)
{
    return textScale(still) * (glyphHeight + 4);
}

std::vector<std::int32_t> sheetRows(double every, double from, double to)
{
    checkBar("--from", from);
    checkBar("--to", to);
    if (!(every * tempo::rowsPerBar >= 1.0)) {
        throw Error(fmt::format("--every {}", every),
                    fmt::format("expected at least a row, which is 1/{} of a bar", tempo::rowsPerBar));
    }
    if (to < from) {
        throw Error(fmt::format("--to {}", to), fmt::format("lies before --from {}", from));
    }
    const double count = std::floor((to - from) / every) + 1.0;
    if (count > mostStills) {
        throw Error("capture",
                    fmt::format("the sheet would hold {} stills, at most {} fit", count, mostStills));
    }
    std::vector<std::int32_t> rows;
    rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < static_cast<int>(count); ++i) {
        rows.push_back(static_cast<std::int32_t>(std::lround((from + i * every) * tempo::rowsPerBar)));
    }
    return rows;
}

} // namespace tools::capture
