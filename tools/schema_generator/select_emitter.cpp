#include "tools/schema_generator/class_parts.h"
#include "tools/schema_generator/emitters.h"
#include "tools/schema_generator/layout.h"

namespace schema_generator {

namespace {

/// More members than this are described by the first and the last.
constexpr std::size_t kNamedMembers = 6;

std::string documentation(const SelectType& select) {
    const std::vector<std::string>& members = select.members;
    if (members.size() <= kNamedMembers)
        return docComment(enumerated(members, "or") + ".");
    return docComment("One of " + std::to_string(members.size()) + " types, " + members.front() +
                      " to " + members.back() + ".");
}

}  // namespace

std::string declareSelect(const SelectType& select) {
    std::vector<std::string> bases = basesOf(select.bases);
    if (bases.empty())
        bases = {"public virtual IFC::IfcEntity"};
    std::string head = classHead(select.name, bases);
    head.pop_back();
    return documentation(select) + head + "};\n";
}

std::string defineSelect(const SelectType& select, const std::vector<std::string>& leaves) {
    std::vector<std::string> types = {select.name};
    types.insert(types.end(), leaves.begin(), leaves.end());
    return defineClassInfo(select.name, "selectClass") +
           hangingCall("static_assert(IFC::kAllConvertTo<", types, ">);");
}

}  // namespace schema_generator
