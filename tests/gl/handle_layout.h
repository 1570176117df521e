#pragma once

#include "gl/vertex-array.h"
#include "gl/vertex-buffer.h"

#include <cstdint>
#include <cstring>

// What handles hold that no function reads.

/// The flags of a vertex array: the int behind the name and the count of indices.
inline int flagsOf(const zund::VertexArray& vertexArray)
{
    struct Layout {
        void* table;
        std::int32_t id;
        unsigned long indexes;
        int flags;
    };
    static_assert(sizeof(Layout) == sizeof(zund::VertexArray));
    Layout layout{};
    std::memcpy(&layout, static_cast<const void*>(&vertexArray), sizeof(layout));
    return layout.flags;
}

/// A buffer's members as they lie in memory.
struct BufferLayout {
    unsigned int id;
    std::uint64_t words[2];
};
static_assert(sizeof(BufferLayout) == sizeof(zund::VertexBuffer));

inline zund::VertexBuffer bufferOf(unsigned int id, std::uint64_t word0, std::uint64_t word1)
{
    const BufferLayout layout{id, {word0, word1}};
    zund::VertexBuffer buffer;
    std::memcpy(static_cast<void*>(&buffer), &layout, sizeof(buffer));
    return buffer;
}

inline BufferLayout layoutOf(const zund::VertexBuffer& buffer)
{
    BufferLayout layout{};
    std::memcpy(&layout, static_cast<const void*>(&buffer), sizeof(layout));
    return layout;
}
