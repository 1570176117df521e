#include "gl/textureformat.h"

#include <GL/glew.h>
#include <stdexcept>
#include <unordered_map>

namespace zund {

int toGLFormat(TextureFormat format)
{
    static const std::unordered_map<TextureFormat, int> formats = {
        {TextureFormat::RGB8, GL_RGB8},
        {TextureFormat::RGB16F, GL_RGB16F},
    };
    if (format != TextureFormat::None) {
        const auto found = formats.find(format);
        if (found != formats.end()) {
            return found->second;
        }
    }
    throw std::runtime_error("unknown texture format");
}

} // namespace zund
