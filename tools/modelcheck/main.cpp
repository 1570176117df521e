#include "tools/common/command_line.h"
#include "tools/common/error.h"
#include "tools/modelcheck/budget.h"
#include "tools/modelcheck/check_model.h"
#include "tools/modelcheck/dump.h"
#include "tools/modelcheck/imported_mesh.h"
#include "tools/modelcheck/model_rules.h"
#include "tools/modelcheck/report.h"

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fmt/format.h>
#include <string>
#include <vector>

namespace {

constexpr const char* examples = R"(Examples:
  modelcheck assets/*.glb
  modelcheck --verbose assets/sofa.glb
  modelcheck --any-name draft.glb
  modelcheck --budget assets/*.glb
  modelcheck --dump assets/*.glb >before.txt

NAME.glb is checked as the show's model NAME: tools/modelcheck/model_rules.cpp says how each has to fit. Places are
in the model's own units. Each problem is a line on standard error.)";

struct Options {
    std::vector<std::filesystem::path> files;
    bool anyName = false;
    bool budget = false;
    bool dump = false;
    bool verbose = false;
};

/// Goes through the files, and counts.
class Run {
public:
    explicit Run(const Options& options) : options(options) {}

    void check(const std::filesystem::path& file)
    {
        const std::size_t before = problems;
        try {
            const tools::modelcheck::ImportedMesh mesh = tools::modelcheck::importModel(file);
            fmt::print("{}", tools::modelcheck::tableLine(file.stem().string(), mesh));
            judge(file, mesh);
        } catch (const tools::Error& error) { // the other files are still worth a look
            complain(error.what());
        }
        badFiles += problems > before ? 1 : 0;
    }

    void checkBudget()
    {
        fmt::print("{}\n", tools::modelcheck::describe(cost));
        for (const std::string& problem : tools::modelcheck::overBudget(cost)) {
            complain("all together: " + problem);
        }
    }

    /// Throws if anything was wrong.
    void finish() const
    {
        std::fflush(stdout); // before what is said last
        if (problems > 0) {
            throw tools::Error("modelcheck", fmt::format("{} {}, in {} of {} {}", problems,
                                                         problems == 1 ? "problem" : "problems", badFiles,
                                                         options.files.size(),
                                                         options.files.size() == 1 ? "file" : "files"));
        }
    }

private:
    void judge(const std::filesystem::path& file, const tools::modelcheck::ImportedMesh& mesh)
    {
        const tools::modelcheck::ModelRules* const known =
            tools::modelcheck::findModelRules(file.stem().string());
        if (known == nullptr && !options.anyName) {
            complain(file.string() + ": no row says where it has to fit");
        }
        const tools::modelcheck::ModelRules rules =
            known == nullptr ? tools::modelcheck::ModelRules{} : *known;
        const tools::modelcheck::ModelReport report = tools::modelcheck::checkModel(mesh, rules);
        for (const std::string& detail : report.details) {
            fmt::print("{}", options.verbose ? "  " + detail + "\n" : "");
        }
        for (const std::string& problem : report.problems) {
            complain(file.string() + ": " + problem);
        }
        if (options.budget) {
            addCost(file, mesh, rules.loads);
        }
    }

    void addCost(const std::filesystem::path& file, const tools::modelcheck::ImportedMesh& mesh, int loads)
    {
        ++cost.models;
        cost.vertices += mesh.positions.size();
        cost.bytes += std::filesystem::file_size(file);
        cost.imports += loads;
        // The better of two: what else the machine does only ever adds.
        cost.seconds +=
            loads * std::min(tools::modelcheck::importSeconds(file), tools::modelcheck::importSeconds(file));
    }

    void complain(const std::string& sentence)
    {
        std::fflush(stdout); // below the line of its model
        fmt::print(stderr, "{}\n", sentence);
        ++problems;
    }

    const Options& options;
    tools::modelcheck::Cost cost;
    std::size_t problems = 0;
    std::size_t badFiles = 0;
};

void dump(const Options& options)
{
    for (const std::filesystem::path& file : options.files) {
        fmt::print("{}\n{}", file.filename().string(),
                   tools::modelcheck::dump(tools::modelcheck::importModel(file)));
    }
}

void run(const Options& options)
{
    if (options.dump) {
        dump(options);
        return;
    }
    Run run(options);
    fmt::print("{}", tools::modelcheck::tableHead());
    for (const std::filesystem::path& file : options.files) {
        run.check(file);
    }
    if (options.budget) {
        run.checkBudget();
    }
    run.finish();
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    CLI::App app("Reads models as the show does, measures them, and says what would look wrong.",
                 "modelcheck");
    app.add_option("FILE", options.files, "NAME.glb, binary glTF with one mesh")->required();
    app.add_flag("--any-name", options.anyName, "allow models that the show does not have");
    app.add_flag("--budget", options.budget, "add up what the files cost, and fail where that is too much");
    app.add_flag("--dump", options.dump, "print all numbers of the meshes, and check nothing");
    app.add_flag("-v,--verbose", options.verbose, "print all that was measured");
    app.footer(examples);
    return tools::runTool(app, argc, argv, [&options] { run(options); });
}
