#include "tests/flows/log_view.h"

#include <gtest/gtest.h>
#include <tinyxml2.h>

#include <algorithm>
#include <string_view>

#include "platform/text.h"

namespace {

std::u16string attribute(const tinyxml2::XMLElement& element, const char* name) {
    const char* text = element.Attribute(name);
    return platform::fromUtf8(text ? text : "");
}

std::u16string child(const tinyxml2::XMLElement& element, const char* name) {
    const tinyxml2::XMLElement* found = element.FirstChildElement(name);
    const char* text = found ? found->GetText() : nullptr;
    return platform::fromUtf8(text ? text : "");
}

/// Lays one logged property over the set.
void applyProperty(const tinyxml2::XMLElement& property, SeenSet& set) {
    const std::u16string initialName = child(property, "InitialName");
    const std::u16string name = child(property, "Name");
    const std::string_view state = property.Attribute("State");
    if (state == "0")
        return;
    if (state == "3") {
        set.properties.erase(initialName);
        return;
    }
    SeenProperty seen{child(property, "Value"), child(property, "QuantityType"),
                      child(property, "Prefix"), child(property, "Unit")};
    if (state == "2") {
        // What an edit leaves empty stays as it is in the file.
        const auto before = set.properties.find(initialName);
        if (before != set.properties.end()) {
            if (seen.value.empty())
                seen.value = before->second.value;
            if (seen.quantityType.empty())
                seen.quantityType = before->second.quantityType;
            if (seen.unit.empty()) {
                seen.unit = before->second.unit;
                seen.prefix = before->second.prefix;
            }
            set.properties.erase(before);
        }
    }
    set.properties[name] = seen;
}

void applySet(const tinyxml2::XMLElement& element, SeenObjects& objects) {
    SeenSets& sets = objects[attribute(element, "ObjectGUID")];
    const std::string_view type = element.Attribute("Type");
    const std::u16string guid = attribute(element, "GUID");
    if (type == "Deleted") {
        sets.erase(guid);
        return;
    }
    SeenSet& set = sets[guid];
    set.name = attribute(element, "Name");
    // Renames may swap names: what is taken away goes first.
    std::vector<const tinyxml2::XMLElement*> properties;
    for (const auto* each = element.FirstChildElement("IfcProperty"); each;
         each = each->NextSiblingElement("IfcProperty"))
        properties.push_back(each);
    SeenSet edited = set;
    for (const auto* each : properties)
        if (std::string_view(each->Attribute("State")) != "1")
            edited.properties.erase(child(*each, "InitialName"));
    for (const auto* each : properties) {
        SeenSet one{.name = {}, .properties = {}};
        const auto before = set.properties.find(child(*each, "InitialName"));
        if (before != set.properties.end())
            one.properties.insert(*before);
        applyProperty(*each, one);
        for (const auto& property : one.properties)
            edited.properties.insert_or_assign(property.first, property.second);
    }
    set.properties = edited.properties;
}

}  // namespace

SeenObjects withLog(SeenObjects model, const std::string& log) {
    tinyxml2::XMLDocument document;
    EXPECT_EQ(document.Parse(log.data(), log.size()), tinyxml2::XML_SUCCESS);
    for (const auto* file = document.FirstChildElement("File"); file;
         file = file->NextSiblingElement("File"))
        for (const auto* set = file->FirstChildElement("IfcPropertySet"); set;
             set = set->NextSiblingElement("IfcPropertySet"))
            applySet(*set, model);
    return model;
}
