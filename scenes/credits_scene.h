#pragma once

#include "engine/scene.h"
#include "pack/packfile.h"
#include "scenes/ombrel_scene.h"

#include <utility>

/// The title picture, still, over the whole frame. Without letterbox, camera, lights and tracks.
class CreditsScene : public OmbrelScene {
public:
    /// `size` is that of the picture, width and height in pixels. Throws what pack and renderer throw.
    CreditsScene(zund::Renderer& renderer, const pack::Packfile& pack, std::pair<int, int> size);

    /// Nothing moves.
    void update(zund::Renderer& renderer, double time, const tolv::SyncDevice& sync) override;

    lumeth::Scene scene;
};
