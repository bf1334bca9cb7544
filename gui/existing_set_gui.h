#pragma once

#include <QHash>
#include <QObject>
#include <QString>
#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "gui/creation_window.h"
#include "gui/existing_property_gui.h"
#include "gui/object_record.h"

class CustomQCheckBox;
class LineTextEdit;
class QBoxLayout;
class QToolButton;

/// The existing sets of one name.
class ExistingSetGui : public QObject {
    Q_OBJECT

public:
    /// Says whether another set has a name already.
    using IsNameTaken = std::function<bool(const ExistingSetGui& set, const QString& name)>;

    /// guid: of the first set of the name; may be empty. carriers: the objects that have such a
    /// set; outlive the row.
    ExistingSetGui(QString name, QString guid, const SetCarriers& carriers);
    ~ExistingSetGui() override;

    const QString& name() const { return name_; }
    const QString& initialName() const { return initialName_; }
    const QString& guid() const { return guid_; }
    const SetCarriers& carriers() const { return carriers_; }
    bool isShared() const { return !sharedSetObjects(carriers_).empty(); }
    bool isEditable() const;
    bool isSelected() const;
    bool isExpanded() const { return isExpanded_; }
    const std::vector<std::unique_ptr<ExistingPropertyGui>>& properties() const {
        return properties_;
    }
    /// The property of that name, made when there is none.
    ExistingPropertyGui& property(const QString& name);
    /// Null when there is none.
    ExistingPropertyGui* findProperty(const QString& name) const;
    /// @return false when another property has the name; nothing has changed then.
    bool renameProperty(ExistingPropertyGui& property, const QString& name);
    /// Back to what the set is called in the model.
    void resetName();
    void setExpanded(bool isExpanded) { isExpanded_ = isExpanded; }
    void setNameCheck(IsNameTaken isNameTaken) { isNameTaken_ = std::move(isNameTaken); }

    /// Builds the header line and, in an expanded set, the properties; does nothing when they are
    /// there.
    void createGui(QBoxLayout& into);
    void destroyGui();
    bool hasWidgets() const { return widgets_ != nullptr; }
    std::vector<QWidget*> focusOrder() const;
    const LineTextEdit* nameField() const;
    /// Its properties have widgets.
    bool areChildrenShown() const { return widgets_ && isExpanded_; }
    void selectAllRows(bool isSelected);
    void showSelection();
    void takeFocus();
    void showChildren();

    CreatableSets::Cursors createdProperties;

signals:
    void ChildrenGuiVisibilityChanged();

public slots:
    void ShowChildBtnPressed();
    /// Finds the first and the last property that hold rows with widgets.
    void UpdateCreatedGuiPos();

private:
    struct Widgets;

    void createChildren();
    void nameEdited();
    void restoreName();
    void selectionEdited(int state);

    QString name_;
    QString initialName_;
    QString guid_;
    const SetCarriers& carriers_;
    IsNameTaken isNameTaken_;
    std::vector<std::unique_ptr<ExistingPropertyGui>> properties_;  // as loaded
    std::unordered_map<QString, ExistingPropertyGui*> propertiesByName_;
    bool isExpanded_ = true;
    bool isResettingName_ = false;
    std::unique_ptr<Widgets> widgets_;
};
