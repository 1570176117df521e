#pragma once

#include <cstddef>
#include <cstring>

/// Position of a virtual operation in its class's table, by the C++ ABI of Linux: a pointer to a virtual
/// member starts with 1 plus the entry's offset in bytes. A virtual destructor takes two entries.
template<typename Member>
std::size_t slotOf(Member member)
{
    std::size_t word = 0;
    static_assert(sizeof(member) >= sizeof(word));
    std::memcpy(&word, &member, sizeof(word));
    return (word - 1) / sizeof(void*);
}
