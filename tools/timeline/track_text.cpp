#include "tools/timeline/track_text.h"

#include "tools/common/error.h"
#include "tools/timeline/bar_position.h"
#include "tools/timeline/text_fields.h"

#include <array>
#include <charconv>
#include <fmt/format.h>
#include <optional>
#include <stdexcept>

namespace tools::timeline {

namespace {

sync_key parseKey(std::string_view line)
{
    const std::vector<std::string_view> fields = fieldsOf(line);
    if (fields.size() != 3) {
        throw std::invalid_argument(
            fmt::format("expected 3 fields, 'row, value, type', found {}", fields.size()));
    }
    return {parseRow(fields[0]), parseValue(fields[1]), parseType(fields[2])};
}

/// "repeat from, to, every": keys that come again, their rows counted anew from each start.
struct Pattern {
    std::int32_t from;
    std::int32_t to; ///< no start from here on
    std::int32_t every;
    std::size_t line;
    std::vector<TextKey> keys;
};

constexpr std::string_view repeatWord = "repeat ";
constexpr std::string_view endWord = "end";

Pattern parsePattern(std::string_view rest, std::size_t line)
{
    const std::vector<std::string_view> fields = fieldsOf(rest);
    if (fields.size() != 3) {
        throw std::invalid_argument("expected 'repeat from, to, every'");
    }
    Pattern pattern = {parseRow(fields[0]), parseRow(fields[1]), parseRow(fields[2]), line, {}};
    if (pattern.every <= 0) {
        throw std::invalid_argument(fmt::format("it cannot repeat every {} rows", pattern.every));
    }
    if (pattern.to <= pattern.from) {
        throw std::invalid_argument(
            fmt::format("row {} does not come after row {}", pattern.to, pattern.from));
    }
    return pattern;
}

/// Gathers the keys, line by line.
class TrackReader {
public:
    void read(std::string_view line, std::size_t number)
    {
        if (line.starts_with(repeatWord)) {
            if (pattern) {
                throw std::invalid_argument("a repeat cannot stand in another");
            }
            pattern = parsePattern(line.substr(repeatWord.size()), number);
        } else if (line == endWord) {
            endPattern();
        } else if (pattern) {
            addToPattern({parseKey(line), number});
        } else {
            add({parseKey(line), number});
        }
    }

    std::vector<TextKey> keys;
    std::optional<Pattern> pattern; ///< that is being read

private:
    void add(const TextKey& key)
    {
        if (!keys.empty() && key.key.row <= keys.back().key.row) {
            throw std::invalid_argument(fmt::format("row {} does not come after row {} of line {}",
                                                    key.key.row, keys.back().key.row, keys.back().line));
        }
        keys.push_back(key);
    }

    void addToPattern(const TextKey& key)
    {
        if (key.key.row < 0 || key.key.row >= pattern->every) {
            throw std::invalid_argument(
                fmt::format("row {} is not within the {} rows of the repeat", key.key.row, pattern->every));
        }
        pattern->keys.push_back(key);
    }

    void endPattern()
    {
        if (!pattern || pattern->keys.empty()) {
            throw std::invalid_argument("an end without keys to repeat");
        }
        for (std::int64_t start = pattern->from; start < pattern->to; start += pattern->every) {
            for (TextKey key : pattern->keys) {
                key.key.row += static_cast<std::int32_t>(start);
                add(key);
            }
        }
        pattern.reset();
    }
};

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
    TrackReader reader;
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::string_view line = takeLine(text);
        if (line.empty()) {
            continue;
        }
        try {
            reader.read(line, number);
        } catch (const std::invalid_argument& reason) {
            throw Error(file, number, reason.what());
        }
    }
    if (reader.pattern) {
        throw Error(file, reader.pattern->line, "the repeat has no end");
    }
    if (reader.keys.empty()) {
        throw Error(file, "holds no key");
    }
    return reader.keys;
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

} // namespace tools::timeline
