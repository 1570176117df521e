#include "tools/common/command_line.h"
#include "tools/common/error.h"
#include "tools/packer/pack_textures.h"
#include "tools/packer/parallel.h"
#include "tools/packer/verify_pack.h"

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <cstdio>
#include <filesystem>
#include <fmt/format.h>
#include <string>

namespace {

constexpr const char* examples = R"(Examples:
  packer --output assets.pack --cache cache art/textures/*.png
  packer --output draft.pack --quick --any-size experiment.png
  packer --list assets.pack
  packer --verify assets.pack)";

struct Options {
    tools::packer::PackOrder order;
    std::filesystem::path list;
    std::filesystem::path verify;
    bool quick = false;
};

/// What CLI11 cannot say by itself.
void checkOptions(const Options& options)
{
    const int actions = (options.order.output.empty() ? 0 : 1) + (options.list.empty() ? 0 : 1) +
                        (options.verify.empty() ? 0 : 1);
    if (actions != 1) {
        throw tools::Error("packer", "give one of --output PACK, --list PACK and --verify PACK");
    }
    if (options.order.output.empty() != options.order.files.empty()) {
        throw tools::Error("packer", "files go with --output, and it needs at least one");
    }
}

void run(Options& options)
{
    checkOptions(options);
    if (!options.list.empty()) {
        fmt::print("{}", tools::packer::listPack(options.list));
    } else if (!options.verify.empty()) {
        fmt::print("{}\n", tools::packer::verifyPack(options.verify, options.order.anySize));
    } else {
        options.order.effort = options.quick ? tools::packer::Effort::Quick : tools::packer::Effort::Best;
        options.order.threads = tools::packer::coreCount();
        tools::packer::packTextures(options.order,
                                    [](const std::string& line) { fmt::print(stderr, "{}\n", line); });
    }
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    CLI::App app("Compresses textures to DXT1 and puts them into a pack, or checks one.", "packer");
    app.add_option("FILE", options.order.files,
                   "PNG picture, or DDS file in DXT1; its stem and .dds is the name");
    app.add_option("-o,--output", options.order.output, "the pack to write");
    app.add_option("--cache", options.order.cache, "folder that keeps encodings for the next time");
    app.add_flag("--quick", options.quick, "encode fast, at a few tenths of a decibel");
    app.add_flag("--any-size", options.order.anySize, "allow names and sizes that the show does not ask for");
    app.add_option("--list", options.list, "print a table of what a pack holds");
    app.add_option("--verify", options.verify, "check a pack and all its files");
    app.footer(examples);
    return tools::runTool(app, argc, argv, [&options] { run(options); });
}
