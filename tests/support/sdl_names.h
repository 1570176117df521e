#pragma once

#include <SDL.h>
#include <string>

/// The name of an attribute of the context that the show sets; the number of any other.
inline std::string attributeName(SDL_GLattr attribute)
{
    switch (attribute) {
    case SDL_GL_CONTEXT_FLAGS:
        return "CONTEXT_FLAGS";
    case SDL_GL_CONTEXT_PROFILE_MASK:
        return "CONTEXT_PROFILE_MASK";
    case SDL_GL_CONTEXT_MAJOR_VERSION:
        return "CONTEXT_MAJOR_VERSION";
    case SDL_GL_CONTEXT_MINOR_VERSION:
        return "CONTEXT_MINOR_VERSION";
    case SDL_GL_DOUBLEBUFFER:
        return "DOUBLEBUFFER";
    case SDL_GL_DEPTH_SIZE:
        return "DEPTH_SIZE";
    default:
        return "attribute " + std::to_string(static_cast<int>(attribute));
    }
}
