#include "scenes/backgrounds.h"

#include "scenes/shaders/bottle_background_frag.h"
#include "scenes/shaders/grey_blue_background_frag.h"
#include "scenes/shaders/people_background_frag.h"

const char* const background_frag = bottle_background_frag;
const char* const grey_blue_background = grey_blue_background_frag;
const char* const warm_teal_background = people_background_frag;
