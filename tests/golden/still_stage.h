#pragma once

#include "tests/golden/still.h"
#include "tools/stage/hidden_window.h"
#include "tools/stage/stage.h"
#include "tools/stage/stage_folder.h"

#include <filesystem>
#include <memory>

/// The size of the stills.
constexpr tools::picture::Size stillSize = {480, 270};

/// Draws stills from a folder of assets, through `renderer`, which ends in the window's own. One at a time,
/// as the process works in a folder of its own meanwhile; paths are best absolute.
class StillStage {
public:
    /// Throws `tools::Error` with the file and the reason.
    StillStage(tools::stage::HiddenWindow& window, zund::Renderer& renderer,
               const std::filesystem::path& assets);

    /// Makes the scene first, if this is its first still. Throws as the constructor does.
    tools::picture::RgbImage draw(const Still& still);

private:
    tools::stage::StageFolder folder;
    std::unique_ptr<tools::stage::Stage> stage;
};

/// From here on Mesa's software rasteriser draws, whatever else the machine has: pictures of other drivers
/// differ by more than the tolerance. To be called before the first window.
void drawBySoftware();
