#include "tools/modelcheck/check_model.h"

#include "tools/modelcheck/crossings.h"
#include "tools/modelcheck/extents.h"
#include "tools/modelcheck/facets.h"
#include "tools/modelcheck/ray_caster.h"
#include "tools/modelcheck/surface.h"
#include "tools/modelcheck/uv_overlap.h"
#include "tools/modelcheck/vertex_checks.h"

#include <cmath>
#include <fmt/format.h>
#include <glm/common.hpp>
#include <optional>

namespace tools::modelcheck {

namespace {

constexpr std::size_t trianglesPerStray = 400; ///< one that is amiss and that nobody sees
constexpr double largestOverlap = 0.005;       ///< where islands touch, and bakes bleed anyway
constexpr float rootTolerance = 1e-6F;
/// In world units: 0.6 away, where a picture of 45 degrees is 1920 pixels wide.
constexpr float nearestPixel = 2.0F * 0.6F * 0.41421356F / 1920.0F;

struct Subject {
    const ImportedMesh& mesh;
    const ModelRules& rules;
    Surface surface;
    RayCaster caster;
    Crossings crossings;

    Subject(const ImportedMesh& mesh, const ModelRules& rules)
        : mesh(mesh),
          rules(rules),
          surface(mesh),
          caster(mesh),
          crossings(findCrossings(mesh, surface, caster))
    {
    }
};

/// Something that is counted, and how much of it passes.
struct Check {
    const char* one; ///< after "1 "
    const char* many;
    Finding (*find)(const Subject& model);
    std::optional<std::size_t> (*allowed)(const Subject& model); ///< nothing where it is no matter
};

std::optional<std::size_t> none(const Subject& /*model*/)
{
    return 0;
}

std::optional<std::size_t> aFew(const Subject& model)
{
    return model.mesh.triangles.size() / trianglesPerStray;
}

std::optional<std::size_t> aFewTriangles(const Subject& model)
{
    return model.rules.customNormals ? std::nullopt : aFew(model);
}

std::optional<std::size_t> noneWithTexture(const Subject& model)
{
    return model.rules.texture == Texture::None ? std::nullopt : none(model);
}

bool isOfSheets(const Subject& model)
{
    return model.rules.visibleBoundaryEdges == anyNumber;
}

std::optional<std::size_t> boundaryEdgesOfModel(const Subject& model)
{
    return isOfSheets(model) ? std::nullopt : std::optional(model.rules.visibleBoundaryEdges);
}

std::optional<std::size_t> backsOfModel(const Subject& model)
{
    return isOfSheets(model) ? std::nullopt : std::optional(model.rules.visibleBacks);
}

std::optional<std::size_t> facetsOfModel(const Subject& model)
{
    return model.rules.customNormals ? std::nullopt : std::optional(model.rules.facets);
}

std::optional<std::size_t> foldsOfModel(const Subject& model)
{
    return model.rules.folds;
}

std::optional<std::size_t> partsOfModel(const Subject& model)
{
    return model.rules.crossingParts;
}

/// In units of the model.
float pixelSize(const Subject& model)
{
    return nearestPixel / model.rules.scale;
}

// clang-format off
constexpr Check checks[] = {
    // one                                      many
    {"vertex has a non-unit normal",            "vertices have non-unit normals",
     [](const Subject& model) { return nonUnitNormals(model.mesh); },                   none},
    {"vertex has a non-unit tangent",           "vertices have non-unit tangents",
     [](const Subject& model) { return nonUnitTangents(model.mesh); },                  none},
    {"vertex has a non-unit bitangent",         "vertices have non-unit bitangents",
     [](const Subject& model) { return nonUnitBitangents(model.mesh); },                none},
    {"vertex has a degenerate tangent frame",   "vertices have degenerate tangent frames",
     [](const Subject& model) { return degenerateTangentFrames(model.mesh); },          aFew},
    {"vertex lies outside of the texture",      "vertices lie outside of the texture",
     [](const Subject& model) { return uvsOutside(model.mesh); },                       noneWithTexture},
    {"triangle is degenerate",                  "triangles are degenerate",
     [](const Subject& model) { return model.surface.degenerateTriangles(); },          none},
    {"triangle is a duplicate",                 "triangles are duplicates",
     [](const Subject& model) { return model.surface.duplicateTriangles(); },           none},
    {"triangle is wound against its normals",   "triangles are wound against their normals",
     [](const Subject& model) { return model.surface.trianglesAgainstNormals(); },      aFewTriangles},
    {"closed component is inside out",          "closed components are inside out",
     [](const Subject& model) { return model.surface.componentsInsideOut(); },          none},
    {"boundary edge can be seen",               "boundary edges can be seen",
     [](const Subject& model) { return model.surface.visibleBoundaryEdges(model.caster); }, boundaryEdgesOfModel},
    {"triangle shows its back",                 "triangles show their backs",
     [](const Subject& model) { return model.surface.visibleBacks(model.caster); },     backsOfModel},
    {"edge of a curve is seen as a corner",     "edges of curves are seen as corners",
     [](const Subject& model) { return facets(model.mesh, model.surface, pixelSize(model)); }, facetsOfModel},
    {"triangle goes through its own part",      "triangles go through their own parts",
     [](const Subject& model) { return model.crossings.folds; },                        foldsOfModel},
    {"pair of parts goes through each other",   "pairs of parts go through each other",
     [](const Subject& model) { return model.crossings.parts; },                        partsOfModel},
};
// clang-format on

std::string sentenceOf(const char* one, const char* many, const Finding& found)
{
    std::string sentence = fmt::format("{} {}", found.count, found.count == 1 ? one : many);
    if (found.count > 0) {
        sentence += fmt::format(", {}near ({:.2f}, {:.2f}, {:.2f})", found.count == 1 ? "" : "the first ",
                                found.first.x, found.first.y, found.first.z);
    }
    return sentence;
}

void runCheck(ModelReport& report, const Subject& model, const Check& check)
{
    const std::optional<std::size_t> allowed = check.allowed(model);
    if (!allowed) {
        return;
    }
    const Finding found = check.find(model);
    std::string sentence = sentenceOf(check.one, check.many, found);
    if (*allowed != 0 && *allowed != anyNumber) {
        sentence += fmt::format("; {} may", *allowed);
    }
    report.details.push_back(sentence);
    if (found.count > allowed) {
        report.problems.push_back(sentence);
    }
}

void checkRoot(ModelReport& report, const glm::mat4& root)
{
    for (glm::length_t column = 0; column < 4; ++column) {
        for (glm::length_t row = 0; row < 4; ++row) {
            // Written so that a NaN fails.
            if (!(std::abs(root[column][row] - (column == row ? 1.0F : 0.0F)) <= rootTolerance)) {
                report.problems.emplace_back(
                    "its root node moves, turns or scales it, which is for the scenes to do");
                return;
            }
        }
    }
    report.details.emplace_back("its root node leaves it where it is");
}

/// "-0.22 to -0.18", or with one bound "at least 0.8".
std::string rangeOf(const Placement& place)
{
    if (std::isinf(place.to)) {
        return fmt::format("at least {}", place.from);
    }
    if (std::isinf(place.from)) {
        return fmt::format("at most {}", place.to);
    }
    return fmt::format("{} to {}", place.from, place.to);
}

void checkPlacement(ModelReport& report, const ImportedMesh& mesh, const Placement& place)
{
    const float measured = measure(mesh, place.extent);
    const std::string sentence = fmt::format("its {} is {:.3f}, expected {}: {}", nameOf(place.extent),
                                             measured, rangeOf(place), place.reason);
    report.details.push_back(sentence);
    if (measured < place.from || measured > place.to) {
        report.problems.push_back(sentence);
    }
}

void checkTexture(ModelReport& report, const ImportedMesh& mesh, const ModelRules& rules)
{
    if (rules.texture == Texture::None) {
        return;
    }
    glm::vec2 low = mesh.uvs.front();
    glm::vec2 high = mesh.uvs.front();
    for (const glm::vec2& uv : mesh.uvs) {
        low = glm::min(low, uv);
        high = glm::max(high, uv);
    }
    report.details.push_back(fmt::format("texture coordinates go from ({:.4f}, {:.4f}) to ({:.4f}, {:.4f})",
                                         low.x, low.y, high.x, high.y));
    const double overlap = uvOverlap(mesh);
    std::string sentence =
        fmt::format("{:.2f} % of the texture that it uses lies under several triangles", 100.0 * overlap);
    if (rules.texture == Texture::Baked) {
        sentence += fmt::format("; {} % may", 100.0 * largestOverlap);
    }
    report.details.push_back(sentence);
    if (rules.texture == Texture::Baked && overlap > largestOverlap) {
        report.problems.push_back(sentence);
    }
}

} // namespace

ModelReport checkModel(const ImportedMesh& mesh, const ModelRules& rules)
{
    ModelReport report;
    checkRoot(report, mesh.root);
    const Finding notFinite = nonFiniteVertices(mesh);
    const std::string sentence =
        sentenceOf("vertex holds a NaN or an infinity", "vertices hold a NaN or an infinity", notFinite);
    report.details.push_back(sentence);
    if (notFinite.count > 0) { // nothing else can be measured
        report.problems.push_back(sentence);
        return report;
    }
    const Subject subject(mesh, rules);
    report.details.push_back(sentenceOf("boundary edge", "boundary edges", subject.surface.boundaryEdges()));
    for (const Check& check : checks) {
        runCheck(report, subject, check);
    }
    checkTexture(report, mesh, rules);
    for (const Placement& place : placements()) {
        if (place.model == rules.name) {
            checkPlacement(report, mesh, place);
        }
    }
    return report;
}

} // namespace tools::modelcheck
