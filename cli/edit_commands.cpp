#include <algorithm>
#include <exception>
#include <initializer_list>
#include <string>
#include <vector>

#include "cli/cli_texts.h"
#include "cli/command_table.h"
#include "cli/model_file.h"
#include "cli/object_sets.h"
#include "edits/edit_log.h"
#include "edits/pending_edits.h"
#include "ifc/io/guid.h"
#include "ifc/io/parser_texts.h"
#include "ifc/model/model.h"
#include "ifc/model/operation_texts.h"
#include "ifc/model/property_queries.h"
#include "ifc/model/units.h"
#include "ifc/model/views.h"
#include "platform/files.h"
#include "platform/same_file.h"
#include "platform/text.h"
#include "platform/whole_file.h"

namespace cli {
namespace {

using namespace options;

/// Records, as pending edits, what one command does to each object. What cannot be done is reported
/// and leaves no record.
class EditRecorder {
public:
    EditRecorder(Session& session, ModelFile& file);

    /// The classes that options name. @return false, after a report, when one does not exist.
    bool findClasses();

    void setProperty(IFC::IfcEntity* object);
    void addProperty(IFC::IfcEntity* object);
    void rename(IFC::IfcEntity* object);
    void remove(IFC::IfcEntity* object);

    const ObjectSets& sets() const { return sets_; }
    const IFC::PendingEdits& edits() const { return edits_; }

private:
    std::vector<IFC::IfcEntity*> namedSets(IFC::IfcEntity* object) const;
    std::vector<IFC::IfcEntity*> editableSets(IFC::IfcEntity* object);
    bool isEditable(IFC::IfcEntity* set, IFC::IfcEntity* object);
    template <class EditMember>
    void forEachMember(IFC::IfcEntity* object, EditMember editMember);
    bool isSingle(IFC::IfcEntity* member, IFC::IfcEntity* object);
    IFC::EditTarget targetOf(IFC::IfcEntity* object, IFC::IfcEntity* set) const;
    IfcProperty recordOf(IFC::IfcEntity* member) const;
    void takeValue(IfcProperty& record) const;
    void report(IFC::IfcEntity* object, std::u16string_view text, std::u16string_view name) {
        file_.report(object->id(), std::u16string(text).append(name));
    }

    ModelFile& file_;
    const Arguments& arguments_;
    const std::u16string setName_;
    const std::u16string propertyName_;  // empty: the set as a whole
    const std::u16string newName_;
    std::u16string valueType_;  // as the schema writes it
    std::u16string quantityType_;
    ObjectSets sets_;
    IFC::PendingEdits edits_;
};

EditRecorder::EditRecorder(Session& session, ModelFile& file)
    : file_(file),
      arguments_(session.arguments),
      setName_(arguments_.value(kSet)),
      propertyName_(arguments_.value(kProperty)),
      newName_(arguments_.value(kNewName)),
      sets_(file.model()) {
    file.model().recordReferencing();
}

bool EditRecorder::findClasses() {
    struct NamedClass {
        const Option& option;
        bool isValue;
        std::u16string_view complaint;
        std::u16string& name;
    };
    for (const NamedClass& wanted :
         {NamedClass{kValueType, true, texts::kNoSuchValueType, valueType_},
          NamedClass{kQuantity, false, texts::kNoSuchType, quantityType_}}) {
        if (!arguments_.has(wanted.option))
            continue;
        const std::u16string_view name = arguments_.value(wanted.option);
        const IFC::ClassInfo* found = file_.model().findClass(classKey(name));
        if (!found || found->isValue != wanted.isValue) {
            file_.report(0, std::u16string(wanted.complaint).append(name));
            return false;
        }
        wanted.name = found->name;
    }
    return true;
}

void EditRecorder::setProperty(IFC::IfcEntity* object) {
    forEachMember(object, [&](IFC::IfcEntity* set, IFC::IfcEntity* member) {
        if (!isSingle(member, object))
            return;
        IfcProperty record = recordOf(member);
        if (!record.quantityType.empty() && !valueType_.empty())
            return report(object, texts::kNoValueTypeHere, propertyName_);
        if (!valueType_.empty())
            record.entityName = valueType_;
        takeValue(record);
        edits_.editProperty(targetOf(object, set), record);
    });
}

void EditRecorder::addProperty(IFC::IfcEntity* object) {
    IfcProperty record;
    record.initialName = record.name = propertyName_;
    record.quantityType = quantityType_;
    record.entityName = quantityType_.empty() ? valueType_ : quantityType_;
    takeValue(record);

    std::vector<IFC::IfcEntity*> ofKind = namedSets(object);
    std::erase_if(ofKind, [&](IFC::IfcEntity* set) {
        return quantityType_.empty() ? !dynamic_cast<IFC::VirtualIfcPropertySet*>(set)
                                     : !dynamic_cast<IFC::VIfcElementQuantitySet*>(set);
    });
    if (std::any_of(ofKind.begin(), ofKind.end(),
                    [&](IFC::IfcEntity* set) { return IFC::findMember(set, propertyName_); }))
        return report(object, texts::kHasProperty, propertyName_);
    AddPropertyOperation operation;
    if (!ofKind.empty()) {
        if (isEditable(ofKind.front(), object))
            edits_.addProperty(targetOf(object, ofKind.front()), record, operation);
    } else if (sets_.isType(object)) {
        report(object, texts::kTypeTakesNoSet, setName_);
    } else {
        IfcPropertySet set(IFC::newIfcGuid(), setName_);
        set.AddProperty(record, operation);
        edits_.addPropertySet(targetOf(object, nullptr), set);
    }
}

void EditRecorder::rename(IFC::IfcEntity* object) {
    if (propertyName_.empty()) {
        for (IFC::IfcEntity* set : editableSets(object)) {
            const std::vector<IFC::IfcEntity*> all = sets_.setsOf(object);
            if (std::any_of(all.begin(), all.end(), [&](IFC::IfcEntity* other) {
                    return other != set && IFC::nameOf(other) == newName_;
                }))
                report(object, texts::kHasSet, newName_);
            else
                edits_.editPropertySet(targetOf(object, set), newName_);
        }
        return;
    }
    forEachMember(object, [&](IFC::IfcEntity* set, IFC::IfcEntity* member) {
        if (!isSingle(member, object))
            return;
        if (IFC::findMember(set, newName_))
            return report(object, texts::kHasProperty, newName_);
        IfcProperty record = recordOf(member);
        record.name = newName_;
        edits_.editProperty(targetOf(object, set), record);
    });
}

void EditRecorder::remove(IFC::IfcEntity* object) {
    if (propertyName_.empty()) {
        for (IFC::IfcEntity* set : editableSets(object))
            edits_.deletePropertySet(targetOf(object, set));
        return;
    }
    forEachMember(object, [&](IFC::IfcEntity* set, IFC::IfcEntity* member) {
        edits_.deleteProperty(targetOf(object, set), recordOf(member));
    });
}

/// The object's sets of the name that was given.
std::vector<IFC::IfcEntity*> EditRecorder::namedSets(IFC::IfcEntity* object) const {
    std::vector<IFC::IfcEntity*> sets = sets_.setsOf(object);
    std::erase_if(sets, [this](IFC::IfcEntity* set) { return IFC::nameOf(set) != setName_; });
    return sets;
}

/// Those of them that can be edited; reports the others, and when there is none at all.
std::vector<IFC::IfcEntity*> EditRecorder::editableSets(IFC::IfcEntity* object) {
    std::vector<IFC::IfcEntity*> sets = namedSets(object);
    if (sets.empty())
        report(object, texts::kNoSet, setName_);
    std::erase_if(sets, [&](IFC::IfcEntity* set) { return !isEditable(set, object); });
    return sets;
}

/// A shared set of a type stays: the type would go on with the old set beside the copy that it
/// gets.
bool EditRecorder::isEditable(IFC::IfcEntity* set, IFC::IfcEntity* object) {
    if (!IFC::isEditableSet(set)) {
        report(object, ::texts::kPredefinedSet, set->typeName());
        return false;
    }
    const auto users = set->referencing();
    if (sets_.isType(object) && std::any_of(users.begin(), users.end(),
                                            [&](IFC::IfcEntity* user) { return user != object; })) {
        report(object, texts::kTypeSetIsShared, setName_);
        return false;
    }
    return true;
}

/// editMember(set, member): called for each property of the given name in the sets of the given
/// name.
template <class EditMember>
void EditRecorder::forEachMember(IFC::IfcEntity* object, EditMember editMember) {
    const std::vector<IFC::IfcEntity*> sets = editableSets(object);
    bool isFound = sets.empty();  // which is reported already
    for (IFC::IfcEntity* set : sets) {
        if (IFC::IfcEntity* member = IFC::findMember(set, propertyName_)) {
            isFound = true;
            editMember(set, member);
        }
    }
    if (!isFound)
        report(object, texts::kNoProperty, setName_ + u"." + propertyName_);
}

bool EditRecorder::isSingle(IFC::IfcEntity* member, IFC::IfcEntity* object) {
    const bool isSingle = IFC::displayOf(member).single;
    if (!isSingle)
        report(object, texts::kNotEditable, propertyName_);
    return isSingle;
}

IFC::EditTarget EditRecorder::targetOf(IFC::IfcEntity* object, IFC::IfcEntity* set) const {
    IFC::EditTarget target;
    target.fileName = file_.path();
    target.objectNumber = object->id();
    target.objectGuid = IFC::guidOf(object);
    target.setName = setName_;
    target.setGuid = IFC::guidOf(set);
    return target;
}

/// A record that changes nothing yet.
IfcProperty EditRecorder::recordOf(IFC::IfcEntity* member) const {
    const IFC::PropertyDisplay display = IFC::displayOf(member);
    IfcProperty record;
    record.initialName = record.name = display.name;
    record.entityName = display.type;
    if (dynamic_cast<IFC::VQuantityProperty*>(member))
        record.quantityType = display.type;
    return record;
}

/// Puts in what the options tell of value and unit.
void EditRecorder::takeValue(IfcProperty& record) const {
    record.value = arguments_.value(kValue);
    record.unit = platform::fromUtf8(classKey(arguments_.value(kUnit)));
    record.prefix = platform::fromUtf8(classKey(arguments_.value(kPrefix)));
}

/// The objects named by --object and --type, each once; reports those that are missing.
std::vector<IFC::IfcEntity*> chosenObjects(const Arguments& arguments, ModelFile& file,
                                           const ObjectSets& sets) {
    std::vector<IFC::IfcEntity*> objects;
    for (const std::u16string& name : arguments.values(kObject)) {
        IFC::IfcEntity* object = sets.find(name);
        if (!object)
            file.report(0, std::u16string(texts::kNoSuchObject) + name);
        else if (std::find(objects.begin(), objects.end(), object) == objects.end())
            objects.push_back(object);
    }
    if (arguments.has(kType)) {
        const std::u16string_view name = arguments.value(kType);
        const IFC::ClassInfo* objectClass = file.model().findClass(classKey(name));
        const bool isEntity = objectClass && !objectClass->isValue;
        if (isEntity)
            objects = sets.objectsOfClass(*objectClass);
        if (objects.empty())
            file.report(0, std::u16string(isEntity ? texts::kNoObjectOfType : texts::kNoSuchType)
                               .append(name));
    }
    return objects;
}

bool isSIName(const Arguments& arguments, const Option& option) {
    const std::u16string name = platform::fromUtf8(classKey(arguments.value(option)));
    try {
        if (&option == &kPrefix)
            IFC::GetIfcSIPrefixFromWstring(name);
        else
            IFC::GetIfcSIUnitNameFromWstring(name);
    } catch (const std::exception&) {
        return false;
    }
    return true;
}

/// What is wrong with the options of a command; empty when nothing is. needed: those that it cannot
/// do without.
std::u16string usageProblem(const Arguments& arguments,
                            std::initializer_list<const Option*> needed) {
    const auto named = [](const Option& option) { return platform::fromUtf8(option.name); };
    if (arguments.has(kObject) && arguments.has(kType))
        return named(kObject).append(texts::kOptionWith).append(named(kType));
    if (!arguments.has(kObject) && !arguments.has(kType))
        return std::u16string(texts::kOptionMissing) + named(kObject).append(texts::kOptionOr) +
               named(kType);
    for (const Option* option : needed)
        if (!arguments.has(*option))
            return std::u16string(texts::kOptionMissing) + named(*option);
    for (const Option* option : {&kSet, &kProperty, &kNewName})
        if (arguments.has(*option) && arguments.value(*option).empty())
            return std::u16string(texts::kEmptyName) + named(*option);
    if (arguments.has(kQuantity) && arguments.has(kValueType))
        return named(kQuantity).append(texts::kOptionWith).append(named(kValueType));
    if (arguments.has(kPrefix) && !arguments.has(kUnit))
        return named(kPrefix).append(texts::kOptionWithout).append(named(kUnit));
    for (const Option* option : {&kUnit, &kPrefix})
        if (arguments.has(*option) && !isSIName(arguments, *option))
            return std::u16string(texts::kNoSuchUnit).append(arguments.value(*option));
    return {};
}

/// The file for the log of the edits is one that may be made, or replaced with --force.
bool checkEditsFile(Session& session, const std::u16string& model, const std::u16string& output) {
    if (!session.arguments.has(kEdits))
        return true;
    const std::u16string path(session.arguments.value(kEdits));
    const auto refuse = [&](std::u16string_view reason) {
        session.reports.add({.file = path}, reason);
        return false;
    };
    if (platform::isSameFile(path, model) || platform::isSameFile(path, output))
        return refuse(texts::kEditsFileIsModel);
    if (platform::fileExists(path) && !session.arguments.has(kForce))
        return refuse(texts::kEditsFileExists);
    return true;
}

/// Lets `record` record an edit for each chosen object, and applies and writes what comes of it.
ExitStatus editObjects(Session& session, void (EditRecorder::*record)(IFC::IfcEntity* object)) {
    const Arguments& arguments = session.arguments;
    const std::u16string& model = arguments.operands[0];
    const std::u16string& output = arguments.operands[1];
    if (!checkOutput(session, output, {model}) || !checkEditsFile(session, model, output))
        return ExitStatus::NotDone;
    ModelFile file(session, model);
    if (!file.read())
        return ExitStatus::NotDone;
    EditRecorder recorder(session, file);
    if (!recorder.findClasses())
        return ExitStatus::NotDone;
    for (IFC::IfcEntity* object : chosenObjects(arguments, file, recorder.sets())) {
        if (session.screen.interrupted())
            return ExitStatus::NotDone;
        (recorder.*record)(object);
    }
    const IFC::FileEdits* edits = recorder.edits().find(model);
    if (!edits) {
        file.report(0, texts::kNothingDone);
        return ExitStatus::NotDone;
    }
    const ExitStatus status = applyAndWrite(session, file, *edits, output);
    if (status != ExitStatus::NotDone && arguments.has(kEdits)) {
        const std::u16string path(arguments.value(kEdits));
        if (!platform::writeWholeFile(path, IFC::editLogText(recorder.edits())))
            session.reports.add({.file = path},
                                reportText(::texts::kCouldNotOpenFileWriteKey, u""));
    }
    return status;
}

}  // namespace

ExitStatus setProperty(Session& session) {
    const Arguments& arguments = session.arguments;
    session.usageProblem = usageProblem(arguments, {&kSet, &kProperty});
    if (session.usageProblem.empty() && !arguments.has(kUnit) && !arguments.has(kValue))
        session.usageProblem = std::u16string(texts::kOptionMissing) +
                               platform::fromUtf8(kValue.name).append(texts::kOptionOr) +
                               platform::fromUtf8(kUnit.name);
    if (arguments.has(kValue) && arguments.value(kValue).empty())
        session.usageProblem = texts::kEmptyValue;
    if (!session.usageProblem.empty())
        return ExitStatus::NotDone;
    return editObjects(session, &EditRecorder::setProperty);
}

ExitStatus addProperty(Session& session) {
    session.usageProblem = usageProblem(session.arguments, {&kSet, &kProperty, &kValue});
    if (!session.usageProblem.empty())
        return ExitStatus::NotDone;
    return editObjects(session, &EditRecorder::addProperty);
}

ExitStatus renamePropertyOrSet(Session& session) {
    session.usageProblem = usageProblem(session.arguments, {&kSet, &kNewName});
    if (!session.usageProblem.empty())
        return ExitStatus::NotDone;
    return editObjects(session, &EditRecorder::rename);
}

ExitStatus deletePropertyOrSet(Session& session) {
    session.usageProblem = usageProblem(session.arguments, {&kSet});
    if (!session.usageProblem.empty())
        return ExitStatus::NotDone;
    return editObjects(session, &EditRecorder::remove);
}

}  // namespace cli
