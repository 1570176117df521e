#pragma once

#include "tools/modelcheck/imported_mesh.h"
#include "tools/modelcheck/model_rules.h"

#include <string>
#include <vector>

namespace tools::modelcheck {

/// What there is to say about a model. Sentences neither name the file nor end in a full stop.
struct ModelReport {
    std::vector<std::string> problems; ///< what the show would refuse or what would look wrong; empty is good
    std::vector<std::string> details;  ///< all that was measured
};

/// Measures a model and holds it against its rules, and against the placements under their name.
ModelReport checkModel(const ImportedMesh& mesh, const ModelRules& rules);

} // namespace tools::modelcheck
