#include "tools/schema_generator/views.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "tools/schema_generator/attribute_forms.h"
#include "tools/schema_generator/layout.h"
#include "tools/schema_generator/names.h"
#include "tools/schema_generator/templates.h"
#include "tools/schema_generator/view_table.h"

namespace schema_generator {

namespace {

/// Of a table's lines inside a function.
constexpr std::size_t kTableColumn = 8;

using Values = std::vector<std::pair<std::string, std::string>>;

std::string wideLiterals(const EnumerationType& enumeration) {
    std::vector<std::string> literals;
    for (const std::string& value : enumeration.values)
        literals.push_back("u\"" + value + "\"");
    return filledLines(literals, ",", kTableColumn);
}

/// The values of `$1$`, `$1.info$` and `$1.texts$` for the attribute at `position` (from 1).
void addAttributeValues(Values& values, std::size_t position, const Attribute& attribute) {
    const std::string key = std::to_string(position);
    values.emplace_back(key, memberName(attribute.name));
    values.emplace_back(key + ".info", formOf(attribute.value).info);
    if (attribute.value.enumeration)
        values.emplace_back(key + ".texts", wideLiterals(*attribute.value.enumeration));
}

const ViewBody* bodyFor(const ViewOperationRow& row, std::optional<ElementKind> firstElement) {
    for (const ViewBody& body : row.bodies) {
        const auto& kinds = body.elements;
        if (kinds.empty() ||
            (firstElement && std::find(kinds.begin(), kinds.end(), *firstElement) != kinds.end()))
            return &body;
    }
    return nullptr;
}

std::string indented(std::string_view lines) {
    std::string result;
    for (std::size_t start = 0; start < lines.size();) {
        const std::size_t end = std::min(lines.find('\n', start), lines.size());
        result += "    " + std::string(lines.substr(start, end - start)) + "\n";
        start = end + 1;
    }
    return result;
}

}  // namespace

ViewPlan::ViewPlan(const Schema& schema, DiagnosticList& diagnostics) {
    for (const ViewRow& row : viewTable()) {
        for (const std::string_view className : row.classes) {
            const EntityType* entity = schema.findEntity(className);
            if (!entity)
                continue;
            EntityViews& views = views_[entity];
            views.bases.push_back({std::string(row.view), row.isVirtual});
            for (const ViewOperationRow& operation : row.operations)
                addOperation(*entity, row, operation, diagnostics);
        }
    }
}

void ViewPlan::addOperation(const EntityType& entity, const ViewRow& view,
                            const ViewOperationRow& row, DiagnosticList& diagnostics) {
    const std::string purpose =
        entity.name + "." + std::string(row.name) + " of " + std::string(view.view);
    Values values{{"class", entity.name}};
    std::optional<ElementKind> firstElement;
    for (std::size_t i = 0; i < row.attributes.size(); ++i) {
        const auto found = entity.find(row.attributes[i]);
        if (!found) {
            diagnostics.add(entity.line, "attribute \"" + std::string(row.attributes[i]) +
                                             "\" is missing for " + purpose);
            return;
        }
        addAttributeValues(values, i + 1, *found->attribute);
        if (i == 0)
            firstElement = found->attribute->value.element;
        if (found->owner != &entity)
            usedBySubtypes_.insert(found->attribute);
    }
    const ViewBody* body = bodyFor(row, firstElement);
    if (!body) {
        diagnostics.add(entity.line, "attribute \"" + std::string(row.attributes.front()) +
                                         "\" is of no kind that serves " + purpose);
        return;
    }
    views_[&entity].operations.push_back({std::string(row.result), std::string(row.name),
                                          row.parameters, row.isConst,
                                          filled(indented(body->lines), values)});
}

const EntityViews& ViewPlan::of(const EntityType& entity) const {
    static const EntityViews kNone;
    const auto found = views_.find(&entity);
    return found == views_.end() ? kNone : found->second;
}

}  // namespace schema_generator
