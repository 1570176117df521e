#pragma once

#include "gl/renderer.h"
#include "pack/packfile.h"

#include <string>

/// Uploads a DDS file of the pack. The size in pixels is the caller's: the file's header is never read.
/// Throws what pack and renderer throw.
zund::Texture loadTexture(zund::Renderer& renderer, const pack::Packfile& pack, const std::string& name,
                          int width, int height);
