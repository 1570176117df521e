#pragma once

#include "scenes/catalogue.h"

#include <string>
#include <string_view>
#include <vector>

namespace tools::stage {

/// The names of all tracks that a scene reads, those of its camera first.
std::vector<std::string_view> tracksOf(const catalogue::Scene& scene);

/// The scene of that name. Throws `Error` "--scene NAME: no such scene; there are ...".
const catalogue::Scene& findScene(std::string_view name);

/// Throws `Error` with `place` if the scene doesn't read the track; the sentence names those that it reads.
void checkTrack(const catalogue::Scene& scene, std::string_view track, const std::string& place);

} // namespace tools::stage
