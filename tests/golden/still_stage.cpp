#include "tests/golden/still_stage.h"

#include "tools/common/atomic_file.h"
#include "tools/stage/values.h"
#include "tools/timeline/show_row.h"
#include "tools/timeline/track_file.h"

#include <cstdlib>
#include <map>
#include <string>
#include <vector>

namespace {

/// The timeline of the stills, in the place of the show's: in each one's row the tracks of its scene step to
/// their values there.
void writeTracks()
{
    std::map<std::string, std::vector<sync_key>> tracks;
    for (const Still& still : stills()) {
        for (const std::string_view track : tracksOf(still)) {
            tracks[std::string(track)].push_back({still.row, valueOf(still, track), SYNC_STEP});
        }
    }
    for (const auto& [track, keys] : tracks) {
        tools::AtomicFile("assets/sync_" + track + ".track", tools::timeline::encodeTrack(keys)).commit();
    }
}

} // namespace

StillStage::StillStage(tools::stage::HiddenWindow& window, zund::Renderer& renderer,
                       const std::filesystem::path& assets)
    : folder(assets, {})
{
    writeTracks();
    stage = std::make_unique<tools::stage::Stage>(window, renderer, assets.string());
}

tools::picture::RgbImage StillStage::draw(const Still& still)
{
    return stage->draw(tools::stage::findScene(still.scene).number, tools::timeline::timeOfRow(still.row));
}

void drawBySoftware()
{
    setenv("LIBGL_ALWAYS_SOFTWARE", "1", 1);
}
