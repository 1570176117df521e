#pragma once

#include <functional>
#include <string>
#include <vector>

/// What the scenes ask the timeline for: the linker sends its look-ups and reads of tracks through here, and
/// they go on to where they were meant for.
struct TrackWatch {
    struct Read {
        std::string track;
        double row;
    };

    std::function<void(const std::string& track)> onLookUp; ///< before each look-up; may be empty
    std::function<void(const std::string& track)> onRead;   ///< before each read; may be empty
    std::vector<Read> reads;

    /// The tracks read since the last call, in order.
    std::vector<std::string> takeReads();
};

extern TrackWatch trackWatch;
