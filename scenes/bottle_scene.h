#pragma once

#include "engine/scene.h"
#include "pack/packfile.h"
#include "scenes/camera.h"
#include "scenes/ombrel_scene.h"

#include <utility>

/// A ring of ten bottles that turns with the music, and a band of text that scrolls over it.
class BottleScene : public OmbrelScene {
public:
    /// `size` is that of the picture, width and height in pixels. Throws what model loader, pack and renderer
    /// throw.
    BottleScene(zund::Renderer& renderer, const pack::Packfile& pack, const tolv::SyncDevice& sync,
                std::pair<int, int> size);

    void update(zund::Renderer& renderer, double time, const tolv::SyncDevice& sync) override;

    lumeth::Scene scene;

private:
    CameraTracks camera;
};
