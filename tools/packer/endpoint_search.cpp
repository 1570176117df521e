#include "tools/packer/endpoint_search.h"

#include "tools/packer/black_guard.h"

#include <algorithm>
#include <limits>

namespace tools::packer {

namespace {

constexpr int rounds = 2; // a third one gains 0.01 dB

/// More than any sum of squared differences: what a black code costs a coloured texel, and the reverse.
constexpr float forbidden = 1e7F;

/// The texels by channel, in floats for the sake of vector instructions: all sums are whole and exact.
struct Channels {
    float color[3][16];
    float blackCodeCost[16];
    float otherCodeCost[16];
};

Channels channelsOf(const Texels& texels)
{
    Channels channels{};
    for (std::size_t i = 0; i < texels.size(); ++i) {
        for (std::size_t channel = 0; channel < 3; ++channel) {
            channels.color[channel][i] = texels[i][channel];
        }
        const bool isBlack = texels[i][3] == 0;
        channels.blackCodeCost[i] = isBlack ? 0.0F : forbidden;
        channels.otherCodeCost[i] = isBlack ? forbidden : 0.0F;
    }
    return channels;
}

/// Squared error of the endpoints with the best codes.
float errorOf(Dxt1Block block, const Channels& channels)
{
    const Palette palette = paletteOf(block);
    const std::array<bool, 4> black = blackCodes(block);
    float nearest[16];
    std::fill_n(nearest, 16, std::numeric_limits<float>::max());
    for (std::size_t code = 0; code < 4; ++code) {
        const auto red = static_cast<float>(palette[code][0]);
        const auto green = static_cast<float>(palette[code][1]);
        const auto blue = static_cast<float>(palette[code][2]);
        const float* cost = black[code] ? channels.blackCodeCost : channels.otherCodeCost;
        for (std::size_t i = 0; i < 16; ++i) {
            const float r = channels.color[0][i] - red;
            const float g = channels.color[1][i] - green;
            const float b = channels.color[2][i] - blue;
            const float distance = r * r + g * g + b * b + cost[i];
            nearest[i] = distance < nearest[i] ? distance : nearest[i];
        }
    }
    float sum = 0.0F;
    for (const float distance : nearest) {
        sum += distance;
    }
    return sum;
}

struct Channel565 {
    int shift;
    int largest;
};
constexpr Channel565 channels565[] = {{11, 31}, {5, 63}, {0, 31}};

/// `color` moved by `step` in one channel; stops at the channel's ends.
std::uint16_t moved(std::uint16_t color, Channel565 channel, int step)
{
    const int value = color >> channel.shift & channel.largest;
    const int next = std::clamp(value + step, 0, channel.largest);
    return static_cast<std::uint16_t>(color + ((next - value) << channel.shift));
}

struct Move {
    int step0;
    int step1;
};
constexpr Move moves[] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}, {-1, -1}, {1, -1}, {-1, 1}, {1, 1}};

} // namespace

Dxt1Block searchEndpoints(Dxt1Block block, const Texels& texels)
{
    const Channels channels = channelsOf(texels);
    float error = errorOf(block, channels);
    for (int round = 0; round < rounds; ++round) {
        const Dxt1Block before = block;
        for (const Move& move : moves) {
            for (const Channel565& channel : channels565) {
                const Dxt1Block next = {moved(block.color0, channel, move.step0),
                                        moved(block.color1, channel, move.step1), 0};
                const float nextError = errorOf(next, channels);
                if (nextError < error) {
                    error = nextError;
                    block = next;
                }
            }
        }
        if (block == before) {
            break;
        }
    }
    return withNearestCodes(block, texels);
}

} // namespace tools::packer
