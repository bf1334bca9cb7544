#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <vector>

class LineTextEdit;
class NewSetGui;
class QBoxLayout;
class QComboBox;
class QHBoxLayout;
class QPushButton;
class QSplitter;
class QWidget;

/// One property that the user adds to a new set.
class NewPropertyRowGui : public QObject {
    Q_OBJECT

public:
    /// set: owns the row. unit: label of the unit, or empty. into: of the set, in a window.
    NewPropertyRowGui(NewSetGui& set, const QString& name, const QString& value,
                      const QString& unit, QBoxLayout& into);
    ~NewPropertyRowGui() override;

    /// The row is of no use afterwards.
    void destroyWidgets();
    const QString& name() const { return name_; }
    QString value() const;
    int unitIndex() const;
    std::vector<QWidget*> focusOrder() const;
    void takeNameFocus();
    void takeValueFocus();

private:
    void addUnitBox(const QString& unit);
    void nameEdited();
    /// What was typed becomes a unit, or is taken back.
    void unitTyped();

    NewSetGui& set_;
    QString name_;
    bool isResettingName_ = false;
    QPointer<QHBoxLayout> layout_;
    QSplitter* splitter_;  // holds the next three
    LineTextEdit* nameField_;
    LineTextEdit* valueField_;
    QComboBox* unitBox_;
    QPushButton* deleteButton_;
};
