#include "tests/framework/ogg_file.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <stdexcept>
#include <vorbis/vorbisenc.h>

namespace {

constexpr int channels = 2;
constexpr long rate = 44100;

void write(std::ofstream& file, const ogg_page& page)
{
    file.write(reinterpret_cast<const char*>(page.header), page.header_len);
    file.write(reinterpret_cast<const char*>(page.body), page.body_len);
}

/// The encoder's state, from its set-up to its end.
struct Encoder {
    Encoder()
    {
        vorbis_info_init(&info);
        if (vorbis_encode_init_vbr(&info, channels, rate, 0.1F) != 0) {
            throw std::runtime_error("the Vorbis encoder refuses its settings");
        }
        vorbis_comment_init(&comment);
        vorbis_analysis_init(&state, &info);
        vorbis_block_init(&state, &block);
        ogg_stream_init(&stream, 1);
    }
    ~Encoder()
    {
        ogg_stream_clear(&stream);
        vorbis_block_clear(&block);
        vorbis_dsp_clear(&state);
        vorbis_comment_clear(&comment);
        vorbis_info_clear(&info);
    }

    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;

    /// Takes out what is ready.
    void drain(std::ofstream& file)
    {
        while (vorbis_analysis_blockout(&state, &block) == 1) {
            vorbis_analysis(&block, nullptr);
            vorbis_bitrate_addblock(&block);
            ogg_packet packet = {};
            while (vorbis_bitrate_flushpacket(&state, &packet) == 1) {
                ogg_stream_packetin(&stream, &packet);
                ogg_page page = {};
                while (ogg_stream_pageout(&stream, &page) != 0) {
                    write(file, page);
                }
            }
        }
    }

    vorbis_info info = {};
    vorbis_comment comment = {};
    vorbis_dsp_state state = {};
    vorbis_block block = {};
    ogg_stream_state stream = {};
};

} // namespace

void writeOggFile(const std::string& path, long frames)
{
    std::ofstream file(path, std::ios::binary);
    Encoder encoder;

    ogg_packet header = {};
    ogg_packet comments = {};
    ogg_packet codebooks = {};
    vorbis_analysis_headerout(&encoder.state, &encoder.comment, &header, &comments, &codebooks);
    for (ogg_packet* packet : {&header, &comments, &codebooks}) {
        ogg_stream_packetin(&encoder.stream, packet);
    }
    ogg_page page = {};
    while (ogg_stream_flush(&encoder.stream, &page) != 0) { // sound starts on a page of its own
        write(file, page);
    }

    constexpr long portion = 1024;
    for (long done = 0; done < frames; done += portion) {
        const long count = std::min(portion, frames - done);
        float** buffer = vorbis_analysis_buffer(&encoder.state, static_cast<int>(count));
        for (long i = 0; i < count; ++i) {
            const float sample = 0.25F * std::sin(0.0627F * static_cast<float>(done + i)); // 440 Hz
            buffer[0][i] = sample;
            buffer[1][i] = -sample;
        }
        vorbis_analysis_wrote(&encoder.state, static_cast<int>(count));
        encoder.drain(file);
    }
    vorbis_analysis_wrote(&encoder.state, 0);
    encoder.drain(file);
    while (ogg_stream_flush(&encoder.stream, &page) != 0) {
        write(file, page);
    }
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + path);
    }
}
