#include "tools/common/atomic_file.h"
#include "tools/common/command_line.h"
#include "tools/packer/texture_sizes.h"
#include "tools/standins/model_boxes.h"
#include "tools/standins/stand_ins.h"
#include "tools/standins/texture_bars.h"

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <filesystem>
#include <fmt/format.h>
#include <string>

namespace {

constexpr const char* examples = R"(Examples:
  standin assets show/assets
  standin model sofa sofa.glb
  standin texture title title.dds)";

struct Options {
    std::string name;
    std::filesystem::path output;
};

void list()
{
    for (const tools::ModelBoxes& model : tools::standInModels()) {
        fmt::print("model   {}\n", model.name);
    }
    for (const tools::TextureSize& texture : tools::textureSizes) {
        fmt::print("texture {} {}x{}\n", texture.name, texture.size.width, texture.size.height);
    }
}

/// Adds a subcommand that writes one named thing to a file.
CLI::App* addWriter(CLI::App& app, Options& options, const char* command, const char* help)
{
    CLI::App* const writer = app.add_subcommand(command, help);
    writer->add_option("NAME", options.name, "as `standin list` tells it")->required();
    writer->add_option("OUT", options.output, "the file to write")->required();
    return writer;
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    CLI::App app("Writes boxes and bars in place of models and textures that aren't there yet.", "standin");
    app.require_subcommand(1);
    app.footer(examples);
    const CLI::App* const model = addWriter(app, options, "model", "write a model as binary glTF");
    const CLI::App* const texture = addWriter(app, options, "texture", "write a texture as DDS in DXT1");
    CLI::App* const assets =
        app.add_subcommand("assets", "fill a folder with all models and a pack of all textures");
    assets->add_option("FOLDER", options.output, "made if it isn't there")->required();
    app.add_subcommand("list", "tell all models and textures");
    return tools::runTool(app, argc, argv, [&] {
        if (model->parsed()) {
            tools::AtomicFile(options.output, tools::modelFile(options.name)).commit();
        } else if (texture->parsed()) {
            tools::AtomicFile(options.output, tools::textureFile(options.name)).commit();
        } else if (assets->parsed()) {
            tools::writeStandInAssets(options.output);
        } else {
            list();
        }
    });
}
