#include "tools/packer/texture_rules.h"

#include "tools/common/error.h"

#include <fmt/format.h>

namespace tools::packer {

void checkTexture(const std::string& name, picture::Size size, const std::string& place)
{
    const catalogue::Texture* const texture = catalogue::find(catalogue::allTextures, name);
    if (texture == nullptr) {
        throw Error(
            place,
            fmt::format("the show has no texture '{}'; scenes/catalogue.def holds a row for each", name));
    }
    if (sizeOf(*texture) != size) {
        throw Error(place, fmt::format("{}x{}, but the show asks for {}x{}", size.width, size.height,
                                       texture->width, texture->height));
    }
}

} // namespace tools::packer
