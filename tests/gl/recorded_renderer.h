#pragma once

#include "gl/renderer-impl.h"
#include "tests/support/gl_recorder.h"

#include <gtest/gtest.h>

/// A renderer that has started, on a driver that only writes down.
class RecordedRenderer : public testing::Test {
protected:
    RecordedRenderer() { gl.take(); }

    GlRecorder gl;
    zund::RendererImpl renderer{nullptr, true};
};
