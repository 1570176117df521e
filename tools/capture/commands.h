#pragma once

#include <CLI/App.hpp>

namespace tools::capture {

// What capture can do. Each function adds a command to `app`, with options of its own; the command runs as
// soon as the command line is read and found to be right, and throws `Error` with the place and the reason.

/// still: one frame, as the show has it.
void addStillCommand(CLI::App& app);

/// sheet: a contact sheet of the show.
void addSheetCommand(CLI::App& app);

/// scene: a scene by its name, with tracks of one's own.
void addSceneCommand(CLI::App& app);

/// video: the show, or some bars of it, as an MP4 file with its music.
void addVideoCommand(CLI::App& app);

/// join: puts the parts of a video together.
void addJoinCommand(CLI::App& app);

} // namespace tools::capture
