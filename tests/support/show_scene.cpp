#include "tests/support/show_scene.h"

#include "scenes/bottle_scene.h"
#include "scenes/burger_scene.h"
#include "scenes/credits_scene.h"
#include "scenes/people_scene.h"
#include "scenes/room_scene.h"
#include "scenes/toilet_scene.h"

#include <stdexcept>
#include <string>

namespace {

/// What a scene is built with.
struct Means {
    zund::Renderer& renderer;
    const pack::Packfile& pack;
    const tolv::SyncDevice& sync;
    std::pair<int, int> size;
};

template<typename Class>
Class build(const Means& means)
{
    return Class(means.renderer, means.pack, means.sync, means.size);
}

template<>
CreditsScene build(const Means& means)
{
    return {means.renderer, means.pack, means.size};
}

template<typename Class>
class SceneOf : public ShowScene {
public:
    explicit SceneOf(const Means& means) : means(means), show(build<Class>(means)) {}

    void update(double time) override { show.update(means.renderer, time, means.sync); }
    lumeth::Scene& scene() override { return show.scene; }

private:
    Means means;
    Class show;
};

template<typename Class>
std::unique_ptr<ShowScene> make(const Means& means)
{
    return std::make_unique<SceneOf<Class>>(means);
}

struct Maker {
    const catalogue::Scene& row;
    std::unique_ptr<ShowScene> (*make)(const Means& means);
};

namespace scenes = catalogue::scenes;

constexpr Maker makers[] = {
    {scenes::room, make<RoomScene>},     {scenes::credits, make<CreditsScene>},
    {scenes::bottle, make<BottleScene>}, {scenes::burger, make<BurgerScene>},
    {scenes::toilet, make<ToiletScene>}, {scenes::people, make<PeopleScene>},
};
static_assert(std::size(makers) == std::size(catalogue::allScenes), "a scene has no class");

} // namespace

TrackValues cameraAt(const glm::vec3& position, const glm::vec3& target)
{
    namespace tracks = catalogue::tracks;
    return {{tracks::camera_pos_x, position.x}, {tracks::camera_pos_y, position.y},
            {tracks::camera_pos_z, position.z}, {tracks::camera_tgt_x, target.x},
            {tracks::camera_tgt_y, target.y},   {tracks::camera_tgt_z, target.z}};
}

void writeTracks(const ShowFolder& folder, const TrackValues& values)
{
    for (const auto& [track, value] : values) {
        folder.writeTrack(track.name, {{0, value, 0}});
    }
}

std::unique_ptr<ShowScene> makeScene(const catalogue::Scene& row, zund::Renderer& renderer,
                                     const pack::Packfile& pack, const tolv::SyncDevice& sync,
                                     std::pair<int, int> size)
{
    for (const Maker& maker : makers) {
        if (maker.row.number == row.number) {
            return maker.make({renderer, pack, sync, size});
        }
    }
    throw std::out_of_range(std::string(row.name) + ": no such scene");
}
