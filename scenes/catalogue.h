#pragma once

#include <algorithm>
#include <iterator>
#include <string_view>

/// What the show is made of, by constants of its own names: `catalogue::models::beer`. The rows stand in
/// scenes/catalogue.def; a name that has none does not compile.
namespace catalogue {

struct Model {
    std::string_view name;
    const char* path; ///< of the file, from the show's folder
};

/// What the texels of a texture are.
enum class TextureKind {
    Color,     ///< a surface
    Normal,    ///< directions in tangent space
    Emission,  ///< what shines; black where nothing does
    Cutout,    ///< a surface with holes, where it is pure black
    Lettering, ///< type on pure black, which is empty
    Picture,   ///< a whole frame
};

struct Texture {
    std::string_view name;
    const char* file; ///< its name in the pack
    int width;        ///< in texels, as the height: what its scene uploads it with
    int height;
    TextureKind kind;
};

/// Which source under art/timeline holds a track.
enum class TrackSource {
    Shots, ///< the list of shots
    Text,  ///< a text of its own
};

struct Track {
    const char* name;
    TrackSource source;
    const char* what; ///< it moves, for people
};

/// How a scene reads the tracks of the camera's place.
enum class CameraForm {
    None,  ///< not at all, nor those of its target
    Point, ///< x, y, z
    Orbit, ///< angle in half turns, height and radius of a circle about the upright axis
};

struct Scene {
    static constexpr std::size_t mostTracks = 8;

    const char* name;
    float number; ///< the value of the track "scene" that selects it, compared exactly
    CameraForm camera;
    const Track* tracks[mostTracks]; ///< besides those of the camera; null behind the last
};

namespace models {
#define MODEL(name) inline constexpr Model name = {#name, "assets/" #name ".glb"};
#include "scenes/catalogue.def"
} // namespace models

namespace textures {
#define TEXTURE(name, width, height, kind, folder)                                                           \
    inline constexpr Texture name = {#name, #name ".dds", width, height, TextureKind::kind};
#include "scenes/catalogue.def"
} // namespace textures

namespace tracks {
#define TRACK(name, source, what) inline constexpr Track name = {#name, TrackSource::source, what};
#include "scenes/catalogue.def"

/// The six of the camera: its place, then its target.
inline constexpr const Track* camera[] = {&camera_pos_x, &camera_pos_y, &camera_pos_z,
                                          &camera_tgt_x, &camera_tgt_y, &camera_tgt_z};
} // namespace tracks

namespace scenes {
namespace detail {

/// The tracks by pointer, padded with null.
template<typename... Tracks>
constexpr Scene makeScene(const char* name, float number, CameraForm camera, const Tracks&... read)
{
    static_assert(sizeof...(read) < Scene::mostTracks);
    return {name, number, camera, {&read...}};
}

using namespace tracks; // for the rows
#define SCENE(name, number, camera, ...)                                                                     \
    inline constexpr Scene name = makeScene(#name, number, CameraForm::camera __VA_OPT__(, ) __VA_ARGS__);
#include "scenes/catalogue.def"

} // namespace detail

#define SCENE(name, ...) using detail::name;
#include "scenes/catalogue.def"
} // namespace scenes

/// The value of the track "scene" at which the show is over.
inline constexpr float endOfShow = -1.0F;

inline constexpr Model allModels[] = {
#define MODEL(name) models::name,
#include "scenes/catalogue.def"
};
inline constexpr Texture allTextures[] = {
#define TEXTURE(name, ...) textures::name,
#include "scenes/catalogue.def"
};
inline constexpr Track allTracks[] = {
#define TRACK(name, ...) tracks::name,
#include "scenes/catalogue.def"
};
inline constexpr Scene allScenes[] = {
#define SCENE(name, ...) scenes::name,
#include "scenes/catalogue.def"
};

/// The row of that name in one of the lists above; null without one.
template<typename Row, std::size_t Count>
constexpr const Row* find(const Row (&rows)[Count], std::string_view name)
{
    const Row* const found =
        std::find_if(std::begin(rows), std::end(rows), [name](const Row& row) { return row.name == name; });
    return found == std::end(rows) ? nullptr : found;
}

/// The scene that a value of the track "scene" selects; null if it selects none.
constexpr const Scene* findScene(float number)
{
    const Scene* const found = std::find_if(std::begin(allScenes), std::end(allScenes),
                                            [number](const Scene& row) { return row.number == number; });
    return found == std::end(allScenes) ? nullptr : found;
}

/// What a value of the track "scene" is called: its scene, or "end"; empty for one that selects nothing.
constexpr std::string_view nameOf(float number)
{
    const Scene* const found = findScene(number);
    return found != nullptr ? found->name : std::string_view(number == endOfShow ? "end" : "");
}

namespace detail {

template<typename Rows, typename Key>
consteval bool unique(const Rows& rows, Key key)
{
    for (const auto& row : rows) {
        if (std::count_if(std::begin(rows), std::end(rows),
                          [&](const auto& other) { return key(other) == key(row); }) != 1)
        {
            return false;
        }
    }
    return true;
}

static_assert(unique(allScenes, [](const Scene& row) { return row.number; }), "two scenes of one number");
static_assert(findScene(endOfShow) == nullptr, "a scene has the number that ends the show");
// DXT1 blocks are 4 texels wide and high.
static_assert(std::all_of(std::begin(allTextures), std::end(allTextures),
                          [](const Texture& row) {
                              return row.width > 0 && row.width % 4 == 0 && row.height > 0 &&
                                     row.height % 4 == 0;
                          }),
              "a texture's size is no multiple of 4");

} // namespace detail

} // namespace catalogue
