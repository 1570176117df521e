#pragma once

#include <cstddef>
#include <string_view>

/// How a pack is laid out, for who reads one and who writes one. Little-endian, without padding: the magic; a
/// table of records, the last one marked; the data area, which holds the files.
namespace pack::format {

constexpr std::string_view magic = "pkf";

// A record. The fields of 32 bits stand at odd addresses.
constexpr std::size_t nameSize = 256;          ///< closed by NUL; no two records have the same
constexpr std::size_t lengthAt = nameSize;     ///< uint32: bytes of the file
constexpr std::size_t offsetAt = lengthAt + 4; ///< uint32: from the start of the data area
constexpr std::size_t markAt = offsetAt + 4;   ///< 1 byte; 0: another record follows
constexpr std::size_t recordSize = markAt + 1;
static_assert(recordSize == 265);

/// Where the data area of a pack of so many records starts.
constexpr std::size_t dataStart(std::size_t records)
{
    return magic.size() + recordSize * records;
}

constexpr std::size_t ddsHeaderSize = 128; ///< of each file in the show's pack; with its magic

} // namespace pack::format
