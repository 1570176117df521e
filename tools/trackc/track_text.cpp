#include "tools/trackc/track_text.h"

#include "tools/common/bar_position.h"
#include "tools/common/error.h"

#include <array>
#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include <iterator>
#include <stdexcept>

namespace tools {

namespace {

constexpr const char* typeNames[] = {"step", "linear", "smooth", "ramp"}; // in the order of `sync_key_type`

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view space = " \t\r";
    const std::size_t first = text.find_first_not_of(space);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(space) - first + 1);
}

std::vector<std::string_view> fieldsOf(std::string_view line)
{
    std::vector<std::string_view> fields;
    for (;;) {
        const std::size_t comma = line.find(',');
        fields.push_back(trimmed(line.substr(0, comma)));
        if (comma == std::string_view::npos) {
            return fields;
        }
        line.remove_prefix(comma + 1);
    }
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

sync_key parseKey(std::string_view line)
{
    const std::vector<std::string_view> fields = fieldsOf(line);
    if (fields.size() != 3) {
        throw std::invalid_argument(
            fmt::format("expected 3 fields, 'row, value, type', found {}", fields.size()));
    }
    return {parseRow(fields[0]), parseValue(fields[1]), parseType(fields[2])};
}

/// The fewest digits that read back as the same float.
std::string shortest(float value)
{
    std::array<char, 32> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return {digits.data(), result.ptr};
}

} // namespace

std::vector<TextKey> parseTrackText(std::string_view text, const std::string& file)
{
    std::vector<TextKey> keys;
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::size_t end = text.find('\n');
        const std::string_view whole = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        const std::string_view line = trimmed(whole.substr(0, whole.find('#')));
        if (line.empty()) {
            continue;
        }
        try {
            const sync_key key = parseKey(line);
            if (!keys.empty() && key.row <= keys.back().key.row) {
                throw std::invalid_argument(fmt::format("row {} does not come after row {} of line {}",
                                                        key.row, keys.back().key.row, keys.back().line));
            }
            keys.push_back({key, number});
        } catch (const std::invalid_argument& reason) {
            throw Error(file, number, reason.what());
        }
    }
    if (keys.empty()) {
        throw Error(file, "holds no key");
    }
    return keys;
}

std::string printTrackText(const std::vector<sync_key>& keys, RowStyle style)
{
    std::string text;
    for (const sync_key& key : keys) {
        const std::string row = style == RowStyle::Bars ? barPosition(key.row) : std::to_string(key.row);
        text += fmt::format("{}, {}, {}\n", row, shortest(key.value), typeName(key.type));
    }
    return text;
}

const char* typeName(std::int32_t type)
{
    return type >= 0 && type < static_cast<std::int32_t>(std::size(typeNames)) ? typeNames[type] : nullptr;
}

} // namespace tools
