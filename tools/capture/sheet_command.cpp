#include "scenes/catalogue.h"
#include "tools/capture/commands.h"
#include "tools/capture/contact_sheet.h"
#include "tools/capture/picture_options.h"
#include "tools/picture/picture_file.h"
#include "tools/stage/hidden_window.h"
#include "tools/stage/stage.h"
#include "tools/stage/stage_folder.h"
#include "tools/stage/values.h"
#include "tools/timeline/bar_position.h"
#include "tools/timeline/show_row.h"

#include <cstdio>
#include <fmt/format.h>
#include <memory>
#include <string>
#include <vector>

namespace tools::capture {

namespace {

struct SheetOptions {
    PictureOptions picture{.output = {}, .size = "480x270"};
    std::string every = "4"; ///< bars, as the next two
    std::string from = "0";
    std::string to = "97"; ///< the end of the show
    std::uint32_t columns = 5;
};

/// What stands under a still of the sheet.
std::string caption(std::int32_t row, float scene)
{
    const std::string_view name = catalogue::nameOf(scene);
    return fmt::format("bar {} row {} {}", timeline::barPosition(row), row, name.empty() ? "no scene" : name);
}

picture::RgbImage drawSheet(const SheetOptions& options, picture::Size size,
                            const std::vector<std::int32_t>& rows)
{
    ContactSheet sheet(size, static_cast<std::uint32_t>(rows.size()), options.columns);
    const stage::StageFolder folder(options.picture.assets, {});
    stage::HiddenWindow window(size);
    stage::Stage stage(window, options.picture.assets.string());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const double time = timeline::timeOfRow(rows[i]);
        const float scene = stage.sceneAt(time);
        const std::string text = caption(rows[i], scene);
        sheet.add(stage.draw(scene, time), text);
        fmt::print(stderr, "{} of {}: {}\n", i + 1, rows.size(), text);
    }
    return sheet.picture();
}

double barOption(const std::string& option, const std::string& text)
{
    return stage::parseNumber(option + " " + text, text);
}

void captureSheet(const SheetOptions& options)
{
    const std::vector<std::int32_t> rows =
        sheetRows(barOption("--every", options.every), barOption("--from", options.from),
                  barOption("--to", options.to));
    const picture::PictureFile file(options.picture.output);
    file.write(drawSheet(options, stage::parsePictureSize("--size", options.picture.size), rows));
}

void addSheetOptions(CLI::App& command, SheetOptions& options)
{
    command.add_option("--every", options.every, "bars from one still to the next; a fraction is fine (4)");
    command.add_option("--from", options.from, "first bar (0)");
    command.add_option("--to", options.to, "last bar (97)");
    command.add_option("--columns", options.columns, "stills side by side (5)")->check(CLI::Range(1, 1000));
}

} // namespace

void addSheetCommand(CLI::App& app)
{
    CLI::App* const command = app.add_subcommand("sheet", "a contact sheet of the show");
    const auto options = std::make_shared<SheetOptions>();
    addPictureOptions(*command, options->picture);
    addSheetOptions(*command, *options);
    command->callback([options] { captureSheet(*options); });
}

} // namespace tools::capture
