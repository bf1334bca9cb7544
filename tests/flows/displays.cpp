#include "tests/flows/displays.h"

#include <algorithm>

#include "platform/text.h"

namespace {

std::string described(const SeenSet& set) {
    std::string text = "  " + platform::toUtf8(set.name) + "\n";
    for (const auto& [name, property] : set.properties)
        text += "    " + platform::toUtf8(name) + " = " + platform::toUtf8(property.value) + " [" +
                platform::toUtf8(property.quantityType) + " " + platform::toUtf8(property.prefix) +
                " " + platform::toUtf8(property.unit) + "]\n";
    return text;
}

std::string described(const SeenObjects& objects) {
    std::string text;
    for (const auto& [guid, sets] : objects) {
        text += platform::toUtf8(guid) + "\n";
        for (const auto& [setGuid, set] : sets)
            text += "  " + platform::toUtf8(setGuid) + described(set);
    }
    return text;
}

}  // namespace

SeenSets seenSetsOf(const standin::Object& object) {
    SeenSets sets;
    for (const standin::DisplayedSet& set : object.display.sets) {
        if (set.entityName != u"IfcPropertySet" && set.entityName != u"IfcElementQuantity")
            continue;
        SeenSet& seen = sets[set.guid];
        seen.name = set.name;
        for (const standin::Row& row : set.rows)
            if (row.kind == kHostSingleValue || row.kind == kHostQuantity)
                seen.properties[row.name] = {row.value, row.quantityType, row.prefix, row.unit};
    }
    return sets;
}

bool isEditable(const standin::Object& object) {
    return object.instanceNumber > 0 && !object.guid.empty() &&
           !object.entityName.starts_with(u"IfcType") && !object.entityName.ends_with(u"Type") &&
           !object.entityName.ends_with(u"Style");
}

std::map<std::u16string, std::vector<SeenSet>> withoutGuids(const SeenObjects& objects) {
    std::map<std::u16string, std::vector<SeenSet>> result;
    for (const auto& [guid, sets] : objects) {
        std::vector<SeenSet>& kept = result[guid];
        for (const auto& [setGuid, set] : sets)
            if (!set.properties.empty())
                kept.push_back(set);
        std::sort(kept.begin(), kept.end());
    }
    return result;
}

std::string difference(const SeenObjects& expected, const SeenObjects& found) {
    for (const auto& [guid, sets] : expected) {
        const auto other = found.find(guid);
        if (other == found.end())
            return "missing " + platform::toUtf8(guid);
        if (other->second != sets)
            return "expected " + described({{guid, sets}}) + "found " +
                   described({{guid, other->second}});
    }
    return expected.size() == found.size() ? std::string() : "there are more objects";
}
