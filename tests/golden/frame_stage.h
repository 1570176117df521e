#pragma once

#include "tests/golden/still.h"
#include "tests/support/test_assets.h"

#include <string>

/// Records frames without a driver: of each still the commands that its scene draws it by, from assets that
/// are told apart by name alone. One at a time, as the process works in a folder of its own meanwhile.
class FrameStage {
public:
    FrameStage();

    /// The frame as `frameText` tells it. The scene is made for it, so that it is the same whatever was
    /// recorded before. Works in the folder of this stage.
    [[nodiscard]] std::string record(const Still& still) const;

private:
    ShowFolder folder;
};
