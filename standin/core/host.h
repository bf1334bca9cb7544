#pragma once

#include <cstdint>
#include <exception>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "plugin/host_abi.h"
#include "standin/core/dialogs.h"
#include "standin/core/faults.h"
#include "standin/core/language_texts.h"
#include "standin/core/loaned_texts.h"
#include "standin/core/objects.h"
#include "standin/core/plugin_library.h"
#include "standin/core/project.h"
#include "standin/core/ribbon.h"
#include "standin/core/undo_list.h"

namespace standin {

/// What can be seen of the host.
enum class HostPart { Files, Selection, Display, Ribbon, UndoList, NeedsSave };

/// Is told when something of the host has changed: also in the middle of a call of the plug-in, so
/// that it has to note the fact and to look later. Only of files it is told at once when objects
/// come or are gone, and then must not speak to the plug-in.
class HostObserver {
public:
    HostObserver() = default;
    HostObserver(const HostObserver&) = delete;
    HostObserver& operator=(const HostObserver&) = delete;
    virtual ~HostObserver() = default;

    virtual void hostChanged(HostPart part) noexcept = 0;
};

/// The stand-in for the viewer: it loads the plug-in, opens models and projects, and does what the
/// user would do. One at a time in a process; the functions that the program exports reach it.
///
/// What fails returns false and leaves its reason, for people, in `error()`.
class Host {
public:
    struct Options {
        /// Where "main.cfg" is written and "plugins/quillet" is found.
        std::u16string programFolder;
        std::u16string language = u"en";
        bool usesGeometryCache = true;
    };

    explicit Host(Options options);
    /// Closes what is open and unloads the plug-in.
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    /// Null when there is none.
    static Host* current();

    // ---- the plug-in ----

    /// path: empty for plugins/quillet/quillet.so (.dll) in the program's folder.
    bool loadPlugin(std::u16string path = {});
    void unloadPlugin();
    bool isPluginLoaded() const { return plugin_ != nullptr; }
    const PluginInfo& pluginInfo() const { return pluginInfo_; }
    HostApiVersion pluginVersion() const { return pluginVersion_; }
    /// Whether the plug-in is at work, perhaps with a window of its own open: it must not be called
    /// again then, nor be unloaded.
    bool isInPlugin() const { return callsIntoPlugin_ > 0; }

    // ---- files ----

    /// Opens one project file, or IFC files together; takes the place of what was open, unless it
    /// cannot be read. What of it was left out is told in `error()` all the same.
    bool open(const std::vector<std::u16string>& paths);
    /// Without asking whether to save.
    void close();
    /// path: empty for the project's own.
    bool save(std::u16string path = {});
    bool needsSave() const { return needsSave_; }
    /// Opens again what is open, with the plug-in loaded anew in another language. What was not
    /// saved is lost, and the undo list; nothing happens when a file cannot be read any more.
    bool reopenInLanguage(const std::u16string& code);

    // ---- what the user does ----

    void select(std::vector<HostObjectId> objects);
    /// A request of the property panel, for the selected object.
    bool requestChange(HostChangeAction action, const std::u16string& setName,
                       const std::u16string& setGuid, const std::u16string& propertyName,
                       bool asQuantity = false);
    /// @return false when the item is not there, not enabled, or no button.
    bool click(HostButtonId item);
    bool click(std::u16string_view text);
    /// Has the plug-in fill the context menu. @return its items.
    const std::vector<HostButtonId>& openContextMenu();
    bool undo();
    bool redo();
    /// Clears the undo list.
    void forgetUndo();
    /// Counts for texts that are loaded from now on.
    void setLanguage(std::u16string code) { options_.language = std::move(code); }
    /// Writes "main.cfg".
    bool setGeometryCache(bool isUsed);
    /// Tells the plug-in of an event, by the name of the function that registers for it.
    void raise(std::string_view event);

    // ---- what can be seen ----

    /// Borrowed; null for none.
    void setObserver(HostObserver* observer) { observer_ = observer; }
    void tellObserver(HostPart part) {
        if (observer_)
            observer_->hostChanged(part);
    }
    const Objects& objects() const { return objects_; }
    const Project& project() const { return project_; }
    const UndoList& undoList() const { return undoList_; }
    Dialogs& dialogs() { return dialogs_; }
    Ribbon& ribbon() { return ribbon_; }
    Faults& faults() { return faults_; }
    /// Breaches of the interface's rules by the plug-in; English.
    const std::vector<std::string>& violations() const { return violations_; }
    void forgetViolations() { violations_.clear(); }
    int repaintCount() const { return repaintCount_; }
    /// How often the plug-in called a host function.
    int callCount(std::string_view function) const;
    const std::string& error() const { return error_; }

    // ---- for the exported functions ----

    /// Does a call of the plug-in: ends the loans, checks the handle, applies the fault.
    template <class Body>
    auto serve(HostHandle handle, const char* function, Body body) noexcept
        -> std::invoke_result_t<Body, Host&>;

    LoanedTexts& loans() { return loans_; }
    Objects& objects() { return objects_; }
    Project& project() { return project_; }
    void addUndo(std::u16string text);
    void violate(std::string_view function, std::string_view what);
    void hostFailed(std::string_view function, std::string_view why) noexcept;
    /// Records a violation for an unknown id. @return null then.
    Object* objectFor(const char* function, HostObjectId id);
    bool describe(const char* function, HostObjectId id, HostObjectInfo* info);
    std::int32_t properties(HostObjectId id, HostProperty* buffer, std::int32_t capacity);
    HostChangeId changeDisplay(const HostPropertyRequest* request, const HostProperty* records);
    void setNeedsSave(bool needed);
    void repaint();
    const std::u16string& language() const { return options_.language; }
    /// name: a path, or a name that is looked for beside the plug-in and the program.
    bool loadTexts(const std::u16string& name);
    const LanguageTexts& texts() const { return texts_; }
    HostButtonId clickedButton() const { return clickedButton_; }
    void registerEvent(std::string_view event, HostEventCallback callback);
    void registerMessage(HostMessageCallback callback) { messageCallback_ = callback; }

private:
    bool fail(std::string error);
    void begin(OpenedFiles& opened);
    /// Runs a call into the plug-in; the loans end before and after it.
    template <class Call>
    void enterPlugin(Call call);
    /// Null for rows of a set that has none.
    HostProperty lentRow(const DisplayedSet& set, const Row* row);
    bool readCall(HostHandle handle, const char* function);

    Options options_;
    HostObserver* observer_ = nullptr;
    int callsIntoPlugin_ = 0;
    std::u16string pluginPath_;  // of the plug-in that is loaded
    Objects objects_;
    Project project_;
    UndoList undoList_;
    Dialogs dialogs_;
    Ribbon ribbon_;
    Faults faults_;
    LanguageTexts texts_;
    LoanedTexts loans_;
    std::map<std::string, std::vector<HostEventCallback>, std::less<>> events_;
    HostMessageCallback messageCallback_ = nullptr;
    std::vector<std::string> violations_;
    std::map<std::string, int, std::less<>> calls_;
    std::string error_;
    HostHandle handle_ = 0;  // another one for every loading of a plug-in
    HostChangeId nextChange_ = (HostChangeId{3} << 32) + 1;
    HostButtonId clickedButton_ = 0;
    bool needsSave_ = false;
    int repaintCount_ = 0;
    PluginInfo pluginInfo_;
    HostApiVersion pluginVersion_{};
    std::unique_ptr<PluginLibrary> plugin_;
};

template <class Body>
auto Host::serve(HostHandle handle, const char* function, Body body) noexcept
    -> std::invoke_result_t<Body, Host&> {
    using Result = std::invoke_result_t<Body, Host&>;
    try {
        if (!readCall(handle, function))
            return Result();
        const std::optional<Fault> fault = faults_.of(function);
        if (fault && *fault != Fault::Wrong)
            return resultOfNothing<Result>(*fault);
        if constexpr (std::is_void_v<Result>) {
            body(*this);
        } else {
            const Result result = body(*this);
            return fault ? wrongResult(result) : result;
        }
    } catch (const std::exception& trouble) {
        hostFailed(function, trouble.what());
        return Result();
    }
}

}  // namespace standin
