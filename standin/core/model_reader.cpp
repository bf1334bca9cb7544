#include "standin/core/model_reader.h"

#include <algorithm>
#include <deque>
#include <initializer_list>
#include <unordered_map>

#include "ifc/io/parser.h"
#include "ifc/model/model.h"
#include "ifc/model/property_queries.h"
#include "ifc/model/views.h"
#include "platform/text.h"
#include "standin/core/standin_texts.h"

namespace standin {
namespace {

std::u16string widened(std::string_view ascii) { return {ascii.begin(), ascii.end()}; }

bool isOfClass(const IFC::Model& model, std::string_view key, IFC::IfcEntity* entity) {
    const IFC::ClassInfo* const info = model.findClass(key);
    return info && info->cast(entity) != nullptr;
}

/// The project is an object only in the older releases.
bool isObject(const IFC::Model& model, IFC::IfcEntity* entity) {
    return isOfClass(model, "IFCOBJECT", entity) || isOfClass(model, "IFCPROJECT", entity);
}

/// A kind of relation whose one side is part of the other.
struct PartRelation {
    std::string_view key;
    bool isWholeLast;  // among the attributes
};
constexpr PartRelation kPartRelations[] = {
    {"IFCRELDECOMPOSES", false},   {"IFCRELAGGREGATES", false},
    {"IFCRELNESTS", false},        {"IFCRELCONTAINEDINSPATIALSTRUCTURE", true},
    {"IFCRELVOIDSELEMENT", false}, {"IFCRELFILLSELEMENT", false}};

/// The instance number of each object's parent.
std::unordered_map<IFC::IfcEntity*, std::int32_t> parentNumbers(const IFC::Model& model) {
    std::unordered_map<IFC::IfcEntity*, std::int32_t> parents;
    for (IFC::IfcEntity* const relation : model.rooted()) {
        const auto kind =
            std::find_if(std::begin(kPartRelations), std::end(kPartRelations),
                         [&](const PartRelation& r) { return isOfClass(model, r.key, relation); });
        if (kind == std::end(kPartRelations))
            continue;
        std::deque<IFC::IfcEntity*> ends;
        relation->collectReferences(ends);
        std::erase_if(ends, [&](IFC::IfcEntity* entity) { return !isObject(model, entity); });
        if (ends.empty())
            continue;
        const std::int32_t whole = (kind->isWholeLast ? ends.back() : ends.front())->id();
        for (IFC::IfcEntity* const part : ends)
            if (part->id() != whole)
                parents.emplace(part, whole);
    }
    return parents;
}

/// The host shows truth values as "1" and "0", and names what a value is by its storage.
void takeValue(Row& row, const IFC::SimpleValue& value) {
    if (value.logical && value.logical->present && value.logical->index != IFC::Logical::kUnknown) {
        row.valueType = kHostTruth;
        row.value = value.logical->index == IFC::Logical::kTrue ? u"1" : u"0";
    } else if (value.real) {
        row.valueType = kHostReal;
    } else if (value.integer) {
        row.valueType = kHostInteger;
    }
}

/// Only units of the SI have the two names that the display shows.
void takeUnit(Row& row, IFC::IfcEntity* unit) {
    if (const auto* const si = dynamic_cast<IFC::VirtualIfcSIUnit*>(unit)) {
        row.prefix = widened(si->prefix());
        row.unit = widened(si->unitName());
    }
}

Row rowOf(IFC::IfcEntity* property) {
    const IFC::PropertyDisplay display = IFC::displayOf(property);
    Row row;
    row.name = row.initialName = display.name;
    row.entityName = display.type;
    row.value = display.value;
    if (const auto* const single = dynamic_cast<IFC::VIfcPropertySingleValue*>(property)) {
        row.kind = kHostSingleValue;
        if (auto* const value = dynamic_cast<IFC::IfcSimpleType*>(single->nominalValue()))
            takeValue(row, value->value());
        takeUnit(row, single->unit());
    } else if (auto* const quantity = dynamic_cast<IFC::VQuantityProperty*>(property)) {
        row.kind = kHostQuantity;
        row.quantityType = display.type;
        takeValue(row, quantity->quantityValue());
        takeUnit(row, quantity->quantityUnit());
    } else {
        row.kind = kHostOtherProperty;
    }
    return row;
}

DisplayedSet setOf(IFC::IfcEntity* set) {
    DisplayedSet displayed;
    displayed.name = displayed.initialName = IFC::nameOf(set);
    displayed.guid = IFC::guidOf(set);
    displayed.entityName = set->typeName();
    displayed.isFromFile = true;
    for (IFC::IfcEntity* const member : IFC::membersOf(set))
        displayed.rows.push_back(rowOf(member));
    return displayed;
}

/// "line 12 #65: text".
std::string reportOf(const IFC::ModelParser::Position& position, const char* key,
                     const char16_t* text) {
    std::string whole;
    if (position.line != 0)
        whole += std::string(texts::kLine) + std::to_string(position.line) + " ";
    if (position.instance != 0)
        whole += "#" + std::to_string(position.instance) + " ";
    if (!whole.empty())
        whole.back() = ':';
    whole += whole.empty() ? "" : " ";
    if (key && *key)
        whole += std::string(key) + " ";
    return whole + platform::toUtf8(text);
}

}  // namespace

std::optional<LoadedFile> readModel(const std::u16string& path, std::string& error) {
    LoadedFile file;
    file.path = path;
    std::optional<IFC::ModelParser> parser;
    parser.emplace([&](const char* key, const char16_t* text,
                       int) { file.reports.push_back(reportOf(parser->position(), key, text)); },
                   IFC::ModelParser::Options());
    if (!parser->load(path)) {
        error = platform::toUtf8(path) + ": " + std::string(texts::kNoModel);
        for (const std::string& report : file.reports)
            error += "\n  " + report;
        return std::nullopt;
    }
    const IFC::Model& model = *parser->model();
    const auto sets = IFC::setsByObject(model);
    const auto parents = parentNumbers(model);
    for (IFC::IfcEntity* const entity : model.rooted()) {
        if (!isObject(model, entity))
            continue;
        auto object = std::make_unique<Object>();
        object->guid = IFC::guidOf(entity);
        object->name = IFC::nameOf(entity);
        object->entityName = entity->typeName();
        object->instanceNumber = entity->id();
        if (const auto parent = parents.find(entity); parent != parents.end())
            object->parentId = static_cast<HostObjectId>(parent->second);
        if (const auto own = sets.find(entity); own != sets.end())
            for (IFC::IfcEntity* const set : own->second)
                object->display.sets.push_back(setOf(set));
        file.objects.push_back(std::move(object));
    }
    return file;
}

}  // namespace standin
