#pragma once

#include "tools/timeline/track_text.h"

#include <string>
#include <vector>

namespace tools::timeline {

/// Checks the keys of the track `scene`: each value selects a scene or ends the show, and no stretch passes
/// through values in between, which would select nothing. Throws `Error` with `file` and the line of the
/// first offender.
void checkSceneValues(const std::vector<TextKey>& keys, const std::string& file);

} // namespace tools::timeline
