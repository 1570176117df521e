#include "tools/timeline/text_fields.h"

#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include <iterator>
#include <stdexcept>

namespace tools::timeline {

namespace {

constexpr const char* typeNames[] = {"step", "linear", "smooth", "ramp"}; // in the order of `sync_key_type`

} // namespace

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view space = " \t\r";
    const std::size_t first = text.find_first_not_of(space);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(space) - first + 1);
}

std::vector<std::string_view> fieldsOf(std::string_view line, char separator)
{
    std::vector<std::string_view> fields;
    for (;;) {
        const std::size_t end = line.find(separator);
        fields.push_back(trimmed(line.substr(0, end)));
        if (end == std::string_view::npos) {
            return fields;
        }
        line.remove_prefix(end + 1);
    }
}

std::string_view takeLine(std::string_view& text)
{
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return trimmed(line.substr(0, line.find('#')));
}

float parseValue(std::string_view text)
{
    float value = 0.0F;
    const auto [end, code] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (code == std::errc::invalid_argument || end != text.data() + text.size()) {
        throw std::invalid_argument(fmt::format("value '{}' is no number", text));
    }
    // Numbers that are too small come as out of range as well, "inf" and "nan" as values.
    if (code != std::errc{} || !std::isfinite(value)) {
        throw std::invalid_argument(fmt::format("value '{}' does not fit into a finite 32-bit float", text));
    }
    return value;
}

std::int32_t parseType(std::string_view text)
{
    for (std::size_t type = 0; type < std::size(typeNames); ++type) {
        if (text == typeNames[type]) {
            return static_cast<std::int32_t>(type);
        }
    }
    throw std::invalid_argument(
        fmt::format("unknown type '{}', expected step, linear, smooth or ramp", text));
}

const char* typeName(std::int32_t type)
{
    return type >= 0 && type < static_cast<std::int32_t>(std::size(typeNames)) ? typeNames[type] : nullptr;
}

} // namespace tools::timeline
