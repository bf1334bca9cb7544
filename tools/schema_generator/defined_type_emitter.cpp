#include "tools/schema_generator/attribute_forms.h"
#include "tools/schema_generator/class_parts.h"
#include "tools/schema_generator/emitters.h"
#include "tools/schema_generator/layout.h"
#include "tools/schema_generator/names.h"
#include "tools/schema_generator/templates.h"

namespace schema_generator {

namespace {

/// "Text of up to 255 units", "Whole number", "List of IfcCartesianPoint".
std::string description(const DefinedType& type) {
    struct Words {
        ElementKind element;
        std::string_view one;
        std::string_view many;
    };
    static constexpr Words kWords[] = {{ElementKind::Binary, "Bit string", "bit strings"},
                                       {ElementKind::Integer, "Whole number", "whole numbers"},
                                       {ElementKind::Logical, "Truth value", "truth values"},
                                       {ElementKind::Number, "Number", "numbers"},
                                       {ElementKind::Real, "Real number", "real numbers"},
                                       {ElementKind::Text, "Text", "texts"}};
    std::string one;
    std::string many;
    for (const Words& words : kWords) {
        if (words.element == type.value.element) {
            one = words.one;
            many = words.many;
        }
    }
    if (type.value.entity)
        many = type.value.entity->name;
    else if (type.value.select)
        many = type.value.select->name;
    else if (type.value.enumeration)
        many = type.value.enumeration->name;
    std::string text = type.value.layers.empty() ? one : "Sequence of " + many;
    if (type.width) {
        text += (type.fixedWidth ? " of exactly " : " of at most ") + std::to_string(*type.width) +
                " characters";
    }
    if (!type.underlying.empty())
        text += ", a kind of " + type.underlying;
    return text;
}

std::string declareValueClass(std::string_view name, std::string_view documentation,
                              const std::vector<SelectBase>& selects, const Representation& value) {
    std::vector<std::string> bases = {"public IFC::IfcSimpleType"};
    for (std::string& select : basesOf(selects))
        bases.push_back(std::move(select));
    std::string result =
        docComment(documentation) + classHead(name, bases) + declareObjectClass(name);
    if (holdsReferences(value)) {
        result += "    void collectReferences(" + std::string(kReferenceQueue) +
                  ") const override;\n"
                  "    bool holdsReferences() const override;\n";
    }
    result += "    void readAttributes(" + std::string(kAttributeReader) +
              ") override;\n"
              "    void writeAttributes(" +
              std::string(kAttributeWriter) + ") const override;\n";
    if (value.layers.empty())
        result += "    IFC::SimpleValue value() override;\n";
    const AttributeForm form = formOf(value);
    return result + "\nprivate:\n    " + form.memberType + " value_;\n};\n";
}

std::string defineValueClass(std::string_view name, const Representation& value) {
    const std::string scope = std::string(name) + "::";
    const AttributeForm form = formOf(value);
    std::string result = defineObjectClass(name);
    if (holdsReferences(value)) {
        result +=
            defineFunction("void " + scope + "collectReferences(", {std::string(kReferenceQueue)},
                           " const", collectStatement("value_", value));
        result += defineFunction("bool " + scope + "holdsReferences(", {}, " const",
                                 "    return true;\n");
    }
    result += defineFunction("void " + scope + "readAttributes(", {std::string(kAttributeReader)},
                             "", readStatement("value_", false, value));
    result += defineFunction("void " + scope + "writeAttributes(", {std::string(kAttributeWriter)},
                             " const", writeStatement("value_", value));
    if (value.layers.empty()) {
        const std::string info = form.info.empty() ? "" : ", .enumerationInfo = &" + form.info;
        result += defineFunction("IFC::SimpleValue " + scope + "value(", {}, "",
                                 filled("    return {.$kind$ = &value_$info$};\n",
                                        {{"kind", form.operation}, {"info", info}}));
    }
    return result;
}

Representation representationOf(const EnumerationType& enumeration) {
    Representation value;
    value.element = ElementKind::Enumeration;
    value.enumeration = &enumeration;
    return value;
}

}  // namespace

std::string declareDefinedType(const DefinedType& type) {
    return declareValueClass(type.name, description(type) + ".", type.bases, type.value);
}

std::string defineDefinedType(const DefinedType& type) {
    return defineValueClass(type.name, type.value);
}

std::string declareEnumerationValue(const EnumerationType& enumeration) {
    return declareValueClass(enumeration.name, "Value of the enumeration, as a member of selects.",
                             enumeration.bases, representationOf(enumeration));
}

std::string defineEnumerationValue(const EnumerationType& enumeration) {
    return defineValueClass(enumeration.name, representationOf(enumeration));
}

}  // namespace schema_generator
