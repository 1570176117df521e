#pragma once

#include <cstdint>

/// How the stretch from a key to the next one is filled. The values are those of the track files.
enum sync_key_type : std::int32_t {
    SYNC_STEP = 0,   ///< holds the key's value
    SYNC_LINEAR = 1, ///< straight line
    SYNC_SMOOTH = 2, ///< eases in and out: t * t * (3 - 2 * t)
    SYNC_RAMP = 3,   ///< eases in: t * t
};

/// One key of a track.
struct sync_key {
    std::int32_t row;
    float value;
    std::int32_t type; ///< a `sync_key_type`; a stretch of any other type reads 0.0
};

/// One curve of the timeline: its keys, in strictly ascending order of their rows, which no one checks.
/// Name and keys belong to the device that made the track.
struct sync_track {
    char* name;
    sync_key* keys; ///< null until keys are loaded
    std::int32_t num_keys;
};

/// The value of `track` at `row`; between two rows the fraction counts. Before the first key it is the first
/// key's value, from the last key on the last key's, and 0.0 without keys. Rows may be asked in any order.
double sync_get_val(const sync_track* track, double row);
