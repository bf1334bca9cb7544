#include "standin/core/display.h"

#include <algorithm>
#include <span>

#include "platform/text.h"

namespace standin {
namespace {

std::u16string textOf(const char16_t* text) { return text ? text : std::u16string(); }

Row rowFrom(const HostProperty& record) {
    return {.name = textOf(record.name),
            .initialName = textOf(record.initialName),
            .value = textOf(record.value),
            .entityName = textOf(record.entityName),
            .quantityType = textOf(record.quantityType),
            .prefix = textOf(record.prefix),
            .unit = textOf(record.unit),
            .kind = record.kind,
            .valueType = record.valueType,
            .state = record.state,
            .changes = {}};
}

/// By GUID where one is given: sets may share a name.
template <class Sets, class SetOf>
auto findIn(Sets& sets, std::u16string_view guid, std::u16string_view name, SetOf setOf) {
    return std::find_if(sets.begin(), sets.end(), [&](const auto& element) {
        const DisplayedSet& set = setOf(element);
        return guid.empty() ? set.name == name : set.guid == guid;
    });
}

const DisplayedSet& itself(const DisplayedSet& set) { return set; }

/// Back to where it stood, as far as that place is still there.
template <class Element>
Element& insertAt(std::vector<Element>& elements, std::size_t position, Element element) {
    const auto place =
        elements.begin() + static_cast<std::ptrdiff_t>(std::min(position, elements.size()));
    return *elements.insert(place, std::move(element));
}

}  // namespace

/// One request on its way through the display.
class Display::Application {
public:
    Application(Display& display, const HostPropertyRequest& request,
                std::span<const HostProperty> records, HostChangeId change,
                std::vector<std::string>& violations)
        : display_(display),
          request_(request),
          records_(records),
          change_(change),
          violations_(violations),
          setName_(textOf(request.setName)),
          setGuid_(textOf(request.setGuid)) {}

    bool run() {
        const bool isSetMeant =
            records_.empty() || (records_.size() == 1 && records_[0].kind == kHostEmptySet);
        if (request_.action == kHostPutSet)
            return putSet(isSetMeant);
        DisplayedSet* const set = findSet();
        if (!set)
            return false;
        if (isSetMeant && request_.propertyName)
            violate("names a property, but hands over no record of it");
        if (!isSetMeant && records_.size() > 1)
            violate("hands over several properties where one is meant");
        switch (request_.action) {
            case kHostAddToSet:
            case kHostPutProperty: return !isSetMeant && putProperty(*set);
            case kHostRemove: return isSetMeant ? removeSet(*set) : removeProperty(*set);
            case kHostChange: return isSetMeant ? renameSet(*set) : changeProperty(*set);
            default: violate("has an action that there is not"); return false;
        }
    }

private:
    void violate(const std::string& what) {
        violations_.push_back("the request for set \"" + platform::toUtf8(setName_) + "\" " + what);
    }

    DisplayedSet* findSet() {
        const auto found = findIn(display_.sets, setGuid_, setName_, itself);
        return found == display_.sets.end() ? nullptr : &*found;
    }

    /// To be called once with the item that the request is about, before it is changed.
    void noteChange(Changes& changes) {
        const HostChangeId previous = request_.previousChange;
        const bool isObjectNumber = request_.instanceNumber > 0 &&
                                    previous == static_cast<HostChangeId>(request_.instanceNumber);
        if (previous != 0 && !isObjectNumber &&
            std::find(changes.begin(), changes.end(), previous) == changes.end())
            violate("names the previous change " + std::to_string(previous) +
                    ", which was never returned for this item");
        changes.push_back(change_);
    }

    std::vector<Row> rowsFromRecords() {
        std::vector<Row> rows;
        for (const HostProperty& record : records_) {
            rows.push_back(rowFrom(record));
            rows.back().changes.push_back(change_);
        }
        return rows;
    }

    bool putSet(bool withoutRows) {
        if (findSet()) {
            violate("puts a set that is displayed already");
            return false;
        }
        const auto removed =
            findIn(display_.removedSets_, setGuid_, setName_,
                   [](const RemovedSet& element) -> const DisplayedSet& { return element.set; });
        if (removed != display_.removedSets_.end()) {
            RemovedSet back = std::move(*removed);
            display_.removedSets_.erase(removed);
            noteChange(back.set.changes);
            back.set.name = setName_;
            if (withoutRows) {
                for (Row& row : back.set.rows)
                    row.changes.push_back(change_);
            } else {
                takeRows(back.set);
            }
            insertAt(display_.sets, back.position, std::move(back.set));
            return true;
        }
        if (setName_.empty()) {
            violate("puts a set without a name");
            return false;
        }
        DisplayedSet set;
        set.name = set.initialName = setName_;
        set.guid = setGuid_;
        set.entityName = records_.empty() ? std::u16string() : textOf(records_[0].setEntityName);
        if (set.entityName.empty())
            set.entityName = u"IfcPropertySet";
        noteChange(set.changes);
        if (!withoutRows)
            set.rows = rowsFromRecords();
        display_.sets.push_back(std::move(set));
        return true;
    }

    /// The rows handed over, each with what is known of its changes.
    void takeRows(DisplayedSet& set) {
        std::vector<Row> rows = rowsFromRecords();
        for (Row& row : rows) {
            const auto before = std::find_if(set.rows.begin(), set.rows.end(),
                                             [&](const Row& old) { return old.name == row.name; });
            if (before != set.rows.end())
                row.changes.insert(row.changes.begin(), before->changes.begin(),
                                   before->changes.end());
        }
        set.rows = std::move(rows);
    }

    bool putProperty(DisplayedSet& set) {
        Row row = rowFrom(records_[0]);
        if (row.name.empty()) {
            violate("adds a property without a name");
            return false;
        }
        if (request_.action == kHostAddToSet && !set.isFromFile)
            violate("adds with action 0 to a set that the file does not have");
        if (Row* const shown = findRow(set, row.name)) {
            noteChange(shown->changes);
            row.changes = std::move(shown->changes);
            *shown = std::move(row);
            return true;
        }
        const auto removed = std::find_if(
            set.removedRows.rbegin(), set.removedRows.rend(),
            [&](const DisplayedSet::RemovedRow& element) { return element.row.name == row.name; });
        std::size_t position = set.rows.size();
        if (removed != set.removedRows.rend()) {
            position = removed->position;
            row.changes = std::move(removed->row.changes);
            set.removedRows.erase(std::next(removed).base());
        }
        noteChange(row.changes);
        insertAt(set.rows, position, std::move(row));
        return true;
    }

    static Row* findRow(DisplayedSet& set, std::u16string_view name) {
        const auto found = std::find_if(set.rows.begin(), set.rows.end(),
                                        [&](const Row& row) { return row.name == name; });
        return found == set.rows.end() || name.empty() ? nullptr : &*found;
    }

    /// The row that the request names, else the one of the record's present or initial name.
    Row* requestedRow(DisplayedSet& set) {
        if (Row* const row = findRow(set, textOf(request_.propertyName)))
            return row;
        if (Row* const row = findRow(set, textOf(records_[0].name)))
            return row;
        const std::u16string initialName = textOf(records_[0].initialName);
        const auto found = std::find_if(set.rows.begin(), set.rows.end(), [&](const Row& row) {
            return row.name == initialName || row.initialName == initialName;
        });
        return found == set.rows.end() || initialName.empty() ? nullptr : &*found;
    }

    bool removeProperty(DisplayedSet& set) {
        Row* const row = requestedRow(set);
        if (!row)
            return false;
        noteChange(row->changes);
        const std::ptrdiff_t position = row - set.rows.data();
        set.removedRows.push_back({static_cast<std::size_t>(position), std::move(*row)});
        set.rows.erase(set.rows.begin() + position);
        return true;
    }

    bool removeSet(DisplayedSet& set) {
        noteChange(set.changes);
        const std::ptrdiff_t position = &set - display_.sets.data();
        display_.removedSets_.push_back({static_cast<std::size_t>(position), std::move(set)});
        display_.sets.erase(display_.sets.begin() + position);
        return true;
    }

    bool renameSet(DisplayedSet& set) {
        const std::u16string name = textOf(request_.newSetName);
        if (name.empty()) {
            violate("renames a set, but gives no name");
            return false;
        }
        noteChange(set.changes);
        set.name = name;
        return true;
    }

    bool changeProperty(DisplayedSet& set) {
        Row* const row = requestedRow(set);
        if (!row)
            return false;
        Row changed = rowFrom(records_[0]);
        if (changed.name.empty())
            changed.name = row->name;
        if (changed.name != row->name && findRow(set, changed.name)) {
            violate("gives a property the name of another");
            return false;
        }
        noteChange(row->changes);
        changed.initialName = std::move(row->initialName);
        changed.changes = std::move(row->changes);
        *row = std::move(changed);
        return true;
    }

    Display& display_;
    const HostPropertyRequest& request_;
    std::span<const HostProperty> records_;
    HostChangeId change_;
    std::vector<std::string>& violations_;
    std::u16string setName_;
    std::u16string setGuid_;
};

bool Display::apply(const HostPropertyRequest& request, const HostProperty* records,
                    HostChangeId change, std::vector<std::string>& violations) {
    if (request.propertyCount < 0 || (request.propertyCount > 0 && !records)) {
        violations.emplace_back("a request counts records that it does not hand over");
        return false;
    }
    const std::span<const HostProperty> handedOver(records,
                                                   static_cast<std::size_t>(request.propertyCount));
    keepAsRead();
    if (!Application(*this, request, handedOver, change, violations).run())
        return false;
    isChanged_ = true;
    return true;
}

void Display::takeKept(std::vector<DisplayedSet> kept) {
    keepAsRead();
    sets = std::move(kept);
    isChanged_ = true;
}

void Display::keepAsRead() {
    if (!asRead_)
        asRead_ = sets;
}

const DisplayedSet* Display::findSet(std::u16string_view guid, std::u16string_view name) const {
    const auto found = findIn(sets, guid, name, itself);
    return found == sets.end() ? nullptr : &*found;
}

}  // namespace standin
