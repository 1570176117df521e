#pragma once

#include "tools/picture/rgb_image.h"

#include <glm/vec3.hpp>
#include <string>

namespace tools::stage {

/// Reads WIDTHxHEIGHT in pixels, each 1 to 8192.
/// Throws `Error` "OPTION TEXT: expected WIDTHxHEIGHT, each 1 to 8192".
picture::Size parsePictureSize(const std::string& option, const std::string& text);

/// Reads three numbers "x,y,z". Throws `Error` "OPTION TEXT: expected three numbers, as 1,0.5,-2".
glm::vec3 parsePoint(const std::string& option, const std::string& text);

/// Reads a finite number. Throws `Error` "PLACE: expected a number".
double parseNumber(const std::string& place, const std::string& text);

} // namespace tools::stage
