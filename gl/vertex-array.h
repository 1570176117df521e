#pragma once

#include "gl/resource.h"

namespace zund {

/// A vertex array with the number of its indices. Deleted by the renderer's destructor.
class VertexArray : public Resource {
public:
    VertexArray() : Resource(invalid) {}
    VertexArray(int id, int flags, unsigned long indexes) : Resource(id), indexes(indexes), flags(flags & 1)
    {
    }

    /// Count of the indexed draw.
    unsigned long getIndexes() const { return indexes; }

private:
    unsigned long indexes = 0;
    [[maybe_unused]] int flags = 0; ///< its lowest bit alone; carried along, nothing reads it
};

} // namespace zund
