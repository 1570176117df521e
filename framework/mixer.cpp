#include "framework/mixer.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <stdexcept>
#include <string>

Mixer::Mixer()
{
    if ((Mix_Init(MIX_INIT_OGG) & MIX_INIT_OGG) == 0) {
        throw std::runtime_error("mixer failed to init");
    }
}

Mixer::~Mixer()
{
    Mix_CloseAudio();
    Mix_Quit();
}

void Mixer::openAudio()
{
    constexpr int frequency = 44100;
    constexpr int channels = 2;
    constexpr int chunkSize = 1024; // in sample frames
    if (Mix_OpenAudio(frequency, AUDIO_S16LSB, channels, chunkSize) == -1) {
        throw std::runtime_error("mixer failed to open audio");
    }
}

void Mixer::loadMusic(const char* path)
{
    music = Mix_LoadMUS(path);
    if (music == nullptr) {
        throw std::runtime_error(std::string("mixer failed to load music: ") + SDL_GetError());
    }
}

void Mixer::playMusic()
{
    Mix_PlayMusic(music, 1);
}

double Mixer::getMusicPosition() const
{
    // For Ogg Vorbis this is `ov_time_tell` of the very stream that is playing, also after its end.
    return Mix_GetMusicPosition(music);
}
