#pragma once

/// Takes all events that are waiting. False as soon as one ends the show: the window is closed, or Esc
/// released.
bool handleEvents();
