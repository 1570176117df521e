#pragma once

#include "engine/light.h"
#include "gl/draw-command.h"
#include "gl/renderer.h"

#include <glm/mat4x4.hpp>
#include <new>
#include <vector>

namespace lumeth {

struct DisplayListItem;
struct DisplayObject;

/// A shader program and how to fill its uniforms for one draw. Makes no GL calls of its own at draw time.
///
/// The textures are those of the object that is drawn, at units 0 to 2 whatever the material. A derived
/// material holds handles and numbers only: none of its members may need a destructor.
class Material {
public:
    /// Compiles and links. `geometrySource` may be null. Throws what the renderer throws.
    Material(zund::Renderer& renderer, const char* vertexSource, const char* fragmentSource,
             const char* geometrySource);

    /// `worldToView` is the camera, `time` the position in the music in seconds.
    virtual std::vector<zund::UniformCommand>
    getUniformCommands(const glm::mat4& worldToView, const DisplayObject& object, const DisplayListItem& item,
                       const std::vector<Light>& lights, double time) = 0;
    virtual std::vector<zund::UniformArrayCommand> getUniformArrayCommands(const DisplayObject& object,
                                                                           const DisplayListItem& item,
                                                                           const std::vector<Light>& lights,
                                                                           double time) = 0;

    /// Makes it sound to delete a derived material through this class, which has no virtual destructor: the
    /// memory is handed back, and members that need no destructor need nothing else.
    static void operator delete(Material* material, std::destroying_delete_t) { ::operator delete(material); }

    zund::ShaderProgram program;
};

} // namespace lumeth
