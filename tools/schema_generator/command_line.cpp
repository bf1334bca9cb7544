#include "tools/schema_generator/command_line.h"

#include <filesystem>
#include <iomanip>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "tools/schema_generator/diagnostics.h"
#include "tools/schema_generator/generator.h"
#include "tools/schema_generator/names.h"
#include "tools/schema_generator/output_folder.h"
#include "tools/schema_generator/schema.h"

namespace schema_generator {

namespace {

constexpr const char* kUsage =
    "usage: schema_generator SCHEMA.exp RELEASE OUTPUT_DIR\n"
    "           writes the classes of the release into OUTPUT_DIR\n"
    "       schema_generator --counts SCHEMA.exp...\n"
    "           prints how much each schema declares\n";

void print(const std::vector<Diagnostic>& diagnostics, std::ostream& errors) {
    for (const Diagnostic& diagnostic : diagnostics)
        errors << toText(diagnostic) << "\n";
    if (diagnostics.size() == DiagnosticList::kLimit)
        errors << "There may be more; these are the first.\n";
}

/// @return nothing, after printing why, when the schema cannot be used.
std::optional<Schema> load(const std::string& path, std::ostream& errors) {
    std::string text;
    if (!readFile(path, text)) {
        errors << "cannot read " << path << "\n";
        return std::nullopt;
    }
    ParsedSchema parsed = parseSchema(text, path);
    print(parsed.diagnostics, errors);
    return std::move(parsed.schema);
}

bool generateInto(const std::string& schemaPath, const std::string& release,
                  const std::string& folder, std::ostream& errors) {
    const std::optional<Schema> schema = load(schemaPath, errors);
    if (!schema)
        return false;
    if (!equalNames(schema->name, release)) {
        errors << schemaPath << " declares the schema " << schema->name << ", not " << release
               << "\n";
        return false;
    }
    DiagnosticList diagnostics(schemaPath);
    const std::string fileName = std::filesystem::path(schemaPath).filename().string();
    const std::vector<GeneratedFile> files = generate(*schema, fileName, diagnostics);
    print(diagnostics.items(), errors);
    if (!diagnostics.empty())
        return false;
    const std::string fault = writeFiles(folder, files);
    if (!fault.empty())
        errors << fault << "\n";
    return fault.empty();
}

bool printCounts(const std::vector<std::string>& schemaPaths, std::ostream& out,
                 std::ostream& errors) {
    out << std::left << std::setw(18) << "release" << std::right;
    for (const char* heading : {"entities", "types", "selects", "enums", "names", "classes"})
        out << std::setw(9) << heading;
    out << "\n";
    bool complete = true;
    for (const std::string& path : schemaPaths) {
        const std::optional<Schema> schema = load(path, errors);
        if (!schema) {
            complete = false;
            continue;
        }
        const Counts counts = countsOf(*schema);
        out << std::left << std::setw(18) << schema->name << std::right;
        for (const std::size_t count : {counts.entities, counts.definedTypes, counts.selects,
                                        counts.enumerations, counts.registered(), counts.classes()})
            out << std::setw(9) << count;
        out << "\n";
    }
    return complete;
}

}  // namespace

int runCommandLine(const std::vector<std::string>& arguments, std::ostream& out,
                   std::ostream& errors) {
    if (arguments.size() > 1 && arguments[0] == "--counts")
        return printCounts({arguments.begin() + 1, arguments.end()}, out, errors) ? 0 : 1;
    if (arguments.size() == 3)
        return generateInto(arguments[0], arguments[1], arguments[2], errors) ? 0 : 1;
    errors << kUsage;
    return 2;
}

}  // namespace schema_generator
