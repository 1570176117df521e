#include "scenes/post_chain.h"

#include "engine/post_shaders.h"

void usePostChain(lumeth::Scene& scene, zund::Renderer& renderer)
{
    scene.resetPostPasses();
    scene.addPostPass(renderer, shader_letterbox, {});
    scene.addPostPass(renderer, shader_gamma_encode, {});
}
