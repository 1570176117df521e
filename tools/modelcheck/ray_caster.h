#pragma once

#include "tools/modelcheck/imported_mesh.h"

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

private:
    std::unique_ptr<RTCDeviceTy, void (*)(RTCDeviceTy*)> device;
    std::unique_ptr<RTCSceneTy, void (*)(RTCSceneTy*)> scene;
};

} // namespace tools::modelcheck
