// One property is asked for by the system's own kind of window. Many objects are edited in windows
// of Qt, where the build has it.

#include "gui/win32/native_property_dialog.h"
#include "platform/message_box.h"
#include "plugin/make_editing_windows.h"
#include "plugin/plugin_texts.h"
#ifdef QUILLET_HAS_QT
#include "gui/qt_windows.h"
#endif

namespace {

std::unique_ptr<IFC::EditingWindows> makeWindowsForMany(
    [[maybe_unused]] const HostCalls& host, [[maybe_unused]] const std::u16string& pluginFolder) {
#ifdef QUILLET_HAS_QT
    return std::make_unique<QtWindows>(host, pluginFolder);
#else
    return nullptr;
#endif
}

class OwnWindows : public IFC::EditingWindows {
public:
    OwnWindows(const HostCalls& host, const std::u16string& pluginFolder)
        : host_(host),
          pluginFolder_(pluginFolder),
          forMany_(makeWindowsForMany(host, pluginFolder)) {}

    std::optional<IFC::PropertyWindowResult> askProperty(
        const IFC::PropertyWindowInput& input) override {
        return askInNativePropertyDialog(
            input, [this](const char* key) { return host_.text(key); }, pluginFolder_);
    }

    void editMany(const std::vector<std::uint64_t>& objects,
                  const IFC::ApplyManyEdits& apply) override {
        if (forMany_)
            forMany_->editMany(objects, apply);
        else
            platform::showMessageBox(host_.text(texts::kWindowNotAvailableKey), texts::kCaption,
                                     platform::MessageButtons::Ok,
                                     platform::MessageIcon::Information);
    }

private:
    const HostCalls& host_;
    std::u16string pluginFolder_;
    std::unique_ptr<IFC::EditingWindows> forMany_;
};

}  // namespace

std::unique_ptr<IFC::EditingWindows> makeOwnWindows(const HostCalls& host,
                                                    const std::u16string& pluginFolder) {
    return std::make_unique<OwnWindows>(host, pluginFolder);
}
