// The music, on an SDL_mixer that only writes down what it is told. The functions of the library that are
// defined here stand in the place of its own.
#include "framework/mixer.h"

#include "tests/support/message_of.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using testing::ElementsAre;

/// What the library was told, and what it is to answer.
struct Library {
    std::vector<std::string> calls;
    int initResult = MIX_INIT_OGG;
    int openResult = 0;
    bool loadFails = false;
    int playResult = 0;
    double position = 0.0;
};

Library library;

int musicObject = 0; // never looked into, only passed around
Mix_Music* const theMusic = reinterpret_cast<Mix_Music*>(&musicObject);

template<class... Parts>
void note(const Parts&... parts)
{
    std::ostringstream line;
    (line << ... << parts);
    library.calls.push_back(line.str());
}

std::string nameOf(const Mix_Music* music)
{
    return music == theMusic ? "music" : "something else";
}

} // namespace

// Their parameters are named as in the library's own header.
extern "C" {

int Mix_Init(int flags)
{
    note("Mix_Init ", flags);
    return library.initResult;
}

void Mix_Quit()
{
    note("Mix_Quit");
}

int Mix_OpenAudio(int frequency, Uint16 format, int channels, int chunksize)
{
    note("Mix_OpenAudio ", frequency, " ", format, " ", channels, " ", chunksize);
    return library.openResult;
}

void Mix_CloseAudio()
{
    note("Mix_CloseAudio");
}

Mix_Music* Mix_LoadMUS(const char* file)
{
    note("Mix_LoadMUS ", file);
    return library.loadFails ? nullptr : theMusic;
}

void Mix_FreeMusic(Mix_Music* music)
{
    note("Mix_FreeMusic ", nameOf(music));
}

int Mix_PlayMusic(Mix_Music* music, int loops)
{
    note("Mix_PlayMusic ", nameOf(music), " ", loops);
    return library.playResult;
}

double Mix_GetMusicPosition(Mix_Music* music)
{
    note("Mix_GetMusicPosition ", nameOf(music));
    return library.position;
}

} // extern "C"

namespace {

class MixerTest : public testing::Test {
protected:
    MixerTest()
    {
        library = {};
        SDL_ClearError();
    }

    /// The calls since the last time it was asked.
    static std::vector<std::string> calls() { return std::exchange(library.calls, {}); }
};

TEST_F(MixerTest, StartsTheLibraryWithOggVorbis)
{
    const Mixer mixer;
    EXPECT_THAT(calls(), ElementsAre("Mix_Init 16"));
}

TEST_F(MixerTest, TakesMoreDecodersThanItAskedFor)
{
    library.initResult = 0xFF;
    EXPECT_NO_THROW(Mixer());
}

TEST_F(MixerTest, FailsWithoutOggVorbisWhateverElseThereIs)
{
    for (const int result : {0, ~MIX_INIT_OGG & 0xFF}) {
        library.initResult = result;
        EXPECT_EQ(messageOf<std::runtime_error>([] { const Mixer mixer; }), "mixer failed to init") << result;
        EXPECT_THAT(calls(), ElementsAre("Mix_Init 16"));
    }
}

TEST_F(MixerTest, OpensAudioAt44100Hz16BitStereo)
{
    Mixer mixer;
    calls();
    mixer.openAudio();
    EXPECT_THAT(calls(), ElementsAre("Mix_OpenAudio 44100 32784 2 1024"));
}

TEST_F(MixerTest, FailsWithoutAnAudioDevice)
{
    Mixer mixer;
    library.openResult = -1;
    SDL_SetError("no device"); // which is not told
    EXPECT_EQ(messageOf<std::runtime_error>([&] { mixer.openAudio(); }), "mixer failed to open audio");
}

TEST_F(MixerTest, LoadsTheFileAtThePath)
{
    Mixer mixer;
    calls();
    mixer.loadMusic("assets/some music.ogg");
    EXPECT_THAT(calls(), ElementsAre("Mix_LoadMUS assets/some music.ogg"));
}

TEST_F(MixerTest, FailsWithTheTextOfSdlWithoutMusic)
{
    Mixer mixer;
    library.loadFails = true;
    SDL_SetError("no such file");
    EXPECT_EQ(messageOf<std::runtime_error>([&] { mixer.loadMusic("nowhere.ogg"); }),
              "mixer failed to load music: no such file");
}

TEST_F(MixerTest, PlaysTheMusicOnce)
{
    Mixer mixer;
    mixer.loadMusic("music.ogg");
    calls();
    mixer.playMusic();
    EXPECT_THAT(calls(), ElementsAre("Mix_PlayMusic music 1"));
}

TEST_F(MixerTest, DoesNotLookWhetherTheMusicPlays)
{
    Mixer mixer;
    mixer.loadMusic("music.ogg");
    library.playResult = -1;
    EXPECT_NO_THROW(mixer.playMusic());
}

TEST_F(MixerTest, GivesThePositionOfItsMusicUnchanged)
{
    Mixer mixer;
    mixer.loadMusic("music.ogg");
    calls();
    for (const double position : {0.0, 0x1.23456789abcdep+3, 239.99999999999997}) {
        library.position = position;
        EXPECT_EQ(mixer.getMusicPosition(), position);
        EXPECT_THAT(calls(), ElementsAre("Mix_GetMusicPosition music"));
    }
}

TEST_F(MixerTest, ClosesAudioThenEndsTheLibraryAndNeverFreesTheMusic)
{
    {
        Mixer mixer;
        mixer.openAudio();
        mixer.loadMusic("music.ogg");
        mixer.playMusic();
        calls();
    }
    EXPECT_THAT(calls(), ElementsAre("Mix_CloseAudio", "Mix_Quit"));
}

TEST_F(MixerTest, EndsInTheSameWayWithoutAudio)
{
    {
        const Mixer mixer;
        calls();
    }
    EXPECT_THAT(calls(), ElementsAre("Mix_CloseAudio", "Mix_Quit"));
}

} // namespace
