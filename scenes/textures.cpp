#include "scenes/textures.h"

zund::Texture loadTexture(zund::Renderer& renderer, const pack::Packfile& pack, const std::string& name,
                          int width, int height)
{
    const void* data = pack.getFile(name, true);
    return renderer.loadTextureDXT(width, height, data);
}
