#include "tests/support/refused_calls.h"

#include <string>
#include <string_view>

namespace {

using EntryPoint = std::uintptr_t (*)();

} // namespace

// NOLINTBEGIN(bugprone-reserved-identifier): the names are GLEW's.
#define FUNCTION(name)
#define POINTER(name) extern "C" EntryPoint name;
#include REFUSED_LIST
#undef POINTER

namespace {

std::uintptr_t refusePointer(std::string_view pointer)
{
    constexpr std::string_view prefix = "__glew";
    return refuseCall(("gl" + std::string(pointer.substr(prefix.size()))).c_str());
}

struct Refusal {
    EntryPoint* pointer;
    EntryPoint failure;
};
const Refusal refusals[] = {
#define POINTER(name)                                                                                        \
    {&(name), [] {                                                                                           \
         return refusePointer(#name);                                                                        \
     }},
#include REFUSED_LIST
};
// NOLINTEND(bugprone-reserved-identifier)

} // namespace

void refuseEntryPoints()
{
    for (const Refusal& refusal : refusals) {
        *refusal.pointer = refusal.failure;
    }
}
