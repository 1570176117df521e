#pragma once

#include <CLI/App.hpp>
#include <filesystem>
#include <string>

namespace tools::capture {

/// Options of the commands that write a picture.
struct PictureOptions {
    std::string output;                      ///< NAME.png, NAME.rgb, or -
    std::filesystem::path assets = "assets"; ///< a folder
    std::string size = "1920x1080";          ///< of a still: WIDTHxHEIGHT in pixels
};

/// Lets the command line set them; what they hold before is the default that the help names.
void addPictureOptions(CLI::App& command, PictureOptions& options);

} // namespace tools::capture
