#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ifc/io/error_callback.h"

namespace IFC {

class IfcEntity;
class PropertyOperations;

/// Finds what edits name in a model. A GUID that was missing or repeated in the file was replaced
/// when the model was read; an edit may name its object and its set by the one or by the other.
class EditTargets {
public:
    /// Both outlive this.
    EditTargets(PropertyOperations& operations, const ErrorCallback& errors)
        : operations_(operations), errors_(errors) {}

    /// The object with that number, which must have that GUID, here or in the file; an empty one
    /// goes with every object. A number that another object has now gives way to a GUID that one
    /// object alone has, and that is reported.
    /// @return null, after a report, when there is no such object.
    IfcEntity* findObject(std::int32_t number, std::u16string_view guid) const;

    /// The property or quantity set with that GUID, here or in the file. Of several it is the one
    /// that the object has, and else the one that kept the GUID.
    /// @return null, after a report, when there is none that can be edited.
    IfcEntity* findSet(IfcEntity* object, std::u16string_view guid);

private:
    bool hasSet(IfcEntity* object, IfcEntity* set);

    PropertyOperations& operations_;
    const ErrorCallback& errors_;
    /// The sets of every object as they were when they were first asked for: only a GUID that
    /// several sets have needs them.
    std::unordered_map<IfcEntity*, std::vector<IfcEntity*>> assigned_;
};

}  // namespace IFC
