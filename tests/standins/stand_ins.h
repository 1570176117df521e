#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace standins {

/// The bytes of a model's file, boxes in its place and size.
/// Throws `Error` "NAME: the show has no such model".
std::string modelFile(std::string_view name);

/// The bytes of a texture's DDS file, bars on the ground that textures of its kind have, in the size that its
/// scene uploads. Throws `Error` "NAME: the show has no such texture".
std::string textureFile(std::string_view name);

/// Fills a folder, which is made if need be, with all models and with a pack of all textures: NAME.glb and
/// assets.pack. Throws `Error` with the file and the reason.
void writeStandInAssets(const std::filesystem::path& folder);

} // namespace standins
