#pragma once

#include "tools/video/frames.h"
#include "tools/video/video_format.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace tools::capture {

/// What to film, and where it goes.
struct FilmOptions {
    std::filesystem::path output; ///< NAME.mp4
    std::filesystem::path assets; ///< a folder
    video::VideoFormat format;
    std::int32_t fromRow = 0;
    std::optional<std::int32_t> toRow; ///< the show's end if none
    std::optional<video::Share> share; ///< of these frames, to be joined with the others; without sound
    bool overwrite = false;            ///< an existing file
};

/// What to join to a film, and where that goes.
struct JoinOptions {
    std::vector<std::filesystem::path> parts; ///< in any order
    std::filesystem::path output;             ///< NAME.mp4
    std::filesystem::path assets;             ///< the folder that the parts were drawn from
    bool overwrite = false;                   ///< an existing file
};

/// Films the show: a video with its music, or without sound a share of one. Frame i of the show stands at
/// i/fps; a film holds the frames from `fromRow` on, before `toRow`.
///
/// Works in pieces, which stay in the folder OUTPUT.parts if it is broken off and are not drawn again in the
/// next run. Says on standard error how far it is, and what the encoding cost. Throws `Error` with the file
/// and the reason; "OUTPUT: cancelled; ..." if a signal asked for an end.
void film(const FilmOptions& options);

/// Joins the shares of a film to the film, without encoding pictures again, and adds the music. Throws as
/// `film` does.
void joinFilm(const JoinOptions& options);

} // namespace tools::capture
