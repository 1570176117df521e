#pragma once

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string_view>

/// Makes a file, or makes it anew.
inline void writeFile(const std::filesystem::path& path, std::string_view bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + path.string());
    }
}
