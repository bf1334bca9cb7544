#include "tools/schema_generator/emitters.h"
#include "tools/schema_generator/layout.h"
#include "tools/schema_generator/names.h"
#include "tools/schema_generator/templates.h"

namespace schema_generator {

namespace {

/// More values than this are described by the first and the last.
constexpr std::size_t kNamedValues = 5;

std::string infoName(const EnumerationType& enumeration) {
    return enumerationInfoName(enumeration.name, enumeration.isValueClass());
}

}  // namespace

std::string declareEnumeration(const EnumerationType& enumeration) {
    const std::vector<std::string>& values = enumeration.values;
    const std::string text =
        values.size() <= kNamedValues
            ? enumerated(values, "or")
            : std::to_string(values.size()) + " values, " + values.front() + " to " + values.back();
    return docComment(text + ".") +
           filled("extern const IFC::EnumerationInfo $info$;\n", {{"info", infoName(enumeration)}});
}

std::string defineEnumeration(const EnumerationType& enumeration) {
    std::vector<std::string> values;
    for (const std::string& value : enumeration.values)
        values.push_back("\"" + value + "\"");
    const std::string info = infoName(enumeration);
    return filled("constexpr std::string_view $info$Values[] = {\n    $values$\n};\n",
                  {{"info", info}, {"values", filledLines(values, ",", 4)}}) +
           wrappedCall(0, "constinit const IFC::EnumerationInfo " + info + "(",
                       {"\"" + enumeration.name + "\"", info + "Values"}, ");");
}

}  // namespace schema_generator
