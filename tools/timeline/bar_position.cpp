#include "tools/timeline/bar_position.h"

#include "sync/tools.h"

#include <charconv>
#include <fmt/format.h>
#include <limits>
#include <stdexcept>
#include <vector>

namespace tools::timeline {

namespace {

using tempo::beatsPerBar;
using tempo::rowsPerBar;
using tempo::rowsPerBeat;

constexpr std::int64_t firstRow = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t lastRow = std::numeric_limits<std::int32_t>::max();

[[noreturn]] void fail(std::string_view text, std::string_view reason)
{
    throw std::invalid_argument(fmt::format("row '{}': {}", text, reason));
}

[[noreturn]] void failOutOfRange(std::string_view text)
{
    fail(text, fmt::format("rows go from {} to {}", firstRow, lastRow));
}

/// `part` of `text`, which is quoted if the part is no number.
std::int64_t parseNumber(std::string_view text, std::string_view part)
{
    std::int64_t number = 0;
    const auto [end, code] = std::from_chars(part.data(), part.data() + part.size(), number);
    if (end != part.data() + part.size() || code == std::errc::invalid_argument) {
        fail(text, "expected a whole number or bar:beat:row");
    }
    if (code == std::errc::result_out_of_range) {
        failOutOfRange(text);
    }
    return number;
}

std::vector<std::string_view> split(std::string_view text)
{
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t colon = text.find(':');
        parts.push_back(text.substr(0, colon));
        if (colon == std::string_view::npos) {
            return parts;
        }
        text.remove_prefix(colon + 1);
    }
}

} // namespace

std::int32_t parseRow(std::string_view text)
{
    const std::vector<std::string_view> parts = split(text);
    if (parts.size() != 1 && parts.size() != 3) {
        fail(text, "expected a whole number or bar:beat:row");
    }
    std::int64_t row = parseNumber(text, parts[0]);
    if (parts.size() == 3) {
        const std::int64_t bar = row;
        const std::int64_t beat = parseNumber(text, parts[1]);
        const std::int64_t rowOfBeat = parseNumber(text, parts[2]);
        if (bar < 0) {
            fail(text, "bars count from 0");
        }
        if (beat < 0 || beat >= beatsPerBar) {
            fail(text, fmt::format("a beat is 0 to {}", beatsPerBar - 1));
        }
        if (rowOfBeat < 0 || rowOfBeat >= rowsPerBeat) {
            fail(text, fmt::format("a row of a beat is 0 to {}", rowsPerBeat - 1));
        }
        if (bar > lastRow / rowsPerBar) {
            failOutOfRange(text);
        }
        row = bar * rowsPerBar + beat * rowsPerBeat + rowOfBeat;
    }
    if (row < firstRow || row > lastRow) {
        failOutOfRange(text);
    }
    return static_cast<std::int32_t>(row);
}

std::string barPosition(std::int32_t row)
{
    if (row < 0) {
        return std::to_string(row);
    }
    return fmt::format("{}:{}:{}", row / rowsPerBar, row % rowsPerBar / rowsPerBeat, row % rowsPerBeat);
}

} // namespace tools::timeline
