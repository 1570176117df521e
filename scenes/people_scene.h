#pragma once

#include "engine/scene.h"
#include "pack/packfile.h"
#include "scenes/camera.h"
#include "scenes/ombrel_scene.h"

#include <utility>

/// The sofa and the two on it, in empty space; the camera orbits, hat and glasses tip, and a text waves.
class PeopleScene : public OmbrelScene {
public:
    /// `size` is that of the picture, width and height in pixels. Throws what model loader, pack and renderer
    /// throw.
    PeopleScene(zund::Renderer& renderer, const pack::Packfile& pack, const tolv::SyncDevice& sync,
                std::pair<int, int> size);

    void update(zund::Renderer& renderer, double time, const tolv::SyncDevice& sync) override;

    lumeth::Scene scene;

private:
    CameraTracks camera;
    tolv::SyncTrack hatR;
};
