#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "edits/command.h"
#include "edits/command_history.h"
#include "edits/edit_session.h"
#include "edits/editing_windows.h"
#include "plugin/host_abi.h"
#include "plugin/host_calls.h"
#include "plugin/settings.h"

/// What the user does with the selected objects: each flow checks the selection, asks in a window,
/// checks what was entered, and makes and records a command. What cannot be done is told in a
/// message box of the host and changes nothing.
class EditFlows {
public:
    /// All are borrowed. windows: null while there are none.
    EditFlows(IFC::EditSession& session, IFC::CommandHistory& history, IFC::EditingWindows* windows,
              const PluginOptions& options)
        : session_(session), history_(history), windows_(windows), options_(options) {}

    /// The host's property panel asks for a change at the selected object.
    void changeRequested(const HostChangeRequest& request);
    void addPropertySet();
    void editMany();

private:
    struct Request;
    struct Chosen;

    std::optional<Chosen> chosenObject(const ObjectInfo& object);
    std::optional<ObjectInfo> onlySelectedObject() const;

    void addProperty(const Chosen& chosen, const Request& request);
    void editProperty(const Chosen& chosen, const Request& request);
    void deleteProperty(const Chosen& chosen, const Request& request);
    void deleteSet(const Chosen& chosen, const Request& request);
    void renameSet(const Chosen& chosen, const Request& request);

    const DisplayedProperty* editableSet(const Chosen& chosen, const Request& request,
                                         const char* refusal) const;
    const DisplayedProperty* requestedProperty(const Chosen& chosen, const Request& request,
                                               const char* refusal) const;
    bool isNameFree(const Chosen& chosen, const std::u16string& setName) const;

    IFC::PropertyWindowInput windowInput(IFC::PropertyWindowMode mode, const Chosen& chosen) const;
    std::optional<IFC::PropertyWindowResult> ask(const IFC::PropertyWindowInput& input) const;
    bool isAcceptable(const IfcProperty& property) const;
    bool isAcceptable(IFC::ManyEdit& edit) const;
    void applyToMany(const std::vector<HostObjectId>& objects, const IFC::ManyEdits& edits,
                     const IFC::ObjectProgress& progress);
    void changeTo(const Chosen& chosen, const DisplayedProperty& row, IfcProperty entered);
    void run(std::unique_ptr<IFC::Command> command, const char* refusal);
    void changed();

    std::u16string text(const char* key) const { return session_.host.text(key); }
    void tell(const char* key) const;
    /// detail: what the text of the key is about; may be empty.
    void refuse(const char* key, const std::u16string& detail) const;

    IFC::EditSession& session_;
    IFC::CommandHistory& history_;
    IFC::EditingWindows* windows_;
    const PluginOptions& options_;
};
