#pragma once

#include "tools/modelcheck/imported_mesh.h"

#include <functional>
#include <memory>

struct RTCDeviceTy;
struct RTCSceneTy;

namespace tools::modelcheck {

/// Answers whether rays meet a model; Embree does the work.
class RayCaster {
public:
    /// Keeps nothing of the mesh, all of whose positions are finite. It has a triangle.
    explicit RayCaster(const ImportedMesh& mesh);

    /// Whether the ray meets a triangle, from whichever side. Those that it starts on don't count.
    [[nodiscard]] bool hits(const glm::vec3& origin, const glm::vec3& direction) const;

    /// Calls `visit` once with the number of each triangle that lies across the way between two points, in no
    /// particular order. The points themselves don't count.
    void forEachBetween(const glm::vec3& from, const glm::vec3& to,
                        const std::function<void(unsigned int)>& visit) const;

private:
    std::unique_ptr<RTCDeviceTy, void (*)(RTCDeviceTy*)> device;
    std::unique_ptr<RTCSceneTy, void (*)(RTCSceneTy*)> scene;
};

} // namespace tools::modelcheck
