#include "tests/golden/still_stage.h"

#include "tests/golden/still_tracks.h"
#include "tools/timeline/show_row.h"

#include <cstdlib>

StillStage::StillStage(tools::stage::HiddenWindow& window, zund::Renderer& renderer,
                       const std::filesystem::path& assets)
    : folder(assets, {})
{
    writeStillTracks("assets");
    stage = std::make_unique<tools::stage::Stage>(window, renderer, assets.string());
}

tools::picture::RgbImage StillStage::draw(const Still& still)
{
    return stage->draw(still.scene->number, tools::timeline::timeOfRow(still.row));
}

void drawBySoftware()
{
    setenv("LIBGL_ALWAYS_SOFTWARE", "1", 1);
}
