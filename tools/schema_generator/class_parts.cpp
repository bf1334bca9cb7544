#include "tools/schema_generator/class_parts.h"

#include <algorithm>

#include "tools/schema_generator/attribute_forms.h"
#include "tools/schema_generator/layout.h"
#include "tools/schema_generator/names.h"
#include "tools/schema_generator/templates.h"

namespace schema_generator {

namespace {

constexpr std::size_t kBodyIndent = 4;

/// `arguments` and, when there is one, the constant that goes with the value.
std::vector<std::string> withInfo(std::vector<std::string> arguments, const AttributeForm& form) {
    if (!form.info.empty())
        arguments.push_back(form.info);
    return arguments;
}

}  // namespace

std::vector<std::string> basesOf(const std::vector<SelectBase>& selects) {
    std::vector<std::string> result;
    result.reserve(selects.size());
    for (const SelectBase& base : selects)
        result.push_back((base.isVirtual ? "public virtual " : "public ") + base.select->name);
    return result;
}

std::string declareObjectClass(std::string_view className) {
    return filled(
        "public:\n"
        "    $class$() noexcept;\n"
        "    ~$class$() noexcept override;\n"
        "\n"
        "    const IFC::ClassInfo& classInfo() const override;\n",
        {{"class", className}});
}

std::string defineObjectClass(std::string_view className, std::string_view derived) {
    const std::string name(className);
    return defineClassInfo(className, "instantiableClass", derived) + "\n" +
           hangingCall(name + "::", {name + "() noexcept"}, " = default;") +
           hangingCall(name + "::", {"~" + name + "() noexcept"}, " = default;") +
           defineFunction("const IFC::ClassInfo& " + name + "::classInfo(", {}, " const",
                          "    return " + classInfoName(className) + ";\n");
}

std::string defineClassInfo(std::string_view className, std::string_view maker,
                            std::string_view derived) {
    const std::string constant =
        "constinit const IFC::ClassInfo " + classInfoName(className) + " =";
    const std::string call =
        filled("IFC::$maker$<$class$>(", {{"maker", maker}, {"class", className}});
    std::vector<std::string> arguments = {"u\"" + std::string(className) + "\"",
                                          "\"" + upperCased(className) + "\""};
    if (!derived.empty())
        arguments.emplace_back(derived);
    std::string line = wrappedCall(0, constant + " " + call, arguments, ");");
    if (line.size() <= kColumnLimit + 1)
        return line;
    return constant + "\n" + wrappedCall(kBodyIndent, call, arguments, ");");
}

std::string defineFunction(std::string_view head, const std::vector<std::string>& parameters,
                           std::string_view qualifiers, std::string_view statements) {
    const std::string tail = ")" + std::string(qualifiers) + " {";
    const std::string signature = wrappedCall(0, head, parameters, tail);
    const bool isSingle = std::count(statements.begin(), statements.end(), '\n') == 1;
    if (isSingle) {
        std::string line = signature;
        line.pop_back();
        line += statements.substr(kBodyIndent - 1);
        line.back() = ' ';
        line += "}";
        if (line.size() <= kColumnLimit)
            return "\n" + line + "\n";
    }
    return "\n" + signature + std::string(statements) + "}\n";
}

std::string readStatement(std::string_view member, bool optional, const Representation& value) {
    const AttributeForm form = formOf(value);
    return wrappedCall(kBodyIndent, "reader." + form.operation + "(",
                       withInfo({std::string(member), optional ? "kOptional" : "kMandatory"}, form),
                       ");");
}

std::string writeStatement(std::string_view member, const Representation& value) {
    const AttributeForm form = formOf(value);
    return wrappedCall(kBodyIndent, "writer." + form.operation + "(",
                       withInfo({std::string(member)}, form), ");");
}

std::string collectStatement(std::string_view member, const Representation& value) {
    std::vector<std::string> arguments = {"queue", std::string(member)};
    if (!value.layers.empty())
        arguments.push_back(formOf(value).info);
    return wrappedCall(kBodyIndent, "IFC::collect(", arguments, ");");
}

}  // namespace schema_generator
