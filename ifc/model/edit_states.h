#pragma once

#include <cstdint>

/// Numbers that editing records carry. They go into the edit log and to the host's protocol, so
/// they never change.

/// IfcProperty::state: what the next export does with the property.
///
/// An edit keeps the state (IfcPropertySet::EditProperty), because an added property stays added
/// however often it is edited. A property of the model becomes kPropertyEdited in the pending-edit
/// store: its edited sets hold only the properties that were touched, and the first edit enters the
/// property with this state.
enum PropertyState : std::int32_t {
    kPropertyUnchanged = 0,  // as in the file; an export leaves it alone
    kPropertyAdded = 1,      // since the model was loaded; deleting it leaves nothing to do
    kPropertyEdited = 2,     // name, value or unit differ from the file
    kPropertyDeleted = 3,    // marked, because the file still has it
};

/// IfcPropertySet::state: result of the last operation on the set.
enum PropertySetState : std::int32_t {
    kSetOperationFailed = 0,  // failed or refused, or nothing was done yet
    kSetAdded = 1,            // the set itself was added
    kSetEdited = 2,           // it or a property of it was edited or marked for deletion
    kSetPropertyAdded = 3,    // to a set of the model: the host shows the set already
    kSetPropertyPut = 4,      // added to a set that is itself pending
    kSetAdditionUndone = 5,   // what had been added, a property or the set, was removed again
};

/// IfcProperty::valueType. The edit log keeps only whether it is a truth value: what is read back
/// otherwise is text, and the IFC type name decides.
enum PropertyValueType : std::int32_t {
    kTextValue = 0,
    kRealValue = 1,
    kTruthValue = 2,
    kIntegerValue = 3,
};
