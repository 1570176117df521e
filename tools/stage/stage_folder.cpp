#include "tools/stage/stage_folder.h"

#include "tools/common/atomic_file.h"
#include "tools/common/error.h"
#include "tools/common/read_file.h"
#include "tools/timeline/track_file.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace tools::stage {

namespace {

std::filesystem::path makeTemporaryFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "vesperal-capture-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw Error(name, std::string("cannot make the folder: ") + std::strerror(errno));
    }
    return name;
}

} // namespace

StageFolder::StageFolder(const std::filesystem::path& assets, const Overrides& overrides)
    : before(std::filesystem::current_path())
{
    if (!std::filesystem::is_directory(assets)) {
        throw Error(assets.string(), "no folder of assets is here; --assets names another");
    }
    folder = makeTemporaryFolder();
    try {
        fill(assets, overrides);
    } catch (const std::exception&) {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored); // the destructor does not run
        throw;
    }
    std::filesystem::current_path(folder);
}

StageFolder::~StageFolder()
{
    std::error_code ignored;
    std::filesystem::current_path(before, ignored);
    std::filesystem::remove_all(folder, ignored);
}

void StageFolder::fill(const std::filesystem::path& assets, const Overrides& overrides) const
{
    const std::filesystem::path links = folder / "assets";
    makeFolder(links);
    for (const auto& entry : std::filesystem::directory_iterator(assets)) {
        if (entry.path().extension() == ".track") {
            timeline::decodeTrack(readFile(entry.path()), entry.path().string());
        }
        std::filesystem::create_symlink(std::filesystem::absolute(entry.path()),
                                        links / entry.path().filename());
    }
    for (const auto& [track, value] : overrides) {
        // Takes the place of a link of that name, not of the file behind it.
        AtomicFile(links / ("sync_" + track + ".track"), timeline::encodeTrack({{0, value, SYNC_STEP}}))
            .commit();
    }
}

} // namespace tools::stage
