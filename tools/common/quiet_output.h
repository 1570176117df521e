#pragma once

#include <iostream>
#include <sstream>

namespace tools {

/// Keeps what the show says on standard output to itself, for as long as it lives. What is printed by other
/// means than `std::cout` still comes through.
class QuietOutput {
public:
    QuietOutput() : before(std::cout.rdbuf(said.rdbuf())) {}
    ~QuietOutput() { std::cout.rdbuf(before); }

    QuietOutput(const QuietOutput&) = delete;
    QuietOutput& operator=(const QuietOutput&) = delete;

private:
    std::ostringstream said;
    std::streambuf* before;
};

} // namespace tools
