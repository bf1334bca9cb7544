#pragma once

#include <QAction>
#include <QHBoxLayout>
#include <QIcon>
#include <QMenu>
#include <QPointer>
#include <QScrollArea>
#include <QToolButton>
#include <map>
#include <vector>

#include "standin/core/ribbon.h"

namespace standin {

/// The strip of buttons: the host's groups, and behind them the plug-in's.
class RibbonBar : public QScrollArea {
    Q_OBJECT

public:
    explicit RibbonBar(QWidget* parent = nullptr);

    /// Adds a group of the host; widgets: taken, in their order.
    void addGroup(const QString& caption, const std::vector<QWidget*>& widgets);
    /// A large button for an action of the host.
    static QToolButton* makeButton(QAction* action);

    /// Brings the plug-in's groups into line with its part of the ribbon.
    void show(const Ribbon& ribbon);
    /// The items that the plug-in puts into the context menu, for any menu.
    void addItems(QMenu& menu, const Ribbon& ribbon, const std::vector<HostButtonId>& items);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void clicked(HostButtonId item);

private:
    /// A plug-in's item in the strip: a button, or an entry of a button's list.
    struct Shown {
        QPointer<QToolButton> button;
        QPointer<QAction> entry;
    };

    QWidget* makeGroup(const QString& caption, const std::vector<QWidget*>& widgets);
    void rebuild(const Ribbon& ribbon);
    QToolButton* makeButton(const RibbonItem& item);
    void press(QToolButton& button, HostButtonId id);
    QAction* addEntry(QMenu& menu, const RibbonItem& item);
    void update(QToolButton& button, const RibbonItem& item);
    void update(QAction& entry, const RibbonItem& item);
    /// other: where there is no image of that size.
    template <class Button>
    void setIcon(Button& button, const std::u16string& path, const std::u16string& other);

    QHBoxLayout* groups_ = nullptr;
    std::vector<QPointer<QWidget>> pluginGroups_;
    std::map<HostButtonId, Shown> shown_;
    std::vector<RibbonItem> built_;  // what the buttons were made from
    std::map<std::u16string, QIcon> icons_;
};

}  // namespace standin
