#pragma once

#include <limits>
#include <span>
#include <string_view>

namespace tools::modelcheck {

/// What a model wears.
enum class Texture {
    None,   ///< one colour all over: its texture coordinates matter to nothing but the tangents
    Prints, ///< a picture whose parts may come several times
    Baked,  ///< maps that were computed for it: each place of the model has a place of its own there
};

/// Where there is no limit.
constexpr unsigned int anyNumber = std::numeric_limits<unsigned int>::max();

/// What the show asks of a model besides its place. A default one suits a closed solid in one colour.
struct ModelRules {
    std::string_view name;
    int loads = 1; ///< how many objects of the scenes are of it: each reads the file for itself
    /// The largest that a scene draws it at: world units for one of the model's.
    float scale = 1.0F;
    Texture texture = Texture::None;
    // At most, or `anyNumber`:
    /// Edges with a face on one side only that the model does not hide itself, for models of sheets that end
    /// in the open `anyNumber`. Back faces are drawn, but lit wrongly.
    unsigned int visibleBoundaryEdges = 0;
    unsigned int visibleBacks = 0; ///< triangles; those of sheets are not counted
    unsigned int facets = 0;       ///< edges of curves that are seen as polygons
    unsigned int folds = 0;        ///< triangles that go through their own connected component
    /// Pairs of connected components that go through each other, as most that are joined do.
    unsigned int crossingParts = anyNumber;
    /// Bent towards lamps: they don't tell its outside, and judged by them it would be inside out.
    bool customNormals = false;
};

/// What of a model is measured, in its own units.
enum class Extent {
    LowX,
    HighX,
    LowY,
    HighY,
    LowZ,
    HighZ,
    FarX,   ///< from 0 to either side, the farther one
    FarZ,   ///< likewise to the front and the back
    Radius, ///< from the y axis
};

/// Where a model has to end so that it fits where the scenes' tables put it.
struct Placement {
    std::string_view model;
    Extent extent;
    float from;
    float to;
    std::string_view reason;
};

/// All models that the scenes load.
std::span<const ModelRules> modelRules();

/// The row of `name`, null if the show has no such model.
const ModelRules* findModelRules(std::string_view name);

std::span<const Placement> placements();

} // namespace tools::modelcheck
