#pragma once

#include <QObject>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "gui/creation_window.h"
#include "gui/existing_value_row_gui.h"

class CustomQCheckBox;
class ExistingSetGui;
class LineTextEdit;
class QBoxLayout;
class QHBoxLayout;
class QPushButton;
class QToolButton;
class QVBoxLayout;

/// One property of an existing set, with the values that the objects have of it.
class ExistingPropertyGui : public QObject, public CreatableRows {
    Q_OBJECT

public:
    /// How its values are shown.
    enum class Mode {
        Grouped,        ///< equal values as one row, which can be edited
        ChoosingValue,  ///< the same, to choose one for all
        PerObject,      ///< a row each, which can be edited
    };

    /// At most so many rows of a property are built at once; scrolling builds the others.
    static constexpr int kRowsAtOnce = 101;

    /// set: owns the property.
    ExistingPropertyGui(ExistingSetGui& set, QString name);
    ~ExistingPropertyGui() override;

    const QString& name() const { return name_; }
    const QString& initialName() const { return initialName_; }
    const QString& setName() const;
    void setName(const QString& name) { name_ = name; }
    bool isEditable() const { return isEditable_; }
    bool isNumeric() const { return isNumeric_; }
    bool isBoolean() const { return isBoolean_; }
    /// Of all its rows; -1 when they differ or have none.
    int unitIndex() const { return unitIndex_; }
    bool isSelected() const { return selectedCount_ == rows_.size(); }
    std::size_t selectedCount() const { return selectedCount_; }
    Mode mode() const { return mode_; }
    bool isExpanded() const { return isExpanded_; }
    const std::vector<std::unique_ptr<ExistingValueRowGui>>& rows() const { return rows_; }
    /// isEditable: whether the row's property can be edited in the file.
    void addRow(ExistingValueRowGui::Loaded loaded, bool isEditable);

    /// Builds the header, and the value rows of an expanded property. into: of the set.
    void createGui(QBoxLayout& into, int index);
    /// Puts the value rows together and gives widgets to the first of them. @return whether it did
    /// to all.
    bool createValueRows();
    void destroyValueRows();
    void destroyGui();
    bool hasWidgets() const { return widgets_ != nullptr; }
    std::vector<QWidget*> focusOrder() const;

    // CreatableRows
    int rowCount() const override;
    void createRow(int row) override;
    void destroyRow(int row) override;
    /// Destroys what was kept because it had the keyboard and has it no longer.
    void destroyKeptRow();
    /// Rows that have widgets, by their places, ascending.
    const std::vector<int>& liveRows() const { return liveRows_; }
    const ExistingValueRowGui& shownRow(int row) const;
    const LineTextEdit* nameField() const;

    QString groupLabelOf(const ExistingValueRowGui& row) const;
    /// All rows take over value and unit of `row`.
    void takeValueOf(const ExistingValueRowGui& row);
    void countSelection(bool isSelected) { isSelected ? ++selectedCount_ : --selectedCount_; }
    void selectAllRows(bool isSelected);
    /// Brings the check boxes of the property and its rows into line with the rows.
    void showSelection();
    void takeFocus();
    /// Gives the keyboard to a row, if it has widgets, or else to the name.
    void takeFocus(const ExistingValueRowGui& row);

signals:
    void stateChanged(int state);
    void ChildrenGuiVisibilityChanged();

public slots:
    /// To the next mode.
    void EditSeparatelyFunc();
    void ShowChildBtnPressed();
    void ChangeUnitInGroup(int index, std::vector<ExistingValueRowGui*> group);
    void CloseLoadingScreen();
    void DeselectAllRows();

private:
    struct Widgets;

    bool isRowEditable() const { return isEditable_ && mode_ != Mode::ChoosingValue; }
    bool isGrouped() const;
    void groupRows();
    void showLoadingScreen();
    void setMode(Mode mode);
    void showMode();
    void nameEdited();
    void selectionEdited(int state);
    void headerStateChanged();

    ExistingSetGui& set_;
    QString name_;
    QString initialName_;
    bool isEditable_ = true;
    bool isNumeric_ = true;
    bool isBoolean_ = true;
    int unitIndex_ = -1;
    Mode mode_ = Mode::Grouped;
    bool isExpanded_ = false;
    bool isResettingName_ = false;
    std::size_t selectedCount_ = 0;
    std::vector<std::unique_ptr<ExistingValueRowGui>> rows_;  // as loaded
    // Only while expanded.
    std::map<QString, std::vector<ExistingValueRowGui*>> groups_;
    std::vector<ExistingValueRowGui*> shownRows_;
    std::vector<int> liveRows_;
    std::unique_ptr<Widgets> widgets_;
};
