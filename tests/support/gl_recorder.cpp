#include "tests/support/gl_recorder.h"

#include "tests/support/refused_calls.h"

#include <GL/glew.h>
#include <SDL.h>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fmt/format.h>
#include <utility>

namespace {

GlRecorder* recorder = nullptr;

/// The name of an enumerant that the system uses; the number of any other.
std::string glName(GLenum value)
{
    static const std::map<GLenum, const char*> names = {
        {GL_ARRAY_BUFFER, "GL_ARRAY_BUFFER"},
        {GL_CLAMP_TO_EDGE, "GL_CLAMP_TO_EDGE"},
        {GL_COLOR_ATTACHMENT0, "GL_COLOR_ATTACHMENT0"},
        {GL_COMPILE_STATUS, "GL_COMPILE_STATUS"},
        {GL_COMPRESSED_RGB_S3TC_DXT1_EXT, "GL_COMPRESSED_RGB_S3TC_DXT1_EXT"},
        {GL_DEPTH_ATTACHMENT, "GL_DEPTH_ATTACHMENT"},
        {GL_DEPTH_COMPONENT16, "GL_DEPTH_COMPONENT16"},
        {GL_DEPTH_TEST, "GL_DEPTH_TEST"},
        {GL_ELEMENT_ARRAY_BUFFER, "GL_ELEMENT_ARRAY_BUFFER"},
        {GL_FLOAT, "GL_FLOAT"},
        {GL_FRAGMENT_SHADER, "GL_FRAGMENT_SHADER"},
        {GL_FRAMEBUFFER, "GL_FRAMEBUFFER"},
        {GL_GEOMETRY_SHADER, "GL_GEOMETRY_SHADER"},
        {GL_LINEAR, "GL_LINEAR"},
        {GL_LINK_STATUS, "GL_LINK_STATUS"},
        {GL_R16F, "GL_R16F"},
        {GL_RED, "GL_RED"},
        {GL_RENDERBUFFER, "GL_RENDERBUFFER"},
        {GL_REPEAT, "GL_REPEAT"},
        {GL_RGB, "GL_RGB"},
        {GL_RGB16F, "GL_RGB16F"},
        {GL_RGB8, "GL_RGB8"},
        {GL_RGBA, "GL_RGBA"},
        {GL_STATIC_DRAW, "GL_STATIC_DRAW"},
        {GL_TEXTURE_1D, "GL_TEXTURE_1D"},
        {GL_TEXTURE_2D, "GL_TEXTURE_2D"},
        {GL_TEXTURE_CUBE_MAP, "GL_TEXTURE_CUBE_MAP"},
        {GL_TEXTURE_MAG_FILTER, "GL_TEXTURE_MAG_FILTER"},
        {GL_TEXTURE_MIN_FILTER, "GL_TEXTURE_MIN_FILTER"},
        {GL_TEXTURE_WRAP_R, "GL_TEXTURE_WRAP_R"},
        {GL_TEXTURE_WRAP_S, "GL_TEXTURE_WRAP_S"},
        {GL_TEXTURE_WRAP_T, "GL_TEXTURE_WRAP_T"},
        {GL_UNSIGNED_BYTE, "GL_UNSIGNED_BYTE"},
        {GL_UNSIGNED_INT, "GL_UNSIGNED_INT"},
        {GL_VERTEX_SHADER, "GL_VERTEX_SHADER"},
    };
    if (value >= GL_TEXTURE0 && value < GL_TEXTURE0 + 32) {
        return fmt::format("GL_TEXTURE0 + {}", value - GL_TEXTURE0);
    }
    if (value >= GL_TEXTURE_CUBE_MAP_POSITIVE_X && value < GL_TEXTURE_CUBE_MAP_POSITIVE_X + 6) {
        return fmt::format("GL_TEXTURE_CUBE_MAP_POSITIVE_X + {}", value - GL_TEXTURE_CUBE_MAP_POSITIVE_X);
    }
    const auto found = names.find(value);
    return found != names.end() ? found->second : fmt::format("0x{:X}", value);
}

std::string pointer(const void* data)
{
    return data != nullptr ? "data" : "null";
}

std::string boolean(GLboolean value)
{
    return value == GL_TRUE ? "GL_TRUE" : "GL_FALSE";
}

/// Writes a call down as "function(a, b)", and raises the error that is planned for it.
template<typename... Arguments>
void call(std::string_view function, const Arguments&... arguments)
{
    if (recorder == nullptr) {
        fmt::print(stderr, "gl_recorder: {} is called while there is no recorder\n", function);
        std::abort();
    }
    const std::vector<std::string> texts = {fmt::format("{}", arguments)...};
    recorder->note(fmt::format("{}({})", function, fmt::join(texts, ", ")));
    recorder->raise(function);
}

/// Fills `names` with new names and writes the call down.
void generate(std::string_view function, const std::string& kind, GLsizei count, GLuint* names)
{
    call(function, count);
    for (GLsizei i = 0; i < count; ++i) {
        names[i] = recorder->nextName(kind);
    }
}

void deleteNames(std::string_view function, GLsizei count, const GLuint* names)
{
    call(function, count, fmt::format("[{}]", fmt::join(names, names + count, ", ")));
}

void copyLog(GLsizei size, GLchar* log)
{
    const std::size_t length = std::min(recorder->infoLog.size(), static_cast<std::size_t>(size) - 1);
    std::memcpy(log, recorder->infoLog.data(), length);
    log[length] = '\0';
}

template<int Components>
void uniformVector(std::string_view function, GLint location, GLsizei count, const GLfloat* value)
{
    const GLfloat* const end = value == nullptr ? value : value + count * Components;
    call(function, location, count, fmt::format("[{}]", fmt::join(value, end, ", ")));
}

/// Leads GLEW's pointers to the recorder.
void installEntryPoints()
{
    __glewActiveTexture = [](GLenum texture) {
        call("glActiveTexture", glName(texture));
    };
    __glewAttachShader = [](GLuint program, GLuint shader) {
        call("glAttachShader", program, shader);
    };
    __glewBindBuffer = [](GLenum target, GLuint buffer) {
        call("glBindBuffer", glName(target), buffer);
    };
    __glewBindFramebuffer = [](GLenum target, GLuint name) {
        call("glBindFramebuffer", glName(target), name);
    };
    __glewBindRenderbuffer = [](GLenum target, GLuint name) {
        call("glBindRenderbuffer", glName(target), name);
    };
    __glewBindVertexArray = [](GLuint name) {
        call("glBindVertexArray", name);
    };
    __glewBufferData = [](GLenum target, GLsizeiptr size, const void* data, GLenum usage) {
        call("glBufferData", glName(target), size, pointer(data), glName(usage));
        const auto* bytes = static_cast<const std::byte*>(data);
        recorder->bufferData.emplace_back(bytes, bytes == nullptr ? bytes : bytes + size);
    };
    __glewCompileShader = [](GLuint shader) {
        call("glCompileShader", shader);
    };
    __glewCompressedTexImage2D = [](GLenum target, GLint level, GLenum format, GLsizei width, GLsizei height,
                                    GLint border, GLsizei size, const void* data) {
        call("glCompressedTexImage2D", glName(target), level, glName(format), width, height, border, size,
             pointer(data));
        recorder->imageData.push_back(data);
    };
    __glewCreateProgram = []() {
        call("glCreateProgram");
        return recorder->nextName("program");
    };
    __glewCreateShader = [](GLenum type) {
        call("glCreateShader", type == 0 ? "0" : glName(type));
        return recorder->nextName("shader");
    };
    __glewDebugMessageCallback = [](GLDEBUGPROC callback, const void* user) {
        call("glDebugMessageCallback", callback != nullptr ? "callback" : "null", pointer(user));
        recorder->debugCallback = callback;
    };
    __glewDeleteBuffers = [](GLsizei n, const GLuint* names) {
        deleteNames("glDeleteBuffers", n, names);
    };
    __glewDeleteFramebuffers = [](GLsizei n, const GLuint* names) {
        deleteNames("glDeleteFramebuffers", n, names);
    };
    __glewDeleteProgram = [](GLuint program) {
        call("glDeleteProgram", program);
    };
    __glewDeleteRenderbuffers = [](GLsizei n, const GLuint* names) {
        deleteNames("glDeleteRenderbuffers", n, names);
    };
    __glewDeleteShader = [](GLuint shader) {
        call("glDeleteShader", shader);
    };
    __glewDeleteVertexArrays = [](GLsizei n, const GLuint* names) {
        deleteNames("glDeleteVertexArrays", n, names);
    };
    __glewEnableVertexAttribArray = [](GLuint index) {
        call("glEnableVertexAttribArray", index);
    };
    __glewFramebufferRenderbuffer = [](GLenum target, GLenum attachment, GLenum kind, GLuint name) {
        call("glFramebufferRenderbuffer", glName(target), glName(attachment), glName(kind), name);
    };
    __glewFramebufferTexture2D = [](GLenum target, GLenum attachment, GLenum kind, GLuint name, GLint level) {
        call("glFramebufferTexture2D", glName(target), glName(attachment), glName(kind), name, level);
    };
    __glewGenBuffers = [](GLsizei n, GLuint* names) {
        generate("glGenBuffers", "buffer", n, names);
    };
    __glewGenFramebuffers = [](GLsizei n, GLuint* names) {
        generate("glGenFramebuffers", "framebuffer", n, names);
    };
    __glewGenRenderbuffers = [](GLsizei n, GLuint* names) {
        generate("glGenRenderbuffers", "renderbuffer", n, names);
    };
    __glewGenVertexArrays = [](GLsizei n, GLuint* names) {
        generate("glGenVertexArrays", "vertex array", n, names);
    };
    __glewGetProgramInfoLog = [](GLuint program, GLsizei size, GLsizei* length, GLchar* log) {
        call("glGetProgramInfoLog", program, size, pointer(length));
        copyLog(size, log);
    };
    __glewGetProgramiv = [](GLuint program, GLenum what, GLint* value) {
        call("glGetProgramiv", program, glName(what));
        *value = recorder->linkStatus;
    };
    __glewGetShaderInfoLog = [](GLuint shader, GLsizei size, GLsizei* length, GLchar* log) {
        call("glGetShaderInfoLog", shader, size, pointer(length));
        copyLog(size, log);
    };
    __glewGetShaderiv = [](GLuint shader, GLenum what, GLint* value) {
        call("glGetShaderiv", shader, glName(what));
        *value = recorder->compileStatus;
    };
    __glewGetUniformLocation = [](GLuint program, const GLchar* name) -> GLint {
        call("glGetUniformLocation", program, name);
        const auto found = recorder->uniforms.find(std::string_view(name));
        if (found != recorder->uniforms.end()) {
            return found->second;
        }
        if (!recorder->knowsAllUniforms || *name == '\0') {
            return -1;
        }
        return static_cast<GLint>(recorder->nextName("uniform"));
    };
    __glewLinkProgram = [](GLuint program) {
        call("glLinkProgram", program);
    };
    __glewRenderbufferStorage = [](GLenum target, GLenum format, GLsizei width, GLsizei height) {
        call("glRenderbufferStorage", glName(target), glName(format), width, height);
    };
    __glewShaderSource = [](GLuint shader, GLsizei count, const GLchar* const* source, const GLint* lengths) {
        call("glShaderSource", shader, count, pointer(lengths));
        recorder->shaderSources.emplace_back(*source);
    };
    __glewUniform1f = [](GLint location, GLfloat x) {
        call("glUniform1f", location, x);
    };
    __glewUniform1fv = [](GLint l, GLsizei n, const GLfloat* v) {
        uniformVector<1>("glUniform1fv", l, n, v);
    };
    __glewUniform1i = [](GLint location, GLint x) {
        call("glUniform1i", location, x);
    };
    __glewUniform2f = [](GLint location, GLfloat x, GLfloat y) {
        call("glUniform2f", location, x, y);
    };
    __glewUniform2fv = [](GLint l, GLsizei n, const GLfloat* v) {
        uniformVector<2>("glUniform2fv", l, n, v);
    };
    __glewUniform3f = [](GLint location, GLfloat x, GLfloat y, GLfloat z) {
        call("glUniform3f", location, x, y, z);
    };
    __glewUniform3fv = [](GLint l, GLsizei n, const GLfloat* v) {
        uniformVector<3>("glUniform3fv", l, n, v);
    };
    __glewUniform4f = [](GLint location, GLfloat x, GLfloat y, GLfloat z, GLfloat w) {
        call("glUniform4f", location, x, y, z, w);
    };
    __glewUniform4fv = [](GLint l, GLsizei n, const GLfloat* v) {
        uniformVector<4>("glUniform4fv", l, n, v);
    };
    __glewUniformMatrix4fv = [](GLint location, GLsizei count, GLboolean transpose, const GLfloat* v) {
        call("glUniformMatrix4fv", location, count, boolean(transpose),
             fmt::format("[{}]", fmt::join(v, v + 16, ", ")));
    };
    __glewUseProgram = [](GLuint program) {
        call("glUseProgram", program);
    };
    __glewVertexAttribPointer = [](GLuint index, GLint components, GLenum type, GLboolean normalized,
                                   GLsizei stride, const void* offset) {
        call("glVertexAttribPointer", index, components, glName(type), boolean(normalized), stride,
             pointer(offset));
    };
}

} // namespace

GlRecorder::GlRecorder()
{
    recorder = this;
    refuseEntryPoints();
    installEntryPoints();
}

GlRecorder::~GlRecorder()
{
    recorder = nullptr;
}

GlRecorder* GlRecorder::current()
{
    return recorder;
}

std::vector<std::string> GlRecorder::take()
{
    return std::exchange(calls, {});
}

std::vector<std::string> GlRecorder::takeWithout(const std::vector<std::string_view>& prefixes)
{
    std::vector<std::string> taken = take();
    std::erase_if(taken, [&](const std::string& call) {
        return std::any_of(prefixes.begin(), prefixes.end(),
                           [&](std::string_view prefix) { return call.starts_with(prefix); });
    });
    return taken;
}

void GlRecorder::raise(std::string_view function)
{
    const auto planned = errorOf.find(function);
    if (planned != errorOf.end()) {
        errors.push_back(planned->second);
        errorOf.erase(planned);
    }
}

// The entry points that every libGL exports, and the calls that make a context. Defined here, they stand
// before those of the shared libraries.
extern "C" {

void glBindTexture(GLenum target, GLuint texture)
{
    call("glBindTexture", glName(target), texture);
}

void glClear(GLbitfield mask)
{
    call("glClear", fmt::format("0x{:X}", mask));
}

void glClearColor(GLclampf r, GLclampf g, GLclampf b, GLclampf a)
{
    call("glClearColor", r, g, b, a);
}

void glDeleteTextures(GLsizei n, const GLuint* names)
{
    deleteNames("glDeleteTextures", n, names);
}

void glDepthMask(GLboolean flag)
{
    call("glDepthMask", boolean(flag));
}

void glDrawElements(GLenum mode, GLsizei count, GLenum type, const void* indices)
{
    call("glDrawElements", mode == GL_TRIANGLES ? "GL_TRIANGLES" : glName(mode), count, glName(type),
         pointer(indices));
}

void glEnable(GLenum capability)
{
    call("glEnable", glName(capability));
}

void glFinish()
{
    call("glFinish");
}

void glGenTextures(GLsizei n, GLuint* names)
{
    generate("glGenTextures", "texture", n, names);
}

GLenum glGetError()
{
    call("glGetError");
    if (recorder->errors.empty()) {
        return GL_NO_ERROR;
    }
    const GLenum error = recorder->errors.front();
    recorder->errors.erase(recorder->errors.begin());
    return error;
}

void glTexImage1D(GLenum target, GLint level, GLint internalFormat, GLsizei width, GLint border,
                  GLenum format, GLenum type, const void* data)
{
    call("glTexImage1D", glName(target), level, glName(static_cast<GLenum>(internalFormat)), width, border,
         glName(format), glName(type), pointer(data));
    recorder->imageData.push_back(data);
}

void glTexImage2D(GLenum target, GLint level, GLint internalFormat, GLsizei width, GLsizei height,
                  GLint border, GLenum format, GLenum type, const void* data)
{
    call("glTexImage2D", glName(target), level, glName(static_cast<GLenum>(internalFormat)), width, height,
         border, glName(format), glName(type), pointer(data));
    recorder->imageData.push_back(data);
}

void glTexParameteri(GLenum target, GLenum what, GLint value)
{
    call("glTexParameteri", glName(target), glName(what), glName(static_cast<GLenum>(value)));
}

void glViewport(GLint x, GLint y, GLsizei width, GLsizei height)
{
    call("glViewport", x, y, width, height);
}

GLenum glewInit()
{
    call("glewInit", glewExperimental == GL_TRUE ? "experimental" : "plain");
    return recorder->glewResult;
}

SDL_GLContext SDL_GL_CreateContext(SDL_Window* window)
{
    call("SDL_GL_CreateContext");
    recorder->window = window;
    if (recorder->contextFails) {
        SDL_SetError("no context today");
        return nullptr;
    }
    return recorder;
}

void SDL_GL_DeleteContext(SDL_GLContext context)
{
    call("SDL_GL_DeleteContext", context == recorder ? "context" : "another");
}

int SDL_GL_SetSwapInterval(int interval)
{
    call("SDL_GL_SetSwapInterval", interval);
    return recorder->swapIntervalResult;
}

} // extern "C"
