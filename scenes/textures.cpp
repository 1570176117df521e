#include "scenes/textures.h"

zund::Texture loadTexture(zund::Renderer& renderer, const pack::Packfile& pack,
                          const catalogue::Texture& texture)
{
    const void* data = pack.getFile(texture.file, true);
    return renderer.loadTextureDXT(texture.width, texture.height, data);
}
