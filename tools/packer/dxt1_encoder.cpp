#include "tools/packer/dxt1_encoder.h"

#include "tools/packer/black_guard.h"
#include "tools/packer/endpoint_search.h"
#include "tools/packer/parallel.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>
#include <squish.h>
#include <stb/stb_dxt.h>
#include <utility>
#include <vector>

namespace tools::packer {

namespace {

/// A block whose squared error is up to this stays as the fast fit gives it: 45 dB, of no visible difference.
constexpr std::uint32_t goodEnough = 96;

/// One of so many blocks, the worst ones, is also given to the cluster fit: it takes 50 microseconds a block,
/// the endpoint search 4.
constexpr std::size_t clusterFitShare = 32;

constexpr std::size_t blocksPerTurn = 256; // of a thread

struct Fit {
    Dxt1Block block;
    std::uint32_t error;
};

Fit better(const Fit& left, const Fit& right)
{
    return right.error < left.error ? right : left;
}

/// A candidate of some encoder, with its black made exact and its error measured after that.
Fit guarded(Dxt1Block block, const Texels& texels)
{
    const Dxt1Block exact = withExactBlack(block, texels);
    return {exact, squaredError(exact, texels)};
}

Dxt1Block readBlock(const unsigned char* bytes)
{
    Dxt1Block block{};
    std::memcpy(&block, bytes, sizeof block);
    return block;
}

Dxt1Block stbFit(const Texels& texels)
{
    unsigned char bytes[8];
    stb_compress_dxt_block(bytes, texels[0].data(), 0, STB_DXT_HIGHQUAL);
    return readBlock(bytes);
}

/// The texels with the coloured ones' mean in place of black, which a fit would otherwise reach out for.
Texels withoutBlack(Texels texels)
{
    std::array<unsigned, 3> sum{};
    unsigned count = 0;
    for (const auto& texel : texels) {
        for (std::size_t channel = 0; channel < 3; ++channel) {
            sum[channel] += texel[channel];
        }
        count += texel[3] == 0 ? 0 : 1;
    }
    for (auto& texel : texels) {
        if (texel[3] == 0) {
            for (std::size_t channel = 0; channel < 3; ++channel) {
                texel[channel] = static_cast<std::uint8_t>(sum[channel] / count);
            }
        }
    }
    return texels;
}

Fit quickFit(const Texels& texels)
{
    const auto blacks =
        std::count_if(texels.begin(), texels.end(), [](const auto& texel) { return texel[3] == 0; });
    if (blacks == static_cast<std::ptrdiff_t>(texels.size())) {
        return guarded({}, texels);
    }
    const Fit fit = guarded(stbFit(texels), texels);
    return blacks == 0 ? fit : better(fit, guarded(stbFit(withoutBlack(texels)), texels));
}

Fit searchedFit(const Fit& fit, const Texels& texels)
{
    const Dxt1Block block = searchEndpoints(fit.block, texels);
    return better(fit, {block, squaredError(block, texels)});
}

Fit clusterFit(const Texels& texels)
{
    float metric[3] = {1.0F, 1.0F, 1.0F};
    unsigned char bytes[8];
    // Black texels have alpha 0, for which it takes the black code.
    squish::Compress(texels[0].data(), bytes, squish::kDxt1 | squish::kColourClusterFit, metric);
    return guarded(readBlock(bytes), texels);
}

Texels texelsAt(const picture::RgbImage& image, std::size_t block)
{
    const std::size_t width = image.size.width;
    const std::size_t left = block % (width / 4) * 4;
    const std::size_t top = block / (width / 4) * 4;
    Texels texels{};
    for (std::size_t i = 0; i < texels.size(); ++i) {
        const std::uint8_t* pixel = &image.pixels[((top + i / 4) * width + left + i % 4) * 3];
        const bool isBlack = (pixel[0] | pixel[1] | pixel[2]) == 0;
        texels[i] = {pixel[0], pixel[1], pixel[2], static_cast<std::uint8_t>(isBlack ? 0 : 255)};
    }
    return texels;
}

/// The blocks that the cluster fit is worth its time for, worst first; of equal ones the first of the
/// picture.
std::vector<std::size_t> worstBlocks(const std::vector<Fit>& fits)
{
    std::vector<std::size_t> worst;
    for (std::size_t i = 0; i < fits.size(); ++i) {
        if (fits[i].error > goodEnough) {
            worst.push_back(i);
        }
    }
    const std::size_t count = std::min(worst.size(), (fits.size() + clusterFitShare - 1) / clusterFitShare);
    std::partial_sort(worst.begin(), worst.begin() + static_cast<std::ptrdiff_t>(count), worst.end(),
                      [&](std::size_t left, std::size_t right) {
                          return std::pair(fits[right].error, left) < std::pair(fits[left].error, right);
                      });
    worst.resize(count);
    return worst;
}

template<typename Work>
void forEachBlock(const std::vector<std::size_t>& blocks, unsigned threads, const Work& work)
{
    const std::size_t turns = (blocks.size() + blocksPerTurn - 1) / blocksPerTurn;
    forEachInParallel(turns, threads, [&](std::size_t turn) {
        const std::size_t end = std::min((turn + 1) * blocksPerTurn, blocks.size());
        for (std::size_t i = turn * blocksPerTurn; i < end; ++i) {
            work(blocks[i]);
        }
    });
}

} // namespace

Dxt1Image encodeDxt1(const picture::RgbImage& image, Effort effort, unsigned threads)
{
    std::vector<Fit> fits(std::size_t{image.size.width / 4} * (image.size.height / 4));
    std::vector<std::size_t> all(fits.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    forEachBlock(all, threads, [&](std::size_t block) {
        const Texels texels = texelsAt(image, block);
        const Fit fit = quickFit(texels);
        const bool enough = effort == Effort::Quick || fit.error <= goodEnough;
        fits[block] = enough ? fit : searchedFit(fit, texels);
    });
    if (effort == Effort::Best) {
        forEachBlock(worstBlocks(fits), threads, [&](std::size_t block) {
            const Texels texels = texelsAt(image, block);
            fits[block] = better(fits[block], searchedFit(clusterFit(texels), texels));
        });
    }
    Dxt1Image encoded{{}, 0};
    encoded.blocks.resize(fits.size() * sizeof(Dxt1Block));
    for (std::size_t i = 0; i < fits.size(); ++i) {
        std::memcpy(&encoded.blocks[i * sizeof(Dxt1Block)], &fits[i].block, sizeof(Dxt1Block));
        encoded.squaredError += fits[i].error;
    }
    return encoded;
}

double peakSignalToNoise(std::uint64_t squaredError, picture::Size size)
{
    if (squaredError == 0) {
        return std::numeric_limits<double>::infinity();
    }
    const double values = 3.0 * size.width * size.height;
    return 10.0 * std::log10(255.0 * 255.0 * values / static_cast<double>(squaredError));
}

} // namespace tools::packer
