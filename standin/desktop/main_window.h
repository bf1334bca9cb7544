#pragma once

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QSplitter>
#include <QStringList>
#include <QTimer>
#include <QToolButton>
#include <bitset>

#include "standin/core/host.h"
#include "standin/desktop/glyph_icon.h"
#include "standin/desktop/object_panel.h"
#include "standin/desktop/property_panel.h"
#include "standin/desktop/qt_dialogs.h"
#include "standin/desktop/ribbon_bar.h"
#include "standin/desktop/settings.h"

namespace standin {

/// The viewer: ribbon, tree of objects, properties. It is the user and the observer of its host
/// while it lives.
class MainWindow : public QMainWindow, private HostObserver {
    Q_OBJECT

public:
    /// host, settings: borrowed.
    MainWindow(Host& host, Settings& settings);
    ~MainWindow() override;

    /// Asks what becomes of changes that are not saved, then opens these files in place of those
    /// that are open.
    void openFiles(const QStringList& paths);
    /// Loads the plug-in again and opens again what is open; what is not saved is saved before, if
    /// the user agrees.
    void changeLanguage(const QString& code);
    void showError(const QString& what);

    Host& host() { return host_; }
    ObjectPanel& objectPanel() { return *objectPanel_; }
    PropertyPanel& propertyPanel() { return *propertyPanel_; }
    /// Does now what is left for the event loop: shows what has changed.
    void refresh();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void hostChanged(HostPart part) noexcept override;

    void makeFileGroup();
    void makeEditGroup();
    void makeViewGroup();
    void makePanels();
    void makeStatusBar();
    QAction* makeAction(std::u16string_view text, std::u16string_view hint, Glyph glyph,
                        const QList<QKeySequence>& keys, const char* name);

    // Slots; they let nothing be thrown on.
    template <class Body>
    void guarded(Body body) noexcept;
    void askForFiles();
    bool save();
    bool saveAs();
    /// What is not saved is saved or given up. @return false when the user wants neither.
    bool isLeavingAllowed();
    bool isReopeningAllowed();
    void undo(int steps);
    void redo(int steps);
    void request(const PropertyRequest& asked);
    void fillRecentMenu();
    void fillUndoMenu(QMenu& menu, bool forRedo);
    void showTreeMenu(const QPoint& position);
    void showPropertyMenu(const QPoint& position);
    void addPluginItems(QMenu& menu);
    void copyGuids();
    void showReports();

    void showFiles();
    void showSelection();
    void showStatus();
    void showUndoList();
    void showTitle();
    void showLanguage();
    QString fileTitle() const;
    QString folder() const;
    std::vector<QString> reports() const;

    Host& host_;
    Settings& settings_;
    QtDialogs dialogs_;
    RibbonBar* ribbon_ = nullptr;
    ObjectPanel* objectPanel_ = nullptr;
    PropertyPanel* propertyPanel_ = nullptr;
    QSplitter* splitter_ = nullptr;
    QAction* saveAction_ = nullptr;
    QAction* saveAsAction_ = nullptr;
    QAction* undoAction_ = nullptr;
    QAction* redoAction_ = nullptr;
    QAction* sameTypeAction_ = nullptr;
    QAction* copyGuidAction_ = nullptr;
    QMenu* recentMenu_ = nullptr;
    QComboBox* languageBox_ = nullptr;
    QLabel* countLabel_ = nullptr;
    QToolButton* reportsButton_ = nullptr;
    QTimer refreshTimer_;
    std::bitset<6> changed_;  // by HostPart
};

}  // namespace standin
