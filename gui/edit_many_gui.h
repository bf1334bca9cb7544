#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "edits/editing_windows.h"
#include "gui/collect_edits.h"
#include "gui/creation_window.h"
#include "gui/loaded_rows.h"
#include "gui/loading_dialog.h"
#include "gui/new_set_gui.h"
#include "gui/summary_window.h"
#include "plugin/host_calls.h"

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QPushButton;
class QScrollArea;
class QScrollBar;
class QSpacerItem;

/// The window in which the sets of many objects are seen and changed at once.
///
/// Only what is near to what the user sees has widgets: properties start collapsed, an expanded one
/// gets its first rows, and scrolling creates rows ahead and deletes them behind.
class EditManyGui : public QWidget, private CreatableSets {
    Q_OBJECT

public:
    /// What the window reports to those who opened it.
    struct Run {
        IFC::ApplyManyEdits apply;
        std::function<void(std::int32_t policy)> storePolicy;
        std::function<void()> endLoop;
    };

    /// host: borrowed. Throws std::runtime_error when the form lacks what is needed.
    EditManyGui(const HostCalls& host, const std::u16string& pluginFolder, Run run);
    ~EditManyGui() override;

    /// objects: host object ids, in the order of the selection.
    void setObjects(std::vector<std::uint64_t> objects);
    /// IFC::AddingPolicy by the place of the checked radio button; 4 when there is none.
    std::int32_t addingPolicy() const;
    const LoadedRows& rows() const { return rows_; }
    const CreationWindow& creationWindow() const { return window_; }
    /// Value rows that have widgets.
    int liveRowCount() const;

signals:  // The order is fixed.
    void ShowLoadingDialogSignal(bool show);
    void LoadingFinished();
    void CreatingGuiFinished();

public slots:
    void ScrollBarChange2(int value);
    void GroupingTypeChanged(int index);
    void CreateGuiForward();
    void LoadContent();
    void UpdateCreatedGuiPos();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    /// What has to stay where it is on the screen while rows come and go.
    struct Anchor {
        QPointer<QWidget> widget;
        int y = 0;  // in the view
    };

    // Construction.
    template <class Widget>
    Widget& required(const char* objectName);
    void loadForm(const std::u16string& pluginFolder);
    void setUpCaptions();
    void setUpButtons();
    void setUpPolicies();
    void setUpGrouping();
    void setUpScrolling();
    void buildSummary();

    // Rows.
    std::vector<QWidget*> focusOrder() const;
    void regroup();
    void addNewSet();
    void removeNewSet(NewSetGui& set);
    void selectAllPressed();
    bool isSetNameTaken(const ExistingSetGui& set, const QString& name) const;

    // CreatableSets
    int setCount() const override;
    int propertyCount(int set) const override;
    CreatableRows& rowsOf(int set, int property) const override;
    Cursors& cursorsOf(int set) const override;
    int headerCount() const override;

    // Scrolling. All heights are of existingSetsWidget_.
    int viewTop() const;
    int viewBottom() const;
    int rowHeight() const;
    Anchor anchorAt(int y) const;
    void layOut(const Anchor& anchor);
    CreationWindow::MayDestroy isFar() const;
    void moveWindow(const ScrollStep& step);
    void trimWindow(Direction direction);
    void fillView();
    bool fillNextGap();

    // OK and the end.
    void okPressed();
    void closeAfterOk();
    bool isAcceptable(const std::vector<NewSetData>& newSets);
    void tellProblem(const ManyEditsProblem& problem);
    void focusOn(const ManyEditsProblem& problem);
    std::vector<NewSetData> newSetData() const;
    void askAboutSharedNames();
    std::vector<const ObjectRecord*> askAboutSharedSets(const QString& setName,
                                                        std::int32_t policy) const;
    CollectedEdits collect(const std::vector<NewSetData>& newSets);
    bool isSummaryAccepted(CollectedEdits& collected);
    void Apply();
    bool isCloseConfirmed();
    /// Runs `body`; what it throws is shown.
    void guarded(const std::function<void()>& body);

    LoadedRows rows_;
    const HostCalls& host_;
    Run run_;
    std::vector<std::uint64_t> objects_;
    std::list<std::unique_ptr<NewSetGui>> newSets_;  // in the order of adding
    bool loadingInProgress_ = false;                 // rows are being built
    bool isLoadingContent_ = false;
    bool selectAll_ = false;
    bool isMovingRows_ = false;
    bool isAskingToClose_ = false;
    bool isCloseWanted_ = false;  // after OK
    bool isClosing_ = false;
    QWidget* existingSetsWidget_ = nullptr;
    QBoxLayout* existingSetsLayout_ = nullptr;
    QBoxLayout* newSetsLayout_ = nullptr;
    QGridLayout* optionsLayout_ = nullptr;
    QPushButton* okButton_ = nullptr;
    QPushButton* cancelButton_ = nullptr;
    QPushButton* addSetButton_ = nullptr;
    QPushButton* selectAllButton_ = nullptr;
    QComboBox* groupingBox_ = nullptr;
    QScrollArea* scrollArea_ = nullptr;
    QScrollBar* scrollBar_ = nullptr;
    std::unique_ptr<QSpacerItem> spacer_;  // while it is not in the layout
    QSpacerItem* insertedSpacer_ = nullptr;
    std::unique_ptr<SummaryWindow> summary_;
    std::unique_ptr<LoadingDialog> applyDialog_;
    std::vector<IFC::ManyEdit> accepted_;
    CreationWindow window_{*this};
};
