#pragma once

#include "sync/track.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tools::timeline {

/// A key as it stands in a text file.
struct TextKey {
    sync_key key;
    std::size_t line; ///< from 1
};

/// How rows are printed.
enum class RowStyle { Plain, Bars };

/// Reads the text form of a track: one key a line, "row, value, type", in ascending order of the rows. A row
/// is what `parseRow` reads; the type is step, linear, smooth or ramp. Spaces are free, `#` begins a comment.
/// Between a line "repeat from, to, every" and a line "end" stand keys that come again every so many rows, as
/// long as the start lies before `to`; their rows count from each start.
/// Throws `Error` with `file` and the line, or with `file` alone if there is no key.
std::vector<TextKey> parseTrackText(std::string_view text, const std::string& file);

/// The text form of the keys. Reading it back gives the same keys to the bit, as long as their values are
/// finite.
std::string printTrackText(const std::vector<sync_key>& keys, RowStyle style);

} // namespace tools::timeline
