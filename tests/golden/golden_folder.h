#pragma once

#include "tests/golden/comparison.h"
#include "tests/golden/still.h"

#include <filesystem>
#include <string>
#include <vector>

// The folder of golden pictures: one PNG for each still, under its name.

std::filesystem::path goldenFile(const std::filesystem::path& folder, const Still& still);

/// The golden picture of a still. Throws `tools::Error` with the file, if it is missing too: nothing records
/// one but the command that is there for it.
tools::picture::RgbImage readGolden(const std::filesystem::path& folder, const Still& still);

/// What is amiss with the folder as such, a sentence each: pictures that are missing, that belong to no
/// still, that have another size, and any two that could be taken for each other.
std::vector<std::string> faultsOf(const std::filesystem::path& folder);

/// Compares a picture of a still with its golden one. Empty if they are the same; else a sentence, and
/// NAME.png and NAME.difference.png lie in `differences`. Throws as `readGolden` does.
std::string checkStill(const Still& still, const tools::picture::RgbImage& picture,
                       const std::filesystem::path& folder, const std::filesystem::path& differences);
