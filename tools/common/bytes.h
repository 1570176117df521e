#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

namespace tools {

/// The value of type `T` at `at` in `bytes`, little-endian as the machine is; it need not be aligned. The
/// caller has checked that it lies inside.
template<typename T>
T load(std::string_view bytes, std::size_t at)
{
    static_assert(std::is_arithmetic_v<T>);
    T value{};
    std::memcpy(&value, bytes.data() + at, sizeof value);
    return value;
}

/// Appends the bytes of `value` to `bytes`, little-endian as the machine is.
template<typename T>
void append(std::string& bytes, T value)
{
    static_assert(std::is_arithmetic_v<T>);
    char raw[sizeof value];
    std::memcpy(raw, &value, sizeof value);
    bytes.append(raw, sizeof value);
}

} // namespace tools
