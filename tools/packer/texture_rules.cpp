#include "tools/packer/texture_rules.h"

#include "tools/common/error.h"
#include "tools/packer/texture_sizes.h"

#include <fmt/format.h>

namespace tools {

void checkTexture(const std::string& name, Size size, const std::string& place)
{
    const TextureSize* texture = findTexture(name);
    if (texture == nullptr) {
        throw Error(place, fmt::format("the show has no texture '{}'", name));
    }
    if (texture->size != size) {
        throw Error(place, fmt::format("{}x{}, but the show asks for {}x{}", size.width, size.height,
                                       texture->size.width, texture->size.height));
    }
}

} // namespace tools
