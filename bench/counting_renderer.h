#pragma once

#include "tools/renderers/null_renderer.h"

#include <cstddef>

/// A renderer that only counts commands, so that what is measured is the scene's own work.
class CountingRenderer : public tools::renderers::NullRenderer {
public:
    std::size_t commands = 0;

    void render(const std::vector<zund::DrawCommand>& list) override { commands += list.size(); }
};
