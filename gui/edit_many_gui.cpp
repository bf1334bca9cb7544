#include "gui/edit_many_gui.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QFrame>
#include <QGridLayout>
#include <QGuiApplication>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>
#include <array>
#include <exception>
#include <optional>
#include <stdexcept>
#include <utility>

#include "edits/edit_many.h"
#include "gui/edit_many_state.h"
#include "gui/edit_many_texts.h"
#include "gui/form_loader.h"
#include "gui/line_text_edit.h"
#include "gui/qt_text.h"
#include "gui/row_style.h"
#include "gui/row_widgets.h"
#include "gui/signal_emitter.h"
#include "gui/trace.h"
#include "ifc/io/numbers.h"
#include "platform/message_box.h"
#include "platform/text.h"

namespace {

using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;

constexpr QSize kLargestSize(1000, 900);
constexpr int kSpacerSize = 1000;
constexpr int kRegroupDelayMs = 500;
constexpr int kApplyDelayMs = 100;
/// The sets beyond so many properties start collapsed: each property costs a line of widgets.
constexpr std::size_t kMaxOpenProperties = 400;
/// Rows are there so many pixels before the user sees them, and stay for more than that.
constexpr int kAheadPixels = 500;
constexpr int kKeptPixels = 1000;
constexpr int kRowsAtLeast = 20;
constexpr int kGapsAtOnce = 8;
constexpr int kMostRows = 300;  // with widgets, while scrolling

std::u16string number(std::int64_t value) { return platform::fromUtf8(std::to_string(value)); }

std::u16string real(double value) {
    std::array<char, IFC::kRealTextBytes> text;
    return platform::fromUtf8({text.data(), IFC::formatReal(text.data(), value)});
}

void traceNumber(std::u16string_view what, std::int64_t value, std::u16string_view end = {}) {
    if (isTracing())
        trace(std::u16string(what) + number(value) + std::u16string(end));
}

void tell(std::u16string_view text, std::u16string_view caption, MessageIcon icon) {
    platform::showMessageBox(text, caption, MessageButtons::Ok, icon);
}

bool agreesTo(const QString& question) {
    return platform::showMessageBox(fromQString(question), texts::many::kCaption,
                                    MessageButtons::YesNo,
                                    MessageIcon::Question) == MessageAnswer::Yes;
}

QRect geometryOf(const ExistingValueRowGui& row) {
    return row.layout() ? row.layout()->geometry() : QRect();
}

}  // namespace

EditManyGui::EditManyGui(const HostCalls& host, const std::u16string& pluginFolder, Run run)
    : rows_(host), host_(host), run_(std::move(run)) {
    setObjectName(QStringLiteral("EditManyGui"));
    editManyState().captions = rowCaptions(host);
    loadForm(pluginFolder);
    setWindowIcon(QIcon(toQString(pluginFolder + std::u16string(texts::many::kWindowIcon))));
    setWindowTitle(toQString(texts::many::kCaption));
    setWindowModality(Qt::ApplicationModal);
    const QScreen* const screen = QGuiApplication::primaryScreen();
    resize(screen ? screen->availableSize().boundedTo(kLargestSize) : kLargestSize);
    setUpCaptions();
    existingSetsWidget_ = &required<QWidget>("EditPropertySetsWidget");
    existingSetsLayout_ = qobject_cast<QBoxLayout*>(existingSetsWidget_->layout());
    newSetsLayout_ = qobject_cast<QBoxLayout*>(required<QWidget>("NewSetsWidget").layout());
    optionsLayout_ = qobject_cast<QGridLayout*>(required<QFrame>("FrameOptions").layout());
    if (!existingSetsLayout_ || !newSetsLayout_ || !optionsLayout_)
        throw std::runtime_error(std::string(texts::many::kLayoutMissing) +
                                 (!existingSetsLayout_ ? "EditPropertySetsWidget"
                                  : !newSetsLayout_    ? "NewSetsWidget"
                                                       : "FrameOptions"));
    existingSetsLayout_->setContentsMargins(0, 0, 0, 0);
    existingSetsLayout_->setSpacing(0);
    existingSetsLayout_->setAlignment(Qt::AlignTop);
    setUpButtons();
    setUpPolicies();
    setUpGrouping();
    setUpScrolling();
    spacer_ = std::make_unique<QSpacerItem>(kSpacerSize, kSpacerSize, QSizePolicy::Expanding,
                                            QSizePolicy::Expanding);
    buildSummary();
}

EditManyGui::~EditManyGui() = default;

template <class Widget>
Widget& EditManyGui::required(const char* objectName) {
    auto* const widget = findChild<Widget*>(QString::fromLatin1(objectName));
    if (!widget)
        throw std::runtime_error(std::string(texts::many::kWidgetMissing) + objectName);
    return *widget;
}

void EditManyGui::loadForm(const std::u16string& pluginFolder) {
    QString error;
    const std::unique_ptr<QWidget> form =
        ::loadForm(pluginFolder + std::u16string(texts::many::kForm), error);
    if (!form)
        throw std::runtime_error(texts::many::kFormUnreadable + error.toStdString());
    const QString top = QStringLiteral("MainWindow");
    QWidget* const main = form->objectName() == top ? form.get() : form->findChild<QWidget*>(top);
    if (!main)
        throw std::runtime_error(std::string(texts::many::kWidgetMissing) + "MainWindow");
    if (!main->layout())
        throw std::runtime_error(std::string(texts::many::kLayoutMissing) + "MainWindow");
    setLayout(main->layout());  // and all widgets in it
}

void EditManyGui::setUpCaptions() {
    if (auto* const button = findChild<QPushButton*>(QStringLiteral("BtnShowInitialValues")))
        button->hide();
    const std::pair<const char*, const char*> labels[] = {
        {"AddPropertiesLabel", texts::many::kNewSetsKey},
        {"ExistingSetsLabel", texts::many::kExistingSetsKey}};
    for (const auto& [objectName, key] : labels) {
        if (auto* const label = findChild<QLabel*>(QString::fromLatin1(objectName))) {
            label->setTextFormat(Qt::PlainText);
            label->setText(toQString(host_.text(key)));
        }
    }
}

void EditManyGui::setUpButtons() {
    okButton_ = &required<QPushButton>("OkButton");
    cancelButton_ = &required<QPushButton>("CancelButton");
    selectAllButton_ = &required<QPushButton>("SelectAllQBtn");
    connect(okButton_, &QPushButton::pressed, this, [this] { guarded([this] { okPressed(); }); });
    connect(cancelButton_, &QPushButton::pressed, this, [this] {
        cancelButton_->setDown(false);
        close();
    });
    cancelButton_->setText(toQString(host_.text(texts::many::kCancelKey)));
    // Kept: one press of OK runs the OK flow and then asks to close; closing is refused while the
    // summary or the changes that it led to are under way.
    connect(okButton_, &QPushButton::pressed, this, &EditManyGui::closeAfterOk);
    okButton_->setText(toQString(host_.text(texts::many::kApplyChangesKey)));
    addSetButton_ = findChild<QPushButton*>(QStringLiteral("BtnAddNewSet"));
    if (!addSetButton_)
        throw std::runtime_error(texts::many::kConnectFail);
    connect(addSetButton_, &QPushButton::pressed, this,
            [this] { guarded([this] { addNewSet(); }); });
    addSetButton_->setText(toQString(host_.text(texts::many::kAddSetKey)));
    connect(selectAllButton_, &QPushButton::pressed, this, &EditManyGui::selectAllPressed);
    selectAllButton_->setText(toQString(host_.text(texts::many::kCheckAllKey)));
    for (QPushButton* const button : {okButton_, cancelButton_, addSetButton_, selectAllButton_})
        button->setAutoDefault(true);  // Return presses it
}

void EditManyGui::setUpPolicies() {
    for (int policy = 0; policy < static_cast<int>(std::size(texts::many::kPolicyKeys)); ++policy) {
        const char* const key = texts::many::kPolicyKeys[policy];
        auto* const button = new QRadioButton(toQString(host_.text(key)));
        button->setObjectName(QString::fromLatin1(key));
        button->setChecked(policy == 0);
        optionsLayout_->addWidget(button, policy % 2, policy / 2);
    }
}

void EditManyGui::setUpGrouping() {
    groupingBox_ = &required<QComboBox>("GroupingTypeQCB");
    groupingBox_->clear();
    for (const char* const key : texts::many::kGroupingKeys)
        groupingBox_->addItem(toQString(host_.text(key)));
    groupingBox_->setCurrentIndex(0);
    editManyState().groupingType = GroupingType::NamesAndIfcEntity;
    connect(groupingBox_, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &EditManyGui::GroupingTypeChanged);
}

void EditManyGui::setUpScrolling() {
    scrollArea_ = &required<QScrollArea>("AreaEditPropertySets");
    scrollBar_ = scrollArea_->verticalScrollBar();
    if (!scrollBar_)
        return;
    connect(scrollBar_, &QScrollBar::valueChanged, this, &EditManyGui::ScrollBarChange2);
    connect(scrollBar_, &QScrollBar::rangeChanged, this, [](int, int maximum) {
        traceNumber(texts::many::kLogRange, maximum);
        emit SignalEmitter::instance().ScrollBarRangeChangedSignal();
    });
}

void EditManyGui::buildSummary() {
    const auto text = [this](const char* key) { return toQString(host_.text(key)); };
    const SummaryTexts texts{.title = text(texts::many::kSummaryKey),
                             .node = text(texts::many::kNodeKey),
                             .oldName = text(texts::many::kOldNameKey),
                             .newName = text(texts::many::kNewNameKey),
                             .applyChanges = text(texts::many::kApplyChangesKey),
                             .cancel = text(texts::many::kCancelKey),
                             .totalModifications = text(texts::many::kTotalKey),
                             .newObjects = text(texts::many::kNewObjectsKey),
                             .changedObjects = text(texts::many::kChangedObjectsKey)};
    summary_ = std::make_unique<SummaryWindow>(
        texts,
        [this](std::uint64_t id) {
            const auto record = rows_.objectInfo.find(id);
            return record != rows_.objectInfo.end() ? record->second.displayName() : QString();
        },
        this);
}

void EditManyGui::setObjects(std::vector<std::uint64_t> objects) { objects_ = std::move(objects); }

std::int32_t EditManyGui::addingPolicy() const {
    for (int place = 0; place < optionsLayout_->count(); ++place) {
        const auto* const button =
            qobject_cast<QRadioButton*>(optionsLayout_->itemAt(place)->widget());
        if (button && button->isChecked())
            return place;
    }
    return AddPropertyOperation::kPolicyNotSpecified;
}

void EditManyGui::LoadContent() {
    guarded([this] {
        trace(texts::many::kLogLoadContent);
        isLoadingContent_ = true;
        LoadingDialog* const dialog = editManyState().loadingDialog.get();
        for (std::size_t index = 0; index < objects_.size() && !isClosing_; ++index) {
            if (rows_.load(objects_[index]) && isTracing())
                trace(std::u16string(texts::many::kLogLoaded) +
                      number(static_cast<std::int64_t>(index)) +
                      std::u16string(texts::many::kLogOf) +
                      number(static_cast<std::int64_t>(objects_.size())));
            if (dialog)
                dialog->setProgress(index + 1, objects_.size());
        }
        rows_.finish();
        std::size_t properties = 0;
        for (const auto& set : rows_.sets) {
            properties += set->properties().size();
            set->setExpanded(properties <= kMaxOpenProperties);
            set->setNameCheck([this](const ExistingSetGui& asking, const QString& name) {
                return isSetNameTaken(asking, name);
            });
        }
        if (rows_.lacksIfcNumber())
            tell(texts::many::kNoIfcNumber, texts::many::kCaption, MessageIcon::Warning);
    });
    isLoadingContent_ = false;
    emit LoadingFinished();
}

bool EditManyGui::isSetNameTaken(const ExistingSetGui& set, const QString& name) const {
    const bool isOfRow = std::any_of(rows_.sets.begin(), rows_.sets.end(), [&](const auto& each) {
        return each.get() != &set && each->name() == name;
    });
    // Sets without properties have no row.
    return isOfRow || (!rows_.findSet(name) && rows_.carriersOf(name));
}

void EditManyGui::CreateGuiForward() {
    if (loadingInProgress_) {
        trace(texts::many::kLogBuildCancelled);
        return;
    }
    if (rows_.sets.empty()) {
        traceNumber(texts::many::kLogNothingToLoad, editManyState().createdGuiCount);
        emit ShowLoadingDialogSignal(false);
        emit CreatingGuiFinished();
        return;
    }
    loadingInProgress_ = true;
    emit ShowLoadingDialogSignal(true);
    guarded([this] {
        LoadingDialog* const dialog = editManyState().loadingDialog.get();
        for (std::size_t index = 0; index < rows_.sets.size(); ++index) {
            ExistingSetGui& set = *rows_.sets[index];
            if (isTracing())
                trace(std::u16string(texts::many::kLogSetGui) + fromQString(set.name()) + u" (" +
                      number(static_cast<std::int64_t>(index)) + u")");
            set.createGui(*existingSetsLayout_);
            if (dialog)
                dialog->setProgress(index + 1, rows_.sets.size());
        }
        if (spacer_) {
            insertedSpacer_ = spacer_.release();
            existingSetsLayout_->addItem(insertedSpacer_);
        }
    });
    traceNumber(texts::many::kLogBuilt, editManyState().createdGuiCount);
    loadingInProgress_ = false;
    emit ShowLoadingDialogSignal(false);
    window_.firstCreatedSet = -1;
    window_.lastCreatedSet = 0;
    window_.update();
    for (const auto& set : rows_.sets) {
        connect(set.get(), &ExistingSetGui::ChildrenGuiVisibilityChanged, this,
                &EditManyGui::UpdateCreatedGuiPos, Qt::UniqueConnection);
        for (const auto& property : set->properties())
            connect(property.get(), &ExistingPropertyGui::ChildrenGuiVisibilityChanged, this,
                    &EditManyGui::UpdateCreatedGuiPos, Qt::UniqueConnection);
    }
    emit CreatingGuiFinished();
}

void EditManyGui::UpdateCreatedGuiPos() { window_.update(); }

void EditManyGui::GroupingTypeChanged(int index) {
    traceNumber(texts::many::kLogGrouping, index);
    emit ShowLoadingDialogSignal(true);
    QTimer::singleShot(kRegroupDelayMs, this, [this] { guarded([this] { regroup(); }); });
}

void EditManyGui::regroup() {
    if (loadingInProgress_)
        return CreateGuiForward();  // which refuses, and says so
    const auto type = static_cast<GroupingType>(groupingBox_->currentIndex());
    editManyState().groupingType = type;
    if (isLoadingContent_)
        return;  // the rows are built when all are there
    for (const auto& set : rows_.sets)
        set->destroyGui();
    if (insertedSpacer_) {
        existingSetsLayout_->removeItem(insertedSpacer_);
        spacer_.reset(std::exchange(insertedSpacer_, nullptr));
    }
    editManyState().createdGuiCount = 0;
    CreateGuiForward();
    if (scrollBar_)
        scrollBar_->setValue(0);
    emit ShowLoadingDialogSignal(false);
}

void EditManyGui::addNewSet() {
    addSetButton_->setDown(false);  // the keyboard goes on to the new row
    const NewSetGui::Owner owner{
        .isNameTaken =
            [this](const NewSetGui& asking, const QString& name) {
                return std::any_of(newSets_.begin(), newSets_.end(), [&](const auto& each) {
                    return each.get() != &asking && each->name() == name;
                });
            },
        .remove = [this](NewSetGui& set) { removeNewSet(set); }};
    newSets_.push_back(std::make_unique<NewSetGui>(owner, QString(), *newSetsLayout_));
    newSets_.back()->takeFocus();
}

void EditManyGui::removeNewSet(NewSetGui& set) {
    const auto found = std::find_if(newSets_.begin(), newSets_.end(),
                                    [&](const auto& each) { return each.get() == &set; });
    if (found == newSets_.end())
        return;
    set.destroyWidgets();
    found->release()->deleteLater();
    newSets_.erase(found);
}

void EditManyGui::selectAllPressed() {
    selectAllButton_->setDown(false);
    selectAll_ = !selectAll_;
    for (const auto& set : rows_.sets)
        set->selectAllRows(selectAll_);
    selectAllButton_->setText(toQString(
        host_.text(selectAll_ ? texts::many::kUncheckAllKey : texts::many::kCheckAllKey)));
}

// ---- the rows that have widgets ----

int EditManyGui::setCount() const { return static_cast<int>(rows_.sets.size()); }

int EditManyGui::propertyCount(int set) const {
    const ExistingSetGui& row = *rows_.sets[static_cast<std::size_t>(set)];
    return row.areChildrenShown() ? static_cast<int>(row.properties().size()) : 0;
}

CreatableRows& EditManyGui::rowsOf(int set, int property) const {
    return *rows_.sets[static_cast<std::size_t>(set)]
                ->properties()[static_cast<std::size_t>(property)];
}

CreatableSets::Cursors& EditManyGui::cursorsOf(int set) const {
    return rows_.sets[static_cast<std::size_t>(set)]->createdProperties;
}

int EditManyGui::headerCount() const {
    int count = 0;
    for (const auto& set : rows_.sets) {
        count += set->hasWidgets() ? 1 : 0;
        count += set->areChildrenShown() ? static_cast<int>(set->properties().size()) : 0;
    }
    return count;
}

int EditManyGui::liveRowCount() const {
    std::size_t count = 0;
    for (const auto& set : rows_.sets)
        for (const auto& property : set->properties())
            count += property->liveRows().size();
    return static_cast<int>(count);
}

int EditManyGui::viewTop() const {
    return -existingSetsWidget_->mapTo(scrollArea_->viewport(), QPoint(0, 0)).y();
}

int EditManyGui::viewBottom() const { return viewTop() + scrollArea_->viewport()->height(); }

int EditManyGui::rowHeight() const { return row_style::kMaxFieldHeight; }

/// The first line that reaches below `y`.
EditManyGui::Anchor EditManyGui::anchorAt(int y) const {
    QWidget* best = nullptr;
    const auto consider = [&](QWidget* widget) {
        if (!best && widget && widget->geometry().bottom() >= y)
            best = widget;
        return best != nullptr;
    };
    for (const auto& set : rows_.sets) {
        if (!set->hasWidgets() || consider(set->focusOrder().front()))
            break;
        for (const auto& property : set->properties()) {
            if (!property->hasWidgets())
                break;
            if (consider(property->focusOrder().front()))
                break;
            for (const int row : property->liveRows())
                if (consider(property->shownRow(row).focusOrder().front()))
                    break;
            if (best)
                break;
        }
        if (best)
            break;
    }
    return {best, best ? best->y() - viewTop() : 0};
}

/// Gives all new rows their places, and scrolls so that the anchor stays where it was.
void EditManyGui::layOut(const Anchor& anchor) {
    existingSetsLayout_->activate();
    QEvent request(QEvent::LayoutRequest);
    QCoreApplication::sendEvent(scrollArea_, &request);
    if (anchor.widget)
        scrollBar_->setValue(scrollBar_->value() + anchor.widget->y() - viewTop() - anchor.y);
}

void EditManyGui::ScrollBarChange2(int value) {
    if (isMovingRows_ || loadingInProgress_)
        return;
    isMovingRows_ = true;  // rows that come and go move the scroll bar too
    guarded([&] {
        EditManyState& state = editManyState();
        for (const auto& set : rows_.sets)
            for (const auto& property : set->properties())
                property->destroyKeptRow();
        const ScrollStep step =
            scrollStep(value, scrollBar_->maximum(), window_.lastScrollPercent,
                       window_.createdTo - window_.createdFrom, state.scrollRatio);
        if (step.isMove)
            moveWindow(step);
        fillView();
        trimWindow(step.direction);
        if (isTracing()) {
            trace(std::u16string(texts::many::kLogRatio) + real(state.scrollRatio));
            traceNumber(texts::many::kLogRuleBegin, state.scrollCount++, texts::many::kLogRuleEnd);
        }
        // The range is another than before when rows came or went.
        const int maximum = scrollBar_->maximum();
        window_.lastScrollValue = scrollBar_->value();
        window_.lastScrollPercent =
            maximum > 0 ? static_cast<std::int32_t>(static_cast<double>(scrollBar_->value()) /
                                                    maximum * 100.0)
                        : 0;
    });
    isMovingRows_ = false;
}

/// Whether rows are so far from what the user sees that they may lose their widgets.
CreationWindow::MayDestroy EditManyGui::isFar() const {
    const int top = viewTop() - kKeptPixels;
    const int bottom = viewBottom() + kKeptPixels;
    return [top, bottom](CreatableRows& rows, int row) {
        const QRect place = geometryOf(static_cast<ExistingPropertyGui&>(rows).shownRow(row));
        return place.isValid() && (place.bottom() < top || place.top() > bottom);
    };
}

void EditManyGui::moveWindow(const ScrollStep& step) {
    const Anchor anchor = anchorAt(viewTop());
    const CreationWindow::MayDestroy mayDestroy = isFar();
    std::optional<row_widgets::LayoutPause> pause(existingSetsWidget_);
    double& ratio = editManyState().scrollRatio;
    if (step.direction == Direction::Down) {
        const int created = window_.createAtEnd(step.create);
        ratio += created;
        traceNumber(texts::many::kLogCreatedAtEnd, created);
        const int deleted = window_.deleteAtBeginning(step.destroy, mayDestroy);
        ratio -= deleted;
        traceNumber(texts::many::kLogDeletedAtBeginning, deleted);
    } else {
        const int created = window_.createAtBeginning(step.create);
        ratio += created;
        traceNumber(texts::many::kLogCreatedAtBeginning, created);
        const int deleted = window_.deleteAtEnd(step.destroy, mayDestroy);
        ratio -= deleted;
        traceNumber(texts::many::kLogDeletedAtEnd, deleted);
    }
    pause.reset();
    layOut(anchor);
}

/// What was created to fill the view lets rows go at the ends of the window, those behind the
/// movement first.
void EditManyGui::trimWindow(Direction direction) {
    int surplus = liveRowCount() - kMostRows;
    if (surplus <= 0)
        return;
    const Anchor anchor = anchorAt(viewTop());
    const CreationWindow::MayDestroy mayDestroy = isFar();
    const bool isDown = direction == Direction::Down;
    int deleted = isDown ? window_.deleteAtBeginning(surplus, mayDestroy)
                         : window_.deleteAtEnd(surplus, mayDestroy);
    surplus -= deleted;
    deleted += isDown ? window_.deleteAtEnd(surplus, mayDestroy)
                      : window_.deleteAtBeginning(surplus, mayDestroy);
    editManyState().scrollRatio -= deleted;
    layOut(anchor);
}

/// Where rows are missing in what the user sees, or nearly, they are created, however far from the
/// ends of the window that is.
void EditManyGui::fillView() {
    for (int gap = 0; gap < kGapsAtOnce; ++gap)
        if (!fillNextGap())
            return;
}

bool EditManyGui::fillNextGap() {
    const int top = viewTop();
    const int bottom = viewBottom();
    for (const auto& set : rows_.sets) {
        for (const auto& property : set->properties()) {
            const int count = property->rowCount();
            const bool isEmpty = property->firstCreated == property->endCreated;
            if (count == 0 ||
                (!isEmpty && property->firstCreated == 0 && property->endCreated == count))
                continue;
            const int header = property->nameField()->geometry().bottom();
            const int head =
                isEmpty ? header : geometryOf(property->shownRow(property->firstCreated)).top();
            const int tail =
                isEmpty ? header
                        : geometryOf(property->shownRow(property->endCreated - 1)).bottom();
            const bool isHeadSeen =
                property->firstCreated > 0 && head >= top - kAheadPixels && head <= bottom;
            const bool isTailSeen =
                property->endCreated < count && tail >= top && tail <= bottom + kAheadPixels;
            if (!isHeadSeen && !isTailSeen)
                continue;
            const Direction direction = isTailSeen ? Direction::Down : Direction::Up;
            const int missing =
                isTailSeen ? bottom + kAheadPixels - tail : head - (top - kAheadPixels);
            const int rows = std::clamp(missing / rowHeight() + 1, kRowsAtLeast,
                                        ExistingPropertyGui::kRowsAtOnce);
            const Anchor anchor = anchorAt(isTailSeen ? top : std::max(top, head));
            {
                const row_widgets::LayoutPause pause(existingSetsWidget_);
                editManyState().scrollRatio += window_.extend(*property, direction, rows);
            }
            window_.update();
            layOut(anchor);
            return true;
        }
    }
    return false;
}

// ---- OK and the end ----

void EditManyGui::guarded(const std::function<void()>& body) {
    try {
        body();
    } catch (const std::exception& fault) {
        tell(platform::fromUtf8(fault.what()), texts::many::kErrorCaption, MessageIcon::Error);
    }
}

std::vector<NewSetData> EditManyGui::newSetData() const {
    std::vector<NewSetData> sets;
    for (const auto& set : newSets_) {
        NewSetData& each = sets.emplace_back();
        each.name = set->name();
        for (const auto& property : set->properties())
            each.properties.push_back({property->name(), property->value(), property->unitIndex()});
    }
    return sets;
}

void EditManyGui::okPressed() {
    okButton_->setDown(false);  // a window comes before it is released
    isCloseWanted_ = false;
    if (summary_->isShowing())
        return;
    const std::vector<NewSetData> newSets = newSetData();
    if (!isAcceptable(newSets))
        return;
    isCloseWanted_ = true;
    summary_->clear();
    CollectedEdits collected = collect(newSets);
    if (!isSummaryAccepted(collected))
        return;
    accepted_ = std::move(collected.edits);
    applyDialog_ = std::make_unique<LoadingDialog>(toQString(host_.text(texts::many::kLoadingKey)));
    applyDialog_->show();
    QTimer::singleShot(kApplyDelayMs, this, &EditManyGui::Apply);
}

void EditManyGui::closeAfterOk() {
    if (std::exchange(isCloseWanted_, false))
        close();
}

/// Shows the summary. What it shows is forgotten afterwards; that it was accepted is not, until the
/// window is gone.
bool EditManyGui::isSummaryAccepted(CollectedEdits& collected) {
    for (SummaryRecord& record : collected.changed)
        summary_->addChanged(std::move(record));
    for (SummaryRecord& record : collected.added)
        summary_->addNew(std::move(record));
    summary_->showDetails();
    auto* const table = summary_->buildCountTable();
    static_cast<QBoxLayout*>(summary_->layout())->insertWidget(1, table);
    table->resizeRowsToContents();
    summary_->setShowing(true);
    summary_->exec();
    const bool isAccepted = summary_->isAccepted();
    summary_->clear();
    summary_->setShowing(isAccepted);
    return isAccepted;
}

bool EditManyGui::isAcceptable(const std::vector<NewSetData>& newSets) {
    auto problem = problemOf(rows_);
    if (!problem)
        problem = problemOf(newSets);
    if (problem)
        tellProblem(*problem);
    return !problem;
}

void EditManyGui::tellProblem(const ManyEditsProblem& problem) {
    std::u16string text = problem.key ? host_.text(problem.key) : problem.text;
    if (!problem.where.isEmpty())
        text += u"\n" + fromQString(problem.where);
    tell(text, texts::many::kCaption, MessageIcon::Warning);
    focusOn(problem);
    if (QWidget* const focus = focusWidget())
        if (scrollArea_->isAncestorOf(focus))
            scrollArea_->ensureWidgetVisible(focus);
}

void EditManyGui::focusOn(const ManyEditsProblem& problem) {
    if (problem.set) {
        if (problem.property)
            problem.set->showChildren();
        if (problem.row)
            problem.property->takeFocus(*problem.row);
        else if (problem.property)
            problem.property->takeFocus();
        else
            problem.set->takeFocus();
        layOut({});
        return;
    }
    const auto set = std::next(newSets_.begin(), static_cast<std::ptrdiff_t>(problem.newSet));
    const auto& properties = (*set)->properties();
    if (problem.newProperty >= properties.size())
        return (*set)->takeFocus();
    const auto& property =
        *std::next(properties.begin(), static_cast<std::ptrdiff_t>(problem.newProperty));
    problem.isValue ? property->takeValueFocus() : property->takeNameFocus();
}

void EditManyGui::askAboutSharedNames() {
    for (const auto& set : rows_.sets)
        if (set->name() != set->initialName() && set->isShared() &&
            !agreesTo(editManyState().captions.editAllQuestion))
            set->resetName();
}

/// The objects that a new set is not to reach, because the user wants to leave their shared sets of
/// that name alone.
std::vector<const ObjectRecord*> EditManyGui::askAboutSharedSets(const QString& setName,
                                                                 std::int32_t policy) const {
    const SetCarriers* const carriers = carriersAfterRenames(rows_, setName);
    if (!carriers || policy == IFC::kSkipExistingSet)
        return {};
    std::vector<const ObjectRecord*> shared = sharedSetObjects(*carriers);
    const RowCaptions& captions = editManyState().captions;
    if (shared.empty() || agreesTo(policy == IFC::kOverrideExistingSet ? captions.deleteAllQuestion
                                                                       : captions.addToAllQuestion))
        return {};
    return shared;
}

CollectedEdits EditManyGui::collect(const std::vector<NewSetData>& newSets) {
    askAboutSharedNames();
    CollectedEdits collected;
    collectExisting(rows_, collected);
    const std::int32_t policy = addingPolicy();
    if (policy < IFC::kSkipExistingSet || policy > IFC::kOverrideExistingProperty)
        return collected;
    for (const NewSetData& set : newSets) {
        const auto excluded = askAboutSharedSets(set.name, policy);
        const bool isAny = collectNewSet(set, rows_, objects_, policy, excluded, collected);
        if (!isAny && policy == IFC::kSkipExistingSet && carriersAfterRenames(rows_, set.name))
            tell(texts::many::kSetExists, texts::many::kCaption, MessageIcon::Information);
    }
    return collected;
}

void EditManyGui::Apply() {
    const std::int32_t policy = addingPolicy();
    guarded([&] {
        if (!accepted_.empty() && run_.apply)
            run_.apply({.edits = std::move(accepted_), .addingPolicy = policy},
                       [this](std::size_t done, std::size_t total) {
                           applyDialog_->setProgress(done, total);
                       });
    });
    run_.storePolicy(policy);
    if (policy == AddPropertyOperation::kPolicyNotSpecified)
        tell(texts::many::kPolicyNotSpecified, texts::many::kErrorCaption, MessageIcon::Error);
    else if (policy < 0 || policy > AddPropertyOperation::kPolicyNotSpecified)
        tell(texts::many::kPolicyError, texts::many::kErrorCaption, MessageIcon::Error);
    run_.storePolicy(AddPropertyOperation::kPolicyNotSpecified);
    applyDialog_->close();
    isClosing_ = true;
    run_.endLoop();
}

void EditManyGui::closeEvent(QCloseEvent* event) {
    if (summary_->isShowing() || isAskingToClose_ || !(isClosing_ || isCloseConfirmed()))
        return event->ignore();
    isClosing_ = true;
    run_.endLoop();
    event->accept();
}

bool EditManyGui::isCloseConfirmed() {
    isAskingToClose_ = true;
    QMessageBox box(QMessageBox::Question, toQString(texts::many::kCaption),
                    toQString(host_.text(texts::many::kExitQuestionKey)), QMessageBox::NoButton,
                    this);
    box.setObjectName(QStringLiteral("ExitQuestion"));
    box.setTextFormat(Qt::PlainText);
    const QPushButton* const yes =
        box.addButton(toQString(host_.text(texts::many::kYesKey)), QMessageBox::YesRole);
    QPushButton* const no =
        box.addButton(toQString(host_.text(texts::many::kNoKey)), QMessageBox::NoRole);
    box.setDefaultButton(no);
    box.setEscapeButton(no);
    box.exec();
    isAskingToClose_ = false;
    return box.clickedButton() == yes;
}

/// What Tab goes over, as it is read from top to bottom.
std::vector<QWidget*> EditManyGui::focusOrder() const {
    std::vector<QWidget*> order{addSetButton_};
    const auto append = [&](const std::vector<QWidget*>& widgets) {
        order.insert(order.end(), widgets.begin(), widgets.end());
    };
    if (QScrollArea* const area = row_widgets::scrollAreaOf(*newSetsLayout_->parentWidget()))
        order.push_back(area);
    for (const auto& set : newSets_)
        append(set->focusOrder());
    for (int place = 0; place < optionsLayout_->count(); ++place)
        if (QWidget* const widget = optionsLayout_->itemAt(place)->widget())
            order.push_back(widget);
    append({groupingBox_, selectAllButton_, scrollArea_});
    for (const auto& set : rows_.sets) {
        append(set->focusOrder());
        for (const auto& property : set->properties()) {
            append(property->focusOrder());
            for (const int row : property->liveRows())
                append(property->shownRow(row).focusOrder());
        }
    }
    append({okButton_, cancelButton_});
    return order;
}

/// Rows come and go at any place, and Qt's own order would have to be searched for each.
bool EditManyGui::focusNextPrevChild(bool next) {
    std::vector<QWidget*> order = focusOrder();
    if (!next)
        std::reverse(order.begin(), order.end());
    const auto now = std::find(order.begin(), order.end(), focusWidget());
    if (now == order.end())
        return QWidget::focusNextPrevChild(next);
    std::rotate(order.begin(), now, order.end());
    const auto found = std::find_if(order.begin() + 1, order.end(), [](const QWidget* widget) {
        return (widget->focusPolicy() & Qt::TabFocus) && widget->isEnabled() && widget->isVisible();
    });
    if (found == order.end())
        return false;
    (*found)->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void EditManyGui::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}
