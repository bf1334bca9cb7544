#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "plugin/host_abi.h"

namespace standin {

/// What the host counts of a row or set: the changes that it told the plug-in of, the last at the
/// end.
using Changes = std::vector<HostChangeId>;

/// A row of the property display; HostProperty with its own texts, where each field is explained.
struct Row {
    std::u16string name;
    std::u16string initialName;
    std::u16string value;
    std::u16string entityName;
    std::u16string quantityType;
    std::u16string prefix;
    std::u16string unit;
    std::int32_t kind = kHostSingleValue;
    std::int32_t valueType = kHostText;
    std::int32_t state = kHostUnchanged;
    Changes changes;
};

/// A set of the property display. Rows that were taken off are kept aside with their place, for an
/// undo.
struct DisplayedSet {
    struct RemovedRow {
        std::size_t position = 0;
        Row row;
    };

    std::u16string name;
    std::u16string initialName;
    std::u16string guid;
    std::u16string entityName;
    bool isFromFile = false;
    std::vector<Row> rows;
    std::vector<RemovedRow> removedRows;
    Changes changes;
};

/// The property display of one object: what the user sees, pending edits included.
class Display {
public:
    std::vector<DisplayedSet> sets;

    /// Carries out a request of the plug-in as change `change`. `violations`: what the request
    /// breaks of the protocol is appended; in English.
    /// @return whether the set and the property were there, and the change was made.
    bool apply(const HostPropertyRequest& request, const HostProperty* records, HostChangeId change,
               std::vector<std::string>& violations);

    /// Whether a change was made since the object was read from its file.
    bool isChanged() const { return isChanged_; }
    /// Takes a display that was kept for the object instead of what the file says.
    void takeKept(std::vector<DisplayedSet> kept);
    /// What the file says.
    const std::vector<DisplayedSet>& setsAsRead() const { return asRead_ ? *asRead_ : sets; }

    /// By GUID, or by name when that is empty; null when there is none.
    const DisplayedSet* findSet(std::u16string_view guid, std::u16string_view name) const;

private:
    struct RemovedSet {
        std::size_t position = 0;
        DisplayedSet set;
    };
    class Application;

    void keepAsRead();

    std::vector<RemovedSet> removedSets_;
    std::optional<std::vector<DisplayedSet>> asRead_;  // from the first change on
    bool isChanged_ = false;
};

}  // namespace standin
