#pragma once

#include "sync/track.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

/// The bytes of a value, in the order in which they lie in memory, which on our machines is little-endian.
template<class Value>
std::string bytesOf(const Value& value)
{
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}

/// A whole track file with these keys.
inline std::string trackFile(const std::vector<sync_key>& keys)
{
    std::string file = bytesOf(static_cast<std::int32_t>(keys.size()));
    for (const sync_key& key : keys) {
        file += bytesOf(key.row) + bytesOf(key.value) + static_cast<char>(key.type);
    }
    return file;
}
