#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "ifc/io/error_callback.h"
#include "ifc/model/property_set_record.h"

namespace IFC {

class IfcEntity;
class Model;

/// Edits of property sets and quantities on a parsed model of any release. An edit reaches the
/// chosen object and nothing else: before an instance is changed or removed, it is found out who
/// else refers to it, and these keep the old one while the object gets a copy. Removed entities are
/// only marked; the writer leaves them out. Trouble is reported, and the model stays as far as the
/// operation got.
class PropertyOperations {
public:
    PropertyOperations(Model& model, ErrorCallback errors);

    /// The property set or quantity set with that GUID; a miss, and a predefined set whose
    /// attributes are fixed by the schema, is reported and gives null.
    IfcEntity* FindPropertySetByGuid(std::u16string_view guid);

    /// `set`, if nobody but the object uses it, or a copy that the object gets in its place.
    IfcEntity* setForObject(IfcEntity* set, IfcEntity* object);

    /// Takes the object away from the relations of `set` and gives it a copy of the set, of its
    /// single values and of its quantities, under new numbers and GUIDs. The old set stays as long
    /// as others use it. @return the copy.
    IfcEntity* UnsharePropertySet(IfcEntity* set, std::u16string_view objectGuid);

    /// Changes name, value and unit of one single value or quantity; fields of `record` that are
    /// empty stay as they are.
    /// @return whether the model was changed as asked.
    bool EditPropertyInModel(std::u16string_view objectGuid, std::u16string_view setGuid,
                             const IfcProperty& record);
    /// The member of a set that a record concerns, by its name in the file; null, and a report,
    /// when there is none.
    IfcEntity* findRecorded(IfcEntity* set, const IfcProperty& record);
    /// The same as EditPropertyInModel for a member of a set that is the object's own already. A
    /// member that the record makes a quantity, or a quantity of another kind, is replaced.
    bool editMember(IfcEntity* set, IfcEntity* object, IfcEntity* member,
                    const IfcProperty& record);

    /// Takes a property or quantity out of a set that is the object's own. A set without members
    /// goes with its relations.
    bool DeletePropertyInModel(IfcEntity* set, const IfcProperty& record);
    void deleteMember(IfcEntity* set, IfcEntity* member);

    /// Adds a new property or quantity to a set that is the object's own. A quantity for a property
    /// set, or a single value for a quantity set, goes to the object's set of the right kind and
    /// the same name, which is made when there is none.
    bool addMember(IfcEntity* set, IfcEntity* object, const IfcProperty& record);

    /// Makes a new set for the object with that number, as a property set or, for quantities, a
    /// quantity set; both when the records are of both kinds.
    /// @return how many of the records became members; 0 when the object is not in the model.
    std::size_t addPropertySet(std::int32_t objectNumber, std::u16string_view setGuid,
                               std::u16string_view setName,
                               const std::vector<IfcProperty>& records);

    /// Renames the object's own set.
    void renameSet(IfcEntity* set, std::u16string_view name);

    /// Takes the set away from the object, and out of the model when nobody else uses it.
    void deleteSet(IfcEntity* set, IfcEntity* object);

    Model& model() { return model_; }

private:
    IfcEntity* newRooted(std::string_view className, std::u16string_view guid,
                         const std::u16string_view* name);
    void relate(IfcEntity* object, IfcEntity* set);
    IfcEntity* newSet(bool quantities, IfcEntity* object, std::u16string_view guid,
                      std::u16string_view name);
    IfcEntity* companionSet(bool quantities, IfcEntity* object, std::u16string_view name);
    IfcEntity* newMember(const IfcProperty& record);
    void appendMember(IfcEntity* set, IfcEntity* member);
    void replaceMember(IfcEntity* set, IfcEntity* member, IfcEntity* replacement);
    IfcEntity* ownMember(IfcEntity* set, IfcEntity* member);
    IfcEntity* cloneMember(IfcEntity* member);
    void detach(IfcEntity* set, IfcEntity* object);
    bool hasOtherUsers(IfcEntity* entity, IfcEntity* user) const;
    void removeUnusedSet(IfcEntity* set);
    void changed(IfcEntity* entity);

    bool setValue(IfcEntity* property, const IfcProperty& record);
    IfcEntity* convertedValue(IfcEntity* old, const IfcProperty& record);
    IfcEntity* valueOfClass(std::string_view key, const IfcProperty& record);
    bool setUnit(IfcEntity* property, const IfcProperty& record);
    IfcEntity* siUnit(std::u16string_view prefix, std::u16string_view unit);
    void reportText(std::u16string_view text) const { report(errors_, "", text); }

    using UnitKey = std::tuple<std::string, std::string, std::string>;  // type, prefix, name
    Model& model_;
    ErrorCallback errors_;
    std::map<UnitKey, IfcEntity*> units_;
    bool unitsKnown_ = false;
};

/// The text behind a key of the language files, through the function that is installed; without one
/// "Get text function is no set. ".
std::u16string GetText(const char* key);
/// Installs what GetText asks; empty for nothing. @return what was installed before.
std::function<std::u16string(const char* key)> setGetTextFunction(
    std::function<std::u16string(const char* key)> function);

}  // namespace IFC
