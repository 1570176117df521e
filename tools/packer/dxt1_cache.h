#pragma once

#include "tools/packer/dxt1_encoder.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tools::packer {

/// A digest of 128 bits, as 32 hexadecimal digits. Tells changes apart, not forgeries.
std::string contentHash(std::string_view bytes);

/// Encoded pictures in a folder, so that an unchanged PNG is not encoded again. Each entry is one file, named
/// after the content of the PNG, the effort and the encoder's version, and ends in a hash of itself.
class Dxt1Cache {
public:
    /// Makes the folder. An empty path: keeps and finds nothing. Throws `Error` if the folder cannot be made.
    explicit Dxt1Cache(std::filesystem::path path);

    /// What was kept for this PNG; nothing if there is no entry, or a damaged one.
    std::optional<Dxt1Image> find(std::string_view png, Effort effort) const;

    /// Keeps an encoding, in place of what there was. Throws `Error` if it cannot be written.
    void keep(std::string_view png, Effort effort, const Dxt1Image& image) const;

private:
    std::filesystem::path entryOf(std::string_view png, Effort effort) const;

    std::filesystem::path folder;
};

} // namespace tools::packer
