#include "tools/packer/dxt1_block.h"

namespace tools::packer {

namespace {

/// The endpoint at 8 bits a channel: the top bits are repeated below.
std::array<int, 3> expanded(std::uint16_t color)
{
    const int red = color >> 11;
    const int green = color >> 5 & 63;
    const int blue = color & 31;
    return {red << 3 | red >> 2, green << 2 | green >> 4, blue << 3 | blue >> 2};
}

} // namespace

Palette paletteOf(Dxt1Block block, Rounding rounding)
{
    Palette palette{};
    palette[0] = expanded(block.color0);
    palette[1] = expanded(block.color1);
    const int bias = rounding == Rounding::Nearest ? 1 : 0;
    for (std::size_t channel = 0; channel < 3; ++channel) {
        const int first = palette[0][channel];
        const int second = palette[1][channel];
        if (block.hasFourColors()) {
            palette[2][channel] = (2 * first + second + bias) / 3;
            palette[3][channel] = (first + 2 * second + bias) / 3;
        } else {
            palette[2][channel] = (first + second + bias) / 2;
        }
    }
    return palette;
}

Texels decode(Dxt1Block block, Rounding rounding)
{
    const Palette palette = paletteOf(block, rounding);
    Texels texels{};
    for (std::size_t i = 0; i < texels.size(); ++i) {
        const auto& color = palette[block.code(i)];
        for (std::size_t channel = 0; channel < 3; ++channel) {
            texels[i][channel] = static_cast<std::uint8_t>(color[channel]);
        }
        texels[i][3] = (color[0] | color[1] | color[2]) == 0 ? 0 : 255;
    }
    return texels;
}

std::uint32_t squaredError(Dxt1Block block, const Texels& texels)
{
    const Palette palette = paletteOf(block);
    int sum = 0;
    for (std::size_t i = 0; i < texels.size(); ++i) {
        const auto& color = palette[block.code(i)];
        for (std::size_t channel = 0; channel < 3; ++channel) {
            const int difference = color[channel] - texels[i][channel];
            sum += difference * difference;
        }
    }
    return static_cast<std::uint32_t>(sum);
}

} // namespace tools::packer
