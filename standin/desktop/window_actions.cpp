#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPixmap>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStyle>
#include <QUrl>

#include "standin/desktop/desktop_script.h"
#include "standin/desktop/desktop_texts.h"
#include "standin/desktop/foreign_window.h"
#include "standin/desktop/user_input.h"
#include "standin/desktop/widget_finder.h"

namespace standin {
namespace {

/// How long a line waits for a window, and for what is in it.
constexpr int kWindowPatienceMs = 30'000;
constexpr int kWidgetPatienceMs = 3'000;
constexpr int kMostTimes = 1000;
constexpr std::string_view kNoYes[] = {"no", "yes"};
constexpr std::string_view kMainWindowName = "main";

QString text(const std::string& utf8) { return QString::fromStdString(utf8); }

MainWindow& mainWindow(Script& script) { return static_cast<DesktopScript&>(script).window(); }

QWidget& currentWindow(Script& script) { return inputWindow(mainWindow(script)); }

QWidget& widgetNamed(Script& script, const std::string& name) {
    QWidget* const found = findWidget(currentWindow(script), text(name));
    if (!found)
        throw ScriptNotYet(std::string(texts::kNoWidget) + name, kWidgetPatienceMs);
    return *found;
}

QWidget& enabledWidget(Script& script, const std::string& name) {
    QWidget& widget = widgetNamed(script, name);
    if (!widget.isEnabled())
        throw ScriptNotYet(std::string(texts::kWidgetDisabled) + name, kWidgetPatienceMs);
    return widget;
}

/// The window of another toolkit that takes the input; nothing when it is one of ours.
std::optional<ForeignWindow> foreignWindow() { return ForeignWindow::onTop(); }

ForeignWindow::Control controlNamed(const ForeignWindow& window, const std::string& name) {
    const auto found = window.find(text(name));
    if (!found)
        throw ScriptNotYet(std::string(texts::kNoWidget) + name, kWidgetPatienceMs);
    return *found;
}

ForeignWindow::Control enabledControl(const ForeignWindow& window, const std::string& name) {
    const ForeignWindow::Control control = controlNamed(window, name);
    if (!ForeignWindow::isEnabled(control))
        throw ScriptNotYet(std::string(texts::kWidgetDisabled) + name, kWidgetPatienceMs);
    return control;
}

template <class Kind>
Kind& ofKind(QWidget& widget, const std::string& name) {
    auto* const found = qobject_cast<Kind*>(&widget);
    if (!found)
        throw ScriptError(std::string(texts::kWrongWidget) + name);
    return *found;
}

// ---- windows ----

[[noreturn]] void failWithoutWindow(const std::string& name) {
    QStringList others = ForeignWindow::titles();
    for (const QWidget* const other : QApplication::topLevelWidgets())
        if (other->isVisible())
            others.push_back(other->windowTitle());
    throw ScriptNotYet(std::string(texts::kNoWindow) + name + std::string(texts::kOtherWindows) +
                           others.join(QStringLiteral(", ")).toStdString(),
                       kWindowPatienceMs);
}

QWidget& windowNamed(const std::string& name) {
    if (QWidget* const found = findWindow(text(name)))
        return *found;
    failWithoutWindow(name);
}

void window(Script&, const Words& words) {
    const auto foreign = ForeignWindow::named(text(words[0]));
    if (!foreign)
        windowNamed(words[0]);
    const QWidget* const modal = QApplication::activeModalWidget();
    const bool mustWait = modal && modal->windowType() == Qt::Tool;
    if (foreign ? !foreign->takesInput() : mustWait)
        throw ScriptNotYet(words[0] + std::string(texts::kWindowBusy), kWindowPatienceMs);
}

void noWindow(Script&, const Words& words) {
    if (findWindow(text(words[0])) || ForeignWindow::named(text(words[0])))
        throw ScriptNotYet(std::string(texts::kStillThere) + words[0], kWindowPatienceMs);
}

void idle(Script& script, const Words&) {
    if (script.host().isInPlugin())
        throw ScriptNotYet(std::string(texts::kPluginAtWork), kWindowPatienceMs);
}

void closeWindow(Script& script, const Words&) {
    if (const auto foreign = foreignWindow())
        foreign->close();
    else
        currentWindow(script).close();
}

void resize(Script& script, const Words& words) {
    static const QRegularExpression kSize(QStringLiteral("^(\\d+)x(\\d+)$"));
    const QRegularExpressionMatch size = kSize.match(text(words[0]));
    if (!size.hasMatch())
        throw ScriptError(std::string(texts::kNoSize) + words[0]);
    currentWindow(script).resize(size.captured(1).toInt(), size.captured(2).toInt());
}

QImage pictureOf(Script& script, const Words& words) {
    const bool isNamed = words.size() > 1;
    if (const auto foreign = isNamed ? ForeignWindow::named(text(words[1])) : foreignWindow())
        return foreign->picture();
    QWidget* window = &currentWindow(script);
    if (isNamed)
        window = words[1] == kMainWindowName ? &mainWindow(script) : &windowNamed(words[1]);
    return window->grab().toImage();
}

void screenshot(Script& script, const Words& words) {
    if (!pictureOf(script, words).save(text(words[0]), "PNG"))
        throw ScriptError(std::string(texts::kPictureNotWritten) + words[0]);
}

// ---- widgets ----

/// An entry of a menu that is open; null when there is none.
QAction* entryNamed(const QMenu& menu, const QString& name) {
    for (QAction* const entry : menu.actions()) {
        QString caption = entry->text();
        if (caption.replace(QLatin1String("&&"), QLatin1String("&")) == name ||
            entry->objectName() == name)
            return entry;
    }
    return nullptr;
}

void press(Script& script, const Words& words) {
    if (const auto foreign = foreignWindow())
        return ForeignWindow::click(enabledControl(*foreign, words[0]));
    auto* const menu = qobject_cast<QMenu*>(&currentWindow(script));
    if (!menu)
        return input::click(enabledWidget(script, words[0]));
    QAction* const entry = entryNamed(*menu, text(words[0]));
    if (!entry)
        throw ScriptError(std::string(texts::kHasNoItem) + words[0]);
    if (!entry->isEnabled())
        throw ScriptError(std::string(texts::kWidgetDisabled) + words[0]);
    input::click(*menu, menu->actionGeometry(entry).center());
}

void setChecked(Script& script, const std::string& name, bool isWanted) {
    auto& button = ofKind<QAbstractButton>(enabledWidget(script, name), name);
    // At the left, where a wide check box has its box.
    const QPoint place(button.height() / 2, button.height() / 2);
    constexpr int kMostStates = 3;
    for (int tries = 0; tries < kMostStates && button.isChecked() != isWanted; ++tries)
        input::click(button, place);
    if (button.isChecked() != isWanted)
        throw ScriptError(std::string(texts::kWrongWidget) + name);
}

void check(Script& script, const Words& words) { setChecked(script, words[0], true); }
void uncheck(Script& script, const Words& words) { setChecked(script, words[0], false); }

void type(Script& script, const Words& words) {
    if (const auto foreign = foreignWindow()) {
        ForeignWindow::click(enabledControl(*foreign, words[0]));
        ForeignWindow::press(QKeySequence::SelectAll);
        ForeignWindow::press(Qt::Key_Delete);
        return ForeignWindow::type(text(words[1]));
    }
    QWidget& field = enabledWidget(script, words[0]);
    QWidget& window = currentWindow(script);
    input::click(field);
    if (window.focusWidget() != &field && !field.isAncestorOf(window.focusWidget()))
        field.setFocus(Qt::OtherFocusReason);
    input::press(window, QKeySequence::SelectAll);
    if (words[1].empty())
        input::press(window, Qt::Key_Delete);
    input::type(window, text(words[1]));
}

void key(Script& script, const Words& words) {
    const QKeySequence keys(text(words[0]), QKeySequence::PortableText);
    if (keys.isEmpty() || keys[0] == Qt::Key_unknown)
        throw ScriptError(std::string(texts::kNoKeys) + words[0]);
    const int times = words.size() > 1 ? text(words[1]).toInt() : 1;
    if (times < 1 || times > kMostTimes)
        throw ScriptError(std::string(texts::kNoCount) + words[1]);
    for (int time = 0; time < times; ++time) {
        if (!foreignWindow())
            input::press(currentWindow(script), keys);
        else if (!ForeignWindow::press(keys))
            throw ScriptError(std::string(texts::kNoKeys) + words[0]);
    }
}

void enter(Script& script, const Words& words) {
    if (foreignWindow())
        ForeignWindow::type(text(words[0]));
    else
        input::type(currentWindow(script), text(words[0]));
}

void choose(Script& script, const Words& words) {
    if (const auto foreign = foreignWindow()) {
        if (!ForeignWindow::choose(enabledControl(*foreign, words[0]), text(words[1])))
            throw ScriptError(std::string(texts::kHasNoItem) + words[1]);
        return;
    }
    auto& box = ofKind<QComboBox>(enabledWidget(script, words[0]), words[0]);
    const int item = box.findText(text(words[1]), Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (item < 0)
        throw ScriptError(std::string(texts::kHasNoItem) + words[1]);
    input::click(box);
    if (!box.view()->isVisible())
        box.showPopup();
    box.view()->setCurrentIndex(box.model()->index(item, box.modelColumn(), box.rootModelIndex()));
    input::press(*box.view(), Qt::Key_Return);
}

void scroll(Script& script, const Words& words) {
    auto& area = ofKind<QAbstractScrollArea>(widgetNamed(script, words[0]), words[0]);
    bool isNumber = false;
    const int percent = text(words[1]).toInt(&isNumber);
    if (!isNumber || percent < 0 || percent > 100)
        throw ScriptError(words[1] + " " + std::string(texts::kNoPercent));
    QScrollBar& bar = *area.verticalScrollBar();
    bar.setValue(bar.minimum() + (bar.maximum() - bar.minimum()) * percent / 100);
}

void expectText(Script& script, const Words& words) {
    const auto foreign = foreignWindow();
    const QString found = foreign ? ForeignWindow::textOf(controlNamed(*foreign, words[0]))
                                  : textOn(widgetNamed(script, words[0]));
    script.expect(found == text(words[1]), words[0] + " with \"" + words[1] + "\"",
                  "\"" + found.toStdString() + "\"");
}

void expectEnabled(Script& script, const Words& words) {
    const auto foreign = foreignWindow();
    const bool isEnabled = foreign ? ForeignWindow::isEnabled(controlNamed(*foreign, words[0]))
                                   : widgetNamed(script, words[0]).isEnabled();
    script.expect(isEnabled == (choiceOf(words[1], kNoYes) == 1),
                  words[0] + " enabled: " + words[1], isEnabled ? "yes" : "no");
}

// ---- rows ----

/// The first row, in the order of the view, whose columns begin with these texts.
QModelIndex findRow(const QAbstractItemModel& model, const Words& texts, std::size_t from,
                    const QModelIndex& parent = {}) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
        bool isSame = true;
        for (std::size_t at = from; at < texts.size() && isSame; ++at)
            isSame = model.index(row, static_cast<int>(at - from), parent)
                         .data()
                         .toString()
                         .toStdString() == texts[at];
        if (isSame)
            return model.index(row, 0, parent);
        if (const QModelIndex below = findRow(model, texts, from, model.index(row, 0, parent));
            below.isValid())
            return below;
    }
    return {};
}

void expectRow(Script& script, const Words& words) {
    auto& view = ofKind<QAbstractItemView>(widgetNamed(script, words[0]), words[0]);
    std::string row;
    for (std::size_t at = 1; at < words.size(); ++at)
        row += (at > 1 ? " | " : "") + words[at];
    script.expect(findRow(*view.model(), words, 1).isValid(), "row " + row, "none");
}

void treeSelect(Script& script, const Words& words) {
    ObjectPanel& panel = mainWindow(script).objectPanel();
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    for (const std::string& word : words) {
        const QModelIndex row = panel.model().indexOf(script.object(word).id);
        if (!row.isValid())
            throw ScriptError(std::string(texts::kHasNoItem) + word);
        input::clickRow(panel.tree(), row, modifiers);
        modifiers = Qt::ControlModifier;
    }
}

void panelRow(Script& script, const Words& words) {
    QTreeWidget& tree = mainWindow(script).propertyPanel().tree();
    for (int at = 0; at < tree.topLevelItemCount(); ++at) {
        QTreeWidgetItem* const set = tree.topLevelItem(at);
        if (set->text(0).toStdString() != words[0])
            continue;
        QModelIndex row = tree.model()->index(at, 0);
        if (words.size() > 1)
            row = findRow(*tree.model(), words, 1, row);
        if (row.isValid())
            return input::clickRow(tree, row);
    }
    throw ScriptNotYet(std::string(texts::kHasNoItem) + words.back(), kWidgetPatienceMs);
}

void menu(Script& script, const Words& words) {
    auto& tree = ofKind<QTreeView>(widgetNamed(script, words[0]), words[0]);
    input::clickRow(tree, tree.currentIndex(), Qt::NoModifier, Qt::RightButton);
}

// ---- program ----

void drop(Script& script, const Words& words) {
    QMimeData data;
    QList<QUrl> urls;
    for (const std::string& word : words)
        urls.push_back(QUrl::fromLocalFile(text(word)));
    data.setUrls(urls);
    MainWindow& window = mainWindow(script);
    QDragEnterEvent enter(window.rect().center(), Qt::CopyAction, &data, Qt::LeftButton,
                          Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&window, &enter);
    if (!enter.isAccepted())
        return;
    QDropEvent dropped(window.rect().center(), Qt::CopyAction, &data, Qt::LeftButton,
                       Qt::NoModifier);
    QApplication::sendEvent(&window, &dropped);
}

QPalette darkPalette() {
    QPalette dark(QColor(80, 80, 80), QColor(58, 58, 58));
    const QColor letters(235, 235, 235);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::BrightText})
        dark.setColor(role, letters);
    dark.setColor(QPalette::Base, QColor(36, 36, 36));
    dark.setColor(QPalette::AlternateBase, QColor(44, 44, 44));
    dark.setColor(QPalette::ToolTipBase, QColor(42, 42, 42));
    dark.setColor(QPalette::PlaceholderText, QColor(235, 235, 235, 128));
    dark.setColor(QPalette::Highlight, QColor(42, 110, 170));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::Link, QColor(90, 170, 240));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, QColor(128, 128, 128));
    return dark;
}

void theme(Script&, const Words& words) {
    static constexpr std::string_view kChoices[] = {"light", "dark"};
    const bool isDark = choiceOf(words[0], kChoices) == 1;
    QApplication::setPalette(isDark ? darkPalette() : QApplication::style()->standardPalette());
}

void load(Script& script, const Words& words) {
    Host& host = script.host();
    if (host.objects().files().empty())
        host.unloadPlugin();
    if (!host.loadPlugin(words.empty() ? std::u16string() : text(words[0]).toStdU16String()))
        throw ScriptError(host.error());
}

void answeredWindows(Script&, const Words& words) {
    static constexpr std::string_view kChoices[] = {"off", "on"};
    if (!hideAnsweredWindows(choiceOf(words[0], kChoices) == 0))
        throw ScriptError(std::string(texts::kCannotHide));
}

constexpr Action kActions[] = {
    {"window", "TITLE",
     "Waits until a window with that title or object name is there, and has no box over it that "
     "asks to wait.",
     "window \"Edit many objects\"", 1, 1, window},
    {"no-window", "TITLE", "Waits until there is no such window.", "no-window Export", 1, 1,
     noWindow},
    {"idle", "", "Waits until the plug-in is done.", "idle", 0, 0, idle},
    {"close-window", "", "Closes the window by its frame.", "close-window", 0, 0, closeWindow},
    {"resize", "WIDTHxHEIGHT", "Gives the window that size.", "resize 900x600", 1, 1, resize},
    {"screenshot", "FILE [TITLE|main]", "Writes a picture (PNG) of a window.",
     "screenshot window.png", 1, 2, screenshot},
    {"press", "WIDGET", "Clicks a button, another widget, or the entry of a menu that is open.",
     "press OK", 1, 1, press},
    {"check", "WIDGET", "Ticks a check box by a click.", "check \"Select all\"", 1, 1, check},
    {"uncheck", "WIDGET", "Takes the tick away.", "uncheck \"Select all\"", 1, 1, uncheck},
    {"type", "WIDGET TEXT", "Clicks into a field and types over what it holds.",
     "type value \"F 90\"", 2, 2, type},
    {"key", "KEYS [TIMES]", "Presses keys.", "key Ctrl+Z", 1, 2, key},
    {"enter", "TEXT", "Types into what has the focus.", "enter \"F 90\"", 1, 1, enter},
    {"choose", "WIDGET ITEM", "Opens a list and chooses from it.", "choose unit \"m (Metre)\"", 2,
     2, choose},
    {"scroll", "WIDGET PERCENT", "Scrolls down so far.", "scroll objectTree 50", 2, 2, scroll},
    {"menu", "WIDGET", "Opens the context menu of a tree at its current row.", "menu objectTree", 1,
     1, menu},
    {"expect-text", "WIDGET TEXT", "The widget shows or holds that text.",
     "expect-text objectCount \"26 objects\"", 2, 2, expectText},
    {"expect-enabled", "WIDGET yes|no", "Whether it can be used.", "expect-enabled OK no", 2, 2,
     expectEnabled},
    {"expect-row", "WIDGET TEXT...", "A list or tree has a row whose columns begin with the texts.",
     "expect-row propertyTree Colour blue", 2, kAnyCount, expectRow},
    {"tree-select", "OBJECT...", "Clicks objects in the tree, the first alone.",
     "tree-select #65 #77", 1, kAnyCount, treeSelect},
    {"panel", "SET [PROPERTY]", "Clicks a row of the property panel.", "panel Finish Colour", 1, 2,
     panelRow},
    {"drop", "FILE...", "Drops files on the main window.", "drop house.ifc", 1, kAnyCount, drop},
    {"theme", "light|dark", "Gives all windows light or dark colours.", "theme dark", 1, 1, theme},
    {"load", "[FILE]", "Loads the plug-in, anew when nothing is open.", "load", 0, 1, load},
    {"answered-windows", "on|off",
     "Whether \"answer window\" plays the user for a plug-in that is loaded from now on.",
     "answered-windows on", 1, 1, answeredWindows},
};

}  // namespace

std::span<const Action> windowActions() { return kActions; }

}  // namespace standin
