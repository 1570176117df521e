#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tools::modelcheck {

/// What models cost together. What a scene loads again costs its import again; vertices and bytes count once.
struct Cost {
    std::size_t models = 0;
    std::size_t vertices = 0;
    std::uintmax_t bytes = 0; ///< of the files
    int imports = 0;
    double seconds = 0.0; ///< of processor time, for all imports
};

/// What the models of the show may cost together, so that it downloads fast and starts soon.
struct Budget {
    std::size_t vertices = 350'000;
    std::uintmax_t bytes = 16'000'000;
    double seconds = 2.5; ///< of one core
};
constexpr Budget budget;

/// "2 models: 1234 vertices, 0.12 MB, 0.05 s for 3 imports"
std::string describe(const Cost& cost);

/// A sentence for each way in which the cost goes over the budget.
std::vector<std::string> overBudget(const Cost& cost);

} // namespace tools::modelcheck
