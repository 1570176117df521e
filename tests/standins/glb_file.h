#pragma once

#include "tests/standins/box_mesh.h"

#include <string>
#include <string_view>

namespace standins {

/// The bytes of a binary glTF 2.0 file with one node called `name`, whose one mesh of one primitive is
/// `mesh`.
std::string encodeGlb(std::string_view name, const Mesh& mesh);

} // namespace standins
