#pragma once

#include <iostream>
#include <sstream>

/// Keeps what the show says on standard output to itself, for as long as it lives. What the test says still
/// comes through.
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
