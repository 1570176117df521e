#pragma once

#include <gmock/gmock.h>
#include <stdexcept>
#include <string>
#include <typeinfo>

/// Matches a callable that throws `std::runtime_error` itself, and no class derived from it, with exactly
/// this text.
inline auto ThrowsPlainRuntimeError(const std::string& text)
{
    return testing::Throws<std::runtime_error>(
        testing::AllOf(testing::Truly([](const std::runtime_error& error) {
                           return typeid(error) == typeid(std::runtime_error);
                       }),
                       testing::Property(&std::runtime_error::what, testing::StrEq(text))));
}
