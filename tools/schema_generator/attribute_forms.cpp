#include "tools/schema_generator/attribute_forms.h"

#include <cstdlib>

#include "tools/schema_generator/names.h"
#include "tools/schema_generator/templates.h"

namespace schema_generator {

namespace {

/// Member type and operation per aggregate depth; "$class$" is the declared class. Empty: nothing
/// holds it.
struct Forms {
    ElementKind element;
    std::string_view single;
    std::string_view singleOperation;
    std::string_view list;
    std::string_view listOperation;
    std::string_view lists;
    std::string_view listsOperation;
};

constexpr Forms kForms[] = {
    {ElementKind::Binary, "IFC::Binary", "binary", "IFC::Sequence<IFC::Binary>", "binaries", "",
     ""},
    {ElementKind::Entity, "$class$*", "reference", "IFC::References<$class$>", "references",
     "IFC::Sequence<IFC::References<$class$>>", "referenceLists"},
    {ElementKind::Enumeration, "IFC::Enumeration", "enumeration", "IFC::Sequence<IFC::Enumeration>",
     "enumerations", "", ""},
    {ElementKind::Integer, "IFC::Integer", "integer", "IFC::Sequence<std::int64_t>", "integers",
     "IFC::Sequence<IFC::Sequence<std::int64_t>>", "integerLists"},
    {ElementKind::Logical, "IFC::Logical", "logical", "IFC::Sequence<IFC::Logical>", "logicals", "",
     ""},
    {ElementKind::Number, "IFC::Real", "real", "IFC::Sequence<double>", "reals",
     "IFC::Sequence<IFC::Sequence<double>>", "realLists"},
    {ElementKind::Real, "IFC::Real", "real", "IFC::Sequence<double>", "reals",
     "IFC::Sequence<IFC::Sequence<double>>", "realLists"},
    {ElementKind::Select, "$class$*", "select", "IFC::References<$class$>", "selects",
     "IFC::Sequence<IFC::References<$class$>>", "selectLists"},
    {ElementKind::Text, "IFC::Text", "text", "IFC::Sequence<IFC::Text>", "texts",
     "IFC::Sequence<IFC::Sequence<IFC::Text>>", "textLists"},
};

const Forms& formsOf(ElementKind element) {
    for (const Forms& forms : kForms) {
        if (forms.element == element)
            return forms;
    }
    std::abort();
}

}  // namespace

AttributeForm formOf(const Representation& value) {
    const Forms& forms = formsOf(value.element);
    std::string className;
    AttributeForm form;
    if (value.entity)
        className = value.entity->name;
    else if (value.select)
        className = value.select->name;
    if (!className.empty())
        form.info = classInfoName(className);
    if (value.enumeration)
        form.info = enumerationInfoName(value.enumeration->name, value.enumeration->isValueClass());
    std::string_view type = forms.single;
    form.operation = forms.singleOperation;
    if (value.layers.empty() && !className.empty())
        form.initializer = " = nullptr";
    if (value.layers.size() == 1) {
        type = forms.list;
        form.operation = forms.listOperation;
    } else if (value.layers.size() == 2) {
        type = forms.lists;
        form.operation = forms.listsOperation;
    }
    form.memberType = filled(type, {{"class", className}});
    return form;
}

bool holdsReferences(const Representation& value) { return value.entity || value.select; }

}  // namespace schema_generator
