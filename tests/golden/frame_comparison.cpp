#include "tests/golden/frame_comparison.h"

#include "tools/common/error.h"
#include "tools/common/read_file.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include <limits>
#include <optional>
#include <set>
#include <sstream>

namespace fs = std::filesystem;

namespace {

constexpr float units = 4.0F; // in the last place

std::vector<std::string> split(const std::string& text, char end)
{
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, end);) {
        parts.push_back(part);
    }
    return parts;
}

/// The number that a word is all of, if it is finite.
std::optional<float> numberIn(const std::string& word)
{
    float number = 0.0F;
    const char* const end = word.data() + word.size();
    const auto [stop, error] = std::from_chars(word.data(), end, number);
    return error == std::errc() && stop == end && std::isfinite(number) ? std::optional(number)
                                                                        : std::nullopt;
}

/// What numbers of a line may differ by.
float toleranceOf(const std::vector<std::string>& words)
{
    float largest = 0.0F;
    for (const std::string& word : words) {
        largest = std::max(largest, std::abs(numberIn(word).value_or(0.0F)));
    }
    return units * (std::nextafter(largest, std::numeric_limits<float>::infinity()) - largest);
}

bool isSame(const std::string& recorded, const std::string& came)
{
    if (recorded == came) {
        return true;
    }
    const std::vector<std::string> before = split(recorded, ' ');
    const std::vector<std::string> now = split(came, ' ');
    const float tolerance = toleranceOf(before);
    return std::equal(before.begin(), before.end(), now.begin(), now.end(),
                      [tolerance](const std::string& one, const std::string& other) {
                          const std::optional<float> first = numberIn(one);
                          const std::optional<float> second = numberIn(other);
                          return one == other || (first && second && std::abs(*first - *second) <= tolerance);
                      });
}

/// A line as a part of a sentence.
std::string quoted(const std::vector<std::string>& lines, std::size_t line)
{
    if (line >= lines.size()) {
        return "no more";
    }
    return fmt::format("'{}'",
                       lines[line].substr(std::min(lines[line].find_first_not_of(' '), lines[line].size())));
}

/// The last line from one on upwards that is indented less.
std::size_t headOf(const std::vector<std::string>& lines, std::size_t line, std::size_t indent)
{
    while (line > 0 && (lines[line].empty() || lines[line].find_first_not_of(' ') >= indent)) {
        --line;
    }
    return line;
}

/// The command that a line belongs to, and the uniform whose value goes on there.
std::string placeOf(const std::vector<std::string>& lines, std::size_t line)
{
    if (lines.empty()) {
        return "its start";
    }
    line = std::min(line, lines.size() - 1);
    const std::string& command = lines[headOf(lines, line, 1)];
    return lines[line].starts_with("    ")
               ? fmt::format("{}, {}", command, lines[headOf(lines, line, 4)].substr(2))
               : command;
}

} // namespace

fs::path frameFile(const fs::path& folder, const Still& still)
{
    return folder / (std::string(still.name) + ".txt");
}

std::string checkFrame(const Still& still, const std::string& frame, const fs::path& folder)
{
    const fs::path file = frameFile(folder, still);
    if (!fs::exists(file)) {
        throw tools::Error(file.string(), "this recorded frame is missing");
    }
    const std::vector<std::string> recorded = split(tools::readFile(file), '\n');
    const std::vector<std::string> came = split(frame, '\n');
    const std::size_t lines = std::max(recorded.size(), came.size());
    for (std::size_t line = 0; line < lines; ++line) {
        if (line >= recorded.size() || line >= came.size() || !isSame(recorded[line], came[line])) {
            return fmt::format("{}:{}, {}: recorded {}, came {}", file.string(), line + 1,
                               placeOf(recorded, line), quoted(recorded, line), quoted(came, line));
        }
    }
    return {};
}

std::vector<std::string> frameFaultsOf(const fs::path& folder)
{
    std::vector<std::string> faults;
    std::set<fs::path> expected;
    for (const Still& still : stills()) {
        const fs::path file = frameFile(folder, still);
        expected.insert(file);
        if (!fs::exists(file)) {
            faults.push_back(file.string() + ": this recorded frame is missing");
        }
    }
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (!expected.contains(entry.path())) {
            faults.push_back(entry.path().string() + ": there is no still of this name");
        }
    }
    return faults;
}
