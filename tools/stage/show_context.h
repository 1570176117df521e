#pragma once

namespace tools::stage {

/// Asks SDL for a context like the one that the show opens, for the windows that are made from now on. SDL's
/// video must be up. A library of its own: what only wants such a context links nothing else of the stage.
void askForShowContext();

} // namespace tools::stage
