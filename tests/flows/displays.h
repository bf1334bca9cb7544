#pragma once

#include <compare>
#include <map>
#include <string>
#include <vector>

#include "standin/core/objects.h"

/// What the user sees of a property, as far as an edit can change it.
struct SeenProperty {
    std::u16string value = {};
    std::u16string quantityType = {};
    std::u16string prefix = {};
    std::u16string unit = {};

    auto operator<=>(const SeenProperty&) const = default;
};

struct SeenSet {
    std::u16string name;
    std::map<std::u16string, SeenProperty> properties;  ///< by name

    auto operator<=>(const SeenSet&) const = default;
};

/// The editable sets of an object, by GUID.
using SeenSets = std::map<std::u16string, SeenSet>;

/// By the GUID of the object.
using SeenObjects = std::map<std::u16string, SeenSets>;

SeenSets seenSetsOf(const standin::Object& object);

/// Whether a test may edit the object: it stands in the file and is no type.
bool isEditable(const standin::Object& object);

/// The sets without their GUIDs, and without those that have no properties: an export leaves these
/// out, and gives a set that was shared a GUID of its own.
std::map<std::u16string, std::vector<SeenSet>> withoutGuids(const SeenObjects& objects);

/// The first object that differs, both sides; empty when there is none.
std::string difference(const SeenObjects& expected, const SeenObjects& found);
