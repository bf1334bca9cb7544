#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tools/schema_generator/generator.h"
#include "tools/schema_generator/output_folder.h"
#include "tools/schema_generator/schema.h"

/// Short EXPRESS texts for tests.
namespace schema_generator {

inline constexpr std::string_view kReleases[] = {
    "IFC2X_FINAL", "IFC2X2_PLATFORM", "IFC2X2_FINAL", "IFC2X3",
    "IFC4",        "IFC4X1",          "IFC4X2",       "IFC4X3_ADD2"};

/// A whole schema around declarations, of which the first stands on line 2.
inline std::string schemaWith(std::string_view declarations) {
    return "SCHEMA IFC4;\n" + std::string(declarations) + "\nEND_SCHEMA;\n";
}

/// "file:line: message" of each complaint.
inline std::vector<std::string> complaintsAbout(std::string_view text) {
    std::vector<std::string> result;
    for (const Diagnostic& diagnostic : parseSchema(text, "test.exp").diagnostics)
        result.push_back(toText(diagnostic));
    return result;
}

/// The declarations, which must be without fault.
inline Schema schemaOf(std::string_view declarations) {
    ParsedSchema parsed = parseSchema(schemaWith(declarations), "test.exp");
    for (const Diagnostic& diagnostic : parsed.diagnostics)
        ADD_FAILURE() << toText(diagnostic);
    return parsed.schema ? std::move(*parsed.schema) : Schema();
}

inline std::filesystem::path publishedSchema(std::string_view release) {
    return std::filesystem::path(QUILLET_SHARED_DIR) / "schemas" / (std::string(release) + ".exp");
}

/// The emitted file of that name; empty, with a failure, when there is none.
inline std::string emittedFile(const Schema& schema, std::string_view name) {
    DiagnosticList diagnostics("test.exp");
    for (const GeneratedFile& file : generate(schema, "test.exp", diagnostics)) {
        if (file.name == name)
            return file.content;
    }
    for (const Diagnostic& diagnostic : diagnostics.items())
        ADD_FAILURE() << toText(diagnostic);
    ADD_FAILURE() << "no file " << name;
    return "";
}

}  // namespace schema_generator
