#pragma once

#include <string>

/// The name of the file that a shader of the show was embedded from, such as "post_letterbox.frag"; "unknown"
/// and the text for another shader.
std::string shaderFile(const std::string& text);
