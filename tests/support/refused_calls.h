#pragma once

#include <cstdint>

/// Fails the test that runs: the code has called a function of a library that no double of the test knows.
/// Gives 0, for whatever the function would have returned.
std::uintptr_t refuseCall(const char* function);

/// Leads all of GLEW's pointers to failures, each of which names its entry point.
void refuseEntryPoints();
