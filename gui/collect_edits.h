#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "edits/editing_windows.h"
#include "gui/loaded_rows.h"
#include "gui/summary_window.h"

/// From the rows of the edit-many window to the changes that they stand for. Nothing is changed
/// here, and no widgets are needed.

/// What OK is about to do, and what the summary says of it.
struct CollectedEdits {
    std::vector<IFC::ManyEdit> edits;
    std::vector<SummaryRecord> changed;
    std::vector<SummaryRecord> added;
};

struct NewPropertyData {
    QString name;
    QString value;
    int unitIndex = -1;  ///< of a unit's label
};

struct NewSetData {
    QString name;
    std::vector<NewPropertyData> properties;
};

/// What is wrong with what was entered, and where.
struct ManyEditsProblem {
    std::u16string text = {};   ///< fixed, or
    const char* key = nullptr;  ///< of the language files
    QString where = {};
    ExistingSetGui* set = nullptr;
    ExistingPropertyGui* property = nullptr;
    const ExistingValueRowGui* row = nullptr;
    std::size_t newSet = 0;       // where the others are null
    std::size_t newProperty = 0;  // one beyond the last: the set's name
    bool isValue = false;         // of the new property; else its name
};

std::optional<ManyEditsProblem> problemOf(const LoadedRows& rows);
std::optional<ManyEditsProblem> problemOf(const std::vector<NewSetData>& newSets);

/// Values and units of checked rows, new names of properties, and last new names of sets.
void collectExisting(const LoadedRows& rows, CollectedEdits& collected);

/// The sets of a name as they are once the renames are done; null for none.
const SetCarriers* carriersAfterRenames(const LoadedRows& rows, const QString& setName);

/// One new set. objects: the selected ones. policy: IFC::AddingPolicy. excluded: objects that it is
/// not for. Sites get no sets.
/// @return whether there is an object that it changes.
bool collectNewSet(const NewSetData& set, const LoadedRows& rows,
                   const std::vector<std::uint64_t>& objects, std::int32_t policy,
                   const std::vector<const ObjectRecord*>& excluded, CollectedEdits& collected);

/// An order in which names (from, to) can be given one after another without two being the same in
/// between: places in `renames`. Those that change places with one another come last, in a ring.
struct RenameOrder {
    std::vector<std::size_t> order;
    std::optional<std::size_t> inRing;
};
RenameOrder renameOrder(const std::vector<std::pair<QString, QString>>& renames);
