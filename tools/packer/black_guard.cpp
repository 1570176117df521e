#include "tools/packer/black_guard.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tools::packer {

namespace {

constexpr std::uint16_t darkest = 0x0821; // 1 in each channel: the darkest grey that is not black
constexpr Dxt1Block allBlack = {0, 0, 0xFFFFFFFF};

bool isBlack(const std::array<std::uint8_t, 4>& texel)
{
    return texel[3] == 0;
}

/// Endpoints that are not black, in the order that gives a black code if one is needed, and four colours if
/// not.
Dxt1Block withColoredEndpoints(Dxt1Block block, bool needsBlack)
{
    const auto raised = [](std::uint16_t color) {
        return color == 0 ? darkest : color;
    };
    const auto [low, high] = std::minmax({raised(block.color0), raised(block.color1)});
    return needsBlack ? Dxt1Block{low, high, 0} : Dxt1Block{high, low, 0};
}

} // namespace

std::array<bool, 4> blackCodes(Dxt1Block block)
{
    const bool first = block.color0 == 0;
    const bool second = block.color1 == 0;
    return {first, second, first && second, !block.hasFourColors() || (first && second)};
}

Dxt1Block withNearestCodes(Dxt1Block block, const Texels& texels)
{
    const Palette palette = paletteOf(block);
    const std::array<bool, 4> black = blackCodes(block);
    block.codes = 0;
    for (std::size_t i = 0; i < texels.size(); ++i) {
        int nearest = std::numeric_limits<int>::max();
        std::uint32_t code = 0;
        for (std::uint32_t candidate = 0; candidate < 4; ++candidate) {
            if (black[candidate] != isBlack(texels[i])) {
                continue;
            }
            int distance = 0;
            for (std::size_t channel = 0; channel < 3; ++channel) {
                const int difference = palette[candidate][channel] - texels[i][channel];
                distance += difference * difference;
            }
            if (distance < nearest) {
                nearest = distance;
                code = candidate;
            }
        }
        block.codes |= code << (2 * i);
    }
    return block;
}

bool keepsBlackExact(Dxt1Block block, const Texels& texels)
{
    const std::array<bool, 4> black = blackCodes(block);
    for (std::size_t i = 0; i < texels.size(); ++i) {
        if (black[block.code(i)] != isBlack(texels[i])) {
            return false;
        }
    }
    return true;
}

Dxt1Block withExactBlack(Dxt1Block block, const Texels& texels)
{
    if (keepsBlackExact(block, texels)) {
        return block;
    }
    const auto blacks = std::count_if(texels.begin(), texels.end(), isBlack);
    if (blacks == static_cast<std::ptrdiff_t>(texels.size())) {
        return allBlack;
    }
    const Dxt1Block raised = withNearestCodes(withColoredEndpoints(block, blacks > 0), texels);
    // Other codes may be enough: a black endpoint serves the black texels, and three colours are left.
    const Dxt1Block kept = withNearestCodes(block, texels);
    if (keepsBlackExact(kept, texels) && squaredError(kept, texels) <= squaredError(raised, texels)) {
        return kept;
    }
    return raised;
}

} // namespace tools::packer
