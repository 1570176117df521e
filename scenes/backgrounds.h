#pragma once

// Gradient backdrops, for `lumeth::Scene::setBackground`.

extern const char* const background_frag;           ///< yellow to dusk: the bottles
extern const char* const grey_blue_background_frag; ///< nearly white to dusk: burger and toilet
extern const char* const warm_teal_background_frag; ///< warm to teal: the people
