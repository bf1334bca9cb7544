#include "tools/schema_generator/diagnostics.h"

#include <utility>

namespace schema_generator {

std::string toText(const Diagnostic& diagnostic) {
    return diagnostic.fileName + ":" + std::to_string(diagnostic.line) + ": " + diagnostic.message;
}

void DiagnosticList::add(int line, std::string message) {
    if (!full())
        items_.push_back({fileName_, line, std::move(message)});
}

}  // namespace schema_generator
