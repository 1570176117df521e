#pragma once

#include "engine/scene.h"
#include "pack/packfile.h"
#include "scenes/camera.h"
#include "scenes/ombrel_scene.h"

#include <utility>

/// A burger in its box: the lid opens, the layers rise and tumble, and a text can be switched over it.
class BurgerScene : public OmbrelScene {
public:
    /// `size` is that of the picture, width and height in pixels. Throws what model loader, pack and renderer
    /// throw.
    BurgerScene(zund::Renderer& renderer, const pack::Packfile& pack, const tolv::SyncDevice& sync,
                std::pair<int, int> size);

    void update(zund::Renderer& renderer, double time, const tolv::SyncDevice& sync) override;

    lumeth::Scene scene;

private:
    CameraTracks camera;
    tolv::SyncTrack burgerRotate;
    tolv::SyncTrack burgerPitch;
    tolv::SyncTrack boxOpen;
    tolv::SyncTrack burgerOpen;
    tolv::SyncTrack burgerRandom;
    tolv::SyncTrack burgerText;
};
