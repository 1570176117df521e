#include "tests/golden/frame_stage.h"

#include "sync/tools.h"
#include "tests/golden/frame_text.h"
#include "tests/golden/still_tracks.h"
#include "tests/support/named_assets.h"
#include "tests/support/show_scene.h"
#include "tools/common/quiet_output.h"
#include "tools/timeline/show_row.h"

#include <memory>

namespace {

// Wider than the stills, so that what takes their shape for granted shows.
constexpr std::pair<int, int> frameSize = {640, 270};

} // namespace

FrameStage::FrameStage()
{
    writeNamedAssets(folder);
    writeStillTracks(folder.path() / "assets");
    folder.enter();
}

std::string FrameStage::record(const Still& still) const
{
    const tools::QuietOutput quiet; // loader and device have much to say
    const double time = tools::timeline::timeOfRow(still.row);
    const pack::Packfile pack("assets/assets.pack");
    const tolv::SyncDevice sync("assets/sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    RecordingRenderer renderer;
    const std::unique_ptr<ShowScene> scene = makeScene(*still.scene, renderer, pack, sync, frameSize);
    scene->update(time);
    scene->scene().draw(renderer, time);
    return frameText(renderer.frames.back(), renderer, pack);
}
