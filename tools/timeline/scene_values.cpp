#include "tools/timeline/scene_values.h"

#include "scenes/catalogue.h"
#include "tools/common/error.h"
#include "tools/timeline/text_fields.h"

#include <fmt/format.h>

namespace tools::timeline {

namespace {

bool selects(float value)
{
    return catalogue::findScene(value) != nullptr || value == catalogue::endOfShow;
}

/// "4 is the room, 5 the credits, ..."
std::string allMeanings()
{
    std::string text;
    for (const catalogue::Scene& scene : catalogue::allScenes) {
        text += fmt::format("{}{} the {}, ", scene.number, text.empty() ? " is" : "", scene.name);
    }
    return text + fmt::format("{} the end", catalogue::endOfShow);
}

} // namespace

void checkSceneValues(const std::vector<TextKey>& keys, const std::string& file)
{
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const auto& [key, line] = keys[i];
        if (!selects(key.value)) {
            throw Error(file, line, fmt::format("value {} selects no scene; {}", key.value, allMeanings()));
        }
        if (i + 1 == keys.size() || key.type == SYNC_STEP || keys[i + 1].key.value == key.value) {
            continue;
        }
        const float next = keys[i + 1].key.value;
        if (!selects(next)) {
            continue; // the next round says so
        }
        throw Error(file, line,
                    fmt::format("{} from {} to {} passes through values that select no scene; use step",
                                typeName(key.type), key.value, next));
    }
}

} // namespace tools::timeline
