#pragma once

#include <cstdint>
#include <string>

namespace tools::timeline {

/// Reads a row from 0 on, as a whole number. Throws `Error` with the option, the text and the reason.
std::int32_t parseShowRow(const std::string& text);

/// Reads BAR, BAR:BEAT or BAR:BEAT:ROW, each counted from 0, as the value of an option. Throws as above.
std::int32_t parseBar(const std::string& text, const std::string& option = "--bar");

/// The first position in the music, in seconds, that stands at `row`: one instant earlier a step key of that
/// row would not count yet.
double timeOfRow(std::int32_t row);

} // namespace tools::timeline
