#pragma once

// Gradient backdrops, for `lumeth::Scene::setBackground`.

extern char const* const background_frag;      ///< yellow to dusk: the bottles
extern char const* const grey_blue_background; ///< nearly white to dusk: burger and toilet
extern char const* const warm_teal_background; ///< warm to teal: the people
