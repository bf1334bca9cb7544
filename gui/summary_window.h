#pragma once

#include <QDialog>
#include <QPointer>
#include <QString>
#include <QTableWidget>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

class QPushButton;
class QVBoxLayout;

struct SummaryTexts {
    QString title;
    // Captions of the columns.
    QString node;
    QString oldName;
    QString newName;
    // Captions of the buttons.
    QString applyChanges;
    QString cancel;
    // Captions of the counts.
    QString totalModifications;
    QString newObjects;
    QString changedObjects;
};

/// One change that is about to be made, of as many objects as there are.
struct SummaryRecord {
    QString node;  ///< where: "Set / Property"
    QString oldText;
    QString newText;
    std::vector<std::uint64_t> objects;  ///< host object ids
};

/// Lists what is about to be changed and lets the user accept it or not. Built once, then for each
/// use cleared, filled, shown and cleared again.
class SummaryWindow : public QDialog {
    Q_OBJECT

public:
    /// What an object is called in the list of those that a change concerns.
    using ObjectNames = std::function<QString(std::uint64_t object)>;

    SummaryWindow(const SummaryTexts& texts, ObjectNames nameOf, QWidget* parent = nullptr);

    /// Forgets all records and the count table, and that the last use was accepted.
    void clear();
    void addChanged(SummaryRecord record);
    void addNew(SummaryRecord record);
    /// Fills the details table from the records: a row each.
    void showDetails();
    /// A new table of the counts, for insertion at position 1 of the layout, which then owns it.
    QTableWidget* buildCountTable();

    bool isAccepted() const { return isAccepted_; }
    /// Whether it stands on the screen, as the caller said.
    bool isShowing() const { return isShowing_; }
    void setShowing(bool isShowing) { isShowing_ = isShowing; }

public slots:  // The order is fixed.
    void Accept();
    void Cancel();
    /// row: of the count table; 0 shows or hides the two others.
    void ShowSummaryDetaild(int row);  // sic
    /// row: of the details table. Shows or hides, below it, the objects of the record.
    void ShowRowObjectsInfo(int row);
    void CellClicked(int row, int column);

protected:
    void showEvent(QShowEvent* event) override;
    void reject() override;  // Escape and the window's own close button

private:
    void setUpDetails();
    void addButtons();
    void divideColumns();
    void setRowMark(int row, const char16_t* mark);
    bool isRecordRow(int row) const;
    int countRowHeight() const;

    SummaryTexts texts_;
    ObjectNames nameOf_;
    std::vector<SummaryRecord> records_;  // in the order of the rows of the details table
    std::size_t changedCount_ = 0;        // objects
    std::size_t newCount_ = 0;            // objects
    bool isAccepted_ = false;
    bool isShowing_ = false;
    QVBoxLayout* layout_;
    QTableWidget* details_;
    QPointer<QTableWidget> counts_;
    QPushButton* acceptButton_ = nullptr;
    QPushButton* cancelButton_ = nullptr;
};
