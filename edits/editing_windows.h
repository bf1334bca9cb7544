#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ifc/model/property_set_record.h"

namespace IFC {

/// What the single-object property window is opened for; the numbers are its modes.
enum class PropertyWindowMode : std::uint32_t {
    AddProperty = 0,
    EditProperty = 1,
    AddSet = 2,
    RenameSet = 3,
};

/// What the window shows when it opens. All texts are UTF-16 and ready to be shown.
struct PropertyWindowInput {
    PropertyWindowMode mode = PropertyWindowMode::AddProperty;
    bool isTruthValue = false;  ///< the value is chosen from yes and no
    bool truthValue = false;
    bool isQuantity = false;  ///< the quantity type can be chosen
    std::u16string setName;
    std::u16string propertyName;
    std::u16string value;
    std::u16string prefix;  ///< "MILLI"; with `unit` the entry of the list of units
    std::u16string unit;    ///< "METRE"; empty for none
    std::u16string quantityType;
    // Captions.
    std::u16string title;
    std::u16string setLabel;
    std::u16string setNameMessage;
    std::u16string propertyNameMessage;
    std::u16string propertyData;
    std::u16string quantityTypeLabel;
    std::u16string yes;
    std::u16string no;
    std::u16string ok;
    std::u16string cancel;
};

/// What the user entered.
struct PropertyWindowResult {
    std::u16string setName;
    IfcProperty property;  ///< name, value, value type, quantity type, prefix, unit; unused in the
                           ///< modes that ask for a set's name only
};

/// Where a change is made.
struct ManyEditPlace {
    std::uint64_t object = 0;  ///< host object id
    std::u16string setGuid;    ///< empty for every set of the name that the object has
};

/// One change that the user made for many objects at once.
struct ManyEdit {
    enum class Kind { AddSet, AddProperty, EditProperty, DeleteProperty, RenameSet, DeleteSet };

    Kind kind = Kind::AddProperty;
    std::u16string setName;
    std::u16string newSetName;  ///< of RenameSet
    IfcProperty property;       ///< initialName is the present name where `name` is a new one
    /// Empty for all the selected objects.
    std::vector<ManyEditPlace> places;
};

/// What was made in the edit-many window.
struct ManyEdits {
    std::vector<ManyEdit> edits;
    std::int32_t addingPolicy = AddPropertyOperation::kPolicyNotSpecified;
};

/// How far something is, in objects.
using ObjectProgress = std::function<void(std::size_t done, std::size_t total)>;

/// Makes what the user accepted in the edit-many window; returns when it is done. `progress` may be
/// empty.
using ApplyManyEdits = std::function<void(ManyEdits edits, const ObjectProgress& progress)>;

/// The windows in which the user edits. Modal: each call returns when its window is closed.
class EditingWindows {
public:
    EditingWindows() = default;
    EditingWindows(const EditingWindows&) = delete;
    EditingWindows& operator=(const EditingWindows&) = delete;
    virtual ~EditingWindows() = default;

    /// Nothing when the window was cancelled.
    virtual std::optional<PropertyWindowResult> askProperty(const PropertyWindowInput& input) = 0;
    /// objects: the selected ones, host object ids; at least one. apply: called, while the window
    /// is still there, when the user has accepted changes.
    virtual void editMany(const std::vector<std::uint64_t>& objects,
                          const ApplyManyEdits& apply) = 0;
};

}  // namespace IFC
