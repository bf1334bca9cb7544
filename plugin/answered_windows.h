#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "edits/editing_windows.h"
#include "platform/message_box.h"
#include "plugin/host_calls.h"

/// Windows that the host answers in the user's place. Fields by window; those of an answer that are
/// left out stay as shown:
///
/// "property"   shown: mode (add-property, edit-property, add-set, rename-set), title, set, name,
///              value, quantity-type, prefix, unit
///              answer: set, name, value, value-type (of a new property), entity, quantity-type,
///              prefix, unit
/// "edit-many"  shown: object, the host's id in decimal, for each object
///              answer: policy (0 to 3), and for each edit in turn: edit (add-set, add-property,
///              edit-property, delete-property, rename-set, delete-set), then what it needs of set,
///              new-set, name, new-name, value, value-type, quantity-type, entity, prefix, unit
/// "message"    shown: caption, text, buttons (ok, ok-cancel, yes-no, yes-no-cancel)
///              answer: button (ok, cancel, yes, no)
///
/// value-type is text, real, truth or integer. An answer that is not understood is told to the user
/// and taken for a cancelled window.
///
/// While it lives, the messages of the whole process are "message" windows.
class AnsweredWindows : public IFC::EditingWindows {
public:
    /// host: borrowed.
    explicit AnsweredWindows(const HostCalls& host);
    ~AnsweredWindows() override;

    std::optional<IFC::PropertyWindowResult> askProperty(
        const IFC::PropertyWindowInput& input) override;
    void editMany(const std::vector<std::uint64_t>& objects,
                  const IFC::ApplyManyEdits& apply) override;

private:
    void refuse(const std::u16string& what) const;

    const HostCalls& host_;
    platform::MessageBoxHandler handlerBefore_;
};
