#pragma once

#include <string>

/// Writes a tone as an Ogg Vorbis file: stereo, 44100 Hz, `frames` sample frames long.
void writeOggFile(const std::string& path, long frames);
