#pragma once

#include "tools/packer/dxt1_block.h"

namespace tools::packer {

/// The block, repaired where needed so that pure black texels come out as exactly black, and no other texel
/// does, however a driver rounds. The show cuts its layers and leaves out along exact black; encoders don't
/// keep it.
///
/// Exactly black are code 3 beside `color0 <= color1`, and an endpoint of 0. A mix of two endpoints is black
/// only if both are: the smallest other channel is 4 of 255, and a third of that is still 1.
Dxt1Block withExactBlack(Dxt1Block block, const Texels& texels);

/// Whether the block is as `withExactBlack` promises.
bool keepsBlackExact(Dxt1Block block, const Texels& texels);

/// For each code of the block, whether it stands for exact black.
std::array<bool, 4> blackCodes(Dxt1Block block);

/// The block with each texel's code chosen anew: the nearest of the black ones for a black texel, of the
/// others for a coloured one. Where the endpoints leave none, code 0.
Dxt1Block withNearestCodes(Dxt1Block block, const Texels& texels);

} // namespace tools::packer
