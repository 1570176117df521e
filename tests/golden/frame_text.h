#pragma once

#include "gl/draw-command.h"
#include "pack/packfile.h"
#include "tests/support/recording_renderer.h"

#include <string>
#include <vector>

/// A frame as text: what it draws into, then its commands in their order, each with all that it tells the
/// driver. Handles have names in it: shaders those of their files, models and textures those of the
/// catalogue, targets that of the shader that reads them.
///
/// Siblings come as the scene walks them, which is the order of a hash table: one library has one order, and
/// another order means other calls to the driver. Numbers are as short as still gives the same float.
/// A matrix or an array that is as in the last command with one of its name is told in one line.
std::string frameText(const std::vector<zund::DrawCommand>& frame, const RecordingRenderer& renderer,
                      const pack::Packfile& pack);
