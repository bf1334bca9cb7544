#include "standin/desktop/shown_properties.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <utility>

#include "ifc/model/units.h"
#include "standin/desktop/desktop_texts.h"

namespace standin {
namespace {

/// Empty when a name is none of the SI.
std::optional<IFC::SIUnit> siUnitOf(const Row& row) {
    try {
        IFC::SIUnit unit;
        unit.name = IFC::GetIfcSIUnitNameFromWstring(row.unit);
        if (!row.prefix.empty())
            unit.prefix = IFC::GetIfcSIPrefixFromWstring(row.prefix);
        return unit;
    } catch (const std::runtime_error&) {
        return std::nullopt;
    }
}

std::u16string unitOf(const Row& row) {
    if (const auto unit = siUnitOf(row))
        if (const std::u16string_view label = IFC::siUnitLabel(*unit); !label.empty())
            return std::u16string(label);
    const bool hasBoth = !row.prefix.empty() && !row.unit.empty();
    return row.prefix + (hasBoth ? u" " : u"") + row.unit;
}

std::u16string valueOf(const Row& row) {
    if (row.valueType == kHostTruth && (row.value == u"1" || row.value == u"0"))
        return std::u16string(row.value == u"1" ? texts::kTrue : texts::kFalse);
    return row.value;
}

/// before: the property in the file; null when it is not there.
ShownProperty shownFrom(const Row& row, const Row* before) {
    ShownProperty shown{.name = row.name,
                        .value = valueOf(row),
                        .unit = unitOf(row),
                        .type = row.entityName,
                        .was = {}};
    switch (row.state) {
        case kHostAdded: shown.mark = Mark::Added; break;
        case kHostEdited: shown.mark = Mark::Changed; break;
        case kHostDeleted: shown.mark = Mark::Deleted; break;
        default: break;
    }
    if (shown.mark == Mark::Changed && before) {
        if (before->name != row.name)
            shown.was = before->name + u" = ";
        shown.was += valueOf(*before);
        if (const std::u16string unit = unitOf(*before); !unit.empty() && unit != shown.unit)
            shown.was += u" " + unit;
    }
    return shown;
}

ShownProperty deletedFrom(const Row& row) {
    ShownProperty shown = shownFrom(row, nullptr);
    shown.mark = Mark::Deleted;
    return shown;
}

/// Pairs what the file says with what there is now; each thing is in one pair at most.
template <class Element, class AreSame>
std::vector<std::pair<const Element*, const Element*>> pairs(const std::vector<Element>& before,
                                                             const std::vector<Element>& now,
                                                             AreSame areSame) {
    std::vector<std::pair<const Element*, const Element*>> found;
    std::vector<bool> isTaken(now.size());
    for (const Element& old : before) {
        const Element* same = nullptr;
        for (std::size_t at = 0; at < now.size() && !same; ++at) {
            if (!isTaken[at] && areSame(old, now[at])) {
                isTaken[at] = true;
                same = &now[at];
            }
        }
        found.emplace_back(&old, same);
    }
    for (std::size_t at = 0; at < now.size(); ++at)
        if (!isTaken[at])
            found.emplace_back(nullptr, &now[at]);
    return found;
}

bool isSameRow(const Row& before, const Row& now) {
    return now.state != kHostAdded && now.initialName == before.name;
}

bool isSameSet(const DisplayedSet& before, const DisplayedSet& now) {
    return now.isFromFile &&
           (before.guid.empty() ? now.initialName == before.name : now.guid == before.guid);
}

ShownSet deletedFrom(const DisplayedSet& set) {
    ShownSet shown{.mark = Mark::Deleted,
                   .name = set.name,
                   .guid = set.guid,
                   .type = set.entityName,
                   .was = {},
                   .properties = {}};
    for (const Row& row : set.rows)
        shown.properties.push_back(deletedFrom(row));
    return shown;
}

/// before: null for a set that the file does not have.
ShownSet shownFrom(const DisplayedSet& set, const DisplayedSet* before) {
    ShownSet shown{
        .name = set.name, .guid = set.guid, .type = set.entityName, .was = {}, .properties = {}};
    if (!set.isFromFile) {
        shown.mark = Mark::Added;
    } else if (set.name != set.initialName) {
        shown.mark = Mark::Changed;
        shown.was = set.initialName;
    }
    static const std::vector<Row> kNone;
    for (const auto& [old, now] : pairs(before ? before->rows : kNone, set.rows, isSameRow))
        shown.properties.push_back(now ? shownFrom(*now, old) : deletedFrom(*old));
    return shown;
}

}  // namespace

std::vector<ShownSet> shownSets(const Display& display) {
    std::vector<ShownSet> shown;
    for (const auto& [old, now] : pairs(display.setsAsRead(), display.sets, isSameSet))
        shown.push_back(now ? shownFrom(*now, old) : deletedFrom(*old));
    return shown;
}

}  // namespace standin
