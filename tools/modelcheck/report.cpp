#include "tools/modelcheck/report.h"

#include "tools/modelcheck/extents.h"

#include <fmt/format.h>

namespace tools::modelcheck {

std::string tableHead()
{
    return fmt::format("{:<18} {:>8} {:>9}   {:<15} {:<15} {:<15}\n", "model", "vertices", "triangles",
                       "     x", "     y", "     z");
}

std::string tableLine(std::string_view name, const ImportedMesh& mesh)
{
    const auto range = [&mesh](Extent low, Extent high) {
        return fmt::format("{:>6.2f}..{:<7.2f}", measure(mesh, low), measure(mesh, high));
    };
    return fmt::format("{:<18} {:>8} {:>9}   {} {} {}\n", name, mesh.positions.size(), mesh.triangles.size(),
                       range(Extent::LowX, Extent::HighX), range(Extent::LowY, Extent::HighY),
                       range(Extent::LowZ, Extent::HighZ));
}

} // namespace tools::modelcheck
