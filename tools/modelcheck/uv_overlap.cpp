#include "tools/modelcheck/uv_overlap.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tools::modelcheck {

namespace {

constexpr int side = 1024; ///< cells
/// Of a cell's width: what lies that near to an edge counts as outside, or neighbours would overlap by what
/// rounding leaves.
constexpr double margin = 1e-3;

using UvCorners = std::array<glm::dvec2, 3>;

double cross(const glm::dvec2& a, const glm::dvec2& b)
{
    return a.x * b.y - a.y * b.x;
}

class CoverageGrid {
public:
    /// Rasterises a triangle, whose corners are in cells: counts the cells whose middle is inside.
    void add(const UvCorners& corners)
    {
        const auto [left, right] = std::minmax({corners[0].x, corners[1].x, corners[2].x});
        const auto [top, bottom] = std::minmax({corners[0].y, corners[1].y, corners[2].y});
        const int lastX = std::min(static_cast<int>(right), side - 1);
        const int lastY = std::min(static_cast<int>(bottom), side - 1);
        const std::array<Border, 3> borders = bordersOf(corners);
        for (int y = std::max(static_cast<int>(top), 0); y <= lastY; ++y) {
            for (int x = std::max(static_cast<int>(left), 0); x <= lastX; ++x) {
                if (isInside(borders, {x + 0.5, y + 0.5})) {
                    count(x, y);
                }
            }
        }
    }

    [[nodiscard]] double overlap() const
    {
        return covered == 0 ? 0.0 : static_cast<double>(twice) / static_cast<double>(covered);
    }

private:
    /// A side of a triangle.
    struct Border {
        glm::dvec2 from;
        glm::dvec2 along; ///< with the inside to its right
        double margin;
    };

    static std::array<Border, 3> bordersOf(const UvCorners& corners)
    {
        // The sign tells which way the triangle is wound: mirrored islands are as good.
        const double sign = cross(corners[1] - corners[0], corners[2] - corners[0]) < 0.0 ? -1.0 : 1.0;
        std::array<Border, 3> borders;
        for (std::size_t i = 0; i < 3; ++i) {
            const glm::dvec2 edge = corners[(i + 1) % 3] - corners[i];
            borders[i] = {corners[i], sign * edge, margin * std::hypot(edge.x, edge.y)};
        }
        return borders;
    }

    static bool isInside(const std::array<Border, 3>& borders, const glm::dvec2& point)
    {
        return std::all_of(borders.begin(), borders.end(), [&point](const Border& border) {
            return cross(border.along, point - border.from) > border.margin;
        });
    }

    void count(int x, int y)
    {
        std::uint8_t& cell = cells[static_cast<std::size_t>(y) * side + static_cast<std::size_t>(x)];
        covered += cell == 0 ? 1 : 0;
        twice += cell == 1 ? 1 : 0;
        cell = static_cast<std::uint8_t>(std::min(cell + 1, 2));
    }

    std::vector<std::uint8_t> cells = std::vector<std::uint8_t>(static_cast<std::size_t>(side) * side);
    std::size_t covered = 0;
    std::size_t twice = 0;
};

} // namespace

double uvOverlap(const ImportedMesh& mesh)
{
    CoverageGrid grid;
    for (const auto& triangle : mesh.triangles) {
        UvCorners corners;
        for (std::size_t i = 0; i < 3; ++i) {
            // Far outside there is nothing to count, and nothing that an integer could hold.
            corners[i] =
                glm::dvec2(glm::clamp(mesh.uvs[triangle[i]], -1.0F, 2.0F)) * static_cast<double>(side);
        }
        grid.add(corners);
    }
    return grid.overlap();
}

} // namespace tools::modelcheck
