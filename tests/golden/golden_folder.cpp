#include "tests/golden/golden_folder.h"

#include "tests/golden/still_stage.h"
#include "tools/common/atomic_file.h"
#include "tools/common/error.h"
#include "tools/common/read_file.h"
#include "tools/picture/picture_file.h"
#include "tools/picture/png_image.h"

#include <algorithm>
#include <fmt/format.h>
#include <set>
#include <utility>

namespace fs = std::filesystem;

fs::path goldenFile(const fs::path& folder, const Still& still)
{
    return folder / (std::string(still.name) + ".png");
}

tools::picture::RgbImage readGolden(const fs::path& folder, const Still& still)
{
    const fs::path file = goldenFile(folder, still);
    if (!fs::exists(file)) {
        throw tools::Error(file.string(), "this golden picture is missing");
    }
    tools::picture::RgbImage picture = tools::picture::decodePng(tools::readFile(file), file.string());
    if (picture.size != stillSize) {
        throw tools::Error(file.string(),
                           fmt::format("is {}x{}, expected {}x{}", picture.size.width, picture.size.height,
                                       stillSize.width, stillSize.height));
    }
    return picture;
}

std::vector<std::string> faultsOf(const fs::path& folder)
{
    std::vector<std::string> faults;
    std::set<fs::path> expected;
    std::vector<std::pair<std::string_view, tools::picture::RgbImage>> pictures;
    for (const Still& still : stills()) {
        expected.insert(goldenFile(folder, still));
        try {
            pictures.emplace_back(still.name, readGolden(folder, still));
        } catch (const tools::Error& error) {
            faults.emplace_back(error.what());
        }
    }
    if (fs::is_directory(folder)) {
        for (const auto& entry : fs::directory_iterator(folder)) {
            if (entry.path().extension() == ".png" && !expected.contains(entry.path())) {
                faults.push_back(entry.path().string() + ": there is no still of this name");
            }
        }
    }
    for (auto one = pictures.begin(); one != pictures.end(); ++one) {
        for (auto other = std::next(one); other != pictures.end(); ++other) {
            if (compare(one->second, other->second).isSame()) {
                faults.push_back(fmt::format("{}: cannot be told from {}", one->first, other->first));
            }
        }
    }
    return faults;
}

std::string checkStill(const Still& still, const tools::picture::RgbImage& picture, const fs::path& folder,
                       const fs::path& differences)
{
    const tools::picture::RgbImage golden = readGolden(folder, still);
    const Comparison found = compare(picture, golden);
    if (found.isSame()) {
        return {};
    }
    tools::makeFolder(differences);
    const fs::path drawn = goldenFile(differences, still);
    const fs::path difference = fs::path(drawn).replace_extension(".difference.png");
    tools::AtomicFile(drawn, tools::picture::encodePicture(picture)).commit();
    tools::AtomicFile(difference, tools::picture::encodePicture(differencePicture(picture, golden))).commit();
    return fmt::format("{}: {}; see {}", still.name, found.text(), difference.string());
}
