#include "tests/tools/packer/random_blocks.h"

tools::packer::Texels randomBlock(std::size_t kind, std::mt19937& random)
{
    constexpr unsigned ranges[] = {256, 32, 5, 256};
    const auto below = [&random](unsigned range) {
        return static_cast<std::uint8_t>(random() % range);
    };
    const std::size_t colors = kind / 2;
    const bool mixed = kind % 2 == 1;
    const std::size_t only = random() % 3;
    const unsigned blacksOf16 = below(17);
    tools::packer::Texels texels{};
    for (auto& texel : texels) {
        for (std::size_t channel = 0; channel < 3; ++channel) {
            texel[channel] = colors == 3 && channel != only ? std::uint8_t{0} : below(ranges[colors]);
        }
        if (mixed && below(16) < blacksOf16) {
            texel = {};
        }
        texel[3] = (texel[0] | texel[1] | texel[2]) == 0 ? 0 : 255;
    }
    return texels;
}
