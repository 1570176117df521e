#include "scenes/backgrounds.h"

#include "scenes/shaders/bottle_background_frag.h"
#include "scenes/shaders/grey_blue_background_frag.h"
#include "scenes/shaders/people_background_frag.h"

char const* const background_frag = bottle_background_frag;
char const* const grey_blue_background = grey_blue_background_frag;
char const* const warm_teal_background = people_background_frag;
