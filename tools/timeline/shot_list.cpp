#include "tools/timeline/shot_list.h"

#include "scenes/catalogue.h"
#include "tools/common/error.h"
#include "tools/timeline/bar_position.h"
#include "tools/timeline/text_fields.h"

#include <fmt/format.h>
#include <iterator>
#include <optional>
#include <span>
#include <stdexcept>

namespace tools::timeline {

namespace {

constexpr std::string_view lastRowOfShot = "last";

/// A line of the list, as it stands there.
struct Line {
    std::optional<std::int32_t> row; ///< none for "last"
    std::optional<float> scene;      ///< none where the camera is led on
    std::optional<CameraKey> key;    ///< none for a scene without a camera
    std::size_t number;
};

std::optional<float> sceneNumber(std::string_view name)
{
    if (name == catalogue::nameOf(catalogue::endOfShow)) {
        return catalogue::endOfShow;
    }
    const catalogue::Scene* const found = catalogue::find(catalogue::allScenes, name);
    return found != nullptr ? std::optional(found->number) : std::nullopt;
}

bool hasCamera(float scene)
{
    const catalogue::Scene* const found = catalogue::findScene(scene);
    return found != nullptr && found->camera != catalogue::CameraForm::None;
}

bool beginsWithALetter(std::string_view text)
{
    return !text.empty() && ((text[0] >= 'a' && text[0] <= 'z') || (text[0] >= 'A' && text[0] <= 'Z'));
}

/// "x y z" into three values.
void parsePoint(std::string_view text, float* values)
{
    std::size_t count = 0;
    for (const std::string_view number : fieldsOf(text, ' ')) {
        if (number.empty()) {
            continue; // between two spaces
        }
        if (count < 3) {
            values[count] = parseValue(number);
        }
        ++count;
    }
    if (count != 3) {
        throw std::invalid_argument(fmt::format("expected 3 numbers, 'x y z', found '{}'", text));
    }
}

CameraKey parseCamera(std::span<const std::string_view> fields)
{
    if (fields.size() != 2 && fields.size() != 3) {
        throw std::invalid_argument("expected 'x y z, x y z, type' for the camera; the type may be left out");
    }
    CameraKey key{};
    parsePoint(fields[0], key.values);
    parsePoint(fields[1], key.values + 3);
    key.type = fields.size() == 3 ? parseType(fields[2]) : static_cast<std::int32_t>(SYNC_SMOOTH);
    return key;
}

Line parseLine(std::string_view text, std::size_t number)
{
    const std::vector<std::string_view> fields = fieldsOf(text);
    std::span<const std::string_view> rest(fields);
    Line line{std::nullopt, std::nullopt, std::nullopt, number};
    if (rest[0] != lastRowOfShot) {
        line.row = parseRow(rest[0]);
    }
    rest = rest.subspan(1);
    if (!rest.empty() && beginsWithALetter(rest[0])) {
        line.scene = sceneNumber(rest[0]);
        if (!line.scene) {
            throw std::invalid_argument(fmt::format("there is no scene '{}'", rest[0]));
        }
        if (!line.row) {
            throw std::invalid_argument("a cut needs a row");
        }
        rest = rest.subspan(1);
    }
    if (line.scene && !hasCamera(*line.scene)) {
        if (!rest.empty()) {
            throw std::invalid_argument(fmt::format("'{}' has no camera", fields[1]));
        }
        return line;
    }
    line.key = parseCamera(rest);
    return line;
}

std::vector<Line> parseLines(std::string_view text, const std::string& file)
{
    std::vector<Line> lines;
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::string_view line = takeLine(text);
        if (line.empty()) {
            continue;
        }
        try {
            lines.push_back(parseLine(line, number));
        } catch (const std::invalid_argument& reason) {
            throw Error(file, number, reason.what());
        }
    }
    return lines;
}

/// The row before the first cut after `line`.
std::int32_t rowBeforeTheNextCut(const std::vector<Line>& lines, std::size_t line)
{
    for (std::size_t next = line + 1; next < lines.size(); ++next) {
        if (lines[next].scene) {
            return *lines[next].row - 1;
        }
    }
    throw std::invalid_argument("no cut follows, so the shot has no last row");
}

void addLine(std::vector<Shot>& shots, const Line& line, std::int32_t row)
{
    const bool first = shots.empty();
    if (first && !line.scene) {
        throw std::invalid_argument("the first line must name a scene");
    }
    if (!first) {
        const Shot& before = shots.back();
        const std::int32_t rowBefore = before.keys.empty() ? before.row : before.keys.back().row;
        if (row <= rowBefore) {
            throw std::invalid_argument(fmt::format("row {} does not come after row {}", row, rowBefore));
        }
    }
    if (line.scene) {
        shots.push_back({row, *line.scene, {}, line.number});
    } else if (shots.back().keys.empty()) {
        throw std::invalid_argument("the scene of this shot has no camera");
    }
    if (line.key) {
        shots.back().keys.push_back(*line.key);
        shots.back().keys.back().row = row;
    }
}

} // namespace

std::vector<Shot> parseShots(std::string_view text, const std::string& file)
{
    const std::vector<Line> lines = parseLines(text, file);
    if (lines.empty()) {
        throw Error(file, "holds no shot");
    }
    std::vector<Shot> shots;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        try {
            addLine(shots, lines[i], lines[i].row ? *lines[i].row : rowBeforeTheNextCut(lines, i));
        } catch (const std::invalid_argument& reason) {
            throw Error(file, lines[i].number, reason.what());
        }
    }
    return shots;
}

std::vector<ShotTrack> tracksOf(const std::vector<Shot>& shots)
{
    std::vector<ShotTrack> tracks = {{catalogue::tracks::scene.name, {}}};
    for (const Shot& shot : shots) {
        tracks[0].keys.push_back({shot.row, shot.scene, SYNC_STEP});
    }
    for (std::size_t axis = 0; axis < std::size(catalogue::tracks::camera); ++axis) {
        ShotTrack track = {catalogue::tracks::camera[axis]->name, {}};
        for (const Shot& shot : shots) {
            for (const CameraKey& key : shot.keys) {
                const bool isLast = &key == &shot.keys.back();
                track.keys.push_back(
                    {key.row, key.values[axis], isLast ? static_cast<std::int32_t>(SYNC_STEP) : key.type});
            }
        }
        if (!track.keys.empty()) {
            tracks.push_back(track);
        }
    }
    return tracks;
}

} // namespace tools::timeline
