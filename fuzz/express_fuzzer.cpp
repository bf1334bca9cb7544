// Input: an EXPRESS schema. It is either refused with a diagnostic or gives classes, the same each
// time.

#include "fuzz/fuzz_target.h"
#include "tools/schema_generator/generator.h"

namespace {

std::string generated(std::string_view text) {
    const schema_generator::ParsedSchema parsed = schema_generator::parseSchema(text, "fuzz.exp");
    require(parsed.schema.has_value() == parsed.diagnostics.empty(),
            "a schema without complaints is there");
    std::string all;
    for (const schema_generator::Diagnostic& diagnostic : parsed.diagnostics)
        all += schema_generator::toText(diagnostic) + "\n";
    if (!parsed.schema)
        return all;
    schema_generator::DiagnosticList diagnostics("fuzz.exp");
    for (const schema_generator::GeneratedFile& file :
         schema_generator::generate(*parsed.schema, "fuzz.exp", diagnostics))
        all += file.name + "\n" + file.content;
    return all;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string_view text = textOf(bytes, size);
    require(generated(text) == generated(text), "the same schema gives the same classes");
    return 0;
}
