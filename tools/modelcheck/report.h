#pragma once

#include "tools/modelcheck/imported_mesh.h"

#include <string>
#include <string_view>

namespace tools::modelcheck {

/// Names the columns of `tableLine`; ends with the line.
std::string tableHead();

/// A model in one line: its name, how much it is of, and its bounding box.
std::string tableLine(std::string_view name, const ImportedMesh& mesh);

} // namespace tools::modelcheck
