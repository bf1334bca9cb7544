#pragma once

#include <QHash>
#include <QString>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "gui/existing_set_gui.h"
#include "gui/object_record.h"
#include "plugin/host_calls.h"

/// What the host shows of the selected objects, as rows without widgets. Sets, properties and
/// values are in the order in which they were first met.
class LoadedRows {
public:
    explicit LoadedRows(const HostCalls& host) : host_(host) { objectInfo.max_load_factor(1.0F); }
    LoadedRows(const LoadedRows&) = delete;
    LoadedRows& operator=(const LoadedRows&) = delete;

    /// @return false for an object that is none or has been loaded already.
    bool load(std::uint64_t object);
    /// Lets go of what only loading needs.
    void finish();

    /// Null for a name that no object has a set of.
    const SetCarriers* carriersOf(const QString& setName) const;
    ExistingSetGui* findSet(const QString& initialName) const;
    /// Some object has no instance number.
    bool lacksIfcNumber() const { return lacksIfcNumber_; }

    std::unordered_map<std::uint64_t, ObjectRecord> objectInfo{8};
    std::vector<std::unique_ptr<ExistingSetGui>> sets;

private:
    struct TextHash {
        using is_transparent = void;
        std::size_t operator()(std::u16string_view text) const {
            return std::hash<std::u16string_view>()(text);
        }
    };
    struct Unit {
        int index = -1;
        QString text;
    };

    /// One copy of equal texts.
    const QString& shared(const std::u16string& text);
    const Unit& unitOf(const DisplayedProperty& row);
    void addRow(const ObjectRecord& object, const DisplayedProperty& row);
    SetCarriers& noteCarrier(const ObjectRecord& object, const DisplayedProperty& row,
                             bool isEditableSet);

    const HostCalls& host_;
    bool lacksIfcNumber_ = false;
    std::unordered_map<QString, SetCarriers> carriers_;
    std::unordered_map<QString, ExistingSetGui*> setsByName_;
    std::unordered_map<std::u16string, QString, TextHash, std::equal_to<>> texts_;
    std::unordered_map<std::u16string, Unit, TextHash, std::equal_to<>> units_;
};
