#pragma once

#include "engine/scene.h"
#include "gl/renderer.h"
#include "pack/packfile.h"
#include "scenes/catalogue.h"
#include "sync/syncdevice.h"
#include "tests/support/test_assets.h"

#include <glm/vec3.hpp>
#include <memory>
#include <utility>
#include <vector>

/// Values of tracks that stay the same in all rows; a track that isn't here has no file.
using TrackValues = std::vector<std::pair<catalogue::Track, float>>;

/// The camera's six.
TrackValues cameraAt(const glm::vec3& position, const glm::vec3& target);

void writeTracks(const ShowFolder& folder, const TrackValues& values);

/// A scene of the show, whichever class it is.
class ShowScene {
public:
    virtual ~ShowScene() = default;

    /// What the scene's own `update` does.
    virtual void update(double time) = 0;
    virtual lumeth::Scene& scene() = 0;
};

/// Builds the scene of a row of the catalogue for a picture of `size`, width and height in pixels. What it is
/// built with is borrowed. Throws what the scene's constructor throws.
std::unique_ptr<ShowScene> makeScene(const catalogue::Scene& row, zund::Renderer& renderer,
                                     const pack::Packfile& pack, const tolv::SyncDevice& sync,
                                     std::pair<int, int> size);
