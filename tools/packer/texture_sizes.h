#pragma once

#include "tools/packer/rgb_image.h"

#include <string_view>

namespace tools {

/// A texture of the show and the size that its scene uploads it with. The pack names it NAME.dds.
struct TextureSize {
    std::string_view name;
    Size size;
};

// clang-format off
constexpr TextureSize textureSizes[] = {
    // maps of the models
    {"room_diff",        {2048, 2048}},
    {"sofa_diff",        {2048, 2048}},
    {"sofa_norm",        {2048, 2048}},
    {"coffeetable_diff", {2048, 2048}},
    {"coffeetable_norm", {2048, 2048}},
    {"pisswasser",       {2048, 2048}},
    {"tv_emit",          {2048, 2048}},
    {"plywood_diff",     {2048, 2048}},
    {"plywood_norm",     {2048, 2048}},
    {"bigplant",         {2048, 2048}},
    {"burgerbox_top",    {2048, 2048}},
    {"unlimited",        {2048, 2048}},
    // layers over the whole picture
    {"pants",            {3840, 2160}},
    {"burgertext",       {3840, 2160}},
    {"queue_main",       {3840, 2160}},
    {"queue_border",     {3840, 2160}},
    {"title",            {3840, 2160}},
};
// clang-format on

/// The row of `name`, null if the show has no such texture.
constexpr const TextureSize* findTexture(std::string_view name)
{
    for (const TextureSize& texture : textureSizes) {
        if (texture.name == name) {
            return &texture;
        }
    }
    return nullptr;
}

} // namespace tools
