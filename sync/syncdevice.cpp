#include "sync/syncdevice.h"

#include "sync/device.h"
#include "sync/exception.h"

#include <iostream>

namespace tolv {

SyncDevice::SyncDevice(const std::string& path, double bpm, int rowsPerBeat)
    : bpm(bpm), rowsPerBeat(rowsPerBeat)
{
    device = sync_create_device(path.c_str());
    if (device == nullptr) {
        throw Exception("Failed to initialize rocket sync device");
    }
    std::cout << "syncdevice: Rocket sync device created\n";
}

SyncDevice::~SyncDevice()
{
    sync_destroy_device(device);
    std::cout << "syncdevice: Rocket sync device destroyed\n";
}

SyncTrack SyncDevice::getTrack(const std::string& name) const
{
    const sync_track* track = sync_get_track(device, name.c_str());
    if (track == nullptr) {
        throw Exception("Rocket could not get track: " + name);
    }
    return SyncTrack(track);
}

float SyncDevice::getValue(const SyncTrack& track, double row) const
{
    return static_cast<float>(sync_get_val(track.get(), row));
}

} // namespace tolv
