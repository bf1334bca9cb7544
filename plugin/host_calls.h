#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "plugin/host_abi.h"

struct HostApi;

/// What the host tells of an object; HostObjectInfo with its own texts.
struct ObjectInfo {
    HostObjectId id = 0;
    HostObjectId fileId = 0;
    HostObjectId parentId = 0;
    std::u16string guid;  ///< empty for what has none
    std::u16string name;
    std::u16string entityName;
    std::int32_t instanceNumber = 0;
};

/// A row of the property display; HostProperty with its own texts, where each field is explained.
struct DisplayedProperty {
    std::u16string setName;
    std::u16string setGuid;
    std::u16string setEntityName;
    std::u16string name;
    std::u16string initialName;
    std::u16string value;
    std::u16string entityName;
    std::u16string quantityType;
    std::u16string prefix;
    std::u16string unit;
    HostChangeId changeId = 0;
    std::int32_t kind = kHostSingleValue;
    std::int32_t valueType = kHostText;
    std::int32_t state = kHostUnchanged;
};

/// A change of the property display; HostPropertyRequest with its own texts.
struct DisplayRequest {
    std::int32_t action = kHostAddToSet;
    std::int32_t instanceNumber = 0;
    HostObjectId objectId = 0;
    std::u16string objectGuid;
    std::u16string setName;
    std::u16string setGuid;
    std::u16string newSetName;    ///< of a rename, else empty
    std::u16string propertyName;  ///< empty for a set
    HostChangeId previousChange = 0;
};

/// Keys and texts of a window that a host answers in the user's place.
using WindowFields = std::vector<std::pair<std::string, std::u16string>>;

/// The host's functions as the plug-in uses them: one method each, which does nothing and gives the
/// neutral result (0, empty, false) where the host lacks the function, and copies what it returns.
/// Counts and texts from the host are checked: a negative count is none, a null text is empty.
/// Ribbon and events are Plugin's alone; it goes to the table itself.
class HostCalls {
public:
    /// api: borrowed. Without a handle, that is before on_plugin_load, nothing is called.
    explicit HostCalls(const HostApi& api) : api_(&api) {}

    void setHandle(HostHandle handle) { handle_ = handle; }
    HostHandle handle() const { return handle_; }
    const HostApi& api() const { return *api_; }

    // Objects.
    HostObjectId selectedId() const;
    HostObjectId allObjectsId() const;
    std::int32_t allObjectsCount() const;
    std::vector<HostObjectId> allObjects() const;
    std::int32_t selectedCount() const;
    std::vector<HostObjectId> selected() const;
    std::vector<HostObjectId> children(HostObjectId parent) const;
    /// By get_object_info, else by get_object_info2.
    std::optional<ObjectInfo> objectInfo(HostObjectId object) const;
    /// By get_object_info2, else by get_object_info.
    std::optional<ObjectInfo> objectInfo2(HostObjectId object) const;
    std::vector<DisplayedProperty> properties(HostObjectId object) const;
    /// Empty when the host has none.
    std::u16string projectPath(HostObjectId file) const;
    std::u16string loadedIfcPath() const;
    std::int32_t loadedIfcFilesCount() const;
    /// guid: 22 ASCII characters; another text is no object's.
    HostObjectId objectByGuid(std::u16string_view guid) const;

    // Edits and the project file.
    HostChangeId changeProperty(const DisplayRequest& request,
                                std::span<const DisplayedProperty> properties) const;
    void registerUndoAction(const std::u16string& displayText) const;
    void needSaveProject(bool needed) const;
    void invalidate() const;
    bool beginReadEntry(const std::u16string& name) const;
    /// The bytes of the entry that was opened for reading; nothing when the host does not hand over
    /// as many as it said, or says more than is reasonable.
    std::optional<std::string> readEntry() const;
    bool beginWriteEntry(const std::u16string& name) const;
    void writeEntry(std::string_view bytes) const;

    // Texts and dialogs.
    std::u16string language() const;
    bool loadTexts(const std::u16string& fileName) const;
    /// Empty when the host knows no such key.
    std::u16string text(const char* key) const;
    /// flags: those of Win32 message boxes. @return the button pressed, 6 is yes.
    std::int32_t messageBox(const std::u16string& caption, const std::u16string& text,
                            std::uint32_t flags) const;
    /// filterCaption, extension: handed over as null when several files are saved.
    void setSaveDialogParams(const std::optional<std::u16string>& filterCaption,
                             const std::u16string& defaultName,
                             const std::optional<std::u16string>& extension) const;
    void setSaveDialogDefaultExtension(const std::u16string& extension) const;
    bool saveDialog(bool severalFiles) const;
    std::u16string saveDialogName() const;
    /// Whether the host both shows a progress window and keeps it up to date.
    bool hasProgressBar() const;
    void showProgressBar(bool show, const std::u16string& caption) const;
    void updateProgressBar(std::int32_t overallPercent, const std::u16string& overallLabel,
                           std::int32_t currentPercent, const std::u16string& currentLabel) const;

    /// Whether this host answers windows in the user's place.
    bool answersWindows() const;
    /// Empty when the window is cancelled.
    std::optional<WindowFields> answerWindow(const char* window, const WindowFields& shown) const;

private:
    const HostApi* api_;
    HostHandle handle_ = 0;
};
