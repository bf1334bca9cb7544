#include <algorithm>
#include <set>

#include "tools/schema_generator/attribute_forms.h"
#include "tools/schema_generator/class_parts.h"
#include "tools/schema_generator/emitters.h"
#include "tools/schema_generator/layout.h"
#include "tools/schema_generator/names.h"

namespace schema_generator {

namespace {

bool collectsReferences(const EntityType& entity) {
    return std::any_of(entity.attributes.begin(), entity.attributes.end(),
                       [](const Attribute& attribute) { return holdsReferences(attribute.value); });
}

std::string documentation(const EntityType& entity) {
    std::vector<std::string> added;
    for (const Attribute& attribute : entity.attributes)
        added.push_back(attribute.name);
    std::vector<std::string> computed;
    for (const DerivedAttribute& derived : entity.derived)
        computed.push_back(derived.name);
    std::string text = entity.isAbstract ? "Abstract" : "";
    if (entity.supertype)
        text += std::string(entity.isAbstract ? " kind" : "Kind") + " of " + entity.supertype->name;
    else
        text += entity.isAbstract ? " root" : "Root";
    if (!added.empty())
        text += " with " + enumerated(added, "and");
    if (!computed.empty())
        text += "; computes " + enumerated(computed, "and");
    return docComment(text + ".");
}

std::vector<std::string> basesOf(const EntityType& entity, const EntityViews& views) {
    std::vector<std::string> bases = {"public virtual IFC::IfcComplexType"};
    if (entity.supertype)
        bases.push_back("public " + entity.supertype->name);
    for (const ViewBase& view : views.bases)
        bases.push_back((view.isVirtual ? "public virtual " : "public ") + view.name);
    for (std::string& select : schema_generator::basesOf(entity.bases))
        bases.push_back(std::move(select));
    return bases;
}

/// The members that `isWanted` accepts below an access label, or nothing.
template <class Predicate>
std::string members(const EntityType& entity, std::string_view label, Predicate isWanted) {
    std::string result;
    for (const Attribute& attribute : entity.attributes) {
        if (!isWanted(attribute))
            continue;
        if (result.empty())
            result = "\n" + std::string(label) + ":\n";
        const AttributeForm form = formOf(attribute.value);
        result +=
            "    " + form.memberType + " " + memberName(attribute.name) + form.initializer + ";\n";
    }
    return result;
}

/// "IFC::derivedAt(0, 1)" for what the class and its supertypes derive, or empty.
std::string derivedPlaces(const EntityType& entity) {
    std::set<std::size_t> places;
    for (const EntityType* owner = &entity; owner; owner = owner->supertype) {
        for (const DerivedAttribute& derived : owner->derived)
            places.insert(derived.index);
    }
    std::string list;
    for (const std::size_t place : places)
        list += (list.empty() ? "" : ", ") + std::to_string(place);
    return list.empty() ? list : "IFC::derivedAt(" + list + ")";
}

std::string readBody(const EntityType& entity) {
    std::string body;
    if (entity.supertype)
        body = "    " + entity.supertype->name + "::readAttributes(reader);\n";
    for (const Attribute& attribute : entity.attributes)
        body += readStatement(memberName(attribute.name), attribute.optional, attribute.value);
    return body;
}

std::string writeBody(const EntityType& entity) {
    std::string body;
    if (entity.supertype)
        body = "    " + entity.supertype->name + "::writeAttributes(writer);\n";
    for (const Attribute& attribute : entity.attributes)
        body += writeStatement(memberName(attribute.name), attribute.value);
    return body;
}

std::string collectBody(const EntityType& entity) {
    std::string body;
    if (entity.supertype)
        body = "    " + entity.supertype->name + "::collectReferences(queue);\n";
    for (const Attribute& attribute : entity.attributes) {
        if (holdsReferences(attribute.value))
            body += collectStatement(memberName(attribute.name), attribute.value);
    }
    return body;
}

}  // namespace

std::string declareEntity(const EntityType& entity, const ViewPlan& plan) {
    const EntityViews& views = plan.of(entity);
    std::string result = documentation(entity) + classHead(entity.name, basesOf(entity, views)) +
                         declareObjectClass(entity.name);
    if (collectsReferences(entity))
        result +=
            "    void collectReferences(" + std::string(kReferenceQueue) + ") const override;\n";
    if (!entity.attributes.empty()) {
        result += "    void readAttributes(" + std::string(kAttributeReader) + ") override;\n";
        result +=
            "    void writeAttributes(" + std::string(kAttributeWriter) + ") const override;\n";
    }
    if (!views.operations.empty())
        result += "\n";
    for (const ViewOperation& operation : views.operations) {
        result +=
            wrappedCall(4, operation.result + " " + operation.name + "(", operation.parameters,
                        operation.isConst ? ") const override;" : ") override;");
    }
    result += members(entity, "protected",
                      [&](const Attribute& attribute) { return plan.isUsedBySubtypes(attribute); });
    result += members(entity, "private", [&](const Attribute& attribute) {
        return !plan.isUsedBySubtypes(attribute);
    });
    return result + "};\n";
}

std::string defineEntity(const EntityType& entity, const ViewPlan& plan) {
    const std::string scope = entity.name + "::";
    std::string result = defineObjectClass(entity.name, derivedPlaces(entity));
    if (collectsReferences(entity)) {
        result += defineFunction("void " + scope + "collectReferences(",
                                 {std::string(kReferenceQueue)}, " const", collectBody(entity));
    }
    if (!entity.attributes.empty()) {
        result += defineFunction("void " + scope + "readAttributes(",
                                 {std::string(kAttributeReader)}, "", readBody(entity));
        result += defineFunction("void " + scope + "writeAttributes(",
                                 {std::string(kAttributeWriter)}, " const", writeBody(entity));
    }
    for (const ViewOperation& operation : plan.of(entity).operations) {
        result +=
            defineFunction(operation.result + " " + scope + operation.name + "(",
                           operation.parameters, operation.isConst ? " const" : "", operation.body);
    }
    return result;
}

}  // namespace schema_generator
