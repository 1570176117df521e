#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

// What the text forms of the timeline have in common. All that fails throws `std::invalid_argument` with the
// reason, without the place.

namespace tools::timeline {

/// The text without spaces at its ends.
std::string_view trimmed(std::string_view text);

/// Cuts at every `separator`; the parts are trimmed. Always at least one part.
std::vector<std::string_view> fieldsOf(std::string_view line, char separator = ',');

/// Takes the first line off `text` and returns what stands in it before a `#`, trimmed.
std::string_view takeLine(std::string_view& text);

/// A finite number that fits into a float.
float parseValue(std::string_view text);

/// A `sync_key_type`, by its name.
std::int32_t parseType(std::string_view text);

/// "step" for 0 and so on; null for a type that does not exist.
const char* typeName(std::int32_t type);

} // namespace tools::timeline
