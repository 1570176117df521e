#include "tools/capture/film_sources.h"

#include "tools/common/error.h"
#include "tools/common/read_file.h"
#include "tools/video/fingerprint.h"

#include <set>

namespace tools::capture {

namespace fs = std::filesystem;

std::string fingerprintOfAssets(const fs::path& assets)
{
    if (!fs::is_directory(assets)) {
        throw Error(assets.string(), "no folder of assets is here; --assets names another");
    }
    std::set<fs::path> files; // in one order on every file system
    for (const auto& entry : fs::directory_iterator(assets)) {
        if (entry.is_regular_file()) {
            files.insert(entry.path());
        }
    }
    video::Fingerprint fingerprint;
    for (const fs::path& file : files) {
        fingerprint.add(file.filename().string());
        fingerprint.add(readFile(file));
    }
    return fingerprint.text();
}

std::string fingerprintOfProgram()
{
    video::Fingerprint fingerprint;
    fingerprint.add(readFile("/proc/self/exe"));
    return fingerprint.text();
}

fs::path musicIn(const fs::path& assets)
{
    fs::path music = assets / "house99.ogg";
    if (!fs::exists(music)) {
        throw Error(music.string(), "there is no such file");
    }
    return music;
}

} // namespace tools::capture
