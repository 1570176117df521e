#include "tools/packer/dxt1_cache.h"

#include "tools/common/atomic_file.h"
#include "tools/common/bytes.h"
#include "tools/common/error.h"
#include "tools/common/read_file.h"

#include <cstdint>
#include <fmt/format.h>
#include <utility>
#include <xxhash.h>

namespace tools::packer {

namespace {

constexpr std::size_t hashSize = 32; // in digits

} // namespace

std::string contentHash(std::string_view bytes)
{
    const XXH128_hash_t hash = XXH3_128bits(bytes.data(), bytes.size());
    return fmt::format("{:016x}{:016x}", hash.high64, hash.low64);
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
