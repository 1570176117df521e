#pragma once

#include "gl/resource.h"

namespace zund {

/// The location of a uniform in one program. A value for an invalid one is skipped.
class Uniform : public Resource {
public:
    Uniform() : Resource(invalid) {}
    explicit Uniform(int id) : Resource(id) {}
};

} // namespace zund
