#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tools::trackc {

/// What became of one text file.
struct CompiledTrack {
    std::string name; ///< of the track: the file's stem
    std::size_t keys;
    std::int32_t lastRow;
};

/// Compiles the text file NAME.csv of each track into `folder`/sync_NAME.track, the name encoded as the show
/// does.
///
/// Makes the folder. Every text is read and checked, and every file written to a temporary one, before the
/// first one changes. Throws `Error` with the place and the reason; then all files are as they were, save
/// those that were renamed already when a renaming failed.
std::vector<CompiledTrack> compileTracks(const std::vector<std::filesystem::path>& texts,
                                         const std::filesystem::path& folder);

} // namespace tools::trackc
