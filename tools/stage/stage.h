#pragma once

#include "pack/packfile.h"
#include "sync/syncdevice.h"
#include "tools/common/quiet_output.h"
#include "tools/stage/hidden_window.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace tools::stage {

/// The scenes of the show, drawn by the show's own code. Each is made when it is first drawn, from the folder
/// "assets" in the working directory. A picture depends on scene and time alone, whatever was drawn before.
///
/// What the show's code says to `std::cout` is not heard while a stage lives: standard output is the tool's.
/// Of two stages the later one goes first.
class Stage {
public:
    /// Opens the pack. `window` must outlive the stage; errors call the folder `assetsName`.
    /// Throws `Error` with the pack's path and the reason.
    Stage(HiddenWindow& window, std::string assetsName);

    /// The same with a renderer of one's own, which outlives the stage too. What it hands on to the window's
    /// is what the window shows.
    Stage(HiddenWindow& window, zund::Renderer& renderer, std::string assetsName);

    /// The value of the track "scene" at a position in the music, in seconds. Throws `Error` if it has no
    /// file.
    float sceneAt(double time) const;

    /// Makes the scene of that number, if there is one and it has not been drawn yet. Throws `Error`
    /// "SCENE: cannot be made: REASON" if its assets are amiss.
    void prepare(float scene);

    /// Lets the window hold the frame in which the scene of that number stands at `time`; a number that
    /// selects none leaves it cleared. Throws as `prepare` does.
    void show(float scene, double time);

    /// What `show` shows.
    picture::RgbImage draw(float scene, double time);

private:
    using Drawer = std::function<void(double time)>;

    template<typename Scene>
    Drawer makeDrawer();
    Drawer makeDrawer(float scene);

    QuietOutput quiet; ///< stands first, as the sync device speaks when it goes too
    HiddenWindow& window;
    zund::Renderer& renderer; ///< that the scenes draw by
    std::string assetsName;
    tolv::SyncDevice sync;
    std::unique_ptr<pack::Packfile> pack;
    tolv::SyncTrack sceneTrack;
    std::map<float, Drawer> drawers; ///< an empty one for a number that selects nothing
};

} // namespace tools::stage
