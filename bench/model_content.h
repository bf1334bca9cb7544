// The building model of the benchmarks: walls with placements, bodies, property sets and quantities
// on the storeys of a building, in the proportions that are common in exported models (see kWallMix
// in the .cpp).

#pragma once

#include <cstdint>
#include <ostream>

#include "bench/step_batch.h"

namespace bench {

enum class SchemaRelease { kIfc2x3, kIfc4 };

struct ModelOptions {
    std::int64_t targetBytes = 0;  // the file ends with the first group of walls that reaches it
    SchemaRelease release = SchemaRelease::kIfc4;
    int forwardPercent =
        0;  // share of all instances that refer to a later line; see kMaxForwardPercent
    bool numberGaps = false;
    std::uint64_t seed = 1;
};

/// Points, values and other instances without references can not refer forward; they are a quarter
/// of a model.
inline constexpr int kMaxForwardPercent = 70;

/// Writes a complete file. The same options give the same bytes on every system. A failing stream
/// is left failing.
WrittenCounts writeModel(std::ostream& out, const ModelOptions& options);

}  // namespace bench
