#include "tools/trackc/compile.h"

#include "sync/device.h"
#include "tools/common/atomic_file.h"
#include "tools/common/error.h"
#include "tools/common/read_file.h"
#include "tools/timeline/scene_values.h"
#include "tools/timeline/shot_list.h"
#include "tools/timeline/track_file.h"
#include "tools/timeline/track_text.h"

#include <fmt/format.h>
#include <map>

namespace tools::trackc {

namespace {

constexpr const char* base = "sync"; // of the track files, in their folder

bool isShotList(const std::filesystem::path& text)
{
    return text.filename() == "shots.txt";
}

/// The tracks that a text gives.
std::vector<timeline::ShotTrack> readTracks(const std::filesystem::path& text)
{
    const std::string content = readFile(text);
    if (isShotList(text)) {
        return timeline::tracksOf(timeline::parseShots(content, text.string()));
    }
    const std::string name = text.stem().string();
    const std::vector<timeline::TextKey> lines = timeline::parseTrackText(content, text.string());
    if (name == "scene") {
        timeline::checkSceneValues(lines, text.string());
    }
    std::vector<sync_key> keys;
    keys.reserve(lines.size());
    for (const timeline::TextKey& line : lines) {
        keys.push_back(line.key);
    }
    return {{name, keys}};
}

} // namespace

std::vector<CompiledTrack> compileTracks(const std::vector<std::filesystem::path>& texts,
                                         const std::filesystem::path& folder)
{
    struct Output {
        std::filesystem::path path;
        std::string bytes;
    };
    std::vector<CompiledTrack> tracks;
    std::vector<Output> outputs;
    std::map<std::string, std::string> textOf; // by track
    for (const std::filesystem::path& text : texts) {
        for (const auto& [name, keys] : readTracks(text)) {
            const auto [first, isNew] = textOf.insert({name, text.string()});
            if (!isNew) {
                throw Error(text.string(),
                            fmt::format("the track '{}' comes from {} already", name, first->second));
            }
            tracks.push_back({name, keys.size(), keys.back().row});
            outputs.push_back({folder / sync_track_path(base, name.c_str()), timeline::encodeTrack(keys)});
        }
    }
    makeFolder(folder);
    std::vector<AtomicFile> files;
    files.reserve(outputs.size());
    for (const Output& output : outputs) {
        files.emplace_back(output.path, output.bytes);
    }
    for (AtomicFile& file : files) {
        file.commit();
    }
    return tracks;
}

} // namespace tools::trackc
