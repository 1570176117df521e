#pragma once

#include "sync/track.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>

/// The owner of all tracks. A track is read from its file when it is first asked for, and never changes
/// afterwards. Main thread only: paths are built in static buffers.
struct sync_device {
    char* base;          ///< encoded base path of the track files
    sync_track** tracks; ///< grows by one for each new track
    std::size_t num_tracks;
    std::int32_t row;  ///< -1; nothing uses it
    std::int32_t sock; ///< live connection to a tracker; -1: none, and nothing opens one
    // All access to track files goes through these three.
    std::FILE* (*open)(const char* path, const char* mode);
    std::size_t (*read)(void* buffer, std::size_t size, std::size_t count, std::FILE* stream);
    int (*close)(std::FILE* stream);
};

/// Makes a device whose track NAME lies in the file `base`_NAME.track, relative to the working directory.
/// Null for a null or absolute `base`, or without memory. To be given to `sync_destroy_device`.
sync_device* sync_create_device(const char* base);

/// Frees the device with all its tracks.
void sync_destroy_device(sync_device* device);

/// The track of that name, read from its file at the first call; borrowed from the device. A file that is
/// missing gives a track without keys, which reads 0.0; one that is short or corrupt is not noticed.
/// Null only without memory.
///
/// File format, without magic or padding, little-endian: key count (int32), then 9 bytes a key: row (int32),
/// value (float), type (int8).
const sync_track* sync_get_track(sync_device* device, const char* name);

/// `text` with all but ASCII letters, digits and "./_" written as `-` and two hexadecimal digits.
/// Cut to 4095 characters. The result is valid until the next call.
const char* path_encode(const char* text);

/// Path of the file of track `name`, for a `base` that is already encoded. Cut to 4095 characters. The result
/// is valid until the next call.
const char* sync_track_path(const char* base, const char* name);

/// Asks the tracker at the other end of `sock` for a track. 0, or -1 after a send that fell short, which
/// closes the connection.
int fetch_track_data(sync_device* device, sync_track* track);
