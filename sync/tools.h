#pragma once

/// The tempo of the music, which the timeline counts in: a row is a 16th of a beat.
namespace tempo {

constexpr double beatsPerMinute = 128.0;
constexpr int rowsPerBeat = 16;
constexpr int beatsPerBar = 4;
constexpr int rowsPerBar = rowsPerBeat * beatsPerBar;
constexpr double rowsPerSecond = beatsPerMinute * rowsPerBeat / 60.0;

} // namespace tempo

/// The row of the timeline that a position of the music, in seconds, stands at. The one conversion in the
/// show.
double timeToRow(double seconds);
