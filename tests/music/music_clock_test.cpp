// The show's tune and the show's clock: where the player stands when a bar's kick comes out of the decoder.
#include "framework/mixer.h"
#include "sync/tools.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <numbers>
#include <span>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr double rate = 44100.0;
constexpr std::size_t chunkFrames = 1024; // as the mixer opens the device
constexpr double chunkSeconds = chunkFrames / rate;
constexpr double secondsPerBar = 1.875;

/// Bars [first, end) whose first beat has a kick.
struct Bars {
    int first;
    int end;
};
constexpr Bars kickBars[] = {{8, 46}, {56, 93}};

/// All that came out of the mixer, and where the player stood after each chunk.
struct Recording {
    std::vector<double> samples;   ///< the left and right channel's mean, -1..1
    std::vector<double> positions; ///< seconds, one a chunk
    bool evenChunks = true;        ///< each had `chunkFrames`
};

/// Called by the mixer with each chunk that it has made.
void record(void* context, Uint8* stream, int length)
{
    auto& recording = *static_cast<Recording*>(context);
    if (Mix_PlayingMusic() == 0) {
        return;
    }
    const std::span words(reinterpret_cast<const std::int16_t*>(stream),
                          static_cast<std::size_t>(length) / 2);
    for (std::size_t i = 0; i + 1 < words.size(); i += 2) {
        recording.samples.push_back((words[i] + words[i + 1]) / 65536.0);
    }
    recording.evenChunks = recording.evenChunks && words.size() == 2 * chunkFrames;
    recording.positions.push_back(Mix_GetMusicPosition(nullptr));
}

/// Plays the tune as the player does, as fast as it decodes, to nowhere.
Recording recordTheTune()
{
    setenv("SDL_AUDIODRIVER", "disk", 1);
    setenv("SDL_DISKAUDIOFILE", "/dev/null", 1);
    setenv("SDL_DISKAUDIODELAY", "0", 1);
    Recording recording;
    Mixer mixer;
    mixer.openAudio();
    mixer.loadMusic(VESPERAL_TUNE);
    Mix_SetPostMix(record, &recording);
    mixer.playMusic();
    const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(90);
    while (Mix_PlayingMusic() != 0 && std::chrono::steady_clock::now() < giveUp) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    Mix_SetPostMix(nullptr, nullptr);
    return recording;
}

const Recording& theTune()
{
    static const Recording recording = recordTheTune();
    return recording;
}

/// What lies below a frequency, falling off by 12 dB an octave.
std::vector<double> below(std::vector<double> signal, double hertz)
{
    const double share = 1.0 - std::exp(-2.0 * std::numbers::pi * hertz / rate);
    double once = 0.0;
    double twice = 0.0;
    for (double& sample : signal) {
        once += share * (sample - once);
        twice += share * (once - twice);
        sample = twice;
    }
    return signal;
}

/// What lies above a frequency, falling off by 12 dB an octave.
std::vector<double> above(std::vector<double> signal, double hertz)
{
    const double share = 1.0 - std::exp(-2.0 * std::numbers::pi * hertz / rate);
    double once = 0.0;
    double twice = 0.0;
    for (double& sample : signal) {
        once += share * (sample - once);
        twice += share * (sample - once - twice);
        sample -= once + twice;
    }
    return signal;
}

/// The energy up to each sample, so that the energy of a stretch is a difference.
std::vector<double> energyOf(const std::vector<double>& signal)
{
    std::vector<double> sums = {0.0};
    for (const double sample : signal) {
        sums.push_back(sums.back() + sample * sample);
    }
    return sums;
}

/// Finds kicks in what was decoded: they fall from above 300 Hz to below 100.
class KickFinder {
public:
    explicit KickFinder(const std::vector<double>& samples)
        : front(energyOf(above(below(samples, 400.0), 150.0))), body(energyOf(below(samples, 100.0)))
    {
    }

    /// When a kick sets in: the place within `reach` of `around` at which the fronts of the next 20
    /// milliseconds have the most times the energy of those of the last 50, and much follows below. All in
    /// seconds.
    double onset(double around, double reach) const
    {
        constexpr std::size_t ahead = 882;
        constexpr std::size_t behind = 2205;
        constexpr std::size_t follows = 4410;
        constexpr double hardlyAnything = 1e-3 * behind;
        const auto first = static_cast<std::size_t>((around - reach) * rate);
        const auto end = static_cast<std::size_t>((around + reach) * rate);
        double greatest = 0.0;
        std::size_t place = first;
        for (std::size_t i = first; i < end; ++i) {
            const double rise =
                (front[i + ahead] - front[i]) / (front[i] - front[i - behind] + hardlyAnything);
            const double likelihood = rise * (body[i + follows] - body[i]);
            if (likelihood > greatest) {
                greatest = likelihood;
                place = i;
            }
        }
        return static_cast<double>(place) / rate;
    }

private:
    std::vector<double> front;
    std::vector<double> body;
};

/// A bar's kick, looked for half a beat around the time of the bar's row.
struct Kick {
    int bar;
    double late; ///< seconds from the row to the onset in the samples
    long
        chunksAhead; ///< from the chunk with the onset to that after which the player first stands at the row
};
std::vector<Kick> findKicks(const Recording& recording)
{
    const KickFinder finder(recording.samples);
    const auto& positions = recording.positions;
    std::vector<Kick> kicks;
    for (const auto [first, end] : kickBars) {
        for (int bar = first; bar < end; ++bar) {
            const double time = bar * secondsPerBar;
            const double seconds = finder.onset(time, 0.234);
            const auto sounds = static_cast<long>(seconds * rate) / static_cast<long>(chunkFrames);
            const auto shows = std::ranges::find_if(
                positions, [&](double position) { return timeToRow(position) >= bar * tempo::rowsPerBar; });
            kicks.push_back({bar, seconds - time, sounds - (shows - positions.begin())});
        }
    }
    return kicks;
}

} // namespace

TEST(MusicClock, GetsTheTuneInChunksOf1024Frames)
{
    EXPECT_TRUE(theTune().evenChunks);
    EXPECT_GT(theTune().samples.size(), static_cast<std::size_t>(184 * rate));
}

TEST(MusicClock, IsNeverBehindWhatWasDecodedAndLessThanAChunkAhead)
{
    const auto& positions = theTune().positions;
    for (std::size_t i = 0; i + 2 < positions.size(); ++i) { // the end of the file cuts the last chunk off
        const double ahead = positions[i] - static_cast<double>(i + 1) * chunkSeconds;
        ASSERT_GE(ahead, -1e-9) << "chunk " << i;
        ASSERT_LT(ahead, chunkSeconds) << "chunk " << i;
    }
}

TEST(MusicClock, ReachesRow64OfEachBarWithinAChunkOfItsKick)
{
    double earliest = 1.0;
    double latest = -1.0;
    for (const auto& [bar, late, chunksAhead] : findKicks(theTune())) {
        earliest = std::min(earliest, late);
        latest = std::max(latest, late);
        EXPECT_LE(std::abs(late), chunkSeconds) << "the kick of bar " << bar;
        EXPECT_LE(std::abs(chunksAhead), 1) << "the row of bar " << bar;
    }
    std::printf("kicks set in %.1f to %.1f ms behind the rows of their bars; a chunk lasts %.1f ms\n",
                earliest * 1000.0, latest * 1000.0, chunkSeconds * 1000.0);
}

TEST(MusicClock, ReachesTheRowsOfATuneThatComesTwoChunksLateTooEarly)
{
    Recording late = theTune();
    late.samples.insert(late.samples.begin(), 2 * chunkFrames, 0.0);
    for (const auto& [bar, onsetLate, chunksAhead] : findKicks(late)) {
        EXPECT_GT(onsetLate, chunkSeconds) << "the kick of bar " << bar;
        EXPECT_GT(chunksAhead, 1) << "the row of bar " << bar;
    }
}
