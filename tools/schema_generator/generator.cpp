#include "tools/schema_generator/generator.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "tools/schema_generator/emitters.h"
#include "tools/schema_generator/layout.h"
#include "tools/schema_generator/names.h"
#include "tools/schema_generator/templates.h"
#include "tools/schema_generator/views.h"

namespace schema_generator {

namespace {

/// A class to be emitted, of whichever kind of declaration.
struct EmittedClass {
    std::string name;
    int line = 1;
    bool isRegistered = false;       // selects are not
    std::vector<std::string> bases;  // within the schema
    std::string declaration;
    std::string definition;
};

constexpr std::string_view kForwardHeader =
    "$banner$"
    "#pragma once\n"
    "\n"
    "#include \"ifc/model/class_info.h\"\n"
    "\n"
    "namespace $release$ {\n"
    "\n"
    "$classes$"
    "\n"
    "$constants$"
    "\n"
    "}  // namespace $release$\n";

constexpr std::string_view kClassesHeader =
    "$banner$"
    "#pragma once\n"
    "\n"
    "#include \"ifc/model/entity.h\"\n"
    "#include \"ifc/model/values.h\"\n"
    "#include \"ifc/model/views.h\"\n"
    "#include \"ifc/schemas/$release$/forward.h\"\n"
    "\n"
    "namespace $release$ {\n"
    "\n"
    "$classes$"
    "}  // namespace $release$\n";

constexpr std::string_view kBodyFile =
    "$banner$"
    "#include \"ifc/model/attribute_reader.h\"\n"
    "#include \"ifc/model/attribute_writer.h\"\n"
    "#include \"ifc/model/class_info_impl.h\"\n"
    "#include \"ifc/model/generated_code.h\"\n"
    "#include \"ifc/schemas/$release$/classes.h\"\n"
    "#include \"ifc/schemas/$release$/enums.h\"\n"
    "\n"
    "namespace $release$ {\n"
    "\n"
    "$usings$"
    "$definitions$"
    "}  // namespace $release$\n";

constexpr std::string_view kEnumsHeader =
    "$banner$"
    "#pragma once\n"
    "\n"
    "#include \"ifc/model/enumeration.h\"\n"
    "\n"
    "namespace $release$ {\n"
    "\n"
    "$declarations$"
    "}  // namespace $release$\n";

constexpr std::string_view kEnumsFile =
    "$banner$"
    "#include \"ifc/schemas/$release$/enums.h\"\n"
    "\n"
    "namespace $release$ {\n"
    "\n"
    "$definitions$"
    "}  // namespace $release$\n";

constexpr std::string_view kRegistrationHeader =
    "$banner$"
    "#pragma once\n"
    "\n"
    "#include <span>\n"
    "\n"
    "#include \"ifc/model/class_info.h\"\n"
    "\n"
    "namespace $release$ {\n"
    "\n"
    "$documentation$"
    "std::span<const IFC::ClassInfo* const> registeredClasses();\n"
    "\n"
    "}  // namespace $release$\n";

constexpr std::string_view kRegistrationFile =
    "$banner$"
    "#include \"ifc/schemas/$release$/registration.h\"\n"
    "\n"
    "#include \"ifc/schemas/$release$/forward.h\"\n"
    "\n"
    "namespace $release$ {\n"
    "\n"
    "namespace {\n"
    "\n"
    "constexpr const IFC::ClassInfo* kRegisteredClasses[] = {\n"
    "$constants$"
    "};\n"
    "\n"
    "}  // namespace\n"
    "\n"
    "std::span<const IFC::ClassInfo* const> registeredClasses() { return kRegisteredClasses; }\n"
    "\n"
    "}  // namespace $release$\n";

/// Both lines of the banner, behind a comment mark of C++ or CMake.
std::string banner(std::string_view mark, std::string_view schemaFile) {
    return filled(
        "$mark$ $start$$file$. Do not edit; change the generator and build\n"
        "$mark$ the target regenerate-schemas.\n"
        "\n",
        {{"mark", mark}, {"start", kBannerStart}, {"file", schemaFile}});
}

void addBaseNames(std::vector<std::string>& names, const std::vector<SelectBase>& selects) {
    for (const SelectBase& base : selects)
        names.push_back(base.select->name);
}

/// The entities and value classes that each select stands for, nested selects resolved. Ordered by
/// name.
std::map<std::string, std::set<std::string>> leavesOfSelects(const Schema& schema) {
    std::map<std::string_view, const SelectType*> selects;
    for (const auto& select : schema.selects)
        selects[select->name] = select.get();
    std::map<std::string, std::set<std::string>> leaves;
    for (const auto& select : schema.selects) {
        std::vector<const SelectType*> open = {select.get()};
        std::set<const SelectType*> seen = {select.get()};
        while (!open.empty()) {
            const SelectType* current = open.back();
            open.pop_back();
            for (const std::string& member : current->members) {
                const auto inner = selects.find(member);
                if (inner == selects.end())
                    leaves[select->name].insert(member);
                else if (seen.insert(inner->second).second)
                    open.push_back(inner->second);
            }
        }
    }
    return leaves;
}

/// In the order of the schema's text.
std::vector<EmittedClass> emitClasses(const Schema& schema, const ViewPlan& views) {
    std::vector<EmittedClass> classes;
    const auto leaves = leavesOfSelects(schema);
    for (const auto& select : schema.selects) {
        const auto& names = leaves.at(select->name);
        EmittedClass emitted{select->name, select->line, false, {}, declareSelect(*select), {}};
        emitted.definition = defineSelect(*select, {names.begin(), names.end()});
        addBaseNames(emitted.bases, select->bases);
        classes.push_back(std::move(emitted));
    }
    for (const auto& type : schema.definedTypes) {
        EmittedClass emitted{
            type->name, type->line, true, {}, declareDefinedType(*type), defineDefinedType(*type)};
        addBaseNames(emitted.bases, type->bases);
        classes.push_back(std::move(emitted));
    }
    for (const auto& type : schema.enumerations) {
        if (!type->isValueClass())
            continue;
        EmittedClass emitted{type->name,
                             type->line,
                             true,
                             {},
                             declareEnumerationValue(*type),
                             defineEnumerationValue(*type)};
        addBaseNames(emitted.bases, type->bases);
        classes.push_back(std::move(emitted));
    }
    for (const auto& entity : schema.entities) {
        EmittedClass emitted{entity->name,
                             entity->line,
                             true,
                             {},
                             declareEntity(*entity, views),
                             defineEntity(*entity, views)};
        if (entity->supertype)
            emitted.bases.push_back(entity->supertype->name);
        addBaseNames(emitted.bases, entity->bases);
        classes.push_back(std::move(emitted));
    }
    std::stable_sort(classes.begin(), classes.end(),
                     [](const EmittedClass& a, const EmittedClass& b) { return a.line < b.line; });
    return classes;
}

/// The declarations, each behind those of its bases and otherwise in the given order.
std::string declarationsBasesFirst(const std::vector<EmittedClass>& classes) {
    std::map<std::string_view, const EmittedClass*> byName;
    for (const EmittedClass& emitted : classes)
        byName[emitted.name] = &emitted;
    std::string result;
    std::set<std::string_view> done;
    for (const EmittedClass& first : classes) {
        std::vector<const EmittedClass*> open = {&first};
        while (!open.empty()) {
            const EmittedClass* current = open.back();
            const auto missing =
                std::find_if(current->bases.begin(), current->bases.end(),
                             [&](const std::string& base) { return !done.contains(base); });
            if (missing != current->bases.end()) {
                open.push_back(byName.at(*missing));
                continue;
            }
            open.pop_back();
            if (done.insert(current->name).second)
                result += current->declaration + "\n";
        }
    }
    return result;
}

class ReleaseEmitter {
public:
    ReleaseEmitter(const Schema& schema, std::string_view schemaFile, const ViewPlan& views)
        : schema_(schema),
          classes_(emitClasses(schema, views)),
          banner_(banner("//", schemaFile)),
          cmakeBanner_(banner("#", schemaFile)) {}

    std::vector<GeneratedFile> files();

private:
    void add(std::string name, std::string_view pattern,
             std::vector<std::pair<std::string, std::string>> values);
    void addHeaders();
    void addEnumerations();
    void addBodies();
    void addRegistration();
    void addSourceList();

    const Schema& schema_;
    const std::vector<EmittedClass> classes_;
    const std::string banner_;
    const std::string cmakeBanner_;
    std::vector<GeneratedFile> files_;
};

void ReleaseEmitter::add(std::string name, std::string_view pattern,
                         std::vector<std::pair<std::string, std::string>> values) {
    values.emplace_back("banner", banner_);
    values.emplace_back("release", schema_.name);
    files_.push_back({std::move(name), filled(pattern, values)});
}

void ReleaseEmitter::addHeaders() {
    std::string declared;
    std::string constants;
    for (const EmittedClass& emitted : classes_) {
        declared += "class " + emitted.name + ";\n";
        constants += "extern const IFC::ClassInfo " + classInfoName(emitted.name) + ";\n";
    }
    add("forward.h", kForwardHeader, {{"classes", declared}, {"constants", constants}});
    add("classes.h", kClassesHeader, {{"classes", declarationsBasesFirst(classes_)}});
}

void ReleaseEmitter::addEnumerations() {
    std::string declarations;
    std::string definitions;
    for (const auto& enumeration : schema_.enumerations) {
        declarations += declareEnumeration(*enumeration) + "\n";
        definitions += defineEnumeration(*enumeration) + "\n";
    }
    add("enums.h", kEnumsHeader, {{"declarations", declarations}});
    add("enums.cpp", kEnumsFile, {{"definitions", definitions}});
}

void ReleaseEmitter::addBodies() {
    std::map<std::string, std::string> definitions;
    for (const EmittedClass& emitted : classes_)
        definitions[bodyFileStem(emitted.name)] += emitted.definition + "\n";
    for (const auto& [stem, text] : definitions) {
        std::string usings;
        for (const std::string_view constant : {"kMandatory", "kOptional"}) {
            if (text.find(constant) != std::string::npos)
                usings += "using IFC::" + std::string(constant) + ";\n";
        }
        if (!usings.empty())
            usings += "\n";
        add(stem + ".cpp", kBodyFile, {{"usings", usings}, {"definitions", text}});
    }
}

void ReleaseEmitter::addRegistration() {
    std::string constants;
    for (const EmittedClass& emitted : classes_) {
        if (emitted.isRegistered)
            constants += "    &" + classInfoName(emitted.name) + ",\n";
    }
    add("registration.h", kRegistrationHeader,
        {{"documentation",
          docComment("The " + std::to_string(countsOf(schema_).registered()) +
                     " entities and defined types of the release, which files may name; valid for "
                     "the whole run.")}});
    add("registration.cpp", kRegistrationFile, {{"constants", constants}});
}

void ReleaseEmitter::addSourceList() {
    std::string names;
    for (const GeneratedFile& file : files_) {
        if (file.name.ends_with(".cpp"))
            names += "    " + file.name + "\n";
    }
    files_.push_back({"sources.cmake", cmakeBanner_ + "set(sources\n" + names + ")\n"});
}

std::vector<GeneratedFile> ReleaseEmitter::files() {
    addHeaders();
    addEnumerations();
    addBodies();
    addRegistration();
    addSourceList();
    return std::move(files_);
}

}  // namespace

std::vector<GeneratedFile> generate(const Schema& schema, std::string_view schemaFile,
                                    DiagnosticList& diagnostics) {
    if (schema.entities.empty())
        diagnostics.add(1, "schema " + schema.name + " declares no entity");
    const ViewPlan views(schema, diagnostics);
    if (!diagnostics.empty())
        return {};
    return ReleaseEmitter(schema, schemaFile, views).files();
}

Counts countsOf(const Schema& schema) {
    const auto valueClasses =
        std::count_if(schema.enumerations.begin(), schema.enumerations.end(),
                      [](const auto& enumeration) { return enumeration->isValueClass(); });
    return {.entities = schema.entities.size(),
            .definedTypes = schema.definedTypes.size() + static_cast<std::size_t>(valueClasses),
            .selects = schema.selects.size(),
            .enumerations = schema.enumerations.size()};
}

}  // namespace schema_generator
