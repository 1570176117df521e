#pragma once

#include "tools/packer/dxt1_encoder.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace tools::packer {

/// What to pack, and how.
struct PackOrder {
    std::vector<std::filesystem::path>
        files; ///< PNG pictures, and DDS files in DXT1, which go in as they are
    std::filesystem::path output;
    std::filesystem::path cache; ///< folder of the encodings so far; empty: none
    Effort effort = Effort::Best;
    bool anySize = false; ///< allows names and sizes that the show does not ask for
    unsigned threads = 1;
};

/// Makes a pack of the files, each under its stem and ".dds", in their order; calls `report` with a line on
/// each file.
///
/// All names and sizes are checked before the first picture is encoded. Throws `Error` with the file and the
/// reason; then the pack is as it was.
void packTextures(const PackOrder& order, const std::function<void(const std::string&)>& report);

} // namespace tools::packer
