#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "ifc/model/edit_states.h"

/// One single-value property or quantity as editing windows and commands see it. All texts are
/// UTF-16.
struct IfcProperty {
    std::u16string initialName;  // in the file, before a rename; of an added one its name
    std::u16string name;
    std::u16string value;
    std::int32_t valueType = kTextValue;  // PropertyValueType
    std::u16string quantityType;          // "IfcQuantityLength"; empty for a single value
    std::u16string entityName;            // value type ("IfcLabel") or the property's own entity
    std::u16string prefix;                // "KILO" or empty
    std::u16string unit;                  // "METRE" or empty
    std::int32_t state = kPropertyUnchanged;  // PropertyState
    // An empty text above leaves what the file has. These say that it is to be empty.
    bool clearsValue = false;
    bool clearsUnit = false;

    bool operator==(const IfcProperty&) const = default;
};

/// What one run of "add property" knows while it goes over the sets of all chosen objects.
struct AddPropertyOperation {
    static constexpr int kReplaceWithoutQuestion = 3;
    static constexpr int kPolicyNotSpecified = 4;

    int addingPolicy = kPolicyNotSpecified;  // 0 to 3 as chosen by the user
    std::u16string question;                 // whether to replace a property of the same name
    std::optional<bool> replaceAnswer;       // of the user; empty before the question
};

/// Editing record of one property set, held by std::shared_ptr, so that a command and a window can
/// hold the same one. What is refused shows a message box and leaves the record as it was.
class IfcPropertySet {
public:
    /// Throws std::runtime_error when `setIdentifier` is empty.
    IfcPropertySet(std::u16string_view setIdentifier, std::u16string_view setName);

    /// Takes `record` in. Where there is a property of that name already, the user is asked once
    /// per operation, unless the policy replaces without a question; not where it is marked for
    /// deletion, which goes on beside it. What replaces a property of the file is an edit of it: it
    /// keeps the initial name and gets the state kPropertyEdited, so that an export does not write
    /// a second property of the name.
    /// @return false when the user refused; the state is then 0.
    bool AddProperty(const IfcProperty& record, AddPropertyOperation& operation);

    /// Puts `record` in the place of its predecessor, of which it keeps the state and the initial
    /// name, and takes over what `record` leaves empty and does not clear: value and value type
    /// count as one field, so do unit and prefix, because the prefix of one unit would falsify
    /// another. Refuses a rename to a name that is taken.
    /// @return the record as held, valid until the next change of `properties`; null when it was
    /// refused.
    IfcProperty* EditProperty(const IfcProperty& record);

    /// Removes a property that was added since the model was loaded, marks any other.
    /// @return false when there is no property of that name.
    bool DeleteProperty(std::u16string_view propertyName);

    /// The held record of which `record` is the next form: of the same name, or, where `record` is
    /// a rename, the one whose present name, or else whose initial one, is the initial name of
    /// `record`. Null when there is none.
    const IfcProperty* predecessorOf(const IfcProperty& record) const;

    /// Lets another property have the name of one that is marked for deletion: the mark goes on
    /// under a key of its own (keyAside). Does nothing when the name is free, or a property has it.
    void freeName(const std::u16string& propertyName);
    static std::u16string keyAside(const IfcProperty& deleted);

    bool operator==(const IfcPropertySet&) const = default;

    using Properties = std::map<std::u16string, IfcProperty, std::less<>>;

    // Field order is fixed.
    std::u16string SetIdentifier;  // GUID of the set, never empty
    std::u16string name;
    Properties properties;                     // by present name, but see freeName()
    std::int32_t state = kSetOperationFailed;  // PropertySetState

private:
    Properties::const_iterator findPredecessor(const IfcProperty& record) const;
};
