#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace tools {

/// What a tool says before it gives up: one sentence that names the place and the reason.
class Error : public std::runtime_error {
public:
    /// "PLACE: REASON"; the place is a file, or an argument.
    Error(const std::string& place, const std::string& reason) : std::runtime_error(place + ": " + reason) {}

    /// "FILE:LINE: REASON"; lines count from 1.
    Error(const std::string& file, std::size_t line, const std::string& reason)
        : Error(file + ":" + std::to_string(line), reason)
    {
    }
};

} // namespace tools
