#include "tests/support/run_tool.h"

#include <gmock/gmock.h>
#include <string>

using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

namespace {

/// What the probe tells where there is no window, but Mesa's software driver; `machine` are variables of the
/// environment.
ToolResult probe(const std::string& machine)
{
    return runTool("env SDL_VIDEODRIVER=offscreen SDL_AUDIODRIVER=dummy " + machine + " " PROBE);
}

TEST(Probe, TellsWhatTheShowWouldFind)
{
    const ToolResult result = probe("");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, ContainsRegex("^video=offscreen\n"
                                             "screen=[0-9]+x[0-9]+\n"
                                             "gl_vendor=[^\n]+\n"
                                             "gl_renderer=[^\n]*llvmpipe[^\n]*\n"
                                             "gl_version=4\\.[56] [^\n]*\n"
                                             "s3tc=yes\n"
                                             "audio=dummy\n$"));
}

TEST(Probe, NamesTheDriverThatHasTooOldAnOpenGl)
{
    const ToolResult result = probe("GALLIUM_DRIVER=softpipe");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output,
                AllOf(ContainsRegex("\ngl_error=[^\n]+\n"), HasSubstr("\ngl_renderer=softpipe\n"),
                      ContainsRegex("\ngl_version=3\\.3 "), HasSubstr("\naudio=dummy\n")));
}

TEST(Probe, MissesS3tc)
{
    const ToolResult result = probe("MESA_EXTENSION_OVERRIDE=-GL_EXT_texture_compression_s3tc");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, AllOf(HasSubstr("\ns3tc=no\n"), Not(HasSubstr("gl_error"))));
}

TEST(Probe, TellsWhyNoWindowOpens)
{
    const ToolResult result = probe("SDL_VIDEODRIVER=nonesuch");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "video_error=nonesuch not available\naudio=dummy\n");
}

TEST(Probe, TellsWhyNoSoundDeviceOpens)
{
    const ToolResult result = probe("SDL_AUDIODRIVER=nonesuch");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, AllOf(HasSubstr("\naudio_error=Audio target 'nonesuch' not available\n"),
                                     Not(HasSubstr("\naudio=")), HasSubstr("\ns3tc=yes\n")));
}

} // namespace
