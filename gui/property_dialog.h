#pragma once

#include <QDialog>
#include <QIcon>
#include <optional>
#include <string>
#include <vector>

#include "edits/editing_windows.h"
#include "gui/property_entry.h"
#include "gui/text_lookup.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

/// Asks for a property or the name of a set. What cannot be taken is said in a message, and the
/// dialog stays open.
class PropertyDialog : public QDialog {
    Q_OBJECT

public:
    /// textOf: for the captions that are not in `input`, and for messages.
    PropertyDialog(IFC::PropertyWindowInput input, TextLookup textOf, const QIcon& icon = {},
                   QWidget* parent = nullptr);

    /// Nothing before the dialog is accepted.
    const std::optional<IFC::PropertyWindowResult>& entered() const { return entered_; }

    void setVisible(bool isVisible) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    void accept() override;

private:
    QString text(const char* key) const;
    QWidget* makeSetGroup();
    QWidget* makePropertyGroup();
    QWidget* makeValueField();
    QWidget* makeUnitField();
    QWidget* makeQuantityTypeField();
    QLayout* makeButtons();
    void addField(QGridLayout& grid, const QString& caption, QWidget* field, int stretch);
    void place();
    void quantityTypeChosen(int index);

    PropertyEntry entry() const;
    std::u16string valueText() const;
    QWidget* widgetOf(PropertyField field) const;
    bool isFirstClick(QObject* watched, const QEvent& event);

    const IFC::PropertyWindowInput input_;
    const TextLookup textOf_;
    std::optional<IFC::PropertyWindowResult> entered_;
    // The fields; those that the mode has no use for are null.
    QLineEdit* setName_ = nullptr;
    QLineEdit* propertyName_ = nullptr;
    QPlainTextEdit* value_ = nullptr;
    QComboBox* truthValue_ = nullptr;  // in the place of value_
    QComboBox* unit_ = nullptr;
    QComboBox* quantityType_ = nullptr;
    std::vector<QObject*> notClicked_;  // receivers of mouse events that the user has not clicked
};

/// Shows the dialog and waits for it. pluginFolder: where its icon is; UTF-16, without a separator
/// at its end. @return nothing when it is cancelled.
std::optional<IFC::PropertyWindowResult> askInPropertyDialog(const IFC::PropertyWindowInput& input,
                                                             const TextLookup& textOf,
                                                             const std::u16string& pluginFolder,
                                                             QWidget* parent = nullptr);
