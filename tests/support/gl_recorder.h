#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Stands in for the driver: writes down every call of OpenGL, with its arguments, in order.
///
/// A call reads as in a program: "glBindBuffer(GL_ARRAY_BUFFER, 3)". Names are given out from 1 on for each
/// kind of object. A pointer to data is "data", none is "null". One recorder at a time. What the show has
/// never called, be it of OpenGL, GLU, GLEW or SDL, is no part of it: a call fails the test.
class GlRecorder {
public:
    GlRecorder();
    ~GlRecorder();

    GlRecorder(const GlRecorder&) = delete;
    GlRecorder& operator=(const GlRecorder&) = delete;

    /// The one recorder there is; null without one.
    static GlRecorder* current();

    void note(std::string call) { calls.push_back(std::move(call)); }
    /// The calls so far, and none of them from now on.
    std::vector<std::string> take();
    /// As `take`, without the calls whose text begins with one of `prefixes`.
    std::vector<std::string> takeWithout(const std::vector<std::string_view>& prefixes);

    std::vector<std::string> calls;

    /// Errors that wait for glGetError; each read takes the first one.
    std::vector<unsigned int> errors;
    /// Errors that the next call of that name raises: {"glTexImage2D", GL_OUT_OF_MEMORY}.
    std::map<std::string, unsigned int, std::less<>> errorOf;

    int compileStatus = 1;
    int linkStatus = 1;
    std::string infoLog;          ///< what the driver has to say of shaders and programs
    unsigned int glewResult = 0;  ///< of glewInit
    bool contextFails = false;    ///< SDL_GL_CreateContext gives null
    const void* window = nullptr; ///< that SDL_GL_CreateContext got
    int swapIntervalResult = 0;   ///< of SDL_GL_SetSwapInterval
    std::map<std::string, int, std::less<>>
        uniforms;                 ///< locations; a name that isn't here has the next free one
    bool knowsAllUniforms = true; ///< else a name that isn't in `uniforms` has none

    std::vector<std::vector<std::byte>> bufferData; ///< of each glBufferData, copied; empty for null
    std::vector<const void*> imageData;             ///< of each gl(Compressed)TexImage
    std::vector<std::string> shaderSources;         ///< of each glShaderSource
    void (*debugCallback)(unsigned int, unsigned int, unsigned int, unsigned int, int, const char*,
                          const void*) = nullptr;

    /// For the entry points: what comes before a call returns.
    void raise(std::string_view function);
    unsigned int nextName(const std::string& kind) { return ++names[kind]; }

private:
    std::map<std::string, unsigned int> names;
};
