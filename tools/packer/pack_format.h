#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tools::packer {

/// A file that goes into a pack.
struct PackInput {
    std::string name;
    std::string bytes;
};

/// A file in a pack.
struct PackEntry {
    std::string name;
    std::uint32_t length; ///< in bytes
    std::uint32_t offset; ///< in bytes, from the start of the data area
};

/// Places files of those lengths back to back. Throws `Error` with the name of the first that would end
/// beyond 32 bits.
std::vector<std::uint32_t> packOffsets(const std::vector<std::pair<std::string, std::uint64_t>>& lengths);

/// Throws `Error` with `place` for a file name that a pack cannot hold: longer than 255 characters.
void checkPackName(const std::string& name, const std::string& place);

/// The bytes of a pack that holds the files, at least one, in this order; the format is told in
/// pack/format.h. The caller has checked the names: none twice, none too long.
std::string encodePack(const std::vector<PackInput>& files);

/// The table of a pack in which all is in order: no name twice, no file outside the pack or over another one.
/// Throws `Error` with `place` and the reason.
std::vector<PackEntry> readPackTable(std::string_view bytes, const std::string& place);

/// Bytes of a file in the pack that `entry` has been read from. Borrowed from `bytes`; `count` is the number
/// of entries.
std::string_view packFileOf(std::string_view bytes, const PackEntry& entry, std::size_t count);

} // namespace tools::packer
