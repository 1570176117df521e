#pragma once

#include <cstdint>

namespace zund {

/// The name of a GL object, or the location of a uniform, passed around by value.
///
/// Owns nothing and never talks to the driver: copies name the same object, and destroying one deletes
/// nothing. Objects are made and deleted by the `Renderer`. Moving from a handle leaves it invalid.
class Resource {
public:
    static constexpr std::int32_t invalid = -1; ///< 0 is a valid name and a valid location

    explicit Resource(int id) : id(id) {}
    virtual ~Resource() = default;

    Resource(const Resource&) = default;
    Resource& operator=(const Resource&) = default;
    Resource(Resource&& other) noexcept : id(other.id) { other.id = invalid; }
    Resource& operator=(Resource&& other) noexcept
    {
        if (this != &other) {
            id = other.id;
            other.id = invalid;
        }
        return *this;
    }

    std::int32_t get() const { return id; }
    bool isValid() const { return id != invalid; }

private:
    std::int32_t id;
};

} // namespace zund
