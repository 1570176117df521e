#pragma once

#include "tools/stage/overrides.h"

#include <filesystem>

namespace tools::stage {

/// A working folder from which the scenes find their assets: models, pack and tracks come from a folder of
/// assets by links, overridden tracks from files of one key. While the object lives the process works in it;
/// then in the former folder again, and this one is gone.
class StageFolder {
public:
    /// Throws `Error` with the file and the reason: for a missing folder, and for a track that `decodeTrack`
    /// refuses, as the show trusts its tracks.
    StageFolder(const std::filesystem::path& assets, const Overrides& overrides);
    ~StageFolder();

    StageFolder(const StageFolder&) = delete;
    StageFolder& operator=(const StageFolder&) = delete;

private:
    void fill(const std::filesystem::path& assets, const Overrides& overrides) const;

    std::filesystem::path before;
    std::filesystem::path folder;
};

} // namespace tools::stage
