#pragma once

#include "tools/picture/rgb_image.h"

#include <string>

namespace tools::picture {

/// Where a picture goes: a PNG file, NAME.png; 3 bytes a pixel and nothing else, NAME.rgb; or the latter to
/// standard output, "-".
class PictureFile {
public:
    /// Throws `Error` for any other name, and for one in a folder that doesn't exist.
    explicit PictureFile(std::string name);

    /// Writes a whole file, or none. Throws `Error` with the file and the reason.
    void write(const RgbImage& image) const;

private:
    std::string name;
};

/// The bytes of a PNG file. The same picture gives the same bytes.
std::string encodePicture(const RgbImage& image);

} // namespace tools::picture
