#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "edits/edit_session.h"
#include "edits/pending_edits.h"
#include "ifc/model/property_set_record.h"
#include "plugin/host_calls.h"

namespace IFC {

/// One change of the user's that can be taken back. It is made before the change, whose first time
/// is its first redo(); when that returns true the history (command_history.h) takes it over.
class Command {
public:
    /// session: borrowed. Takes the snapshot to which undo() goes back.
    Command(EditSession& session, std::u16string fileName);
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    // Slot order is fixed.
    virtual ~Command() = default;
    /// Brings the store back to the snapshot, whatever happened in between. Those derived call this
    /// first and then bring the host's display back.
    virtual void undo();
    /// Applies the change, also again. @return whether it was applied.
    virtual bool redo() = 0;

    /// What the host's undo list shows.
    virtual std::u16string displayText() const = 0;

    /// For a command whose group goes back for it.
    void dropSnapshot() { snapshot_.reset(); }

protected:
    EditSession& session() const { return session_; }
    const std::u16string& fileName() const { return fileName_; }

private:
    EditSession& session_;
    std::u16string fileName_;
    std::optional<PendingEdits> snapshot_;
};

/// A change of one object.
class ObjectCommand : public Command {
protected:
    ObjectCommand(EditSession& session, EditTarget target);

    /// A request about the set named `setName`, with the change id that the host returned last.
    DisplayRequest requestOf(std::int32_t action, std::u16string setName) const;
    /// Hands the request to the host and keeps its answer.
    void send(const DisplayRequest& request, std::span<const DisplayedProperty> rows = {});
    /// The same about a property: `name` is the displayed one.
    void sendProperty(std::int32_t action, std::u16string name, const DisplayedProperty& row);

    const EditTarget target_;
    HostChangeId changeId_ = 0;  // what the host returned last, 0 before
};

class AddPropertyCommand : public ObjectCommand {
public:
    /// operation: shared by the commands of one run, so that the user is asked once; null for a run
    /// of its own.
    AddPropertyCommand(EditSession& session, EditTarget target, IfcProperty property,
                       std::shared_ptr<AddPropertyOperation> operation = nullptr);
    void undo() override;
    bool redo() override;
    std::u16string displayText() const override;

private:
    const IfcProperty property_;
    std::shared_ptr<AddPropertyOperation> operation_;
    std::optional<IfcProperty> replaced_;  // the pending property that had the name
};

/// The action that shows an added property, by the state in which the set's record came back; empty
/// for a state of which the host is not told.
std::optional<std::int32_t> actionForAddedProperty(std::int32_t setState);

/// `after` with what it leaves empty from `before`.
IfcProperty filledFrom(const IfcProperty& before, IfcProperty after);

class EditPropertyCommand : public ObjectCommand {
public:
    /// before: as it is displayed. after: a rename has the present name as initial name; what is
    /// empty stays as it is.
    EditPropertyCommand(EditSession& session, EditTarget target, IfcProperty before,
                        IfcProperty after);
    void undo() override;
    /// False when the host did not take the change; the store is then as before.
    bool redo() override;
    std::u16string displayText() const override;

private:
    const IfcProperty before_;
    const IfcProperty after_;
    IfcProperty held_;  // the record after the edit
};

class DeletePropertyCommand : public ObjectCommand {
public:
    /// property: as it is displayed.
    DeletePropertyCommand(EditSession& session, EditTarget target, IfcProperty property);
    void undo() override;
    bool redo() override;
    std::u16string displayText() const override;

private:
    const IfcProperty property_;
};

class AddPropertySetCommand : public ObjectCommand {
public:
    /// The set is copied; name and GUID of `target` are those of the set.
    AddPropertySetCommand(EditSession& session, EditTarget target, const IfcPropertySet& set);
    void undo() override;
    bool redo() override;
    std::u16string displayText() const override;

private:
    const IfcPropertySet set_;
};

class EditPropertySetCommand : public ObjectCommand {
public:
    /// Gives the set another name than that in `target`.
    EditPropertySetCommand(EditSession& session, EditTarget target, std::u16string newName);
    void undo() override;
    bool redo() override;
    std::u16string displayText() const override;

private:
    void sendName(std::u16string displayed, const std::u16string& wanted);

    const std::u16string newName_;
};

class DeletePropertySetCommand : public ObjectCommand {
public:
    DeletePropertySetCommand(EditSession& session, EditTarget target);
    void undo() override;
    bool redo() override;
    std::u16string displayText() const override;
};

/// Several commands that are undone and redone as one.
class CommandGroup : public Command {
public:
    CommandGroup(EditSession& session, std::u16string displayText);

    /// Runs the command's first redo and, when that succeeds, keeps the command. @return whether it
    /// did.
    bool run(std::unique_ptr<Command> command);
    bool empty() const { return commands_.empty(); }

    /// In reverse order.
    void undo() override;
    /// @return whether any was applied.
    bool redo() override;
    std::u16string displayText() const override { return displayText_; }

private:
    std::vector<std::unique_ptr<Command>> commands_;
    std::u16string displayText_;
};

}  // namespace IFC
