#pragma once

#include <exception>
#include <gtest/gtest.h>
#include <string>
#include <typeinfo>

/// The text of what `action` throws, which must be exactly a `Thrown`, nothing derived from it.
template<class Thrown, class Action>
std::string messageOf(Action action)
{
    try {
        action();
    } catch (const std::exception& error) {
        EXPECT_EQ(typeid(error), typeid(Thrown));
        return error.what();
    }
    ADD_FAILURE() << "nothing was thrown";
    return {};
}
