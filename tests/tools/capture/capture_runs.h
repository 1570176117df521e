#pragma once

#include "tests/support/in_temporary_folder.h"
#include "tests/support/run_tool.h"

#include <cstdint>
#include <string>
#include <vector>

/// A test that runs capture in a folder with stand-in assets and a short timeline: each scene has a bar, from
/// bar 0 on room, bottle, burger, people, toilet, credits, nothing, the end.
class CaptureRuns : public InTemporaryFolder {
protected:
    CaptureRuns();

    static ToolResult capture(const std::string& arguments);

    /// The pixels of a picture of 160x90 that a command line draws into a raw file.
    static std::vector<std::uint8_t> pixelsOf(const std::string& arguments);

    /// The pixels of a scene, with the camera where it shows something.
    static std::vector<std::uint8_t> pixelsOfScene(const std::string& scene, const std::string& more = "");

    /// Gives a track one value throughout.
    static void writeTrack(const std::string& name, float value);
};
