#pragma once

#include "tools/packer/dxt1_block.h"

#include <cstddef>
#include <random>

/// Kinds of blocks that tell encoders apart where black matters.
constexpr std::size_t blockKinds = 8;

/// A block of one kind, 0 to `blockKinds` - 1: any colours, dark, almost black, one channel only, each with
/// and without black texels among them.
tools::packer::Texels randomBlock(std::size_t kind, std::mt19937& random);
