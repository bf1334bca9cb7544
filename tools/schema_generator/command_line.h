#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace schema_generator {

/// The program without its name: "SCHEMA.exp RELEASE OUTPUT_DIR" or "--counts SCHEMA.exp...".
/// Tables go to `out`, complaints to `errors`. Nothing is written before the schema is understood
/// as a whole.
/// @return 0, or 1 when something was wrong with the input or the output, or 2 for wrong arguments.
int runCommandLine(const std::vector<std::string>& arguments, std::ostream& out,
                   std::ostream& errors);

}  // namespace schema_generator
