#pragma once

#include <stdexcept>
#include <string>

namespace tolv {

/// What the framework throws: the display and the sync device. `what()` gives the message.
class Exception : public std::runtime_error {
public:
    Exception(const std::string& message) : std::runtime_error(message) {}
};

} // namespace tolv
