#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>
#include <list>
#include <memory>
#include <unordered_map>
#include <vector>

#include "gui/new_property_row_gui.h"

class LineTextEdit;
class QBoxLayout;
class QHBoxLayout;
class QPushButton;
class QVBoxLayout;
class QWidget;

/// One set that the user adds to all the selected objects.
class NewSetGui : public QObject {
    Q_OBJECT

public:
    /// What the window does for its new sets.
    struct Owner {
        /// Whether another new set has the name already.
        std::function<bool(const NewSetGui& set, const QString& name)> isNameTaken;
        /// Removes the set; it may be called from one of the set's own signals.
        std::function<void(NewSetGui& set)> remove;
    };

    /// into: of the window.
    NewSetGui(Owner owner, const QString& name, QBoxLayout& into);
    ~NewSetGui() override;

    /// The row is of no use afterwards.
    void destroyWidgets();
    const QString& name() const { return name_; }
    const std::list<std::unique_ptr<NewPropertyRowGui>>& properties() const { return properties_; }
    NewPropertyRowGui& addProperty(const QString& name, const QString& value, const QString& unit);
    /// May be called from one of the row's own signals.
    void removeProperty(NewPropertyRowGui& property);
    /// @return false when another property of the set has the name; nothing has changed then.
    bool renameProperty(NewPropertyRowGui& property, const QString& name);
    std::vector<QWidget*> focusOrder() const;
    void takeFocus();

private:
    void nameEdited();

    Owner owner_;
    QString name_;
    bool isResettingName_ = false;
    QPointer<QVBoxLayout> layout_;
    QVBoxLayout* propertiesLayout_;
    LineTextEdit* nameField_;
    QPushButton* addButton_;
    QPushButton* deleteButton_;
    std::list<std::unique_ptr<NewPropertyRowGui>> properties_;  // in the order of adding
    std::unordered_map<QString, NewPropertyRowGui*> propertiesByName_{8};
};
