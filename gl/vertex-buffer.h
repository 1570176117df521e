#pragma once

#include <cstdint>

namespace zund {

/// The name of a buffer; 0, and not -1, is none. Owns nothing.
class VertexBuffer {
public:
    VertexBuffer() = default;
    explicit VertexBuffer(unsigned int id) : id(id) {}

    VertexBuffer(const VertexBuffer&) = default;
    VertexBuffer& operator=(const VertexBuffer&) = default;
    VertexBuffer(VertexBuffer&& other) noexcept { *this = static_cast<VertexBuffer&&>(other); }
    /// Takes name and first word and leaves zeros behind; the second word stays where it is on both sides.
    VertexBuffer& operator=(VertexBuffer&& other) noexcept
    {
        if (this != &other) {
            id = other.id;
            word0 = other.word0;
            other.id = 0;
            other.word0 = 0;
        }
        return *this;
    }
    ~VertexBuffer() = default;

    unsigned int get() const { return id; }

private:
    unsigned int id = 0;
    std::uint64_t word0 = 0;
    [[maybe_unused]] std::uint64_t word1 = 0;
};

} // namespace zund
