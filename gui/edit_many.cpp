#include "gui/edit_many.h"

#include <QApplication>
#include <QEventLoop>
#include <QIcon>
#include <QTimer>
#include <exception>
#include <memory>
#include <utility>

#include "gui/application_scope.h"
#include "gui/edit_many_gui.h"
#include "gui/edit_many_state.h"
#include "gui/edit_many_texts.h"
#include "gui/loading_dialog.h"
#include "gui/qt_text.h"
#include "ifc/io/log_file.h"
#include "platform/host_loop.h"
#include "platform/message_box.h"
#include "platform/text.h"

namespace {

constexpr int kLoadDelayMs = 200;
constexpr int kCloseLoadingDelayMs = 1000;
/// Names the file beside which the log of the window is written.
constexpr const char* kLogVariable = "QUILLET_WINDOW_LOG";

/// The window-open flag, for as long as a run takes, however it ends.
class OpenFlag {
public:
    OpenFlag() { editManyState().isWindowOpen = true; }
    ~OpenFlag() { editManyState().isWindowOpen = false; }
    OpenFlag(const OpenFlag&) = delete;
    OpenFlag& operator=(const OpenFlag&) = delete;
};

/// What the rows share, and what must not outlive the application object.
class SharedWidgets {
public:
    SharedWidgets(const HostCalls& host, const std::u16string& pluginFolder) {
        EditManyState& state = editManyState();
        const auto icon = [&](std::u16string_view file) {
            return QIcon(toQString(pluginFolder + std::u16string(file)));
        };
        state.loadingDialog =
            std::make_unique<LoadingDialog>(toQString(host.text(texts::many::kLoadingKey)));
        state.plusIcon = icon(texts::many::kPlusIcon);
        state.minusIcon = icon(texts::many::kMinusIcon);
        state.createdGuiCount = 0;
        state.scrollRatio = 0;
    }
    ~SharedWidgets() {
        EditManyState& state = editManyState();
        state.loadingDialog.reset();
        state.plusIcon = state.minusIcon = QIcon();
        // Rows that were removed from the window are deleted by the event loop, which has ended.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    SharedWidgets(const SharedWidgets&) = delete;
    SharedWidgets& operator=(const SharedWidgets&) = delete;
};

/// The window's log, for those who look for a fault in it.
class WindowLog {
public:
    WindowLog() {
        const QString path = qEnvironmentVariable(kLogVariable);
        isOpen_ = !path.isEmpty() && !LogFile::instance().isOpen() &&
                  LogFile::instance().open(fromQString(path));
    }
    ~WindowLog() {
        if (isOpen_)
            LogFile::instance().close();
    }
    WindowLog(const WindowLog&) = delete;
    WindowLog& operator=(const WindowLog&) = delete;

private:
    bool isOpen_ = false;
};

}  // namespace

EditMany::EditMany(const HostCalls& host, std::u16string pluginFolder)
    : host_(host), pluginFolder_(std::move(pluginFolder)) {}

EditMany::~EditMany() = default;

bool EditMany::run(const std::vector<std::uint64_t>& objects, const IFC::ApplyManyEdits& apply,
                   std::int32_t& resultPolicy, bool showInitialValues) {
    if (editManyState().isWindowOpen) {
        platform::showMessageBox(host_.text(texts::many::kWindowAlreadyOpenKey),
                                 texts::many::kCaption, platform::MessageButtons::Ok,
                                 platform::MessageIcon::Information);
        return false;
    }
    const OpenFlag isOpen;
    const WindowLog log;
    const ApplicationScope application([this](const char* key) { return host_.text(key); });
    if (!application.isReady())
        return false;
    editManyState().showInitialValues = showInitialValues;
    try {
        runWindow(objects, apply, resultPolicy, application.isOwner());
        return true;
    } catch (const std::exception& fault) {
        platform::showMessageBox(platform::fromUtf8(fault.what()), texts::many::kErrorCaption,
                                 platform::MessageButtons::Ok, platform::MessageIcon::Error);
        return false;
    }
}

void EditMany::runWindow(const std::vector<std::uint64_t>& objects,
                         const IFC::ApplyManyEdits& apply, std::int32_t& resultPolicy,
                         bool isOwnApplication) {
    const SharedWidgets shared(host_, pluginFolder_);
    EditManyState& state = editManyState();
    QEventLoop localLoop;
    const auto storePolicy = [&](std::int32_t policy) {
        resultPolicy = policy;
        state.lastAddingPolicy = policy;
        state.lastAction = kActionEditMany;
    };
    bool hasEnded = false;
    const auto endLoop = [&] {
        hasEnded = true;
        isOwnApplication ? QCoreApplication::exit() : localLoop.exit();
    };
    EditManyGui window(host_, pluginFolder_,
                       {.apply = apply, .storePolicy = storePolicy, .endLoop = endLoop});
    connect(&window, &EditManyGui::ShowLoadingDialogSignal, this, &EditMany::ShowProgressBar,
            Qt::DirectConnection);
    window.setObjects(objects);
    QTimer::singleShot(kLoadDelayMs, &window, [&window] {
        window.LoadContent();
        window.CreateGuiForward();
    });
    window.show();
    state.loadingDialog->show();
    isOwnApplication ? QApplication::exec() : localLoop.exec();
    if (isOwnApplication && !hasEnded)  // the program is to end
        platform::putBackQuitRequest();
    storePolicy(window.addingPolicy());
}

void EditMany::ShowProgressBar(bool show) {
    LoadingDialog* const dialog = editManyState().loadingDialog.get();
    if (!dialog)
        return;
    // Kept: it is shown in both cases, and closed later, so that a short piece of work can be seen.
    if (!show)
        QTimer::singleShot(kCloseLoadingDelayMs, dialog, &LoadingDialog::close);
    dialog->show();
}
