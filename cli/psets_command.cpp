#include <algorithm>
#include <deque>
#include <set>
#include <string>
#include <vector>

#include "cli/cli_texts.h"
#include "cli/command_table.h"
#include "cli/json_writer.h"
#include "cli/model_file.h"
#include "cli/object_sets.h"
#include "cli/printable.h"
#include "ifc/io/output_text_stream.h"
#include "ifc/model/attribute_writer.h"
#include "ifc/model/model.h"
#include "ifc/model/project_units.h"
#include "ifc/model/property_queries.h"
#include "ifc/model/views.h"
#include "platform/text.h"

namespace cli {
namespace {

/// What stands behind a record's first argument, which is a string or "$".
std::string_view behindFirst(std::string_view arguments) {
    bool isInString = false;
    std::size_t at = 0;
    for (; at < arguments.size() && (isInString || arguments[at] != ','); ++at)
        isInString ^= arguments[at] == '\'';
    return arguments.substr(std::min(at + 1, arguments.size()));
}

/// The record of a property or quantity without its name and description.
std::u16string valuesAsStep(const IFC::IfcEntity& property) {
    FileStream::OutputTextStream out;
    IFC::AttributeWriter writer(out);
    property.writeAttributes(writer);
    out.movePointer(-1);  // the comma behind the last attribute
    return platform::fromUtf8(behindFirst(behindFirst(out.take())));
}

/// Goes over the properties inside of one: those of complex properties and quantities. Each is
/// visited once, so that a file whose properties contain each other comes to an end.
class PropertyWalk {
public:
    explicit PropertyWalk(IFC::IfcEntity* property) { visited_.insert(property); }

    std::vector<IFC::IfcEntity*> partsOf(const IFC::IfcEntity& property) {
        std::deque<IFC::IfcEntity*> references;
        property.collectReferences(references);
        std::vector<IFC::IfcEntity*> parts;
        for (IFC::IfcEntity* part : references)
            if (!part->isDeleted() && dynamic_cast<IFC::VIfcProperty*>(part) &&
                visited_.insert(part).second)
                parts.push_back(part);
        return parts;
    }

private:
    std::set<const IFC::IfcEntity*> visited_;
};

std::string numbered(const IFC::IfcEntity& entity) { return "#" + std::to_string(entity.id()); }

class TextPrinter {
public:
    TextPrinter(Screen& screen, const IFC::ProjectUnits& units) : screen_(screen), units_(units) {}

    void begin(const std::u16string&) {}
    void end() {}

    void beginObject(IFC::IfcEntity* object) {
        std::string line = numbered(*object) + " " + printable(object->typeName());
        for (const std::u16string_view text : {IFC::guidOf(object), IFC::nameOf(object)})
            if (!text.empty())
                line += " " + printable(text);
        screen_.print(line + "\n");
    }
    void endObject() {}

    void beginSet(IFC::IfcEntity* set) {
        screen_.print("  " + printable(IFC::nameOf(set)) + " (" + printable(set->typeName()) + " " +
                      numbered(*set) + ", " + printable(IFC::guidOf(set)) + ")\n");
    }
    void endSet() {}

    void property(IFC::IfcEntity* property) {
        PropertyWalk walk(property);
        print(property, walk, 4);
    }

private:
    void print(IFC::IfcEntity* property, PropertyWalk& walk, std::size_t indent) {
        const IFC::PropertyDisplay display = IFC::displayOf(property);
        std::string line = std::string(indent, ' ') + printable(display.name) + " = ";
        line += printable(display.single ? display.value : valuesAsStep(*property));
        if (!display.type.empty())
            line += " [" + printable(display.type) + "]";
        const IFC::CountingUnit unit = IFC::countingUnitOf(property, units_);
        if (unit.unit)
            line += " " + printable(IFC::unitLabelOf(unit.unit));
        if (unit.source == IFC::CountingUnit::Source::Project)
            line += texts::kUnitOfProject;
        screen_.print(line + "\n");
        if (!display.single)
            for (IFC::IfcEntity* part : walk.partsOf(*property))
                print(part, walk, indent + 2);
    }

    Screen& screen_;
    const IFC::ProjectUnits& units_;
};

class JsonPrinter {
public:
    JsonPrinter(Screen& screen, const IFC::ProjectUnits& units) : json_(screen), units_(units) {}

    void begin(const std::u16string& path) {
        json_.beginObject();
        json_.key("file").value(path);
        json_.key("objects").beginArray();
    }
    void end() {
        json_.endArray();
        json_.endObject();
    }

    void beginObject(IFC::IfcEntity* object) { beginRooted(object, "sets"); }
    void endObject() { endRooted(); }
    void beginSet(IFC::IfcEntity* set) { beginRooted(set, "properties"); }
    void endSet() { endRooted(); }

    void property(IFC::IfcEntity* property) {
        PropertyWalk walk(property);
        print(property, walk);
    }

private:
    void beginRooted(IFC::IfcEntity* entity, std::string_view contents) {
        json_.beginObject();
        json_.key("number").value(std::int64_t{entity->id()});
        json_.key("type").value(entity->typeName());
        json_.key("guid").value(IFC::guidOf(entity));
        json_.key("name").value(IFC::nameOf(entity));
        json_.key(contents).beginArray();
    }
    void endRooted() {
        json_.endArray();
        json_.endObject();
    }

    void textOrNull(std::string_view key, std::u16string_view text) {
        json_.key(key);
        if (!text.empty())
            json_.value(text);
        else
            json_.null();
    }

    /// In the type that JSON has for it. `text` is the value as it is shown elsewhere.
    void typedValue(const IFC::SimpleValue& value, std::u16string_view text) {
        if (value.integer && value.integer->present)
            json_.value(value.integer->value);
        else if (value.real && value.real->present)
            json_.value(value.real->value);
        else if (value.logical && value.logical->present &&
                 value.logical->index != IFC::Logical::kUnknown)
            json_.truth(value.logical->index == IFC::Logical::kTrue);
        else if (!text.empty() || (value.text && value.text->present))
            json_.value(text);
        else
            json_.null();
    }

    void unit(const IFC::CountingUnit& unit) {
        textOrNull("unit", IFC::unitLabelOf(unit.unit));
        if (unit.source != IFC::CountingUnit::Source::None)
            json_.key("unitSource")
                .value(unit.source == IFC::CountingUnit::Source::Property ? texts::kPropertySource
                                                                          : texts::kProjectSource);
    }

    void print(IFC::IfcEntity* property, PropertyWalk& walk) {
        const IFC::PropertyDisplay display = IFC::displayOf(property);
        json_.beginObject();
        json_.key("name").value(display.name);
        textOrNull("type", display.type);
        if (display.single) {
            json_.key("value");
            typedValue(IFC::simpleValueOf(property), display.value);
            unit(IFC::countingUnitOf(property, units_));
        } else {
            json_.key("step").value(valuesAsStep(*property));
            json_.key("parts").beginArray();
            for (IFC::IfcEntity* part : walk.partsOf(*property))
                print(part, walk);
            json_.endArray();
        }
        json_.endObject();
    }

    JsonWriter json_;
    const IFC::ProjectUnits& units_;
};

/// The objects that the user named, in that order, or all that have sets.
std::vector<IFC::IfcEntity*> chosenObjects(const Arguments& arguments, ModelFile& file,
                                           const ObjectSets& sets) {
    if (arguments.operands.size() == 1)
        return sets.objectsWithSets();
    std::vector<IFC::IfcEntity*> objects;
    for (std::size_t at = 1; at < arguments.operands.size(); ++at) {
        if (IFC::IfcEntity* object = sets.find(arguments.operands[at]))
            objects.push_back(object);
        else
            file.report(0, std::u16string(texts::kNoSuchObject) + arguments.operands[at]);
    }
    return objects;
}

/// @return whether all were printed.
template <class Printer>
bool printObjects(Screen& screen, ModelFile& file, const std::vector<IFC::IfcEntity*>& objects,
                  const ObjectSets& sets) {
    const IFC::ProjectUnits units(file.model());
    Printer printer(screen, units);
    printer.begin(file.path());
    for (IFC::IfcEntity* object : objects) {
        if (screen.interrupted())
            return false;
        printer.beginObject(object);
        for (IFC::IfcEntity* set : sets.setsOf(object)) {
            printer.beginSet(set);
            for (IFC::IfcEntity* member : IFC::membersOf(set))
                printer.property(member);
            printer.endSet();
        }
        printer.endObject();
    }
    printer.end();
    return true;
}

}  // namespace

ExitStatus showSets(Session& session) {
    const Arguments& arguments = session.arguments;
    ModelFile file(session, arguments.operands[0]);
    if (!file.read())
        return ExitStatus::NotDone;
    const ObjectSets sets(file.model());
    const std::vector<IFC::IfcEntity*> objects = chosenObjects(arguments, file, sets);
    if (objects.empty() && arguments.operands.size() > 1)
        return ExitStatus::NotDone;
    const auto print =
        arguments.has(options::kJson) ? printObjects<JsonPrinter> : printObjects<TextPrinter>;
    return print(session.screen, file, objects, sets) ? ExitStatus::Done : ExitStatus::NotDone;
}

}  // namespace cli
