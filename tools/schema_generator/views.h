#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tools/schema_generator/diagnostics.h"
#include "tools/schema_generator/schema.h"

namespace schema_generator {

struct ViewOperationRow;
struct ViewRow;

/// One operation that a class implements for a view, ready to be written.
struct ViewOperation {
    std::string result;                   ///< "IFC::IfcEntity*"
    std::string name;                     ///< "objectPlacement"
    std::vector<std::string> parameters;  ///< "IFC::MemoryPool& pool"
    bool isConst = false;
    std::string body;  ///< statements, each line indented once and ended
};

struct ViewBase {
    std::string name;  ///< "IFC::VirtualIfcProduct"
    bool isVirtual = false;
};

/// What an entity class does for the views it stands for.
struct EntityViews {
    std::vector<ViewBase> bases;
    std::vector<ViewOperation> operations;
};

/// The views of one release: which classes stand for them, and how the attributes of this release
/// serve them.
class ViewPlan {
public:
    /// Complains when a class lacks an attribute that its view needs. `schema` must outlive the
    /// plan.
    ViewPlan(const Schema& schema, DiagnosticList& diagnostics);

    const EntityViews& of(const EntityType& entity) const;

    /// Whether the view of a subtype uses the attribute, so that it cannot be private.
    bool isUsedBySubtypes(const Attribute& attribute) const {
        return usedBySubtypes_.contains(&attribute);
    }

private:
    void addOperation(const EntityType& entity, const ViewRow& view, const ViewOperationRow& row,
                      DiagnosticList& diagnostics);

    std::map<const EntityType*, EntityViews> views_;
    std::set<const Attribute*> usedBySubtypes_;
};

}  // namespace schema_generator
