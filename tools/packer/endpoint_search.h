#pragma once

#include "tools/packer/dxt1_block.h"

namespace tools::packer {

/// Improves a block: moves its endpoints by single steps of 5:6:5, one channel at a time and one or both
/// endpoints, with the codes chosen anew each time, as long as the squared error falls, for two rounds at
/// most.
///
/// Fits work with endpoints of full precision and round them afterwards; this starts where they end. `block`
/// keeps black exact, and so does the result. About 50 tries, 4 microseconds.
Dxt1Block searchEndpoints(Dxt1Block block, const Texels& texels);

} // namespace tools::packer
