#include "tests/support/refused_calls.h"

#include <gtest/gtest.h>

std::uintptr_t refuseCall(const char* function)
{
    ADD_FAILURE() << "unexpected call of " << function;
    return 0;
}
