// A test program that does not get to its last test, see whole_run.cpp.
#include <cstdlib>
#include <gtest/gtest.h>

TEST(Program, EndsEarly)
{
    std::exit(EXIT_SUCCESS);
}
