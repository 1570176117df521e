#pragma once

#include "engine/scene.h"
#include "pack/packfile.h"
#include "scenes/camera.h"
#include "scenes/ombrel_scene.h"

#include <utility>

/// The furnished room, with its two friends and its broken television. Only the camera moves.
class RoomScene : public OmbrelScene {
public:
    /// `size` is that of the picture, width and height in pixels. Throws what model loader, pack and renderer
    /// throw.
    RoomScene(zund::Renderer& renderer, const pack::Packfile& pack, const tolv::SyncDevice& sync,
              std::pair<int, int> size);

    void update(zund::Renderer& renderer, double time, const tolv::SyncDevice& sync) override;

    lumeth::Scene scene;

private:
    CameraTracks camera;
    tolv::SyncTrack debug; ///< looked up, never read
};
