#pragma once

#include <filesystem>

/// Writes the timeline of the stills into a folder of assets: in each one's row the tracks of its scene step
/// to their values there. Throws `tools::Error` with the file and the reason.
void writeStillTracks(const std::filesystem::path& folder);
