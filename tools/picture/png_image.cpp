#include "tools/picture/png_image.h"

#include "tools/common/error.h"

#include <memory>
#include <spng.h>

namespace tools::picture {

namespace {

using Decoder = std::unique_ptr<spng_ctx, void (*)(spng_ctx*)>;

void check(int code, const std::string& file)
{
    if (code != 0) {
        throw Error(file, std::string("no sound PNG: ") + spng_strerror(code));
    }
}

Decoder open(std::string_view bytes, const std::string& file)
{
    Decoder decoder(spng_ctx_new(0), &spng_ctx_free);
    if (decoder == nullptr) {
        throw std::bad_alloc();
    }
    check(spng_set_png_buffer(decoder.get(), bytes.data(), bytes.size()), file);
    return decoder;
}

Size readSize(spng_ctx* decoder, const std::string& file)
{
    spng_ihdr header{};
    check(spng_get_ihdr(decoder, &header), file);
    if (header.bit_depth > 8) {
        throw Error(file, "has 16 bits a channel, expected at most 8");
    }
    return {header.width, header.height};
}

} // namespace

Size readPngSize(std::string_view bytes, const std::string& file)
{
    return readSize(open(bytes, file).get(), file);
}

RgbImage decodePng(std::string_view bytes, const std::string& file)
{
    const Decoder decoder = open(bytes, file);
    RgbImage image{readSize(decoder.get(), file), {}};
    std::size_t length = 0;
    check(spng_decoded_image_size(decoder.get(), SPNG_FMT_RGB8, &length), file);
    image.pixels.resize(length);
    check(spng_decode_image(decoder.get(), image.pixels.data(), length, SPNG_FMT_RGB8, 0), file);
    check(spng_decode_chunks(decoder.get()),
          file); // up to the end mark, which the picture itself does not need
    return image;
}

} // namespace tools::picture
