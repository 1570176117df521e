#include "tools/trackc/scene_values.h"

#include "scenes/scene_numbers.h"
#include "tools/common/error.h"
#include "tools/trackc/text_fields.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>

namespace tools {

namespace {

bool selects(float value)
{
    return std::any_of(std::begin(scene_numbers::names), std::end(scene_numbers::names),
                       [value](const scene_numbers::Name& row) { return row.value == value; });
}

/// "4 is the room, 5 the credits, ..."
std::string allMeanings()
{
    std::string text;
    for (const scene_numbers::Name& row : scene_numbers::names) {
        text += fmt::format("{}{}{} the {}", text.empty() ? "" : ", ", row.value, text.empty() ? " is" : "",
                            row.name);
    }
    return text;
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

} // namespace tools
