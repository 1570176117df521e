#pragma once

#include "sync/track.h"

namespace tolv {

/// A reference to one track of a `SyncDevice`, to be copied freely. Owns nothing: valid until the device is
/// destroyed. Null when default-constructed.
class SyncTrack {
public:
    SyncTrack() = default;
    SyncTrack(const sync_track* track);

    const sync_track* get() const;

private:
    const sync_track* track = nullptr;
};

} // namespace tolv
