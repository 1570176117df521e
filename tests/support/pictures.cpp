#include "tests/support/pictures.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <random>
#include <spng.h>
#include <stdexcept>

namespace {

void check(int code)
{
    if (code != 0) {
        throw std::runtime_error(spng_strerror(code));
    }
}

} // namespace

tools::picture::RgbImage makePicture(tools::picture::Size size, unsigned seed)
{
    std::mt19937 random(seed);
    std::normal_distribution<float> grain(0.0F, 3.0F);
    tools::picture::RgbImage image{size, {}};
    for (std::uint32_t y = 0; y < size.height; ++y) {
        for (std::uint32_t x = 0; x < size.width; ++x) {
            const float u = static_cast<float>(x) / 19.0F + static_cast<float>(seed);
            const float v = static_cast<float>(y) / 13.0F;
            const float light = 110.0F + 70.0F * std::sin(u) * std::cos(v) + grain(random);
            const float shape = std::sin(u * 0.7F) + std::sin(v * 0.9F);
            const float level = shape < -0.6F ? 0.0F : shape < -0.4F ? 6.0F + grain(random) : light;
            for (const float tint : {1.0F, 0.8F, 0.6F}) {
                image.pixels.push_back(static_cast<std::uint8_t>(std::clamp(level * tint, 0.0F, 255.0F)));
            }
        }
    }
    return image;
}

std::string encodePng(tools::picture::Size size, PngKind kind, const std::string& pixels)
{
    const std::unique_ptr<spng_ctx, void (*)(spng_ctx*)> encoder(spng_ctx_new(SPNG_CTX_ENCODER),
                                                                 &spng_ctx_free);
    check(spng_set_option(encoder.get(), SPNG_ENCODE_TO_BUFFER, 1));
    spng_ihdr header{};
    header.width = size.width;
    header.height = size.height;
    header.color_type = kind.colorType;
    header.bit_depth = kind.bitDepth;
    check(spng_set_ihdr(encoder.get(), &header));
    if (kind.colorType == SPNG_COLOR_TYPE_INDEXED) {
        spng_plte palette{};
        palette.n_entries = 1U << kind.bitDepth;
        for (std::uint32_t i = 0; i < palette.n_entries; ++i) {
            palette.entries[i] = {static_cast<std::uint8_t>(i), static_cast<std::uint8_t>(2 * i),
                                  static_cast<std::uint8_t>(3 * i), 255};
        }
        check(spng_set_plte(encoder.get(), &palette));
    }
    check(spng_encode_image(encoder.get(), pixels.data(), pixels.size(), SPNG_FMT_PNG, SPNG_ENCODE_FINALIZE));
    int code = 0;
    std::size_t length = 0;
    const std::unique_ptr<void, void (*)(void*)> bytes(spng_get_png_buffer(encoder.get(), &length, &code),
                                                       &std::free);
    check(code);
    return {static_cast<const char*>(bytes.get()), length};
}

std::string encodePng(const tools::picture::RgbImage& image)
{
    return encodePng(image.size, rgbPng, std::string(image.pixels.begin(), image.pixels.end()));
}
