#include "tools/packer/pack_textures.h"

#include "tools/common/atomic_file.h"
#include "tools/common/error.h"
#include "tools/common/read_file.h"
#include "tools/packer/dds.h"
#include "tools/packer/dxt1_cache.h"
#include "tools/packer/pack_format.h"
#include "tools/packer/texture_rules.h"
#include "tools/picture/png_image.h"

#include <chrono>
#include <fmt/format.h>
#include <future>
#include <map>
#include <optional>

namespace tools::packer {

namespace {

/// A file to be packed, read and checked but not decoded.
struct Source {
    std::filesystem::path path;
    std::string name; ///< in the pack
    std::string bytes;
    picture::Size size{};

    bool isDds() const { return path.extension() == ".dds"; }
};

Source readSource(const std::filesystem::path& path, bool anySize)
{
    Source source{path, path.stem().string() + ".dds", readFile(path)};
    const std::string place = path.string();
    checkPackName(source.name, place);
    source.size = source.isDds() ? checkDds(source.bytes, place) : picture::readPngSize(source.bytes, place);
    checkBlockSize(source.size, place);
    if (!anySize) {
        checkTexture(path.stem().string(), source.size, place);
    }
    return source;
}

std::vector<Source> readSources(const PackOrder& order)
{
    std::vector<Source> sources;
    std::map<std::string, std::string> pathOf; // by name
    for (const std::filesystem::path& path : order.files) {
        Source source = readSource(path, order.anySize);
        const auto [first, isNew] = pathOf.insert({source.name, path.string()});
        if (!isNew) {
            throw Error(path.string(), fmt::format("{} comes from {} already", source.name, first->second));
        }
        sources.push_back(std::move(source));
    }
    return sources;
}

/// What is left to do for a PNG: one of both is there.
struct Prepared {
    std::optional<Dxt1Image> kept;
    picture::RgbImage image;
};

Prepared prepare(const Source& source, const Dxt1Cache& cache, Effort effort)
{
    Prepared prepared{cache.find(source.bytes, effort), {}};
    const std::size_t expected = std::size_t{source.size.width} * source.size.height / 2;
    if (prepared.kept && prepared.kept->blocks.size() != expected) {
        prepared.kept.reset();
    }
    if (!prepared.kept) {
        prepared.image = picture::decodePng(source.bytes, source.path.string());
    }
    return prepared;
}

/// "title.png  3840x2160  DXT1", to which the caller adds what came of it.
std::string describe(const Source& source)
{
    return fmt::format("{:<24}  {:>9}  DXT1", source.path.filename().string(),
                       fmt::format("{}x{}", source.size.width, source.size.height));
}

} // namespace

void packTextures(const PackOrder& order, const std::function<void(const std::string&)>& report)
{
    using Clock = std::chrono::steady_clock;
    std::vector<Source> sources = readSources(order);
    const Dxt1Cache cache(order.cache);
    std::vector<std::future<Prepared>> prepared(sources.size());
    // Decoding takes one core: the next picture is decoded while this one is encoded.
    const auto beginPreparing = [&](std::size_t i) {
        if (i < sources.size() && !sources[i].isDds()) {
            prepared[i] =
                std::async(std::launch::async, [&, i] { return prepare(sources[i], cache, order.effort); });
        }
    };
    std::vector<PackInput> files;
    beginPreparing(0);
    for (std::size_t i = 0; i < sources.size(); ++i) {
        const Clock::time_point start = Clock::now();
        Source& source = sources[i];
        if (source.isDds()) {
            beginPreparing(i + 1);
            report(describe(source) + "  as it is");
            files.push_back({source.name, std::move(source.bytes)});
            continue;
        }
        Prepared work = prepared[i].get();
        beginPreparing(i + 1);
        const bool isKept = work.kept.has_value();
        const Dxt1Image encoded = isKept ? *work.kept : encodeDxt1(work.image, order.effort, order.threads);
        if (!isKept) {
            cache.keep(source.bytes, order.effort, encoded);
        }
        const std::chrono::duration<double> seconds = Clock::now() - start;
        report(fmt::format("{}  {:.1f} dB  {:.1f} s{}", describe(source),
                           peakSignalToNoise(encoded.squaredError, source.size), seconds.count(),
                           isKept ? "  (cached)" : ""));
        files.push_back({source.name, makeDdsHeader(source.size) + encoded.blocks});
    }
    AtomicFile(order.output, encodePack(files)).commit();
}

} // namespace tools::packer
