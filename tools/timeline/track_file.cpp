#include "tools/timeline/track_file.h"

#include "tools/common/bytes.h"
#include "tools/common/error.h"
#include "tools/timeline/text_fields.h"

#include <cmath>
#include <cstdint>
#include <fmt/format.h>

namespace tools::timeline {

namespace {

constexpr std::size_t countSize = 4;
constexpr std::size_t keySize = 9;

} // namespace

std::string encodeTrack(const std::vector<sync_key>& keys)
{
    std::string bytes;
    append(bytes, static_cast<std::int32_t>(keys.size()));
    for (const sync_key& key : keys) {
        append(bytes, key.row);
        append(bytes, key.value);
        append(bytes, static_cast<std::int8_t>(key.type));
    }
    return bytes;
}

std::vector<sync_key> decodeTrack(std::string_view bytes, const std::string& file)
{
    if (bytes.size() < countSize) {
        throw Error(file, fmt::format("{} bytes are too few for a key count", bytes.size()));
    }
    const auto count = load<std::int32_t>(bytes, 0);
    if (count < 0) {
        throw Error(file, fmt::format("the key count is {}", count));
    }
    const std::size_t expected = countSize + keySize * static_cast<std::size_t>(count);
    if (bytes.size() != expected) {
        throw Error(file, fmt::format("{} bytes, but {} keys take {}", bytes.size(), count, expected));
    }
    std::vector<sync_key> keys;
    for (std::size_t at = countSize; at < bytes.size(); at += keySize) {
        const sync_key key = {load<std::int32_t>(bytes, at), load<float>(bytes, at + 4),
                              load<std::int8_t>(bytes, at + 8)};
        const std::size_t number = keys.size() + 1;
        if (typeName(key.type) == nullptr) {
            throw Error(file, fmt::format("key {}: unknown type {}", number, key.type));
        }
        if (!std::isfinite(key.value)) {
            throw Error(file, fmt::format("key {}: the value is not finite", number));
        }
        if (!keys.empty() && key.row <= keys.back().row) {
            throw Error(file, fmt::format("key {}: row {} does not come after row {}", number, key.row,
                                          keys.back().row));
        }
        keys.push_back(key);
    }
    return keys;
}

} // namespace tools::timeline
