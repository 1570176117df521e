#include "tools/modelcheck/budget.h"

#include <fmt/format.h>

namespace tools::modelcheck {

namespace {

double megabytes(std::uintmax_t bytes)
{
    return static_cast<double>(bytes) / 1e6;
}

} // namespace

std::string describe(const Cost& cost)
{
    return fmt::format("{} {}: {} vertices, {:.2f} MB, {:.2f} s for {} {}", cost.models,
                       cost.models == 1 ? "model" : "models", cost.vertices, megabytes(cost.bytes),
                       cost.seconds, cost.imports, cost.imports == 1 ? "import" : "imports");
}

std::vector<std::string> overBudget(const Cost& cost)
{
    std::vector<std::string> problems;
    if (cost.vertices > budget.vertices) {
        problems.push_back(fmt::format("{} vertices, the budget is {}", cost.vertices, budget.vertices));
    }
    if (cost.bytes > budget.bytes) {
        problems.push_back(fmt::format("{:.2f} MB, the budget is {:.2f} MB", megabytes(cost.bytes),
                                       megabytes(budget.bytes)));
    }
    if (cost.seconds > budget.seconds) {
        problems.push_back(
            fmt::format("{:.2f} s of imports, the budget is {:.2f} s", cost.seconds, budget.seconds));
    }
    return problems;
}

} // namespace tools::modelcheck
