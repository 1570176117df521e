#pragma once

struct _Mix_Music; // SDL_mixer's `Mix_Music`. NOLINT(bugprone-reserved-identifier)

/// Plays the one piece of music, and tells where in it the show stands: the show's clock.
///
/// To be used in the order of the functions below. Main thread only.
class Mixer {
public:
    /// Throws `std::runtime_error` "mixer failed to init" where SDL_mixer has no Ogg Vorbis.
    Mixer();
    /// Closes audio. The music is left to the end of the process.
    ~Mixer();

    Mixer(const Mixer&) = delete;
    Mixer& operator=(const Mixer&) = delete;

    /// Opens the audio device: 44100 Hz, 16 bit, stereo.
    /// Throws `std::runtime_error` "mixer failed to open audio".
    void openAudio();
    /// Opens an Ogg Vorbis file. Throws `std::runtime_error` "mixer failed to load music: " and SDL's text.
    void loadMusic(const char* path);
    /// Starts the music, once through.
    void playMusic();
    /// The decoder's read position in seconds. It stands ahead of what is heard by what is decoded and
    /// queued; nothing smooths it. After the music has run out it stays at the end.
    double getMusicPosition() const;

private:
    _Mix_Music* music = nullptr;
};
