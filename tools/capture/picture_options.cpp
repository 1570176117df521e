#include "tools/capture/picture_options.h"

#include <fmt/format.h>

namespace tools::capture {

void addPictureOptions(CLI::App& command, PictureOptions& options)
{
    command.add_option("OUT", options.output, "the file to write: NAME.png, NAME.rgb, or -")->required();
    command.add_option("--assets", options.assets, "folder of models, pack and tracks (assets)");
    command.add_option("--size", options.size,
                       fmt::format("WIDTHxHEIGHT of a still, in pixels ({})", options.size));
}

} // namespace tools::capture
