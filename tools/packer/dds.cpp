#include "tools/packer/dds.h"

#include "pack/format.h"
#include "tools/common/bytes.h"
#include "tools/common/error.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <fmt/format.h>

namespace tools::packer {

namespace {

using pack::format::ddsHeaderSize;

// Flags of the header.
constexpr std::uint32_t hasCaps = 0x1;
constexpr std::uint32_t hasHeight = 0x2;
constexpr std::uint32_t hasWidth = 0x4;
constexpr std::uint32_t hasPixelFormat = 0x1000;
constexpr std::uint32_t hasLinearSize = 0x80000;
constexpr std::uint32_t neededFlags = hasCaps | hasHeight | hasWidth | hasPixelFormat;

constexpr std::uint32_t hasFourCc = 0x4;              // of the pixel format
constexpr std::uint32_t isTexture = 0x1000;           // of caps
constexpr std::uint32_t isCubemapOrVolume = 0x200200; // of caps2

struct Header {
    char magic[4];
    std::uint32_t size; ///< of what follows the magic
    std::uint32_t flags;
    std::uint32_t height;
    std::uint32_t width;
    std::uint32_t linearSize; ///< of the level, in bytes
    std::uint32_t depth;
    std::uint32_t levels;
    std::uint32_t reserved[11];
    std::uint32_t formatSize;
    std::uint32_t formatFlags;
    char fourCc[4];
    std::uint32_t bitMasks[5];
    std::uint32_t caps;
    std::uint32_t caps2;
    std::uint32_t reserved2[3];
};
static_assert(sizeof(Header) == ddsHeaderSize);

constexpr Header plainHeader = {
    .magic = {'D', 'D', 'S', ' '},
    .size = 124,
    .flags = neededFlags | hasLinearSize,
    .height = 0,
    .width = 0,
    .linearSize = 0,
    .depth = 0,
    .levels = 0,
    .reserved = {},
    .formatSize = 32,
    .formatFlags = hasFourCc,
    .fourCc = {'D', 'X', 'T', '1'},
    .bitMasks = {},
    .caps = isTexture,
    .caps2 = 0,
    .reserved2 = {},
};

/// Bytes of a level: 8 for each block of 4x4 texels.
std::uint64_t levelSize(picture::Size size)
{
    return std::uint64_t{size.width} * size.height / 2;
}

template<std::size_t length>
bool same(const char (&left)[length], const char (&right)[length])
{
    return std::memcmp(left, right, length) == 0;
}

} // namespace

std::string makeDdsHeader(picture::Size size)
{
    Header header = plainHeader;
    header.width = size.width;
    header.height = size.height;
    header.linearSize = static_cast<std::uint32_t>(levelSize(size));
    std::string bytes(sizeof header, '\0');
    std::memcpy(bytes.data(), &header, sizeof header);
    return bytes;
}

picture::Size checkDds(std::string_view bytes, const std::string& place)
{
    if (bytes.size() < ddsHeaderSize) {
        throw Error(place, fmt::format("{} bytes are too few for a DDS header", bytes.size()));
    }
    Header header{};
    std::memcpy(&header, bytes.data(), sizeof header);
    if (!same(header.magic, plainHeader.magic)) {
        throw Error(place, "no DDS file: 'DDS ' is not at its start");
    }
    if (header.size != plainHeader.size || header.formatSize != plainHeader.formatSize ||
        (header.flags & neededFlags) != neededFlags)
    {
        throw Error(place, "the DDS header is damaged");
    }
    if ((header.formatFlags & hasFourCc) == 0 || !same(header.fourCc, plainHeader.fourCc)) {
        throw Error(place, "the DDS file is not in DXT1");
    }
    if (header.levels > 1 || header.depth > 1 || (header.caps2 & isCubemapOrVolume) != 0) {
        throw Error(place, "the DDS file holds more than one level");
    }
    const picture::Size size = {header.width, header.height};
    checkBlockSize(size, place);
    const std::uint64_t expected = levelSize(size);
    if (bytes.size() - ddsHeaderSize != expected) {
        throw Error(place, fmt::format("{} bytes follow the DDS header, but {}x{} in DXT1 takes {}",
                                       bytes.size() - ddsHeaderSize, size.width, size.height, expected));
    }
    if ((header.flags & hasLinearSize) != 0 && header.linearSize != expected) {
        throw Error(place, fmt::format("the DDS header says {} bytes, but {}x{} in DXT1 takes {}",
                                       header.linearSize, size.width, size.height, expected));
    }
    return size;
}

void checkBlockSize(picture::Size size, const std::string& place)
{
    if (size.width == 0 || size.height == 0 || size.width % 4 != 0 || size.height % 4 != 0) {
        throw Error(place,
                    fmt::format("{}x{} is not a multiple of 4 in both directions", size.width, size.height));
    }
}

} // namespace tools::packer
