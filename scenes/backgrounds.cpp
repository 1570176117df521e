#include "scenes/backgrounds.h"

#include "scenes/shaders/background_frag.h"
#include "scenes/shaders/grey_blue_background_frag.h"
#include "scenes/shaders/warm_teal_background_frag.h"

const char* const background_frag = embedded::background_frag;
const char* const grey_blue_background_frag = embedded::grey_blue_background_frag;
const char* const warm_teal_background_frag = embedded::warm_teal_background_frag;
