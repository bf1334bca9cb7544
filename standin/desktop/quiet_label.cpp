#include "standin/desktop/quiet_label.h"

#include <QPainter>

namespace standin {

QuietLabel::QuietLabel(const QString& text, QWidget* parent) : QLabel(text, parent) {
    setTextFormat(Qt::PlainText);
}

/// Kept: a label paints nothing at all in the role PlaceholderText.
void QuietLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const QRect place = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
    const int wrap = wordWrap() ? Qt::TextWordWrap : 0;
    painter.drawText(place, static_cast<int>(alignment()) | wrap, text());
}

}  // namespace standin
