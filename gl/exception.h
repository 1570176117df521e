#pragma once

#include <stdexcept>
#include <string>

namespace zund {

/// What the GL layer throws. `what()` gives the message.
class Exception : public std::runtime_error {
public:
    Exception(const std::string& message) : std::runtime_error(message) {}
};

} // namespace zund
