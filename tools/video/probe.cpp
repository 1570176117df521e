#include "tools/video/probe.h"

#include "tools/common/error.h"
#include "tools/video/child_process.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <fmt/format.h>
#include <map>
#include <sstream>

namespace tools::video {

namespace {

constexpr const char* entries = "packet=stream_index,pts:"
                                "stream=index,codec_type,width,height,time_base,start_time,duration,"
                                "color_range,color_space,color_transfer,color_primaries,extradata_hash:"
                                "format_tags=comment";

using Fields = std::map<std::string, std::string, std::less<>>;

/// "name|key=value|key=value" without its name.
Fields readFields(const std::string& line)
{
    Fields fields;
    std::istringstream stream(line);
    std::string field;
    std::getline(stream, field, '|');
    while (std::getline(stream, field, '|')) {
        const std::size_t equals = field.find('=');
        fields[field.substr(0, equals)] = equals == std::string::npos ? "" : field.substr(equals + 1);
    }
    return fields;
}

std::string text(const Fields& fields, std::string_view key)
{
    const auto found = fields.find(key);
    return found == fields.end() ? "" : found->second;
}

/// 0 for what is no number.
std::int64_t whole(const std::string& digits)
{
    std::int64_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

double seconds(const Fields& fields, const char* key)
{
    return std::strtod(text(fields, key).c_str(), nullptr);
}

Probe::Picture readPicture(const Fields& fields)
{
    Probe::Picture picture{};
    picture.size = {static_cast<std::uint32_t>(whole(text(fields, "width"))),
                    static_cast<std::uint32_t>(whole(text(fields, "height")))};
    const std::string timeBase = text(fields, "time_base"); // 1/N
    picture.ticksPerSecond = timeBase.starts_with("1/") ? whole(timeBase.substr(2)) : 0;
    picture.colours = fmt::format("{} {} {} {}", text(fields, "color_range"), text(fields, "color_space"),
                                  text(fields, "color_transfer"), text(fields, "color_primaries"));
    picture.setup = text(fields, "extradata_hash");
    return picture;
}

} // namespace

Probe probe(const std::filesystem::path& file)
{
    const ChildProcess::Result result =
        runProgram({"ffprobe", "-v", "error", "-show_entries", entries, "-show_data_hash", "md5", "-of",
                    "compact", "file:" + file.string()});
    if (result.status != 0) {
        throw Error(file.string(), "no video: " + lastLine(result.errors));
    }
    Probe found;
    bool picture = false;
    std::string pictureIndex;
    std::map<std::string, std::vector<std::int64_t>> times; // packets come before streams
    std::istringstream lines(result.output);
    for (std::string line; std::getline(lines, line);) {
        const Fields fields = readFields(line);
        const std::string type = text(fields, "codec_type");
        if (line.starts_with("packet")) {
            times[text(fields, "stream_index")].push_back(whole(text(fields, "pts")));
        } else if (line.starts_with("format")) {
            found.comment = text(fields, "tag:comment");
        } else if (type == "video") {
            picture = true;
            pictureIndex = text(fields, "index");
            found.picture = readPicture(fields);
        } else if (type == "audio") {
            found.sound = {seconds(fields, "start_time"), seconds(fields, "duration")};
        }
    }
    if (!picture) {
        throw Error(file.string(), "no video: there is no picture in it");
    }
    found.picture.times = std::move(times[pictureIndex]);
    return found;
}

void checkVideo(const Probe& found, const std::filesystem::path& file, const VideoFormat& format,
                std::int64_t frames, bool withSound)
{
    const auto fail = [&](const std::string& reason) {
        throw Error(file.string(), reason);
    };
    const Probe::Picture& picture = found.picture;
    if (picture.size != format.size) {
        fail(fmt::format("holds pictures of {}x{}, expected {}x{}", picture.size.width, picture.size.height,
                         format.size.width, format.size.height));
    }
    const auto count = static_cast<std::int64_t>(picture.times.size());
    if (count != frames) {
        fail(fmt::format("holds {} frames, expected {}", count, frames));
    }
    for (std::int64_t i = 0; i < count; ++i) {
        if (picture.times[static_cast<std::size_t>(i)] * format.fps != i * picture.ticksPerSecond) {
            fail(fmt::format("frame {} does not stand at {}/{} seconds", i, i, format.fps));
        }
    }
    if (picture.colours != "tv bt709 bt709 bt709") {
        fail(fmt::format("its colours are tagged '{}', expected BT.709", picture.colours));
    }
    if (found.sound.has_value() != withSound) {
        fail(withSound ? "holds no sound" : "holds sound, expected none");
    }
    if (!withSound) {
        return;
    }
    const double duration = timeOfFrame(frames, format.fps);
    constexpr double tolerance = 0.0001; // a sample of the music is a fourth of it
    if (std::abs(found.sound->start) > tolerance) {
        fail(fmt::format("its sound starts at {} seconds, its picture at 0", found.sound->start));
    }
    if (std::abs(found.sound->duration - duration) > tolerance) {
        fail(fmt::format("its sound takes {} seconds, its picture {}", found.sound->duration, duration));
    }
}

} // namespace tools::video
