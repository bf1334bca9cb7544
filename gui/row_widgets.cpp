#include "gui/row_widgets.h"

#include <QCheckBox>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QTimer>
#include <QToolButton>

#include "gui/edit_many_state.h"
#include "gui/edit_many_texts.h"
#include "gui/qt_text.h"
#include "gui/row_style.h"

namespace row_widgets {
namespace {

constexpr int kMaxToolTip = 1000;         // signs
constexpr QSize kExpandIconSize(16, 16);  // where there is no image

}  // namespace

QToolButton* makeExpandButton(const char* objectName) {
    auto* const button = new QToolButton;
    button->setObjectName(QString::fromLatin1(objectName));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

void showExpanded(QToolButton& button, bool isExpanded) {
    const EditManyState& state = editManyState();
    const QIcon& icon = isExpanded ? state.minusIcon : state.plusIcon;
    QSize size = icon.availableSizes().value(0);
    if (size.isEmpty()) {  // the image is missing: the button stays usable
        size = kExpandIconSize;
        button.setText(isExpanded ? QStringLiteral("\u2212") : QStringLiteral("+"));
    }
    button.setIcon(icon);
    button.setIconSize(size);
    button.setFixedSize(size);
}

QPushButton* makeButton(const char* objectName, const QString& caption) {
    auto* const button = new QPushButton(caption);
    button->setObjectName(QString::fromLatin1(objectName));
    button->setMinimumWidth(row_style::kMinButtonWidth);
    button->setMaximumHeight(row_style::kMaxFieldHeight);
    button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    button->setAutoDefault(true);  // Return presses it
    return button;
}

void addSpacer(QBoxLayout& layout, int width) {
    layout.addSpacerItem(new QSpacerItem(width, 0, QSizePolicy::Fixed));
}

void showChecked(QCheckBox& box, std::size_t checked, std::size_t total) {
    const QSignalBlocker blocker(box);
    const bool isPart = checked > 0 && checked < total;
    box.setCheckState(isPart ? Qt::PartiallyChecked : checked == 0 ? Qt::Unchecked : Qt::Checked);
    box.setTristate(isPart);  // the user can choose between all and none only
}

QString toolTip(const QString& text) {
    QString shown = text.left(kMaxToolTip);
    if (shown.size() < text.size())
        shown += toQString(texts::many::kEllipsis);
    return QStringLiteral("<span style=\"white-space: pre-wrap\">") + shown.toHtmlEscaped() +
           QStringLiteral("</span>");
}

QScrollArea* scrollAreaOf(const QWidget& widget) {
    for (QWidget* parent = widget.parentWidget(); parent; parent = parent->parentWidget())
        if (auto* const area = qobject_cast<QScrollArea*>(parent))
            return area;
    return nullptr;
}

void takeFocus(QWidget& widget) {
    widget.show();  // a hidden one takes no keyboard
    widget.setFocus();
    // It has no place yet, if it is new.
    QTimer::singleShot(0, &widget, [&widget] {
        if (QScrollArea* const area = scrollAreaOf(widget))
            area->ensureWidgetVisible(&widget);
    });
}

LayoutPause::LayoutPause(QWidget* parent) {
    QLayout* const layout = parent ? parent->layout() : nullptr;
    if (!layout || !layout->isEnabled())
        return;  // paused already
    layout_ = layout;
    layout_->setEnabled(false);
}

LayoutPause::~LayoutPause() {
    if (!layout_)
        return;
    layout_->setEnabled(true);
    layout_->activate();
}

}  // namespace row_widgets
