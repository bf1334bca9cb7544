#include "standin/desktop/main_window.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>
#include <QStyle>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "platform/text.h"
#include "standin/core/disk.h"
#include "standin/desktop/desktop_texts.h"
#include "standin/desktop/languages.h"
#include "standin/desktop/qt_text.h"
#include "standin/desktop/reports_dialog.h"

namespace standin {
namespace {

constexpr QSize kFirstSize(1180, 740);
constexpr int kMostUndoTexts = 20;
const QString kWindowPart = QStringLiteral("window");
const QString kSplitterPart = QStringLiteral("splitter");

const QString kProjectSuffix = QStringLiteral("ahx");
const QStringList kSuffixes = {QStringLiteral("ifc"), QStringLiteral("ifczip"), kProjectSuffix};

QString fromUtf8(const std::string& text) { return toQString(platform::fromUtf8(text)); }

QString hintWithKey(const QString& hint, const QKeySequence& key) {
    return key.isEmpty()
               ? hint
               : toQString(texts::kHintWithKey).arg(hint, key.toString(QKeySequence::NativeText));
}

/// An object of a model that is opened again has another id; it is known by its place in the files.
struct ObjectPlace {
    std::size_t file = 0;
    std::int32_t instanceNumber = 0;
};

std::vector<ObjectPlace> placesOfSelected(const Objects& objects) {
    std::vector<ObjectPlace> places;
    for (std::size_t file = 0; file < objects.files().size(); ++file)
        for (const auto& object : objects.files()[file].objects)
            if (objects.isSelected(object->id))
                places.push_back({file, object->instanceNumber});
    return places;
}

/// places: in the order of files and of objects in them.
std::vector<HostObjectId> idsAt(const Objects& objects, const std::vector<ObjectPlace>& places) {
    std::vector<HostObjectId> ids;
    auto place = places.begin();
    for (std::size_t file = 0; file < objects.files().size(); ++file)
        for (const auto& object : objects.files()[file].objects)
            if (place != places.end() && place->file == file &&
                place->instanceNumber == object->instanceNumber) {
                ids.push_back(object->id);
                ++place;
            }
    return ids;
}

QStringList modelFilesOf(const QMimeData* data) {
    QStringList paths;
    for (const QUrl& url : data->urls())
        if (url.isLocalFile() &&
            kSuffixes.contains(QFileInfo(url.toLocalFile()).suffix().toLower()))
            paths.push_back(url.toLocalFile());
    return paths;
}

/// The cursor that asks for patience, while it lives.
class WaitCursor {
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

}  // namespace

template <class Body>
void MainWindow::guarded(Body body) noexcept {
    try {
        body();
    } catch (const std::exception& trouble) {
        showError(QString::fromUtf8(trouble.what()));
    }
}

MainWindow::MainWindow(Host& host, Settings& settings)
    : host_(host), settings_(settings), dialogs_(this) {
    setObjectName(QStringLiteral("mainWindow"));
    setAcceptDrops(true);
    setContextMenuPolicy(Qt::NoContextMenu);
    ribbon_ = new RibbonBar;
    makeFileGroup();
    makeEditGroup();
    makeViewGroup();
    connect(ribbon_, &RibbonBar::clicked, this, [this](HostButtonId item) {
        guarded([&] {
            if (!host_.isInPlugin())
                host_.click(item);
        });
        hostChanged(HostPart::Ribbon);  // Qt has ticked what the plug-in may leave as it was
    });
    makePanels();
    makeStatusBar();
    resize(kFirstSize);
    restoreGeometry(settings_.layoutOf(kWindowPart));
    splitter_->restoreState(settings_.layoutOf(kSplitterPart));

    refreshTimer_.setSingleShot(true);
    refreshTimer_.setInterval(0);
    connect(&refreshTimer_, &QTimer::timeout, this, &MainWindow::refresh);
    host_.setObserver(this);
    host_.dialogs().setUser(&dialogs_);
    showFiles();
    changed_.set();
    refresh();
    objectPanel_->tree().setFocus();
}

MainWindow::~MainWindow() {
    host_.setObserver(nullptr);
    host_.dialogs().setUser(nullptr);
}

// ---- making ----

QAction* MainWindow::makeAction(std::u16string_view text, std::u16string_view hint, Glyph glyph,
                                const QList<QKeySequence>& keys, const char* name) {
    auto* const action = new QAction(glyphIcon(glyph), asCaption(text), this);
    action->setObjectName(QLatin1String(name));
    action->setShortcuts(keys);
    action->setToolTip(asToolTip(hintWithKey(toQString(hint), action->shortcut())));
    addAction(action);
    return action;
}

void MainWindow::makeFileGroup() {
    QAction* const open =
        makeAction(texts::kOpen, texts::kOpenHint, Glyph::Open, {QKeySequence::Open}, "openAction");
    connect(open, &QAction::triggered, this, [this] { guarded([this] { askForFiles(); }); });
    QAction* const recent =
        makeAction(texts::kRecent, texts::kRecentHint, Glyph::Recent, {}, "recentAction");
    recentMenu_ = new QMenu(this);
    recentMenu_->setToolTipsVisible(true);
    connect(recentMenu_, &QMenu::aboutToShow, this, &MainWindow::fillRecentMenu);
    saveAction_ =
        makeAction(texts::kSave, texts::kSaveHint, Glyph::Save, {QKeySequence::Save}, "saveAction");
    connect(saveAction_, &QAction::triggered, this, [this] { guarded([this] { save(); }); });
    saveAsAction_ = makeAction(texts::kSaveAs, texts::kSaveAsHint, Glyph::SaveAs,
                               {QKeySequence(QStringLiteral("Ctrl+Shift+S"))}, "saveAsAction");
    connect(saveAsAction_, &QAction::triggered, this, [this] { guarded([this] { saveAs(); }); });

    QToolButton* const recentButton = RibbonBar::makeButton(recent);
    recentButton->setMenu(recentMenu_);
    recentButton->setPopupMode(QToolButton::InstantPopup);
    ribbon_->addGroup(toQString(texts::kFileGroup),
                      {RibbonBar::makeButton(open), recentButton,
                       RibbonBar::makeButton(saveAction_), RibbonBar::makeButton(saveAsAction_)});
}

void MainWindow::makeEditGroup() {
    undoAction_ =
        makeAction(texts::kUndo, texts::kUndo, Glyph::Undo, {QKeySequence::Undo}, "undoAction");
    redoAction_ = makeAction(
        texts::kRedo, texts::kRedo, Glyph::Redo,
        {QKeySequence(QStringLiteral("Ctrl+Y")), QKeySequence(QStringLiteral("Ctrl+Shift+Z"))},
        "redoAction");
    connect(undoAction_, &QAction::triggered, this, [this] { undo(1); });
    connect(redoAction_, &QAction::triggered, this, [this] { redo(1); });
    std::vector<QWidget*> buttons;
    for (QAction* const action : {undoAction_, redoAction_}) {
        const bool isRedo = action == redoAction_;
        QToolButton* const button = RibbonBar::makeButton(action);
        auto* const menu = new QMenu(button);
        connect(menu, &QMenu::aboutToShow, this,
                [this, menu, isRedo] { fillUndoMenu(*menu, isRedo); });
        button->setMenu(menu);
        button->setPopupMode(QToolButton::MenuButtonPopup);
        buttons.push_back(button);
    }
    ribbon_->addGroup(toQString(texts::kEditGroup), buttons);
}

void MainWindow::makeViewGroup() {
    languageBox_ = new QComboBox;
    languageBox_->setObjectName(QStringLiteral("languageBox"));
    languageBox_->setAccessibleName(toQString(texts::kLanguage));
    languageBox_->setToolTip(asToolTip(toQString(texts::kLanguageHint)));
    for (const Language& language : kLanguages)
        languageBox_->addItem(toQString(language.name), toQString(language.code));
    connect(languageBox_, qOverload<int>(&QComboBox::activated), this, [this](int index) {
        guarded([&] { changeLanguage(languageBox_->itemData(index).toString()); });
    });
    auto* const box = new QWidget;
    auto* const column = new QVBoxLayout(box);
    column->setContentsMargins(4, 0, 4, 0);
    auto* const label = new QLabel(toQString(texts::kLanguage));
    label->setBuddy(languageBox_);
    column->addStretch();
    column->addWidget(label);
    column->addWidget(languageBox_);
    column->addStretch();
    ribbon_->addGroup(toQString(texts::kViewGroup), {box});
}

void MainWindow::makePanels() {
    objectPanel_ = new ObjectPanel(host_.objects());
    propertyPanel_ = new PropertyPanel;
    splitter_ = new QSplitter;
    splitter_->addWidget(objectPanel_);
    splitter_->addWidget(propertyPanel_);
    splitter_->setChildrenCollapsible(false);
    splitter_->setSizes({kFirstSize.width() * 2 / 5, kFirstSize.width() * 3 / 5});
    splitter_->setStretchFactor(1, 1);

    auto* const central = new QWidget;
    auto* const layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(ribbon_);
    auto* const panels = new QVBoxLayout;
    panels->setContentsMargins(8, 4, 8, 0);
    panels->addWidget(splitter_);
    layout->addLayout(panels, 1);
    setCentralWidget(central);

    connect(objectPanel_, &ObjectPanel::selected, this,
            [this](const std::vector<HostObjectId>& ids) { guarded([&] { host_.select(ids); }); });
    connect(objectPanel_, &ObjectPanel::menuWanted, this,
            [this](const QPoint& position) { guarded([&] { showTreeMenu(position); }); });
    connect(propertyPanel_, &PropertyPanel::requested, this,
            [this](const PropertyRequest& asked) { guarded([&] { request(asked); }); });
    connect(propertyPanel_, &PropertyPanel::menuWanted, this,
            [this](const QPoint& position) { guarded([&] { showPropertyMenu(position); }); });

    auto* const search = new QAction(this);
    search->setShortcut(QKeySequence::Find);
    connect(search, &QAction::triggered, objectPanel_, &ObjectPanel::focusSearch);
    addAction(search);
    auto* const quit = new QAction(this);
    quit->setShortcut(QKeySequence::Quit);
    connect(quit, &QAction::triggered, this, &QWidget::close);
    addAction(quit);
    sameTypeAction_ = new QAction(asCaption(texts::kSelectSameType), this);
    sameTypeAction_->setShortcut(QKeySequence(QStringLiteral("Ctrl+T")));
    connect(sameTypeAction_, &QAction::triggered, this,
            [this] { guarded([this] { objectPanel_->selectAllOfType(); }); });
    addAction(sameTypeAction_);
    copyGuidAction_ = new QAction(asCaption(texts::kCopyGuid), this);
    connect(copyGuidAction_, &QAction::triggered, this, &MainWindow::copyGuids);
}

void MainWindow::makeStatusBar() {
    countLabel_ = new QLabel;
    countLabel_->setObjectName(QStringLiteral("objectCount"));
    countLabel_->setTextFormat(Qt::PlainText);
    reportsButton_ = new QToolButton;
    reportsButton_->setObjectName(QStringLiteral("reportsButton"));
    reportsButton_->setAutoRaise(true);
    reportsButton_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    reportsButton_->setIcon(style()->standardIcon(QStyle::SP_MessageBoxWarning));
    reportsButton_->setToolTip(asToolTip(toQString(texts::kReportsHint)));
    reportsButton_->setFocusPolicy(Qt::TabFocus);
    connect(reportsButton_, &QToolButton::clicked, this, &MainWindow::showReports);
    statusBar()->addPermanentWidget(reportsButton_);
    statusBar()->addPermanentWidget(countLabel_);
}

// ---- files ----

void MainWindow::askForFiles() {
    if (host_.isInPlugin())
        return;
    QFileDialog dialog(this, toQString(texts::kOpenTitle), folder());
    dialog.setObjectName(QStringLiteral("openDialog"));
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.setNameFilters(
        {toQString(texts::kModelsAndProjectsFilter), toQString(texts::kAllFilesFilter)});
    if (dialog.exec() == QDialog::Accepted)
        openFiles(dialog.selectedFiles());
}

void MainWindow::openFiles(const QStringList& paths) {
    if (paths.isEmpty() || host_.isInPlugin() || !isLeavingAllowed())
        return;
    std::vector<std::u16string> names;
    for (const QString& path : paths)
        names.push_back(fromQString(QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath())));
    statusBar()->showMessage(toQString(texts::kReading).arg(QFileInfo(paths.front()).fileName()));
    statusBar()->repaint();
    bool isOpen = false;
    {
        const WaitCursor wait;
        isOpen = host_.open(names);
    }
    statusBar()->clearMessage();
    if (!isOpen || !host_.error().empty())
        showError(fromUtf8(host_.error()));
    for (const std::u16string& name : names) {
        if (isOpen)
            settings_.addRecent(toQString(name));
        else if (!QFileInfo::exists(toQString(name)))
            settings_.removeRecent(toQString(name));
    }
}

bool MainWindow::save() {
    if (host_.isInPlugin())
        return false;
    if (host_.project().path().empty())
        return saveAs();
    const bool isSaved = host_.save();
    if (!isSaved)
        showError(fromUtf8(host_.error()));
    else
        statusBar()->showMessage(toQString(texts::kSaved).arg(fileTitle()), 4000);
    return isSaved;
}

bool MainWindow::saveAs() {
    if (host_.isInPlugin() || host_.objects().files().empty())
        return false;
    QFileDialog dialog(this, toQString(texts::kSaveProjectTitle), folder());
    dialog.setObjectName(QStringLiteral("saveProjectDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(toQString(texts::kProjectsFilter));
    const QString first = toQString(host_.objects().files().front().path);
    dialog.selectFile(host_.project().path().empty()
                          ? QFileInfo(first).completeBaseName() + QLatin1Char('.') + kProjectSuffix
                          : QFileInfo(toQString(host_.project().path())).fileName());
    const std::optional<QString> path = askForNewFile(dialog, kProjectSuffix);
    if (!path)
        return false;
    if (!host_.save(fromQString(*path))) {
        showError(fromUtf8(host_.error()));
        return false;
    }
    settings_.addRecent(*path);
    showTitle();
    statusBar()->showMessage(toQString(texts::kSaved).arg(fileTitle()), 4000);
    return true;
}

bool MainWindow::isLeavingAllowed() {
    if (!host_.needsSave())
        return true;
    QMessageBox box(QMessageBox::Warning, toQString(texts::kProgramName),
                    toQString(texts::kSaveQuestion).arg(fileTitle()),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box.setObjectName(QStringLiteral("savePrompt"));
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(toQString(texts::kSaveQuestionDetail));
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
        case QMessageBox::Save: return save();
        case QMessageBox::Discard: return true;
        default: return false;
    }
}

void MainWindow::fillRecentMenu() {
    recentMenu_->clear();
    for (const QString& path : settings_.recentFiles()) {
        const QFileInfo file(path);
        QAction* const entry = recentMenu_->addAction(asCaption(fromQString(file.fileName())));
        entry->setToolTip(asToolTip(path));
        connect(entry, &QAction::triggered, this,
                [this, path] { guarded([&] { openFiles({path}); }); });
    }
    if (settings_.recentFiles().isEmpty())
        recentMenu_->addAction(toQString(texts::kNoRecent))->setEnabled(false);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    bool isAllowed = false;
    guarded([&] { isAllowed = !host_.isInPlugin() && isLeavingAllowed(); });
    if (!isAllowed)
        return event->ignore();
    host_.raise("on_main_form_close");
    settings_.setLayout(kWindowPart, saveGeometry());
    settings_.setLayout(kSplitterPart, splitter_->saveState());
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!host_.isInPlugin() && !modelFilesOf(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QStringList paths = modelFilesOf(event->mimeData());
    event->acceptProposedAction();
    // The program that the files come from waits until the drop is done.
    QTimer::singleShot(0, this, [this, paths] { guarded([&] { openFiles(paths); }); });
}

// ---- language ----

bool MainWindow::isReopeningAllowed() {
    const bool needsSave = host_.needsSave();
    if (!needsSave && host_.undoList().texts().empty())
        return true;
    QMessageBox box(
        QMessageBox::Question, toQString(texts::kProgramName),
        toQString(needsSave ? texts::kSaveForLanguageQuestion : texts::kLanguageQuestion),
        (needsSave ? QMessageBox::Save : QMessageBox::Ok) | QMessageBox::Cancel, this);
    box.setObjectName(QStringLiteral("languagePrompt"));
    box.setInformativeText(toQString(texts::kLanguageQuestionDetail));
    const int answer = box.exec();
    return answer == QMessageBox::Save ? save() : answer == QMessageBox::Ok;
}

void MainWindow::changeLanguage(const QString& code) {
    if (fromQString(code) == host_.language())
        return;
    if (!host_.isInPlugin() && isReopeningAllowed()) {
        const std::vector<ObjectPlace> places = placesOfSelected(host_.objects());
        bool isDone = false;
        {
            const WaitCursor wait;
            isDone = host_.reopenInLanguage(fromQString(code));
        }
        if (isDone)
            settings_.setLanguage(code);
        else
            showError(fromUtf8(host_.error()));
        host_.select(idsAt(host_.objects(), places));
    }
    showLanguage();
}

void MainWindow::showLanguage() {
    languageBox_->setCurrentIndex(languageBox_->findData(toQString(host_.language())));
}

// ---- edits ----

void MainWindow::undo(int steps) {
    guarded([&] {
        while (!host_.isInPlugin() && steps-- > 0 && host_.undo()) {
        }
    });
}

void MainWindow::redo(int steps) {
    guarded([&] {
        while (!host_.isInPlugin() && steps-- > 0 && host_.redo()) {
        }
    });
}

void MainWindow::fillUndoMenu(QMenu& menu, bool forRedo) {
    menu.clear();
    const UndoList& list = host_.undoList();
    const std::size_t count = forRedo ? list.texts().size() - list.doneCount() : list.doneCount();
    for (std::size_t step = 0; step < std::min<std::size_t>(count, kMostUndoTexts); ++step) {
        const std::size_t place = forRedo ? list.doneCount() + step : list.doneCount() - 1 - step;
        QAction* const entry =
            menu.addAction(asCaption(fromQString(toQString(list.texts()[place]).simplified())));
        const int steps = static_cast<int>(step) + 1;
        connect(entry, &QAction::triggered, this,
                [this, forRedo, steps] { forRedo ? redo(steps) : undo(steps); });
    }
    if (count > kMostUndoTexts)
        menu.addAction(toQString(texts::kMoreUndo).arg(count - kMostUndoTexts))->setEnabled(false);
}

void MainWindow::request(const PropertyRequest& asked) {
    if (host_.isInPlugin())
        return;
    if (!host_.requestChange(asked.action, asked.setName, asked.setGuid, asked.propertyName,
                             asked.asQuantity))
        showError(fromUtf8(host_.error()));
}

// ---- menus ----

void MainWindow::addPluginItems(QMenu& menu) {
    if (!host_.isInPlugin())
        ribbon_->addItems(menu, host_.ribbon(), host_.openContextMenu());
    if (!menu.isEmpty())
        menu.addSeparator();
}

void MainWindow::showTreeMenu(const QPoint& position) {
    if (host_.objects().files().empty())
        return;
    QMenu menu;
    menu.setToolTipsVisible(true);
    addPluginItems(menu);
    const bool hasObject =
        objectPanel_->model().objectAt(objectPanel_->tree().currentIndex()) != nullptr;
    sameTypeAction_->setEnabled(hasObject);
    copyGuidAction_->setEnabled(!host_.objects().selected().empty());
    menu.addActions({sameTypeAction_, copyGuidAction_});
    menu.exec(position);
    sameTypeAction_->setEnabled(true);
}

void MainWindow::showPropertyMenu(const QPoint& position) {
    if (host_.objects().selected().empty())
        return;
    QMenu menu;
    menu.setToolTipsVisible(true);
    for (QAction* const action : propertyPanel_->requests())
        menu.addAction(action);
    menu.addSeparator();
    addPluginItems(menu);
    menu.exec(position);
}

void MainWindow::copyGuids() {
    QStringList guids;
    for (const HostObjectId id : host_.objects().selected())
        if (const Object* const object = host_.objects().find(id))
            guids.push_back(toQString(object->guid));
    QApplication::clipboard()->setText(guids.join(QLatin1Char('\n')));
}

// ---- showing ----

void MainWindow::hostChanged(HostPart part) noexcept {
    // What was shown of objects that are gone must not be asked for any more.
    if (part == HostPart::Files)
        showFiles();
    changed_.set(static_cast<std::size_t>(part));
    refreshTimer_.start();
}

void MainWindow::refresh() {
    refreshTimer_.stop();
    const auto changed = std::exchange(changed_, {});
    const auto has = [&](HostPart part) { return changed.test(static_cast<std::size_t>(part)); };
    if (has(HostPart::Ribbon))
        ribbon_->show(host_.ribbon());
    if (has(HostPart::Selection) || has(HostPart::Display) || has(HostPart::Files))
        showSelection();
    if (has(HostPart::UndoList))
        showUndoList();
    showStatus();
    showTitle();
    showLanguage();
}

void MainWindow::showFiles() {
    objectPanel_->rebuild();
    propertyPanel_->show(nullptr, 0);
}

void MainWindow::showSelection() {
    const Objects& objects = host_.objects();
    objectPanel_->showSelection();
    const Object* const first =
        objects.selected().empty() ? nullptr : objects.find(objects.selected().front());
    propertyPanel_->show(first, objects.selected().size());
}

void MainWindow::showStatus() {
    const Objects& objects = host_.objects();
    std::size_t count = 0;
    for (const LoadedFile& file : objects.files())
        count += file.objects.size();
    const QLocale english = QLocale(QLocale::English);
    const QString selected =
        objects.selected().empty()
            ? QString()
            : toQString(texts::kSelectedCount)
                  .arg(english.toString(qulonglong{objects.selected().size()}));
    QString counted;
    if (objects.files().empty())
        counted = toQString(host_.isPluginLoaded() ? texts::kNothingOpen : texts::kNoPlugin);
    else if (count == 1)
        counted = toQString(texts::kOneObject);
    else
        counted = toQString(texts::kObjectCount).arg(english.toString(qulonglong{count}));
    countLabel_->setText(counted + selected);
    std::size_t reportCount = host_.violations().size();
    for (const LoadedFile& file : objects.files())
        reportCount += file.reports.size();
    reportsButton_->setVisible(reportCount > 0);
    reportsButton_->setText(reportCount == 1 ? toQString(texts::kOneReport)
                                             : toQString(texts::kReportCount).arg(reportCount));
}

void MainWindow::showUndoList() {
    const UndoList& list = host_.undoList();
    const auto tell = [](QAction& action, bool isPossible, std::u16string_view word,
                         const std::u16string* text) {
        action.setEnabled(isPossible);
        QString hint = toQString(word);
        if (text)
            hint += QLatin1String(": ") + toQString(*text);
        action.setToolTip(asToolTip(hintWithKey(hint, action.shortcut())));
    };
    tell(*undoAction_, list.canUndo(), texts::kUndo,
         list.canUndo() ? &list.texts()[list.doneCount() - 1] : nullptr);
    tell(*redoAction_, list.canRedo(), texts::kRedo,
         list.canRedo() ? &list.texts()[list.doneCount()] : nullptr);
}

QString MainWindow::fileTitle() const {
    const auto& files = host_.objects().files();
    if (!host_.project().path().empty())
        return toQString(fileNameOf(host_.project().path()));
    if (files.empty())
        return {};
    const QString first = toQString(fileNameOf(files.front().path));
    return files.size() == 1 ? first : toQString(texts::kAndMore).arg(first).arg(files.size() - 1);
}

QString MainWindow::folder() const {
    const auto& files = host_.objects().files();
    const std::u16string& path = files.empty() || !host_.project().path().empty()
                                     ? host_.project().path()
                                     : files.front().path;
    if (!path.empty())
        return QFileInfo(toQString(path)).absolutePath();
    const QStringList& recent = settings_.recentFiles();
    return recent.isEmpty() ? QDir::currentPath() : QFileInfo(recent.front()).absolutePath();
}

void MainWindow::showTitle() {
    const QString file = fileTitle();
    setWindowTitle(file.isEmpty() ? toQString(texts::kProgramName)
                                  : toQString(texts::kTitle).arg(file));
    setWindowModified(host_.needsSave());
    saveAction_->setEnabled(!file.isEmpty());
    saveAsAction_->setEnabled(!file.isEmpty());
    dialogs_.setFolder(folder());
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && propertyPanel_) {
        changed_.set(static_cast<std::size_t>(HostPart::Display));  // the marks have its colours
        refreshTimer_.start();
    }
}

std::vector<QString> MainWindow::reports() const {
    std::vector<QString> lines;
    for (const LoadedFile& file : host_.objects().files())
        for (const std::string& report : file.reports)
            lines.push_back(toQString(fileNameOf(file.path)) + QLatin1String(": ") +
                            fromUtf8(report));
    for (const std::string& violation : host_.violations())
        lines.push_back(toQString(texts::kBrokenRuleReport).arg(fromUtf8(violation)));
    return lines;
}

void MainWindow::showReports() { ReportsDialog(reports(), this).exec(); }

void MainWindow::showError(const QString& what) {
    QMessageBox box(QMessageBox::Critical, toQString(texts::kProgramName), what, QMessageBox::Ok,
                    this);
    box.setObjectName(QStringLiteral("errorBox"));
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

}  // namespace standin
