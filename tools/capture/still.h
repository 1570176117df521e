#pragma once

#include "tools/capture/picture_options.h"
#include "tools/picture/rgb_image.h"
#include "tools/stage/overrides.h"

#include <optional>

namespace tools::capture {

/// The frame in which a scene stands at `time`, in seconds; without a scene that which the timeline selects
/// there. Throws `Error` with the option or the file, and the reason.
picture::RgbImage drawStill(const PictureOptions& options, const stage::Overrides& overrides,
                            std::optional<float> scene, double time);

} // namespace tools::capture
