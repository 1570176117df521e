#pragma once

#include <span>

/// Vertex shader of all full-screen draws but the skybox: passes "texcoord" on, 0 to 1 over the screen.
extern const char* const post_vert_src;

// Fragment shaders for passes of the post chain. Each reads the sampler "fbo" at "texcoord".

extern const char* const post_pass0_frag_src; ///< plain copy
extern const char* const post_pass1_frag_src; ///< linear colour to gamma 2.2
extern const char* const shader_letterbox;    ///< black bars that leave a 64:27 picture
extern const char* const shader_gamma_encode; ///< linear colour to gamma 2.2

namespace lumeth {

/// An effect that no scene of the show selects yet.
struct PostEffect {
    const char* name;
    const char* source; ///< for `Scene::addPostPass`
};

/// Green card, brightness threshold, lift, two blurs and Sobel. The blurs want a 1D texture of weights, in
/// red, as the extra input "kernel_gauss".
std::span<const PostEffect> getSpareEffects();

} // namespace lumeth
