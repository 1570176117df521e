#pragma once

#include "tools/stage/stage.h"
#include "tools/video/frames.h"

#include <cstdint>
#include <optional>

namespace tools::capture {

/// The frames of the show from the row `fromRow` on, before `toRow`; up to the show's end if there is none.
/// Throws `Error` with the option and the reason if the show is over there, or no frame lies between.
video::FrameRange filmRange(const stage::Stage& stage, int fps, std::int32_t fromRow,
                            std::optional<std::int32_t> toRow);

} // namespace tools::capture
