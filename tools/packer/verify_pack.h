#pragma once

#include <filesystem>
#include <string>

namespace tools::packer {

/// A table of what a pack holds: name, size in bytes, width x height, offset in the data area. Throws `Error`
/// for a pack that is not in order.
std::string listPack(const std::filesystem::path& pack);

/// Checks a whole pack: its table, and that each file is a DXT1 DDS, of the size that the show asks for under
/// its name unless `anySize`. Gives "PACK: 17 files, all well-formed"; throws `Error` with the first fault.
std::string verifyPack(const std::filesystem::path& pack, bool anySize);

} // namespace tools::packer
