#include "engine/display_list_item.h"

#define GLM_ENABLE_EXPERIMENTAL
#include <glm/gtc/matrix_transform.hpp>
#include <glm/gtx/matrix_decompose.hpp>
#include <utility>

namespace lumeth {

namespace {

struct Placement {
    glm::vec3 position{0.0F};
    glm::quat orientation{1.0F, 0.0F, 0.0F, 0.0F};
    glm::vec3 scale{1.0F};
};

glm::mat4 compose(const Placement& placement)
{
    const glm::mat4 moved = glm::translate(glm::mat4(1.0F), placement.position);
    const glm::mat4 scaled = glm::scale(moved, placement.scale);
    return scaled * glm::mat4_cast(placement.orientation);
}

/// Exact up to rounding for uniform scales only: it takes the matrix as turned after it was scaled. What
/// can't be taken apart gives the placement that changes nothing.
Placement decompose(const glm::mat4& matrix)
{
    Placement placement;
    glm::vec3 skew;
    glm::vec4 perspective;
    glm::decompose(matrix, placement.scale, placement.orientation, placement.position, skew, perspective);
    return placement;
}

} // namespace

DisplayListItem::DisplayListItem(std::string objectName, const glm::vec3& position,
                                 const glm::quat& orientation, const glm::vec3& scale)
    : objectName(std::move(objectName)), localMatrix(compose({position, orientation, scale}))
{
}

void DisplayListItem::setPosition(const glm::vec3& position)
{
    Placement placement = decompose(localMatrix);
    placement.position = position;
    localMatrix = compose(placement);
}

void DisplayListItem::setOrientation(const glm::quat& orientation)
{
    Placement placement = decompose(localMatrix);
    placement.orientation = orientation;
    localMatrix = compose(placement);
}

void DisplayListItem::setVisible(bool visible)
{
    this->visible = visible;
}

} // namespace lumeth
