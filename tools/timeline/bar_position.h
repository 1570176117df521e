#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tools::timeline {

/// Reads a row of the timeline: a whole number, or BAR:BEAT:ROW, each counted from 0, at 16 rows a beat and 4
/// beats a bar: "4:2:8" is row 296. Only a whole number can be negative.
/// Throws `std::invalid_argument` with a reason, without the place, such as "row '4:5:0': a beat is 0 to 3".
std::int32_t parseRow(std::string_view text);

/// The row as BAR:BEAT:ROW; as a whole number if it is negative. `parseRow` reads either back.
std::string barPosition(std::int32_t row);

} // namespace tools::timeline
