#include "gl/error.h"

#include <GL/glew.h>
#include <stdexcept>
#include <string>

namespace zund::Error {

void CheckGLError(const char* name)
{
    const GLenum code = glGetError();
    if (code == GL_NO_ERROR) {
        return;
    }
    const auto* text = reinterpret_cast<const char*>(gluErrorString(code));
    // GLU has no wording for what it doesn't know.
    throw std::runtime_error(std::string(name) + " error: " + (text != nullptr ? text : ""));
}

} // namespace zund::Error
