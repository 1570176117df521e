#include "tools/stage/values.h"

#include "tools/common/error.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>
#include <vector>

namespace tools::stage {

namespace {

constexpr std::uint32_t largestSide = 8192;

/// All of `text` as a number; nothing if it is anything else, or not finite.
template<typename Number>
std::optional<Number> read(std::string_view text)
{
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [stop, code] = std::from_chars(text.data(), end, number);
    if (code != std::errc() || stop != end || !std::isfinite(static_cast<double>(number))) {
        return std::nullopt;
    }
    return number;
}

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

bool isSide(const std::optional<std::uint32_t>& side)
{
    return side && *side >= 1 && *side <= largestSide;
}

} // namespace

picture::Size parsePictureSize(const std::string& option, const std::string& text)
{
    const std::vector<std::string_view> parts = split(text, 'x');
    if (parts.size() == 2) {
        const auto width = read<std::uint32_t>(parts[0]);
        const auto height = read<std::uint32_t>(parts[1]);
        if (isSide(width) && isSide(height)) {
            return {*width, *height};
        }
    }
    throw Error(option + " " + text, "expected WIDTHxHEIGHT, each 1 to " + std::to_string(largestSide));
}

glm::vec3 parsePoint(const std::string& option, const std::string& text)
{
    const std::vector<std::string_view> parts = split(text, ',');
    if (parts.size() == 3) {
        const auto x = read<float>(parts[0]);
        const auto y = read<float>(parts[1]);
        const auto z = read<float>(parts[2]);
        if (x && y && z) {
            return {*x, *y, *z};
        }
    }
    throw Error(option + " " + text, "expected three numbers, as 1,0.5,-2");
}

double parseNumber(const std::string& place, const std::string& text)
{
    const auto number = read<double>(text);
    if (!number) {
        throw Error(place, "expected a number");
    }
    return *number;
}

} // namespace tools::stage
