#pragma once

#include "sync/track.h"
#include "tests/sync/temporary_directory.h"

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
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

inline void writeFile(const std::filesystem::path& path, const std::string& content)
{
    std::ofstream stream(path, std::ios::binary);
    stream << content;
    if (!stream.flush()) {
        throw std::runtime_error("cannot write " + path.string());
    }
}

/// Works in an empty directory for as long as it lives: paths of tracks are relative to the working
/// directory.
class TemporaryWorkingDirectory {
public:
    TemporaryWorkingDirectory() : before(std::filesystem::current_path())
    {
        std::filesystem::current_path(directory.path());
    }
    ~TemporaryWorkingDirectory()
    {
        std::error_code ignored;
        std::filesystem::current_path(before, ignored);
    }

    TemporaryWorkingDirectory(const TemporaryWorkingDirectory&) = delete;
    TemporaryWorkingDirectory& operator=(const TemporaryWorkingDirectory&) = delete;

private:
    TemporaryDirectory directory;
    std::filesystem::path before;
};
