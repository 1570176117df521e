#include "tools/modelcheck/surface.h"

#include "tools/modelcheck/weld.h"

#include <algorithm>
#include <cmath>
#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <map>
#include <numbers>
#include <numeric>
#include <set>
#include <tuple>

namespace tools::modelcheck {

namespace {

constexpr float weldingDistance = 1e-6F; ///< of the diagonal: what rounding to float leaves
constexpr float smallestHeight = 1e-6F;  ///< of a triangle over its longest edge, of the diagonal
constexpr float clearlyAgainst = -0.05F; ///< cosine between winding and normal; right angles are noise
constexpr int sightLines = 100;          ///< from an edge, to look for a way out
constexpr float sightStart = 1e-4F;      ///< of the diagonal: off the triangles at the edge itself
constexpr int backSightLines = 60;       ///< from a triangle, half of them to its back
constexpr float backSightStart = 1e-5F;  ///< of the diagonal: behind the triangle, before what is under it
constexpr int fewestWaysOut = 3;         ///< what a crack lets out is seen from hardly anywhere
/// Of a component, against its area to the power of 3/2, of which a sphere has 0.09. Flat components have
/// hardly a volume, and it may come out negative.
constexpr double smallestVolume = 1e-4;

/// Unit vectors, spread evenly over all directions.
std::vector<glm::vec3> fibonacciSphere(int points)
{
    std::vector<glm::vec3> directions;
    for (int i = 0; i < points; ++i) {
        const double height = 1.0 - (2.0 * i + 1.0) / points;
        const double radius = std::sqrt(1.0 - height * height);
        const double angle = 2.0 * std::numbers::pi * std::numbers::phi * i;
        directions.emplace_back(radius * std::cos(angle), height, radius * std::sin(angle));
    }
    return directions;
}

float boundingBoxDiagonal(std::span<const glm::vec3> positions)
{
    glm::vec3 low = positions.front();
    glm::vec3 high = positions.front();
    for (const glm::vec3& position : positions) {
        low = glm::min(low, position);
        high = glm::max(high, position);
    }
    return glm::distance(low, high);
}

/// Along the normal by which the triangle is wound, twice the area long.
glm::vec3 windingOf(const std::array<glm::vec3, 3>& corners)
{
    return glm::cross(corners[1] - corners[0], corners[2] - corners[0]);
}

template<std::size_t Count>
std::array<unsigned int, Count> sorted(std::array<unsigned int, Count> vertices)
{
    std::sort(vertices.begin(), vertices.end());
    return vertices;
}

bool isCollapsed(const std::array<unsigned int, 3>& triangle)
{
    return triangle[0] == triangle[1] || triangle[1] == triangle[2] || triangle[2] == triangle[0];
}

std::vector<Surface::Side> findSides(const std::vector<Surface::Triangle>& triangles)
{
    std::vector<Surface::Side> sides;
    sides.reserve(3 * triangles.size());
    for (unsigned int i = 0; i < triangles.size(); ++i) {
        const Surface::Triangle& triangle = triangles[i];
        if (!isCollapsed(triangle)) {
            sides.push_back({sorted<2>({triangle[0], triangle[1]}), i});
            sides.push_back({sorted<2>({triangle[1], triangle[2]}), i});
            sides.push_back({sorted<2>({triangle[2], triangle[0]}), i});
        }
    }
    std::sort(sides.begin(), sides.end(), [](const Surface::Side& a, const Surface::Side& b) {
        return std::tie(a.edge, a.triangle) < std::tie(b.edge, b.triangle);
    });
    return sides;
}

/// Union-find over the numbers below a count.
class DisjointSets {
public:
    explicit DisjointSets(std::size_t count) : parent(count) { std::iota(parent.begin(), parent.end(), 0U); }

    /// The representative of the element's set.
    unsigned int find(unsigned int element)
    {
        while (parent[element] != element) {
            parent[element] = parent[parent[element]]; // path halving
            element = parent[element];
        }
        return element;
    }

    void unite(unsigned int element, unsigned int other) { parent[find(other)] = find(element); }

private:
    std::vector<unsigned int> parent;
};

} // namespace

Surface::Surface(const ImportedMesh& mesh) : mesh(mesh), size(boundingBoxDiagonal(mesh.positions))
{
    const std::vector<unsigned int> representative = weld(mesh.positions, weldingDistance * size);
    triangles.reserve(mesh.triangles.size());
    for (const Triangle& triangle : mesh.triangles) {
        triangles.push_back(
            {representative[triangle[0]], representative[triangle[1]], representative[triangle[2]]});
    }
    sides = findSides(triangles);
    for (const std::span<const Side> side : sidesByEdge()) {
        if (side.size() == 1) {
            boundary.push_back(side[0].edge);
        }
    }
}

std::vector<std::span<const Surface::Side>> Surface::sidesByEdge() const
{
    std::vector<std::span<const Side>> edges;
    edges.reserve(sides.size() / 2);
    for (auto side = sides.begin(); side != sides.end();) {
        const auto next =
            std::find_if(side, sides.end(), [&](const Side& other) { return other.edge != side->edge; });
        edges.emplace_back(side, next);
        side = next;
    }
    return edges;
}

glm::vec3 Surface::middleOfEdge(const Edge& edge) const
{
    return 0.5F * (mesh.positions[edge[0]] + mesh.positions[edge[1]]);
}

bool Surface::hasArea(const std::array<glm::vec3, 3>& corners) const
{
    const float longest =
        std::max({glm::distance(corners[0], corners[1]), glm::distance(corners[1], corners[2]),
                  glm::distance(corners[2], corners[0])});
    return glm::length(windingOf(corners)) > longest * smallestHeight * size;
}

Finding Surface::degenerateTriangles() const
{
    Finding found;
    for (const Triangle& triangle : mesh.triangles) {
        const auto corners = cornersOf(mesh, triangle);
        if (!hasArea(corners)) {
            found.add(middleOf(corners));
        }
    }
    return found;
}

Finding Surface::duplicateTriangles() const
{
    std::vector<Triangle> faces;
    for (const Triangle& triangle : triangles) {
        if (!isCollapsed(triangle)) {
            faces.push_back(sorted(triangle));
        }
    }
    std::sort(faces.begin(), faces.end());
    Finding found;
    for (std::size_t i = 1; i < faces.size(); ++i) {
        if (faces[i] == faces[i - 1]) {
            found.add(middleOf(cornersOf(mesh, faces[i])));
        }
    }
    return found;
}

Finding Surface::trianglesAgainstNormals() const
{
    Finding found;
    for (const Triangle& triangle : mesh.triangles) {
        const auto corners = cornersOf(mesh, triangle);
        const glm::vec3 winding = windingOf(corners);
        const glm::vec3 normal =
            mesh.normals[triangle[0]] + mesh.normals[triangle[1]] + mesh.normals[triangle[2]];
        const float lengths = glm::length(winding) * glm::length(normal);
        if (hasArea(corners) && glm::dot(winding, normal) < clearlyAgainst * lengths) {
            found.add(middleOf(corners));
        }
    }
    return found;
}

Finding Surface::boundaryEdges() const
{
    Finding found;
    for (const Edge& edge : boundary) {
        found.add(middleOfEdge(edge));
    }
    return found;
}

Finding Surface::visibleBoundaryEdges(const RayCaster& caster) const
{
    const std::vector<glm::vec3> directions = fibonacciSphere(sightLines);
    Finding found;
    for (const Edge& edge : boundary) {
        const glm::vec3 middle = middleOfEdge(edge);
        if (std::any_of(directions.begin(), directions.end(), [&](const glm::vec3& direction) {
                return !caster.hits(middle + sightStart * size * direction, direction);
            }))
        {
            found.add(middle);
        }
    }
    return found;
}

Finding Surface::visibleBacks(const RayCaster& caster) const
{
    const std::vector<unsigned int> component = connectedComponents();
    std::set<unsigned int> open;
    for (const Edge& edge : boundary) {
        open.insert(component[edge[0]]);
    }
    const std::vector<glm::vec3> directions = fibonacciSphere(backSightLines);
    Finding found;
    for (const Triangle& triangle : triangles) {
        const auto corners = cornersOf(mesh, triangle);
        if (!open.contains(component[triangle[0]]) || !hasArea(corners)) {
            continue;
        }
        const glm::vec3 normal = glm::normalize(windingOf(corners));
        const glm::vec3 origin = middleOf(corners) - backSightStart * size * normal;
        const auto ways = std::ranges::count_if(directions, [&](const glm::vec3& direction) {
            return glm::dot(direction, normal) < 0.0F && !caster.hits(origin, direction);
        });
        if (ways >= fewestWaysOut) {
            found.add(middleOf(corners));
        }
    }
    return found;
}

std::vector<unsigned int> Surface::connectedComponents() const
{
    DisjointSets components(mesh.positions.size());
    for (const Triangle& triangle : triangles) {
        components.unite(triangle[0], triangle[1]);
        components.unite(triangle[0], triangle[2]);
    }
    std::vector<unsigned int> representatives;
    for (unsigned int vertex = 0; vertex < mesh.positions.size(); ++vertex) {
        representatives.push_back(components.find(vertex));
    }
    return representatives;
}

Finding Surface::componentsInsideOut() const
{
    struct Component {
        double volume = 0.0;
        double area = 0.0;
        bool closed = true;
    };
    std::map<unsigned int, Component> components; // by representative
    const std::vector<unsigned int> representatives = connectedComponents();
    for (const Triangle& triangle : triangles) {
        const unsigned int vertex = representatives[triangle[0]];
        // From a point of the component itself: in a wide model the volumes of small ones come near the
        // noise.
        const glm::dvec3 origin = mesh.positions[vertex];
        const glm::dvec3 a = glm::dvec3(mesh.positions[triangle[0]]) - origin;
        const glm::dvec3 b = glm::dvec3(mesh.positions[triangle[1]]) - origin;
        const glm::dvec3 c = glm::dvec3(mesh.positions[triangle[2]]) - origin;
        Component& component = components[vertex];
        component.volume += glm::dot(a, glm::cross(b, c)) / 6.0;
        component.area += glm::length(glm::cross(b - a, c - a)) / 2.0;
    }
    for (const Edge& edge : boundary) {
        components[representatives[edge[0]]].closed = false;
    }
    Finding found;
    for (const auto& [vertex, component] : components) {
        if (component.closed && component.volume < -smallestVolume * std::pow(component.area, 1.5)) {
            found.add(mesh.positions[vertex]);
        }
    }
    return found;
}

} // namespace tools::modelcheck
