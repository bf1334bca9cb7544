#pragma once

#include <string_view>

#include "tools/schema_generator/diagnostics.h"
#include "tools/schema_generator/syntax.h"

namespace schema_generator {

/// Reads one EXPRESS schema, that is
///
///     SCHEMA name;
///       TYPE name = STRING(22) FIXED; [WHERE ...] END_TYPE;
///       TYPE name = SELECT (a, b); END_TYPE;
///       TYPE name = ENUMERATION OF (A, B); END_TYPE;
///       ENTITY name
///         [ABSTRACT SUPERTYPE [OF (...)] | SUPERTYPE OF (...)] [SUBTYPE OF (name)];
///         attribute : [OPTIONAL] type;
///         [DERIVE ...] [INVERSE ...] [UNIQUE ...] [WHERE ...]
///       END_ENTITY;
///     END_SCHEMA;
///
/// Constants, functions, procedures and rules are passed over, and so are the parts of a
/// declaration that say what a valid value is or how one is computed. Whatever is not understood
/// goes to `diagnostics`, reading goes on behind it; the result is of use only when there are none.
/// Takes time and memory in proportion to `text`, whatever it holds.
SchemaSyntax parseSyntax(std::string_view text, DiagnosticList& diagnostics);

}  // namespace schema_generator
