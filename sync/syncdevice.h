#pragma once

#include "sync/synctrack.h"

#include <cstdint>
#include <functional>
#include <string>

struct sync_device;

namespace tolv {

/// The show's timeline: owns all tracks, reads each from its file when it is first asked for.
///
/// Says on standard output when it comes and when it goes. Main thread only.
class SyncDevice {
public:
    /// What a live editor would call. Empty; nothing sets or calls them.
    struct Callbacks {
        std::function<void(bool paused)> pause;
        std::function<void(int row)> setRow;
        std::function<bool()> isPlaying;
    };

    /// Track NAME is read from the file `path`_NAME.track; `path` is relative to the working directory. The
    /// rate of rows is only kept, it changes no value that is read: see `timeToRow`.
    /// Throws `tolv::Exception`: "Failed to initialize rocket sync device" for an absolute path.
    SyncDevice(const std::string& path, double bpm, int rowsPerBeat);
    ~SyncDevice();

    SyncDevice(const SyncDevice&) = delete;
    SyncDevice& operator=(const SyncDevice&) = delete;

    /// The track of that name. One without a file has no keys, and reads 0.0. For use at start-up: reads a
    /// file, and searches all names. Throws `tolv::Exception` "Rocket could not get track: NAME" without
    /// memory.
    SyncTrack getTrack(const std::string& name) const;

    /// The value of a track at a row, as everything in the show sees it.
    float getValue(const SyncTrack& track, double row) const;

private:
    [[maybe_unused]] double bpm;
    [[maybe_unused]] int rowsPerBeat;
    sync_device* device = nullptr;
    Callbacks callbacks;
    // Nothing reads these three, which are part of its size.
    [[maybe_unused]] bool flag = false;
    [[maybe_unused]] std::uint64_t word0 = 0;
    [[maybe_unused]] std::uint64_t word1 = 0;
};

} // namespace tolv
