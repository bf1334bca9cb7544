#include "gui/summary_window.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "gui/dialog_texts.h"
#include "gui/row_style.h"

namespace {

constexpr QSize kSizeWithoutScreen(800, 500);
constexpr QSize kLargestSize(1100, 700);
constexpr QSize kSmallestSize(480, 360);
constexpr int kCountRowHeight = 24;
constexpr int kMaxRowHeight = 120;
constexpr std::size_t kMaxObjectRows = 200;  // of one record
constexpr int kLongText = 40;                // signs; may not fit into its column
constexpr int kMaxToolTip = 2000;            // signs

enum Column { kNodeColumn, kOldColumn, kNewColumn, kReferenceColumn, kColumnCount };

/// In the hidden column: the number of the record in the rows of records, nothing in the rows of
/// their objects.
constexpr int kRecordRole = Qt::UserRole;

QSize windowSize() {
    const QScreen* const screen = QGuiApplication::primaryScreen();
    if (!screen)
        return kSizeWithoutScreen;
    const QSize available = screen->availableSize();
    return (available * 0.65)
        .boundedTo(kLargestSize)
        .expandedTo(kSmallestSize)
        .boundedTo(available);
}

QFont bold(QFont font) {
    font.setBold(true);
    return font;
}

QTableWidgetItem* makeCell(const QString& text) {
    auto* const cell = new QTableWidgetItem(text);
    if (text.size() > kLongText || text.contains(u'\n'))
        cell->setToolTip(QStringLiteral("<span style=\"white-space: pre-wrap\">") +
                         text.left(kMaxToolTip).toHtmlEscaped() + QStringLiteral("</span>"));
    return cell;
}

}  // namespace

SummaryWindow::SummaryWindow(const SummaryTexts& texts, ObjectNames nameOf, QWidget* parent)
    : QDialog(parent),
      texts_(texts),
      nameOf_(std::move(nameOf)),
      layout_(new QVBoxLayout(this)),
      details_(new QTableWidget(0, kColumnCount)) {
    setObjectName(QStringLiteral("SummaryWindow"));
    setWindowTitle(texts.title);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    resize(windowSize());
    setUpDetails();
    auto* const area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    area->setFocusPolicy(Qt::NoFocus);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(details_);
    layout_->addWidget(area);
    addButtons();
}

void SummaryWindow::setUpDetails() {
    details_->setObjectName(QStringLiteral("SummaryDetails"));
    details_->setAccessibleName(texts_.title);
    details_->setColumnHidden(kReferenceColumn, true);
    const QString captions[] = {texts_.node, texts_.oldName, texts_.newName};
    for (int column = kNodeColumn; column <= kNewColumn; ++column) {
        auto* const caption = new QTableWidgetItem(captions[column].toUpper());
        caption->setFont(bold(details_->font()));
        details_->setHorizontalHeaderItem(column, caption);
    }
    QHeaderView* const header = details_->horizontalHeader();
    header->setSectionResizeMode(kNodeColumn, QHeaderView::Interactive);
    header->setSectionResizeMode(kOldColumn, QHeaderView::Interactive);
    header->setSectionResizeMode(kNewColumn, QHeaderView::Stretch);
    header->setStyleSheet(QString::fromLatin1(texts::kSummaryHeaderStyle));
    details_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    details_->setSelectionBehavior(QAbstractItemView::SelectRows);
    details_->setTabKeyNavigation(false);
    details_->setWordWrap(false);
    details_->setTextElideMode(Qt::ElideMiddle);  // the end says of how many objects
    details_->verticalHeader()->setMaximumSectionSize(kMaxRowHeight);
    details_->verticalHeader()->setSectionsClickable(true);
    details_->verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
    connect(details_->verticalHeader(), &QHeaderView::sectionClicked, this,
            &SummaryWindow::ShowRowObjectsInfo);
    connect(details_, &QTableWidget::cellClicked, this, &SummaryWindow::CellClicked);
    // What the mouse does on the header, for the keyboard.
    auto* const toggle =
        new QShortcut(Qt::Key_Space, details_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(toggle, &QShortcut::activated, this,
            [this] { ShowRowObjectsInfo(details_->currentRow()); });
}

void SummaryWindow::addButtons() {
    auto* const line = new QHBoxLayout;
    line->addItem(new QSpacerItem(1000, row_style::kMaxFieldHeight, QSizePolicy::Expanding,
                                  QSizePolicy::Fixed));
    const auto addButton = [&](const char* name, const QString& caption, auto slot) {
        auto* const button = new QPushButton(caption);
        button->setObjectName(QString::fromLatin1(name));
        connect(button, &QPushButton::pressed, this, slot);
        line->addWidget(button);
        return button;
    };
    acceptButton_ = addButton("SummaryAccept", texts_.applyChanges, &SummaryWindow::Accept);
    acceptButton_->setDefault(true);
    cancelButton_ = addButton("SummaryCancel", texts_.cancel, &SummaryWindow::Cancel);
    const QSize least = QSize(row_style::kMinButtonWidth, row_style::kMaxFieldHeight)
                            .expandedTo(acceptButton_->sizeHint())
                            .expandedTo(cancelButton_->sizeHint());
    acceptButton_->setMinimumSize(least);
    cancelButton_->setMinimumSize(least);
    layout_->addLayout(line);
}

void SummaryWindow::clear() {
    details_->clearContents();
    details_->setRowCount(0);
    records_.clear();
    delete counts_;
    changedCount_ = 0;
    newCount_ = 0;
    isAccepted_ = false;
}

void SummaryWindow::addChanged(SummaryRecord record) {
    changedCount_ += record.objects.size();
    records_.push_back(std::move(record));
}

void SummaryWindow::addNew(SummaryRecord record) {
    newCount_ += record.objects.size();
    records_.push_back(std::move(record));
}

void SummaryWindow::showDetails() {
    details_->setUpdatesEnabled(false);
    details_->setRowCount(0);
    details_->setRowCount(static_cast<int>(records_.size()));
    for (std::size_t index = 0; index < records_.size(); ++index) {
        const SummaryRecord& record = records_[index];
        const int row = static_cast<int>(index);
        QString node = record.node;
        if (record.objects.size() > 1)
            node += QStringLiteral(" (x%1)").arg(record.objects.size());
        details_->setItem(row, kNodeColumn, makeCell(node));
        details_->setItem(row, kOldColumn, makeCell(record.oldText));
        details_->setItem(row, kNewColumn, makeCell(record.newText));
        auto* const reference = new QTableWidgetItem;
        reference->setData(kRecordRole, static_cast<qulonglong>(index));
        details_->setItem(row, kReferenceColumn, reference);
        setRowMark(row, texts::kShowMore);
        // Fitting each of very many rows would take seconds.
        if (node.contains(u'\n') || record.oldText.contains(u'\n') ||
            record.newText.contains(u'\n'))
            details_->resizeRowToContents(row);
    }
    divideColumns();
    details_->setUpdatesEnabled(true);
    if (!records_.empty())
        details_->setCurrentCell(0, kNodeColumn);
}

void SummaryWindow::setRowMark(int row, const char16_t* mark) {
    details_->setVerticalHeaderItem(row, new QTableWidgetItem(QString::fromUtf16(mark)));
}

void SummaryWindow::divideColumns() {
    const int width = details_->viewport()->width() + 1;
    details_->setColumnWidth(kNodeColumn, width / 2);
    details_->setColumnWidth(kOldColumn, width / 4);
    details_->setColumnWidth(kNewColumn, width / 4);
}

QTableWidget* SummaryWindow::buildCountTable() {
    delete counts_;
    auto* const table = new QTableWidget(3, 2);
    counts_ = table;
    table->setObjectName(QStringLiteral("SummaryCounts"));
    table->setAccessibleName(texts_.totalModifications);
    table->setShowGrid(false);
    table->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    table->horizontalHeader()->hide();
    table->setStyleSheet(QString::fromLatin1(texts::kCountTableStyle));
    table->verticalHeader()->setStyleSheet(QString::fromLatin1(texts::kCountHeaderStyle));
    table->setSelectionMode(QAbstractItemView::NoSelection);
    table->setFocusPolicy(Qt::NoFocus);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const std::pair<QString, std::size_t> counts[] = {
        {texts_.totalModifications, changedCount_ + newCount_},
        {texts_.changedObjects, changedCount_},
        {texts_.newObjects, newCount_}};
    for (int row = 0; row < table->rowCount(); ++row) {
        auto* const caption = new QTableWidgetItem(counts[row].first);
        auto* const count = new QTableWidgetItem(QString::number(counts[row].second));
        count->setTextAlignment(Qt::AlignCenter);
        if (row == 0)
            caption->setFont(bold(table->font()));
        table->setItem(row, 0, caption);
        table->setItem(row, 1, count);
        table->setVerticalHeaderItem(row, new QTableWidgetItem);
    }
    table->setVerticalHeaderItem(0, new QTableWidgetItem(QString::fromUtf16(texts::kShowMore)));
    table->resizeColumnsToContents();
    table->verticalHeader()->setMinimumSectionSize(0);
    table->verticalHeader()->setSectionsClickable(true);
    for (int row = 0; row < table->rowCount(); ++row) {
        table->setRowHeight(row, countRowHeight());
        table->setRowHidden(row, row != 0);
    }
    table->setFixedHeight(countRowHeight());
    connect(table->verticalHeader(), &QHeaderView::sectionClicked, this,
            &SummaryWindow::ShowSummaryDetaild);
    return table;
}

/// Larger for large fonts only.
int SummaryWindow::countRowHeight() const {
    return std::max(kCountRowHeight, fontMetrics().height() + 2);
}

void SummaryWindow::Accept() {
    acceptButton_->setDown(false);  // it is released when the window is gone
    isAccepted_ = true;
    accept();
}

void SummaryWindow::Cancel() {
    cancelButton_->setDown(false);
    isAccepted_ = false;
    close();
}

void SummaryWindow::reject() {
    isAccepted_ = false;
    QDialog::reject();
}

void SummaryWindow::ShowSummaryDetaild(int row) {
    if (row != 0 || !counts_)
        return;
    const bool show = counts_->isRowHidden(1);
    counts_->setRowHidden(1, !show);
    counts_->setRowHidden(2, !show);
    counts_->setFixedHeight(countRowHeight() * (show ? counts_->rowCount() : 1));
    counts_->setVerticalHeaderItem(
        0, new QTableWidgetItem(QString::fromUtf16(show ? texts::kShowLess : texts::kShowMore)));
}

bool SummaryWindow::isRecordRow(int row) const {
    const QTableWidgetItem* const reference = details_->item(row, kReferenceColumn);
    return reference && reference->data(kRecordRole).isValid();
}

void SummaryWindow::ShowRowObjectsInfo(int row) {
    while (row > 0 && row < details_->rowCount() && !isRecordRow(row))
        --row;
    if (row < 0 || row >= details_->rowCount())
        return;
    int end = row + 1;
    while (end < details_->rowCount() && !isRecordRow(end))
        ++end;
    if (end > row + 1) {
        details_->model()->removeRows(row + 1, end - row - 1);
        details_->setCurrentCell(row, kNodeColumn);
        return setRowMark(row, texts::kShowMore);
    }
    const auto index = details_->item(row, kReferenceColumn)->data(kRecordRole).toULongLong();
    const std::vector<std::uint64_t>& objects = records_.at(index).objects;
    if (objects.empty())
        return;
    const std::size_t shown = std::min(objects.size(), kMaxObjectRows);
    const int rows = static_cast<int>(shown) + (shown < objects.size() ? 1 : 0);
    details_->model()->insertRows(row + 1, rows);
    const QString indent = QString::fromUtf16(texts::kIndent);
    for (int each = 0; each < rows; ++each) {
        const auto number = static_cast<std::size_t>(each);
        const QString name = number < shown ? nameOf_(objects[number])
                                            : QString::fromUtf16(texts::kMoreRows) +
                                                  QString::number(objects.size() - shown);
        details_->setItem(row + 1 + each, kNodeColumn, makeCell(indent + name));
        setRowMark(row + 1 + each, u"");
    }
    setRowMark(row, texts::kShowLess);
}

void SummaryWindow::CellClicked(int row, int column) {
    if (column == kNodeColumn)
        ShowRowObjectsInfo(row);
}

void SummaryWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    divideColumns();
    acceptButton_->setFocus();
}
