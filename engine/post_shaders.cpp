#include "engine/post_shaders.h"

#include "engine/shaders/post_blur_horizontal_frag.h"
#include "engine/shaders/post_blur_vertical_frag.h"
#include "engine/shaders/post_brightness_threshold_frag.h"
#include "engine/shaders/post_gamma_encode_frag.h"
#include "engine/shaders/post_green_frag.h"
#include "engine/shaders/post_letterbox_frag.h"
#include "engine/shaders/post_lift_frag.h"
#include "engine/shaders/post_pass0_frag.h"
#include "engine/shaders/post_pass1_frag.h"
#include "engine/shaders/post_sobel_frag.h"
#include "engine/shaders/post_vert.h"

const char* const post_vert_src = embedded::post_vert;
const char* const post_pass0_frag_src = embedded::post_pass0_frag;
const char* const post_pass1_frag_src = embedded::post_pass1_frag;
const char* const shader_letterbox = embedded::post_letterbox_frag;
const char* const shader_gamma_encode = embedded::post_gamma_encode_frag;

namespace lumeth {

std::span<const PostEffect> getSpareEffects()
{
    static constexpr PostEffect effects[] = {
        {"green card", embedded::post_green_frag},
        {"brightness threshold", embedded::post_brightness_threshold_frag},
        {"lift", embedded::post_lift_frag},
        {"blur with horizontal kernel", embedded::post_blur_horizontal_frag},
        {"blur with vertical kernel", embedded::post_blur_vertical_frag},
        {"sobel", embedded::post_sobel_frag},
    };
    return effects;
}

} // namespace lumeth
