#pragma once

#include "scenes/catalogue.h"

#include <cstdint>
#include <glm/vec3.hpp>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// A track's value.
struct TrackValue {
    const catalogue::Track* track; ///< null: none
    float value;
};

/// A picture of the show that is to stay as it is: a scene in one of its states. It depends on the scene, on
/// the models and the textures, but on no track of the timeline.
struct Still {
    std::string_view name;
    const catalogue::Scene* scene;
    std::int32_t row; ///< its place on a timeline of the stills' own, which makes its time; no two share one
    glm::vec3 place;  ///< of the camera, as its tracks hold it; among the people: angle, height and radius
    glm::vec3 target;
    TrackValue others[4]; ///< of the tracks that the scene reads besides; one that is not told is 0
};

/// All of them: each scene in each state that looks different, ascending by row.
std::span<const Still> stills();

/// The value that a track of the still's scene has in it.
float valueOf(const Still& still, std::string_view track);

/// What the still's scene reads.
std::vector<std::string_view> tracksOf(const Still& still);
