#include "tools/capture/still.h"

#include "tools/stage/hidden_window.h"
#include "tools/stage/stage.h"
#include "tools/stage/stage_folder.h"
#include "tools/stage/values.h"

namespace tools::capture {

picture::RgbImage drawStill(const PictureOptions& options, const stage::Overrides& overrides,
                            std::optional<float> scene, double time)
{
    const picture::Size size = stage::parsePictureSize("--size", options.size);
    const stage::StageFolder folder(options.assets, overrides);
    stage::HiddenWindow window(size);
    stage::Stage stage(window, options.assets.string());
    return stage.draw(scene ? *scene : stage.sceneAt(time), time);
}

} // namespace tools::capture
