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

RTCRay rayAlong(const glm::vec3& origin, const glm::vec3& direction)
{
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
    return ray;
}

/// Embree hands its first member on to the filter.
struct VisitContext {
    RTCIntersectContext context;
    const std::function<void(unsigned int)>& visit;
};

/// Tells of a triangle that the ray met, and lets the ray pass.
void visitAndGoOn(const RTCFilterFunctionNArguments* met)
{
    reinterpret_cast<const VisitContext*>(met->context)->visit(RTCHitN_primID(met->hit, met->N, 0));
    met->valid[0] = 0;
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
    // Robust: no ray slips through where triangles join.
    rtcSetSceneFlags(scene.get(), RTC_SCENE_FLAG_ROBUST | RTC_SCENE_FLAG_CONTEXT_FILTER_FUNCTION);
    rtcCommitScene(scene.get());
}

bool RayCaster::hits(const glm::vec3& origin, const glm::vec3& direction) const
{
    RTCIntersectContext context;
    rtcInitIntersectContext(&context);
    RTCRay ray = rayAlong(origin, direction);
    rtcOccluded1(scene.get(), &context, &ray);
    return ray.tfar < 0.0F; // Embree's way of saying so
}

void RayCaster::forEachBetween(const glm::vec3& from, const glm::vec3& to,
                               const std::function<void(unsigned int)>& visit) const
{
    VisitContext visitContext{{}, visit};
    rtcInitIntersectContext(&visitContext.context);
    visitContext.context.filter = visitAndGoOn;
    RTCRay ray = rayAlong(from, to - from);
    ray.tfar = 1.0F;
    rtcOccluded1(scene.get(), &visitContext.context, &ray);
}

} // namespace tools::modelcheck
