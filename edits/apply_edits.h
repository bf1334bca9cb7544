#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "edits/pending_edits.h"
#include "ifc/io/error_callback.h"

namespace IFC {

class Model;

/// What became of the edits of one file.
struct ApplyResult {
    std::size_t applied = 0;  ///< sets added, changed or removed, at least in part
    std::size_t failed = 0;   ///< sets of which at least a part could not be done; reported
};

/// Applies the pending edits of one file to its model. What cannot be applied is reported and
/// skipped.
ApplyResult applyEdits(Model& model, const FileEdits& edits, const ErrorCallback& errors);

}  // namespace IFC
