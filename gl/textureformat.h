#pragma once

namespace zund {

/// What a texture that is drawn to holds.
enum class TextureFormat { None = 0, RGB8 = 1, RGB16F = 2 };

/// The driver's internal format. Throws `std::runtime_error` "unknown texture format" for `None` and for any
/// value without a name.
int toGLFormat(TextureFormat format);

} // namespace zund
