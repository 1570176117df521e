#pragma once

#include "tests/support/gl_recorder.h"

#include <SDL.h>
#include <deque>
#include <string>
#include <vector>

/// Stands in for SDL, SDL_mixer and the driver while the show's entry point runs: all calls go into one
/// record, and time, events and the position of the music are what the test says. A call reads as in a
/// program; window and music are the words.
struct FakePlatform {
    FakePlatform();
    ~FakePlatform();

    FakePlatform(const FakePlatform&) = delete;
    FakePlatform& operator=(const FakePlatform&) = delete;

    static FakePlatform& current();

    GlRecorder gl;
    /// Position of the music in each frame, in seconds. When they are used up the window is closed.
    std::deque<double> positions;
    /// Events of each frame; a frame beyond them has none.
    std::deque<std::vector<SDL_Event>> events;
    std::vector<SDL_Event> queue; ///< of the frame that runs
    int pollAnswer = 1;           ///< of SDL_PollEvent where an event waits
    std::deque<Uint32> ticks;     ///< what the clock reads; afterwards it stands still
};

/// An event of a type; of a key, if one is given.
SDL_Event makeEvent(Uint32 type, SDL_Keycode key = 0);
