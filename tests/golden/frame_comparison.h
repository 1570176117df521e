#pragma once

#include "tests/golden/still.h"

#include <filesystem>
#include <string>
#include <vector>

// The folder of recorded frames: a text for each still, under its name.

std::filesystem::path frameFile(const std::filesystem::path& folder, const Still& still);

/// Compares a frame with the one recorded of the still, line by line. Empty if they are the same, else the
/// first difference: "frames/NAME.txt:12, draw sofa, mat4 projection: recorded '0 0 -1 0', came ...".
///
/// Text is the same to the letter. Numbers may differ by four units in the last place of the largest of their
/// line, which sines and sums cost that are rounded as another processor does it.
/// Throws `tools::Error` with the file, if it is missing.
std::string checkFrame(const Still& still, const std::string& frame, const std::filesystem::path& folder);

/// What is amiss with the folder as such, a sentence each: frames that are missing or that belong to no
/// still.
std::vector<std::string> frameFaultsOf(const std::filesystem::path& folder);
