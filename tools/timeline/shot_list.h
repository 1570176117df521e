#pragma once

#include "sync/track.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tools::timeline {

/// Where the camera is led: three numbers for its place and three for what it looks at, in the order of
/// `catalogue::tracks::camera`.
struct CameraKey {
    std::int32_t row;
    float values[6];
    std::int32_t type; ///< a `sync_key_type`: the way to the next key of the shot
};

/// What is seen from one cut to the next.
struct Shot {
    std::int32_t row;            ///< of the cut that begins it
    float scene;                 ///< value of the track "scene"
    std::vector<CameraKey> keys; ///< ascending, the first one at `row`; none where no camera is read
    std::size_t line;            ///< in the text, from 1
};

/// A track that shots are turned into.
struct ShotTrack {
    std::string name;
    std::vector<sync_key> keys;
};

/// Reads a shot list. A line that names a scene is a cut: "row, scene" or, for a scene with a camera,
/// "row, scene, x y z, x y z, type". The lines below it lead that camera on: "row, x y z, x y z, type", where
/// the row may be "last", the one before the next cut, and the type may be left out: then it is smooth.
/// Throws `Error` with `file` and the line.
std::vector<Shot> parseShots(std::string_view text, const std::string& file);

/// The track "scene" and, if any shot has one, those of the camera. The last key of a shot is a step, so that
/// the camera stands until the cut and no frame lies between two shots.
std::vector<ShotTrack> tracksOf(const std::vector<Shot>& shots);

} // namespace tools::timeline
