#include "sync/track.h"

#include <limits>

namespace {

/// The whole row at or below `row`, also for negative rows. What no row can hold ends at the nearest one
/// that can; NaN at the lowest.
std::int32_t floor_row(double row)
{
    constexpr double lowest = std::numeric_limits<std::int32_t>::min();
    constexpr double highest = std::numeric_limits<std::int32_t>::max();
    if (!(row > lowest)) {
        return std::numeric_limits<std::int32_t>::min();
    }
    if (row >= highest) {
        return std::numeric_limits<std::int32_t>::max();
    }
    const auto truncated = static_cast<std::int32_t>(row);
    return truncated > row ? truncated - 1 : truncated;
}

/// Index of the key at or before `row`, -1 if all keys lie behind it.
std::int32_t key_at(const sync_track* track, std::int32_t row)
{
    std::int32_t lo = 0;
    std::int32_t hi = track->num_keys;
    while (lo < hi) {
        const std::int32_t mid = (lo + hi) >> 1;
        if (row > track->keys[mid].row) {
            lo = mid + 1;
        } else if (row < track->keys[mid].row) {
            hi = mid;
        } else {
            return mid;
        }
    }
    return lo - 1;
}

/// `a` - `b` in 32 bits, from one end around to the other where they are too far apart.
std::int32_t subtract_rows(std::int32_t a, std::int32_t b)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

double interpolate(const sync_key& k0, const sync_key& k1, double row)
{
    const double t = (row - k0.row) / static_cast<double>(subtract_rows(k1.row, k0.row));
    const double start = k0.value;
    // At the keys' own precision: a difference taken in doubles has other last bits, and every curve with it.
    const float difference = k1.value - k0.value;
    const double delta = difference;
    switch (k0.type) {
    case SYNC_STEP:
        return start;
    case SYNC_LINEAR:
        return start + delta * t;
    case SYNC_SMOOTH:
        return start + delta * (t * t * (3.0 - 2.0 * t));
    case SYNC_RAMP:
        return start + delta * (t * t);
    default:
        return 0.0;
    }
}

} // namespace

double sync_get_val(const sync_track* track, double row)
{
    if (track->num_keys == 0) {
        return 0.0;
    }
    // The search takes the whole row, the formulas the exact one.
    const std::int32_t idx = key_at(track, floor_row(row));
    if (idx < 0) {
        return track->keys[0].value;
    }
    if (idx >= track->num_keys - 1) {
        return track->keys[track->num_keys - 1].value;
    }
    return interpolate(track->keys[idx], track->keys[idx + 1], row);
}
