// Stands before a library: each of its functions that the test program does not define itself is a failure.
// The list of them is made from the library, see list_functions.cmake. No header of the library is read here,
// so that all of them can be defined alike: a caller fares well with a function that takes no notice of its
// arguments.
//
// NOLINTBEGIN(bugprone-reserved-identifier,modernize-use-trailing-return-type): the names are the library's.
#include "tests/support/refused_calls.h"

#define FUNCTION(name)                                                                                       \
    extern "C" [[gnu::weak]] std::uintptr_t name()                                                           \
    {                                                                                                        \
        return refuseCall(#name);                                                                            \
    }
#define POINTER(name)
#include REFUSED_LIST
// NOLINTEND(bugprone-reserved-identifier,modernize-use-trailing-return-type)
