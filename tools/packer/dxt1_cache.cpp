#include "tools/packer/dxt1_cache.h"

#include "tools/common/atomic_file.h"
#include "tools/common/bytes.h"
#include "tools/common/error.h"
#include "tools/common/read_file.h"

#include <cstdint>
#include <fmt/format.h>
#include <utility>

namespace tools::packer {

namespace {

constexpr std::size_t hashSize = 32; // in digits

/// Spreads each bit over all of them.
std::uint64_t mixed(std::uint64_t value)
{
    value ^= value >> 32;
    value *= 0xD6E8FEB86659FD93U; // odd, with its bits spread; so are those below
    value ^= value >> 32;
    value *= 0xD6E8FEB86659FD93U;
    return value ^ value >> 32;
}

} // namespace

std::string contentHash(std::string_view bytes)
{
    std::uint64_t first = bytes.size();
    std::uint64_t second = ~first;
    const auto add = [&](std::uint64_t word) {
        first = (first ^ word) * 0x9E3779B97F4A7C15U;
        first ^= first >> 29;
        second = (second ^ mixed(word)) * 0xC2B2AE3D27D4EB4FU;
        second ^= second >> 31;
    };
    constexpr std::size_t wordSize = sizeof(std::uint64_t);
    while (bytes.size() >= wordSize) {
        add(load<std::uint64_t>(bytes, 0));
        bytes.remove_prefix(wordSize);
    }
    std::string rest(bytes);
    rest.resize(wordSize); // the length is in the starting value
    add(load<std::uint64_t>(rest, 0));
    return fmt::format("{:016x}{:016x}", mixed(first), mixed(second));
}

Dxt1Cache::Dxt1Cache(std::filesystem::path path) : folder(std::move(path))
{
    if (!folder.empty()) {
        makeFolder(folder);
    }
}

std::optional<Dxt1Image> Dxt1Cache::find(std::string_view png, Effort effort) const
{
    if (folder.empty()) {
        return std::nullopt;
    }
    const std::filesystem::path entry = entryOf(png, effort);
    std::error_code code;
    if (!std::filesystem::is_regular_file(entry, code)) {
        return std::nullopt;
    }
    std::string bytes = readFile(entry);
    if (bytes.size() < sizeof(std::uint64_t) + hashSize) {
        return std::nullopt;
    }
    const std::string_view content(bytes.data(), bytes.size() - hashSize);
    if (contentHash(content) != std::string_view(bytes).substr(content.size())) {
        return std::nullopt;
    }
    const std::size_t blocksSize = content.size() - sizeof(std::uint64_t);
    Dxt1Image image{{}, load<std::uint64_t>(content, blocksSize)};
    bytes.resize(blocksSize);
    image.blocks = std::move(bytes);
    return image;
}

void Dxt1Cache::keep(std::string_view png, Effort effort, const Dxt1Image& image) const
{
    if (folder.empty()) {
        return;
    }
    std::string bytes = image.blocks;
    append(bytes, image.squaredError);
    bytes += contentHash(bytes);
    AtomicFile(entryOf(png, effort), bytes).commit();
}

std::filesystem::path Dxt1Cache::entryOf(std::string_view png, Effort effort) const
{
    return folder / fmt::format("{}-{}-{}.dxt1", contentHash(png), effort == Effort::Quick ? "quick" : "best",
                                encoderVersion);
}

} // namespace tools::packer
