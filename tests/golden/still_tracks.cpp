#include "tests/golden/still_tracks.h"

#include "tests/golden/still.h"
#include "tools/common/atomic_file.h"
#include "tools/timeline/track_file.h"

#include <map>
#include <string>
#include <vector>

void writeStillTracks(const std::filesystem::path& folder)
{
    std::map<std::string, std::vector<sync_key>> tracks;
    for (const Still& still : stills()) {
        for (const std::string_view track : tracksOf(still)) {
            tracks[std::string(track)].push_back({still.row, valueOf(still, track), SYNC_STEP});
        }
    }
    for (const auto& [track, keys] : tracks) {
        tools::AtomicFile(folder / ("sync_" + track + ".track"), tools::timeline::encodeTrack(keys)).commit();
    }
}
