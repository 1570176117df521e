// standin FOLDER: fills a folder with a stand-in of each model and a pack of those of all textures.

#include "tests/standins/stand_ins.h"
#include "tools/common/command_line.h"

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <filesystem>

int main(int argc, char** argv)
{
    std::filesystem::path folder;
    CLI::App app("Writes boxes and bars in place of all models and textures of the show.", "standin");
    app.add_option("FOLDER", folder, "made if it isn't there")->required();
    return tools::runTool(app, argc, argv, [&folder] { standins::writeStandInAssets(folder); });
}
