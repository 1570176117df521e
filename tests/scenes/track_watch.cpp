#include "tests/scenes/track_watch.h"

#include "sync/device.h"
#include "sync/track.h"

#include <map>
#include <utility>

TrackWatch trackWatch;

std::vector<std::string> TrackWatch::takeReads()
{
    std::vector<std::string> tracks;
    for (const Read& read : std::exchange(reads, {})) {
        tracks.push_back(read.track);
    }
    return tracks;
}

// The names are the linker's: a call of NAME arrives at __wrap_NAME, and __real_NAME is what it was meant
// for. NOLINTBEGIN(bugprone-reserved-identifier,readability-inconsistent-declaration-parameter-name)
extern "C" {

const sync_track* __real__Z14sync_get_trackP11sync_devicePKc(sync_device* device, const char* name);
double __real__Z12sync_get_valPK10sync_trackd(const sync_track* track, double row);

const sync_track* __wrap__Z14sync_get_trackP11sync_devicePKc(sync_device* device, const char* name)
{
    if (trackWatch.onLookUp) {
        trackWatch.onLookUp(name);
    }
    return __real__Z14sync_get_trackP11sync_devicePKc(device, name);
}

double __wrap__Z12sync_get_valPK10sync_trackd(const sync_track* track, double row)
{
    if (trackWatch.onRead) {
        trackWatch.onRead(track->name);
    }
    trackWatch.reads.push_back({track->name, row});
    return __real__Z12sync_get_valPK10sync_trackd(track, row);
}

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier,readability-inconsistent-declaration-parameter-name)
