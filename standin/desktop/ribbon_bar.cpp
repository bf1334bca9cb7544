#include "standin/desktop/ribbon_bar.h"

#include <QFrame>
#include <QObject>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "standin/desktop/qt_text.h"
#include "standin/desktop/quiet_label.h"

namespace standin {
namespace {

constexpr int kIconSize = 32;
constexpr int kMinWidth = 120;
/// A longer caption gets a second line.
constexpr int kLineLength = 12;

/// Broken at the blank that is nearest to its middle. All captions have two lines, so that the
/// first ones stand on one line.
QString onTwoLines(const QString& caption) {
    if (caption.size() <= kLineLength)
        return caption + QLatin1Char('\n');
    int best = -1;
    for (int at = caption.indexOf(QLatin1Char(' ')); at >= 0;
         at = caption.indexOf(QLatin1Char(' '), at + 1))
        if (best < 0 || std::abs(at - caption.size() / 2) < std::abs(best - caption.size() / 2))
            best = at;
    QString broken = caption;
    if (best < 0)
        return broken + QLatin1Char('\n');
    broken[best] = QLatin1Char('\n');
    return broken;
}

void prepare(QToolButton& button) {
    button.setAutoRaise(true);
    button.setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button.setIconSize({kIconSize, kIconSize});
    button.setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);
    button.setFocusPolicy(Qt::TabFocus);
}

QString hintOf(const RibbonItem& item) {
    return asToolTip(toQString(item.hint.empty() ? item.text : item.hint));
}

/// Whether the same buttons can show both.
bool isSameButton(const RibbonItem& a, const RibbonItem& b) {
    return a.id == b.id && a.list == b.list && a.group == b.group &&
           (a.kind != RibbonItem::Kind::Group || a.text == b.text);
}

}  // namespace

RibbonBar::RibbonBar(QWidget* parent) : QScrollArea(parent) {
    setObjectName(QStringLiteral("ribbon"));
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* const strip = new QWidget;
    groups_ = new QHBoxLayout(strip);
    groups_->setContentsMargins(4, 2, 4, 2);
    groups_->setSpacing(4);
    groups_->addStretch();
    setWidget(strip);
    connect(horizontalScrollBar(), &QScrollBar::rangeChanged, this, [this] { updateGeometry(); });
}

QSize RibbonBar::sizeHint() const {
    const bool isScrolled = horizontalScrollBar()->maximum() > 0;
    return widget()->sizeHint() +
           QSize(0, isScrolled ? horizontalScrollBar()->sizeHint().height() : 0);
}

/// As high as it needs to be, as narrow as the window wants.
QSize RibbonBar::minimumSizeHint() const { return {kMinWidth, sizeHint().height()}; }

QToolButton* RibbonBar::makeButton(QAction* action) {
    action->setIconText(onTwoLines(action->text()));
    auto* const button = new QToolButton;
    button->setDefaultAction(action);
    prepare(*button);
    return button;
}

QWidget* RibbonBar::makeGroup(const QString& caption, const std::vector<QWidget*>& widgets) {
    auto* const group = new QWidget;
    group->setAccessibleName(caption);
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(2);
    for (QWidget* const widget : widgets)
        buttons->addWidget(widget);
    auto* const label = new QuietLabel(caption);
    label->setAlignment(Qt::AlignHCenter);
    auto* const column = new QVBoxLayout;
    column->setSpacing(2);
    column->addLayout(buttons, 1);
    column->addWidget(label);
    auto* const line = new QFrame;
    line->setFrameShape(QFrame::VLine);
    line->setFrameShadow(QFrame::Sunken);
    auto* const row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    row->addLayout(column);
    row->addWidget(line);
    groups_->insertWidget(groups_->count() - 1, group);  // before the stretch
    return group;
}

void RibbonBar::addGroup(const QString& caption, const std::vector<QWidget*>& widgets) {
    makeGroup(caption, widgets);
    updateGeometry();
}

void RibbonBar::show(const Ribbon& ribbon) {
    const std::vector<RibbonItem>& items = ribbon.items();
    if (!std::equal(items.begin(), items.end(), built_.begin(), built_.end(), isSameButton))
        rebuild(ribbon);
    for (const RibbonItem& item : items) {
        const auto found = shown_.find(item.id);
        if (found == shown_.end())
            continue;
        if (found->second.button)
            update(*found->second.button, item);
        if (found->second.entry)
            update(*found->second.entry, item);
    }
}

void RibbonBar::rebuild(const Ribbon& ribbon) {
    // Later, because one of them may be at work.
    for (const QPointer<QWidget>& group : pluginGroups_) {
        if (group) {
            group->hide();
            group->deleteLater();
        }
    }
    pluginGroups_.clear();
    shown_.clear();
    built_ = ribbon.items();
    for (const RibbonItem& item : built_)
        if (item.kind != RibbonItem::Kind::Group && item.list == 0 && item.group != 0)
            shown_[item.id].button = makeButton(item);
    for (const RibbonItem& item : built_) {
        const auto list = shown_.find(item.list);
        if (item.list != 0 && list != shown_.end() && list->second.button &&
            list->second.button->menu())
            shown_[item.id].entry = addEntry(*list->second.button->menu(), item);
    }
    for (const RibbonItem& group : built_) {
        if (group.kind != RibbonItem::Kind::Group)
            continue;
        std::vector<QWidget*> buttons;
        for (const RibbonItem& item : built_)
            if (item.group == group.id && shown_[item.id].button)
                buttons.push_back(shown_[item.id].button);
        pluginGroups_.emplace_back(makeGroup(toQString(group.text), buttons));
    }
    updateGeometry();
}

QToolButton* RibbonBar::makeButton(const RibbonItem& item) {
    auto* const button = new QToolButton;
    prepare(*button);
    const HostButtonId id = item.id;
    if (item.kind == RibbonItem::Kind::SubButton) {
        auto* const menu = new QMenu(button);
        menu->setToolTipsVisible(true);
        button->setMenu(menu);
        button->setPopupMode(QToolButton::MenuButtonPopup);
        connect(button, &QToolButton::clicked, this, [this, button, id] { press(*button, id); });
        return button;
    }
    button->setCheckable(item.kind == RibbonItem::Kind::CheckBox);
    connect(button, &QToolButton::clicked, this, [this, id] { emit clicked(id); });
    return button;
}

/// Tells the plug-in of the click, and opens the list of the button, unless the plug-in has
/// answered with a window of its own.
void RibbonBar::press(QToolButton& button, HostButtonId id) {
    const QPointer<QToolButton> there(&button);
    bool hasWaited = false;  // in the loop of a window
    {
        QObject during;
        QTimer::singleShot(0, &during, [&hasWaited] { hasWaited = true; });
        emit clicked(id);
    }
    if (there && !hasWaited)
        there->showMenu();
}

QAction* RibbonBar::addEntry(QMenu& menu, const RibbonItem& item) {
    QAction* const entry = menu.addAction(QString());
    entry->setCheckable(item.kind == RibbonItem::Kind::CheckBox);
    connect(entry, &QAction::triggered, this, [this, id = item.id] { emit clicked(id); });
    update(*entry, item);
    return entry;
}

void RibbonBar::update(QAction& entry, const RibbonItem& item) {
    entry.setText(asCaption(item.text));
    entry.setToolTip(hintOf(item));
    setIcon(entry, item.smallImage, item.image);
    entry.setEnabled(item.isEnabled);
    if (entry.isCheckable())
        entry.setChecked(item.isDown);
}

void RibbonBar::update(QToolButton& button, const RibbonItem& item) {
    button.setText(onTwoLines(asCaption(item.text)));
    button.setAccessibleName(toQString(item.text));
    button.setToolTip(hintOf(item));
    setIcon(button, item.image, item.smallImage);
    button.setEnabled(item.isEnabled);
    if (button.isCheckable())
        button.setChecked(item.isDown);
}

template <class Button>
void RibbonBar::setIcon(Button& button, const std::u16string& path, const std::u16string& other) {
    const std::u16string& image = path.empty() ? other : path;
    if (image.empty())
        return;
    auto found = icons_.find(image);
    if (found == icons_.end())
        found = icons_.emplace(image, QIcon(toQString(image))).first;
    button.setIcon(found->second);
}

void RibbonBar::addItems(QMenu& menu, const Ribbon& ribbon,
                         const std::vector<HostButtonId>& items) {
    for (const HostButtonId id : items) {
        const auto item = std::find_if(ribbon.items().begin(), ribbon.items().end(),
                                       [id](const RibbonItem& one) { return one.id == id; });
        if (item != ribbon.items().end())
            addEntry(menu, *item);
    }
}

}  // namespace standin
