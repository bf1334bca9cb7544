#pragma once

#include <QObject>
#include <QString>
#include <cstdint>
#include <memory>
#include <vector>

#include "gui/object_record.h"

class CustomQCheckBox;
class ExistingPropertyGui;
class LineTextEdit;
class QComboBox;
class QHBoxLayout;
class QLineEdit;
class QPushButton;
class QSplitter;
class QWidget;

/// One object's value of a property, or the representative of a group of equal values, on whose
/// behalf it shows and takes changes. There may be a million: without widgets a row is small and
/// has no connections.
class ExistingValueRowGui : public QObject {
    Q_OBJECT

public:
    /// What the host shows of one property of one object.
    struct Loaded {
        const ObjectRecord* object = nullptr;  ///< outlives the row
        QString setGuid;
        QString value;
        QString unit;           ///< as it is shown
        int unitIndex = -1;     ///< of a unit's label; -1 for none, and for one that is not offered
        std::int32_t kind = 0;  ///< HostPropertyKind
        std::int32_t valueType = 0;  ///< HostValueType
    };

    /// property: owns the row.
    ExistingValueRowGui(ExistingPropertyGui& property, Loaded loaded);
    ~ExistingValueRowGui() override;

    const ObjectRecord& object() const { return *object_; }
    const QString& setGuid() const { return setGuid_; }
    const QString& value() const { return value_; }
    const QString& initialValue() const { return initialValue_; }
    int unitIndex() const { return unitIndex_; }
    QString unit() const;
    const QString& initialUnit() const { return initialUnit_; }
    bool isBoolean() const;
    bool isNumeric() const;
    std::int32_t valueType() const { return valueType_; }
    bool isQuantity() const;
    bool isSelected() const { return isSelected_; }
    bool isValueChanged() const { return value_ != initialValue_; }
    bool isUnitChanged() const { return unitIndex_ != initialUnitIndex_; }

    // Of this row alone, whatever group it belongs to; widgets do not follow.
    void setSelected(bool isSelected);
    void setValue(const QString& value) { value_ = value; }
    void setUnitIndex(int index) { unitIndex_ = index; }

    /// The row stands for all of `members`, itself among them.
    void representGroup(std::vector<ExistingValueRowGui*> members);
    void standAlone() { members_.reset(); }
    int groupSize() const { return members_ ? static_cast<int>(members_->size()) : 1; }
    std::vector<ExistingValueRowGui*> group();

    /// Does nothing when there are widgets. The layout is for the caller to insert.
    void buildWidgets(bool isEditable);
    void destroyWidgets();
    bool hasWidgets() const { return widgets_ != nullptr; }
    QHBoxLayout* layout() const;
    /// What the layout holds, where it can be seen and reached; after the layout was inserted.
    void showWidgets();
    std::vector<QWidget*> focusOrder() const;
    bool hasFocus() const;
    /// Gives the keyboard to the value.
    void takeFocus();
    void showSelection();
    /// Shows the unit of the group's rows.
    void showUnit();

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void stateChanged(int state);

public slots:
    /// All rows of the property take over this one's value and unit.
    void Select();
    void Deselect();
    void BoolValueChanged(int index);
    void UnitIndexChanged(int index);

private:
    struct Widgets;

    void addGroupLabel();
    void addTruthEditor(bool isEditable);
    void addTextEditor(bool isEditable);
    void addUnitBox(bool isEditable);
    void addSelectButton(bool isEditable);
    void valueEdited(const QString& value);
    void showInitialValue();
    void selectionEdited(int state);
    bool filterUnitEvent(QEvent& event);
    bool filterKey(QEvent& event);
    QString objectsText() const;

    // Texts are shared with all rows that have the same one.
    ExistingPropertyGui& property_;
    const ObjectRecord* object_;
    QString setGuid_;
    QString value_;
    QString initialValue_;
    QString initialUnit_;
    std::int32_t unitIndex_;
    std::int32_t initialUnitIndex_;
    std::int8_t kind_;
    std::int8_t valueType_;
    bool isSelected_ = false;
    std::unique_ptr<std::vector<ExistingValueRowGui*>> members_;  // of a representative only
    std::unique_ptr<Widgets> widgets_;
};
