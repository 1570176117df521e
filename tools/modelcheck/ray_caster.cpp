#include "tools/modelcheck/ray_caster.h"

#include <algorithm>
#include <embree3/rtcore.h>
#include <limits>

namespace tools::modelcheck {

namespace {

/// Copies, as Embree keeps what it reads, and reads on behind the last vertex.
template<typename Element>
void setBuffer(RTCGeometry geometry, RTCBufferType type, RTCFormat format,
               const std::vector<Element>& elements)
{
    void* const buffer = rtcSetNewGeometryBuffer(geometry, type, 0, format, sizeof(Element), elements.size());
    std::copy(elements.begin(), elements.end(), static_cast<Element*>(buffer));
}

} // namespace

RayCaster::RayCaster(const ImportedMesh& mesh)
    : device(rtcNewDevice("threads=1"), rtcReleaseDevice), scene(rtcNewScene(device.get()), rtcReleaseScene)
{
    RTCGeometry geometry = rtcNewGeometry(device.get(), RTC_GEOMETRY_TYPE_TRIANGLE);
    setBuffer(geometry, RTC_BUFFER_TYPE_VERTEX, RTC_FORMAT_FLOAT3, mesh.positions);
    setBuffer(geometry, RTC_BUFFER_TYPE_INDEX, RTC_FORMAT_UINT3, mesh.triangles);
    rtcCommitGeometry(geometry);
    rtcAttachGeometry(scene.get(), geometry);
    rtcReleaseGeometry(geometry);
    rtcSetSceneFlags(scene.get(), RTC_SCENE_FLAG_ROBUST); // no ray slips through where triangles join
    rtcCommitScene(scene.get());
}

bool RayCaster::hits(const glm::vec3& origin, const glm::vec3& direction) const
{
    RTCIntersectContext context;
    rtcInitIntersectContext(&context);
    RTCRay ray{};
    ray.org_x = origin.x;
    ray.org_y = origin.y;
    ray.org_z = origin.z;
    ray.dir_x = direction.x;
    ray.dir_y = direction.y;
    ray.dir_z = direction.z;
    ray.tnear = std::numeric_limits<float>::min(); // more than 0, which is where it starts
    ray.tfar = std::numeric_limits<float>::infinity();
    ray.mask = std::numeric_limits<unsigned int>::max();
    rtcOccluded1(scene.get(), &context, &ray);
    return ray.tfar < 0.0F; // Embree's way of saying so
}

} // namespace tools::modelcheck
