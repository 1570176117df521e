#pragma once

/// The row of the timeline that a position of the music, in seconds, stands at: 128 beats a minute, 16 rows a
/// beat. The one conversion in the show.
double timeToRow(double seconds);
