#include "tools/capture/film_output.h"

#include "tools/common/atomic_file.h"
#include "tools/common/error.h"
#include "tools/video/probe.h"

#include <cstdio>
#include <fmt/format.h>

namespace tools::capture {

namespace fs = std::filesystem;

void checkOutput(const fs::path& output, bool overwrite)
{
    if (output.extension() != ".mp4") {
        throw Error(output.string(), "expected a name that ends in .mp4");
    }
    if (output.has_parent_path() && !fs::is_directory(output.parent_path())) {
        throw Error(output.string(), "cannot write: there is no such folder");
    }
    if (fs::exists(output) && !overwrite) {
        throw Error(output.string(), "is there already; --overwrite replaces it");
    }
    const AtomicFile trial(output); // before hours are spent on it
}

void finishFilm(const std::vector<fs::path>& pieces, const video::VideoTag& tag,
                const std::optional<video::MusicCut>& music, const fs::path& output)
{
    AtomicFile file(output);
    video::joinFiles(pieces, music, tag.format.fps, video::writeTag(tag), file.temporary());
    video::checkVideo(video::probe(file.temporary()), output, tag.format, tag.frames.count(),
                      music.has_value());
    file.commit();
    fmt::print(stderr, "{}: {} frames of {}x{}, {} a second, {:.3f} seconds{}\n", output.string(),
               tag.frames.count(), tag.format.size.width, tag.format.size.height, tag.format.fps,
               video::timeOfFrame(tag.frames.count(), tag.format.fps),
               music ? "; the music starts with the first" : "");
}

} // namespace tools::capture
