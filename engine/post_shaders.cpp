#include "engine/post_shaders.h"

#include "engine/shaders/post_blur_horizontal_frag.h"
#include "engine/shaders/post_blur_vertical_frag.h"
#include "engine/shaders/post_brightness_threshold_frag.h"
#include "engine/shaders/post_copy_frag.h"
#include "engine/shaders/post_gamma_encode_frag.h"
#include "engine/shaders/post_green_frag.h"
#include "engine/shaders/post_letterbox_frag.h"
#include "engine/shaders/post_lift_frag.h"
#include "engine/shaders/post_pass1_frag.h"
#include "engine/shaders/post_sobel_frag.h"

const char* const post_pass0_frag_src = post_copy_frag;
const char* const post_pass1_frag_src = post_pass1_frag;
const char* const shader_letterbox = post_letterbox_frag;
const char* const shader_gamma_encode = post_gamma_encode_frag;

namespace lumeth {

std::span<const PostEffect> getSpareEffects()
{
    static constexpr PostEffect effects[] = {
        {"green card", post_green_frag},
        {"brightness threshold", post_brightness_threshold_frag},
        {"lift", post_lift_frag},
        {"blur with horizontal kernel", post_blur_horizontal_frag},
        {"blur with vertical kernel", post_blur_vertical_frag},
        {"sobel", post_sobel_frag},
    };
    return effects;
}

} // namespace lumeth
