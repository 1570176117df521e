#pragma once

#include "tools/packer/rgb_image.h"

#include <cstdint>
#include <glm/vec3.hpp>
#include <string>

namespace tools {

/// Reads WIDTHxHEIGHT in pixels, each 1 to 8192.
/// Throws `Error` "OPTION TEXT: expected WIDTHxHEIGHT, each 1 to 8192".
Size parsePictureSize(const std::string& option, const std::string& text);

/// Reads three numbers "x,y,z". Throws `Error` "OPTION TEXT: expected three numbers, as 1,0.5,-2".
glm::vec3 parsePoint(const std::string& option, const std::string& text);

/// Reads a finite number. Throws `Error` "PLACE: expected a number".
double parseNumber(const std::string& place, const std::string& text);

/// Reads a row from 0 on, as a whole number. Throws `Error` with the option, the text and the reason.
std::int32_t parseShowRow(const std::string& text);

/// Reads BAR, BAR:BEAT or BAR:BEAT:ROW, each counted from 0, as the value of an option. Throws as above.
std::int32_t parseBar(const std::string& text, const std::string& option = "--bar");

/// The first position in the music, in seconds, that stands at `row`: one instant earlier a step key of that
/// row would not count yet.
double timeOfRow(std::int32_t row);

} // namespace tools
