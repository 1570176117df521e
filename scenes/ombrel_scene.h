#pragma once

#include "gl/renderer.h"
#include "sync/syncdevice.h"

/// A scene of the show: a fixed arrangement, built whole in its constructor, and drawn by the `lumeth::Scene`
/// that it holds.
class OmbrelScene {
public:
    /// Reads the tracks at a position of the music, in seconds, and writes the camera and the nodes that
    /// move. Keeps nothing from frame to frame, so that a scene can be entered anywhere.
    virtual void update(zund::Renderer& renderer, double time, const tolv::SyncDevice& sync) = 0;
};
