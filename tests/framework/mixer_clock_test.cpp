// The clock of the show is the decoder's own position in the very stream that is playing. The functions of
// the decoder that are defined here write down what SDL_mixer asks of it, and pass everything on.
#include "framework/mixer.h"
#include "tests/framework/ogg_file.h"
#include "tests/support/temporary_folder.h"

// The header's tables of callbacks are of no use here.
#define OV_EXCLUDE_STATIC_CALLBACKS

#include <SDL.h>
#include <SDL_mixer.h>
#include <array>
#include <atomic>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>
#include <vorbis/vorbisfile.h>

namespace {

using testing::StartsWith;

/// A call of `ov_time_tell`.
struct Tell {
    const OggVorbis_File* stream;
    double seconds;
};

/// What was asked of the decoder.
struct Decoder {
    std::mutex mutex;
    bool recording = false;
    std::vector<const OggVorbis_File*> opened;
    std::vector<Tell> tells;
    const OggVorbis_File* played = nullptr; ///< the stream of the last read
    bool playedAnother = false;             ///< reads came from two streams
    long framesRead = 0;
    // Each handle that SDL_mixer gave: the music is never freed, and is not to be taken for a leak.
    std::vector<Mix_Music*> loaded;
};

Decoder& decoder()
{
    // Never destroyed: the leak check comes after the destructors, and SDL's threads may end late.
    static Decoder& instance = *new Decoder;
    return instance;
}

template<class Function>
Function* next(const char* name)
{
    auto* function = reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
    if (function == nullptr) {
        std::abort();
    }
    return function;
}

} // namespace

// Their parameters are named as in the libraries' own headers.
extern "C" {

double ov_time_tell(OggVorbis_File* vf)
{
    static auto* const original = next<double(OggVorbis_File*)>("ov_time_tell");
    const double seconds = original(vf);
    const std::lock_guard lock(decoder().mutex);
    if (decoder().recording) {
        decoder().tells.push_back({vf, seconds});
    }
    return seconds;
}

int ov_open_callbacks(void* datasource, OggVorbis_File* vf, const char* initial, long ibytes,
                      ov_callbacks callbacks)
{
    static auto* const original =
        next<int(void*, OggVorbis_File*, const char*, long, ov_callbacks)>("ov_open_callbacks");
    {
        const std::lock_guard lock(decoder().mutex);
        if (decoder().recording) {
            decoder().opened.push_back(vf);
        }
    }
    return original(datasource, vf, initial, ibytes, callbacks);
}

long ov_read(OggVorbis_File* vf, char* buffer, int length, int bigendianp, int word, int sgned,
             int* bitstream)
{
    static auto* const original = next<long(OggVorbis_File*, char*, int, int, int, int, int*)>("ov_read");
    const long bytes = original(vf, buffer, length, bigendianp, word, sgned, bitstream);
    const std::lock_guard lock(decoder().mutex);
    decoder().playedAnother =
        decoder().playedAnother || (decoder().played != nullptr && decoder().played != vf);
    decoder().played = vf;
    if (bytes > 0) {
        decoder().framesRead += bytes / 4; // two channels of 16 bits
    }
    return bytes;
}

Mix_Music* Mix_LoadMUS(const char* file)
{
    static auto* const original = next<Mix_Music*(const char*)>("Mix_LoadMUS");
    Mix_Music* music = original(file);
    decoder().loaded.push_back(music);
    return music;
}

} // extern "C"

namespace {

constexpr long rate = 44100;
constexpr long musicFrames = 2 * rate + rate / 2;
constexpr double musicSeconds = 2.5;

std::uint64_t bitsOf(double value)
{
    return std::bit_cast<std::uint64_t>(value);
}

long framesRead()
{
    const std::lock_guard lock(decoder().mutex);
    return decoder().framesRead;
}

/// The real library plays a file of two and a half seconds into nowhere.
class MixerClock : public testing::Test {
protected:
    MixerClock()
    {
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIOFILE", "/dev/null", 1);
        setChunkTime("2");
        writeOggFile(path, musicFrames);
        decoder().opened.clear();
        decoder().tells.clear();
        decoder().played = nullptr;
        decoder().playedAnother = false;
        decoder().framesRead = 0;
        decoder().recording = true;
    }
    ~MixerClock() override
    {
        mixer.reset();
        decoder().recording = false;
    }

    /// How long the device takes for 1024 frames. They last 23 milliseconds.
    static void setChunkTime(const char* milliseconds) { setenv("SDL_DISKAUDIODELAY", milliseconds, 1); }

    void load()
    {
        mixer = std::make_unique<Mixer>();
        mixer->openAudio();
        mixer->loadMusic(path.c_str());
    }

    /// The position, having checked that it is what the decoder said of the one stream that was opened.
    double checkedPosition()
    {
        const std::size_t before = decoder().tells.size();
        const double position = mixer->getMusicPosition();
        const std::lock_guard lock(decoder().mutex);
        if (decoder().tells.size() != before + 1 || decoder().opened.empty()) {
            ADD_FAILURE() << "the decoder was not asked just once";
            return position;
        }
        EXPECT_EQ(bitsOf(position), bitsOf(decoder().tells.back().seconds));
        EXPECT_EQ(decoder().opened.size(), 1U);
        EXPECT_EQ(decoder().tells.back().stream, decoder().opened.front());
        return position;
    }

    /// Calls `look` again and again while the music plays, and once after it has run out.
    template<class Look>
    static void whilePlaying(Look look)
    {
        const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (Mix_PlayingMusic() != 0) {
            look();
            if (std::chrono::steady_clock::now() > giveUp) {
                FAIL() << "the music does not end";
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        look();
    }

    TemporaryFolder folder;
    const std::string path = (folder.path() / "music.ogg").string();
    std::unique_ptr<Mixer> mixer;
};

TEST_F(MixerClock, StandsAtZeroUntilTheMusicPlays)
{
    load();
    EXPECT_EQ(checkedPosition(), 0.0);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(checkedPosition(), 0.0);
}

TEST_F(MixerClock, StandsCloseToZeroRightAfterTheStart)
{
    setChunkTime("23");
    load();
    mixer->playMusic();
    EXPECT_LT(checkedPosition(), 0.25);
}

TEST_F(MixerClock, IsWhatTheDecoderTellsOfItsStreamFromTheStartToBehindTheEnd)
{
    load();
    checkedPosition();
    mixer->playMusic();
    int between = 0;
    whilePlaying([&] {
        const double position = checkedPosition();
        between += position > 0.0 && position < musicSeconds ? 1 : 0;
    });
    EXPECT_GE(between, 3);
    EXPECT_EQ(checkedPosition(), musicSeconds);
}

TEST_F(MixerClock, ReadsTheVeryStreamThatIsPlaying)
{
    load();
    mixer->playMusic();
    whilePlaying([&] { checkedPosition(); });
    EXPECT_NE(decoder().played, nullptr);
    ASSERT_FALSE(decoder().tells.empty());
    EXPECT_EQ(decoder().played, decoder().tells.back().stream);
    EXPECT_FALSE(decoder().playedAnother);
}

TEST_F(MixerClock, CountsTheFramesThatWereDecodedNotTheTimeThatPassed)
{
    load();
    mixer->playMusic();
    whilePlaying([&] {
        const long before = framesRead();
        const long frames = std::lround(mixer->getMusicPosition() * rate);
        EXPECT_GE(frames, before);
        EXPECT_LE(frames, framesRead());
    });
    EXPECT_EQ(framesRead(), musicFrames);
}

TEST_F(MixerClock, NeverGoesBack)
{
    load();
    mixer->playMusic();
    double last = 0.0;
    whilePlaying([&] {
        const double position = mixer->getMusicPosition();
        EXPECT_GE(position, last);
        last = position;
    });
    EXPECT_EQ(last, musicSeconds);
}

TEST_F(MixerClock, StaysAtTheWholeTimeOfTheFileAfterTheEnd)
{
    load();
    mixer->playMusic();
    whilePlaying([] {});
    decoder().recording = false;
    OggVorbis_File independent;
    ASSERT_EQ(ov_fopen(path.c_str(), &independent), 0);
    const double total = ov_time_total(&independent, -1);
    ov_clear(&independent);
    EXPECT_EQ(total, musicSeconds);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(bitsOf(mixer->getMusicPosition()), bitsOf(total));
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

// On the SDL_mixer of this system the second word of a music leads to the decoder's state, and the stream
// lies 24 bytes into it. The clock asks the library instead, which comes out at the same stream.
TEST_F(MixerClock, ReadsTheStreamThatThePrivateLayoutOfTheMusicLeadsTo)
{
    load();
    checkedPosition();
    ASSERT_FALSE(decoder().tells.empty());
    std::array<const char*, 2> words = {};
    std::memcpy(words.data(), decoder().loaded.back(), sizeof words);
    EXPECT_EQ(static_cast<const void*>(words[1] + 24), decoder().tells.back().stream);
}

TEST_F(MixerClock, FailsOnAMissingFileWithTheTextOfSdl)
{
    Mixer lonely;
    lonely.openAudio();
    const std::string nowhere = (folder.path() / "nowhere.ogg").string();
    try {
        lonely.loadMusic(nowhere.c_str());
        ADD_FAILURE() << "nothing was thrown";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(error.what(), std::string("mixer failed to load music: ") + SDL_GetError());
        EXPECT_THAT(SDL_GetError(), StartsWith("Couldn't open"));
    }
}

} // namespace
