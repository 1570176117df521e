#pragma once

#include "pack/packfile.h"
#include "tests/support/recording_renderer.h"
#include "tests/support/test_assets.h"

#include <string>

// Assets in place of the show's, for the recording renderer: of each mesh and texture that a scene has loaded
// can be told which row of the catalogue it is.

/// Writes all models, and a pack of all textures in the catalogue's order.
void writeNamedAssets(const ShowFolder& folder);

/// The model that a mesh was made of, or what else it is: "sky cube", "full-screen triangle",
/// "full-frame triangle at z -1".
std::string meshName(const RecordingRenderer::Mesh& mesh);

/// The texture of the catalogue that was loaded, if it was from behind its header.
std::string textureName(const RecordingRenderer::Texture& texture, const pack::Packfile& pack);
