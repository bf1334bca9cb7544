#pragma once

#include "tools/schema_generator/diagnostics.h"
#include "tools/schema_generator/schema.h"

namespace schema_generator {

/// Turns "is listed in these selects" into C++ base lists, so that no class reaches a select in two
/// ways: a base that comes through a supertype or another select anyway is dropped, and one that
/// still comes twice becomes a virtual base everywhere. Complains about selects that list
/// themselves. Needs supertype chains without cycles.
void settleSelectBases(Schema& schema, DiagnosticList& diagnostics);

}  // namespace schema_generator
