#include "tools/picture/picture_file.h"

#include "tools/common/atomic_file.h"
#include "tools/common/error.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <spng.h>
#include <string_view>
#include <utility>

namespace tools::picture {

namespace {

constexpr const char* standardOutput = "-";

// Drawn pictures gain little from more.
constexpr int compression = 3;

void check(int code)
{
    if (code != 0) {
        throw Error("capture", std::string("cannot encode the PNG: ") + spng_strerror(code));
    }
}

std::string_view rawBytes(const RgbImage& image)
{
    return {reinterpret_cast<const char*>(image.pixels.data()), image.pixels.size()};
}

void writeToStandardOutput(std::string_view bytes)
{
    if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) != bytes.size() || std::fflush(stdout) != 0) {
        throw Error("standard output", "cannot write");
    }
}

} // namespace

PictureFile::PictureFile(std::string name) : name(std::move(name))
{
    if (this->name == standardOutput) {
        return;
    }
    const std::filesystem::path path = this->name;
    if (path.extension() != ".png" && path.extension() != ".rgb") {
        throw Error(this->name, "expected a name that ends in .png or .rgb, or -");
    }
    // Before the picture is drawn, which may take minutes.
    if (path.has_parent_path() && !std::filesystem::is_directory(path.parent_path())) {
        throw Error(this->name, "cannot write: there is no such folder");
    }
}

void PictureFile::write(const RgbImage& image) const
{
    if (name == standardOutput) {
        writeToStandardOutput(rawBytes(image));
    } else if (std::filesystem::path(name).extension() == ".rgb") {
        AtomicFile(name, rawBytes(image)).commit();
    } else {
        AtomicFile(name, encodePicture(image)).commit();
    }
}

std::string encodePicture(const RgbImage& image)
{
    const std::unique_ptr<spng_ctx, void (*)(spng_ctx*)> encoder(spng_ctx_new(SPNG_CTX_ENCODER),
                                                                 &spng_ctx_free);
    check(spng_set_option(encoder.get(), SPNG_ENCODE_TO_BUFFER, 1));
    check(spng_set_option(encoder.get(), SPNG_IMG_COMPRESSION_LEVEL, compression));
    spng_ihdr header{};
    header.width = image.size.width;
    header.height = image.size.height;
    header.color_type = SPNG_COLOR_TYPE_TRUECOLOR;
    header.bit_depth = 8;
    check(spng_set_ihdr(encoder.get(), &header));
    check(spng_encode_image(encoder.get(), image.pixels.data(), image.pixels.size(), SPNG_FMT_PNG,
                            SPNG_ENCODE_FINALIZE));
    int code = 0;
    std::size_t length = 0;
    const std::unique_ptr<void, void (*)(void*)> bytes(spng_get_png_buffer(encoder.get(), &length, &code),
                                                       &std::free);
    check(code);
    return {static_cast<const char*>(bytes.get()), length};
}

} // namespace tools::picture
