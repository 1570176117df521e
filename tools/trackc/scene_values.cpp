#include "tools/trackc/scene_values.h"

#include "tools/common/error.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>

namespace tools {

namespace {

struct Meaning {
    float value;
    const char* name;
};

// clang-format off
constexpr Meaning meanings[] = {
    { 4.0F, "the room"},
    { 5.0F, "the credits"},
    { 6.0F, "the bottle"},
    { 7.0F, "the burger"},
    { 8.0F, "the toilet"},
    { 9.0F, "the people"},
    {-1.0F, "the end"},
};
// clang-format on

bool selects(float value)
{
    return std::any_of(std::begin(meanings), std::end(meanings),
                       [value](const Meaning& meaning) { return meaning.value == value; });
}

/// "4 is the room, 5 the credits, ..."
std::string allMeanings()
{
    std::string text;
    for (const Meaning& meaning : meanings) {
        text += fmt::format("{}{}{} {}", text.empty() ? "" : ", ", meaning.value, text.empty() ? " is" : "",
                            meaning.name);
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
