#include "tools/stage/stage.h"

#include "scenes/bottle_scene.h"
#include "scenes/burger_scene.h"
#include "scenes/catalogue.h"
#include "scenes/credits_scene.h"
#include "scenes/people_scene.h"
#include "scenes/room_scene.h"
#include "scenes/toilet_scene.h"
#include "sync/tools.h"
#include "tools/common/error.h"

#include <filesystem>
#include <fmt/format.h>
#include <memory>
#include <utility>
#include <vector>

namespace tools::stage {

namespace {

constexpr float clearColor = 0.01F; // of red, green and blue, as in the show

const std::filesystem::path folder = "assets";

/// The path of a file of assets. Throws if it isn't there.
std::string checkedPath(const std::string& file, const std::string& assetsName)
{
    if (!std::filesystem::exists(folder / file)) {
        throw Error(assetsName + "/" + file, "there is no such file");
    }
    return folder / file;
}

std::unique_ptr<pack::Packfile> openPack(const std::string& assetsName)
{
    const std::string path = checkedPath("assets.pack", assetsName);
    try {
        return std::make_unique<pack::Packfile>(path);
    } catch (const std::exception& reason) {
        throw Error(assetsName + "/assets.pack", reason.what());
    }
}

std::pair<int, int> sizeOf(const HiddenWindow& window)
{
    return {static_cast<int>(window.size().width), static_cast<int>(window.size().height)};
}

/// The show's models that the folder lacks, as the end of a sentence: the importer doesn't tell which it
/// missed.
std::string missingModels(const std::string& assetsName)
{
    std::vector<std::string> missing;
    for (const catalogue::Model& model : catalogue::allModels) {
        if (!std::filesystem::exists(model.path)) {
            missing.push_back(fmt::format("{}/{}.glb", assetsName, model.name));
        }
    }
    return missing.empty() ? "" : fmt::format("; these are missing: {}", fmt::join(missing, ", "));
}

/// The transforms of a scene's items as they were constructed.
///
/// Items keep position, orientation and scale in one matrix, which their setters take apart and put together
/// again: each update rounds what the one before left. The show plays from its start, so that this is part of
/// it; a tool draws any frame after any other, and each has to come out as if it was the first.
class ConstructedTransforms {
public:
    explicit ConstructedTransforms(lumeth::Scene& scene)
    {
        scene.getGraph().visit(
            [this](Node* /*parent*/, Node* node) { kept.emplace_back(node, node->value.localMatrix); });
    }

    void restore() const
    {
        for (const auto& [node, matrix] : kept) {
            node->value.localMatrix = matrix;
        }
    }

private:
    using Node = tree::Node<lumeth::DisplayListItem>;

    std::vector<std::pair<Node*, glm::mat4>> kept; ///< nodes stay where they are as long as their scene
};

/// A scene on the heap: scenes have no virtual destructor, and are to be deleted as what they are.
template<typename Scene>
struct Holder {
    Holder(zund::Renderer& renderer, const pack::Packfile& pack, const tolv::SyncDevice& sync,
           std::pair<int, int> size)
        : scene(renderer, pack, sync, size), transforms(scene.scene)
    {
    }

    Scene scene;
    ConstructedTransforms transforms;
};

template<>
struct Holder<CreditsScene> {
    Holder(zund::Renderer& renderer, const pack::Packfile& pack, const tolv::SyncDevice& /*sync*/,
           std::pair<int, int> size)
        : scene(renderer, pack, size), transforms(scene.scene)
    {
    }

    CreditsScene scene;
    ConstructedTransforms transforms;
};

} // namespace

Stage::Stage(HiddenWindow& window, std::string assetsName)
    : Stage(window, window.renderer(), std::move(assetsName))
{
}

Stage::Stage(HiddenWindow& window, zund::Renderer& renderer, std::string assetsName)
    : window(window),
      renderer(renderer),
      assetsName(std::move(assetsName)),
      sync("assets/sync", tempo::beatsPerMinute, tempo::rowsPerBeat),
      pack(openPack(this->assetsName)),
      sceneTrack(sync.getTrack(catalogue::tracks::scene.name))
{
}

float Stage::sceneAt(double time) const
{
    checkedPath("sync_scene.track", assetsName); // without it all reads 0, which selects nothing
    return sync.getValue(sceneTrack, timeToRow(time));
}

void Stage::prepare(float scene)
{
    if (!drawers.contains(scene)) {
        drawers[scene] = makeDrawer(scene);
    }
}

void Stage::show(float scene, double time)
{
    prepare(scene);
    renderer.clear(clearColor, clearColor, clearColor);
    if (const Drawer& drawer = drawers[scene]) {
        drawer(time);
    }
}

picture::RgbImage Stage::draw(float scene, double time)
{
    show(scene, time);
    return window.read();
}

template<typename Scene>
Stage::Drawer Stage::makeDrawer()
{
    // Shared, as functions can be copied.
    auto holder = std::make_shared<Holder<Scene>>(renderer, *pack, sync, sizeOf(window));
    return [this, holder = std::move(holder)](double time) {
        holder->transforms.restore();
        holder->scene.update(renderer, time, sync);
        holder->scene.scene.draw(renderer, time);
    };
}

Stage::Drawer Stage::makeDrawer(float scene)
{
    struct Row {
        float scene;
        Drawer (Stage::*make)();
    };
    static constexpr Row rows[] = {
        {catalogue::scenes::room.number, &Stage::makeDrawer<RoomScene>},
        {catalogue::scenes::credits.number, &Stage::makeDrawer<CreditsScene>},
        {catalogue::scenes::bottle.number, &Stage::makeDrawer<BottleScene>},
        {catalogue::scenes::burger.number, &Stage::makeDrawer<BurgerScene>},
        {catalogue::scenes::toilet.number, &Stage::makeDrawer<ToiletScene>},
        {catalogue::scenes::people.number, &Stage::makeDrawer<PeopleScene>},
    };
    static_assert(std::size(rows) == std::size(catalogue::allScenes), "a scene has no row here");
    for (const Row& row : rows) {
        if (row.scene != scene) {
            continue;
        }
        try {
            return (this->*row.make)();
        } catch (const std::exception& reason) {
            throw Error(fmt::format("the {} scene", catalogue::nameOf(scene)),
                        fmt::format("cannot be made: {}{}", reason.what(), missingModels(assetsName)));
        }
    }
    return {};
}

} // namespace tools::stage
