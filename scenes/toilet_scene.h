#pragma once

#include "engine/scene.h"
#include "pack/packfile.h"
#include "scenes/camera.h"
#include "scenes/ombrel_scene.h"

#include <utility>

/// A toilet that turns, its lid that swings, and a text that wobbles over both.
class ToiletScene : public OmbrelScene {
public:
    /// `size` is that of the picture, width and height in pixels. Throws what model loader, pack and renderer
    /// throw.
    ToiletScene(zund::Renderer& renderer, const pack::Packfile& pack, const tolv::SyncDevice& sync,
                std::pair<int, int> size);

    void update(zund::Renderer& renderer, double time, const tolv::SyncDevice& sync) override;

    lumeth::Scene scene;

private:
    CameraTracks camera;
    tolv::SyncTrack burgerRotate; ///< shared with the burger; there is no track of the toilet's own
    tolv::SyncTrack lidRotate;
};
