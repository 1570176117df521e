#pragma once

#include <filesystem>
#include <string>

namespace tools {

/// All bytes of a file. Throws `Error` "PATH: cannot read: REASON", for a folder too.
std::string readFile(const std::filesystem::path& path);

} // namespace tools
