#pragma once

#include "sync/track.h"

#include <string>
#include <string_view>
#include <vector>

namespace tools::timeline {

/// The bytes of a track file: the format is told at `sync_get_track`.
std::string encodeTrack(const std::vector<sync_key>& keys);

/// Reads a track file, more strictly than the show does.
/// Throws `Error` with `file` if the size does not fit the key count, a type is unknown, the rows don't
/// ascend, or a value is not finite.
std::vector<sync_key> decodeTrack(std::string_view bytes, const std::string& file);

} // namespace tools::timeline
