// Walking the tree: how the time grows with its nodes, flat and deep.

#include "engine/tree.h"

#include <benchmark/benchmark.h>
#include <string>

namespace {

void walkFlat(benchmark::State& state)
{
    tree::Node<int> root(0);
    for (int i = 1; i < state.range(0); ++i) {
        root.addNode("node" + std::to_string(i), i);
    }
    for ([[maybe_unused]] const auto pass : state) {
        int sum = 0;
        root.visit([&](tree::Node<int>* /*parent*/, tree::Node<int>* node) { sum += node->value; });
        benchmark::DoNotOptimize(sum);
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(walkFlat)
    ->Name("tree walk, all below the root, nodes")
    ->RangeMultiplier(2)
    ->Range(8, 1024)
    ->Complexity(benchmark::oN);

void walkDeep(benchmark::State& state)
{
    tree::Node<int> root(0);
    tree::Node<int>* deepest = &root;
    for (int i = 1; i < state.range(0); ++i) {
        deepest->addNode("next", i);
        deepest = deepest->getNode("next");
    }
    for ([[maybe_unused]] const auto pass : state) {
        int sum = 0;
        root.visit([&](tree::Node<int>* /*parent*/, tree::Node<int>* node) { sum += node->value; });
        benchmark::DoNotOptimize(sum);
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(walkDeep)
    ->Name("tree walk, one below the other, nodes")
    ->RangeMultiplier(2)
    ->Range(8, 1024)
    ->Complexity(benchmark::oN);

} // namespace
