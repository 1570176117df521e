#pragma once

#include <filesystem>
#include <string>

namespace tools::capture {

/// A fingerprint of all files of a folder of assets, their names included. Throws `Error` "FOLDER: no folder
/// of assets is here; ..." if there is none.
std::string fingerprintOfAssets(const std::filesystem::path& assets);

/// A fingerprint of this program.
std::string fingerprintOfProgram();

/// The show's music in a folder of assets. Throws `Error` "FILE: there is no such file".
std::filesystem::path musicIn(const std::filesystem::path& assets);

} // namespace tools::capture
