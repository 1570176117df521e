#pragma once

#include "tools/video/join.h"
#include "tools/video/video_tag.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace tools::capture {

/// Throws `Error` "OUTPUT: ..." unless a film can be written there: an MP4 file in a folder where that's
/// allowed, not there yet or with leave to replace it.
void checkOutput(const std::filesystem::path& output, bool overwrite);

/// Joins pieces of a film, as they are, and its music if there is any. `tag` tells what they are together.
/// The file appears under its name only once it is found to be right; then a line on standard error says what
/// it is. Throws `Error` with the file and the reason.
void finishFilm(const std::vector<std::filesystem::path>& pieces, const video::VideoTag& tag,
                const std::optional<video::MusicCut>& music, const std::filesystem::path& output);

} // namespace tools::capture
