#pragma once

#include "engine/display_list_item.h"
#include "engine/display_object.h"
#include "engine/material.h"

#include <string>
#include <vector>

/// A material that writes down what it is asked, and gives one uniform and one array.
class StubMaterial : public lumeth::Material {
public:
    struct Asked {
        glm::mat4 worldToView;
        const lumeth::DisplayObject* object;
        glm::mat4 worldMatrix; ///< of the item
        std::string objectName;
        std::size_t lights;
        double time;
        double arrayTime = 0.0;
        std::size_t arrayLights = 0;
        const lumeth::DisplayObject* arrayObject = nullptr;
    };

    /// `asked` belongs to the test.
    StubMaterial(zund::Renderer& renderer, std::vector<Asked>& asked, const char* geometry = nullptr)
        : Material(renderer, "stub vertex", "stub fragment", geometry), asked(asked)
    {
    }

    std::vector<zund::UniformCommand> getUniformCommands(const glm::mat4& worldToView,
                                                         const lumeth::DisplayObject& object,
                                                         const lumeth::DisplayListItem& item,
                                                         const std::vector<lumeth::Light>& lights,
                                                         double time) override
    {
        asked.push_back({worldToView, &object, item.worldMatrix, item.objectName, lights.size(), time});
        return {{zund::Uniform(77), 5}};
    }

    std::vector<zund::UniformArrayCommand> getUniformArrayCommands(const lumeth::DisplayObject& object,
                                                                   const lumeth::DisplayListItem& /*item*/,
                                                                   const std::vector<lumeth::Light>& lights,
                                                                   double time) override
    {
        asked.back().arrayTime = time;
        asked.back().arrayLights = lights.size();
        asked.back().arrayObject = &object;
        return {{zund::Uniform(78), std::vector<float>{6.0F}}};
    }

private:
    std::vector<Asked>& asked;
};
