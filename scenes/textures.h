#pragma once

#include "gl/renderer.h"
#include "pack/packfile.h"
#include "scenes/catalogue.h"

/// Uploads a texture of the pack. Its size is the catalogue's: the file's header is never read. Throws what
/// pack and renderer throw.
zund::Texture loadTexture(zund::Renderer& renderer, const pack::Packfile& pack,
                          const catalogue::Texture& texture);
