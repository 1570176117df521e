#pragma once

#include <glm/gtc/quaternion.hpp>
#include <glm/mat4x4.hpp>
#include <glm/vec3.hpp>
#include <string>

namespace lumeth {

/// Where an object is drawn: what each node of a scene's tree holds.
///
/// Position, orientation and scale live in `localMatrix` alone: a point is turned, then scaled along the
/// parent's axes, then moved. The setters take that matrix apart and build it anew, at the price of some
/// rounding; they need a scale above 0.005 on every axis: where the matrix's determinant is nearly zero it
/// can't be taken apart, and position, orientation and scale are silently those of an item that was never
/// placed.
struct DisplayListItem {
    /// The quaternion is taken as it is, not normalised: all zeros turn nothing.
    DisplayListItem(std::string objectName, const glm::vec3& position, const glm::quat& orientation,
                    const glm::vec3& scale);

    void setPosition(const glm::vec3& position);
    void setOrientation(const glm::quat& orientation);
    void setVisible(bool visible);

    std::string objectName;      ///< in the scene's object table; empty: a pure transform
    glm::mat4 worldMatrix{0.0F}; ///< to view space; written by the draw pass of every frame
    glm::mat4 localMatrix;       ///< to the parent's space
    bool visible = true;         ///< of this item alone: its children are drawn all the same
};

} // namespace lumeth
