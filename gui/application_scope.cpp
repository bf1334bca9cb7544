#include "gui/application_scope.h"

#include <QFont>
#include <QScreen>
#include <clocale>
#include <string>

#include "gui/dialog_texts.h"
#include "platform/display.h"
#include "platform/message_box.h"

namespace {

constexpr double kUnscaledDotsPerInch = 96.0;

/// Qt takes over the user's locale for the whole process; the host's numbers keep theirs.
class NumericLocaleGuard {
public:
    NumericLocaleGuard() : name_(std::setlocale(LC_NUMERIC, nullptr)) {}
    ~NumericLocaleGuard() { std::setlocale(LC_NUMERIC, name_.c_str()); }
    NumericLocaleGuard(const NumericLocaleGuard&) = delete;
    NumericLocaleGuard& operator=(const NumericLocaleGuard&) = delete;

private:
    std::string name_;
};

void scaleFont(const QScreen& screen) {
    QFont font = QApplication::font();
    if (font.pointSizeF() <= 0)
        return;  // its size is in pixels
    font.setPointSizeF(font.pointSizeF() * screen.logicalDotsPerInch() / kUnscaledDotsPerInch);
    QApplication::setFont(font);
}

void tellNoScreen(const TextLookup& textOf) {
    std::u16string text = textOf ? textOf(texts::kNoScreenKey) : std::u16string();
    if (text.empty())
        text = texts::kNoScreen;
    platform::showMessageBox(text, texts::kProductName, platform::MessageButtons::Ok,
                             platform::MessageIcon::Error);
}

}  // namespace

ApplicationScope::ApplicationScope(const TextLookup& textOf) {
    if (QCoreApplication::instance()) {
        isReady_ = qobject_cast<QApplication*>(QCoreApplication::instance()) &&
                   QGuiApplication::primaryScreen();
    } else if (platform::canConnectToDisplay()) {  // else Qt would abort the process
        QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
        QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
        {
            const NumericLocaleGuard guard;
            application_ = std::make_unique<QApplication>(argumentCount_, arguments_);
        }
        QApplication::setQuitOnLastWindowClosed(false);
        const QScreen* const screen = QGuiApplication::primaryScreen();
        isReady_ = screen != nullptr;
        if (isReady_)
            scaleFont(*screen);
        else
            application_.reset();
    }
    if (!isReady_)
        tellNoScreen(textOf);
}

ApplicationScope::~ApplicationScope() = default;
