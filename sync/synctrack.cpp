#include "sync/synctrack.h"

namespace tolv {

SyncTrack::SyncTrack(const sync_track* track) : track(track) {}

const sync_track* SyncTrack::get() const
{
    return track;
}

} // namespace tolv
