#include "gui/line_text_edit.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextDocument>
#include <QWheelEvent>
#include <algorithm>

#include "gui/row_style.h"

namespace {

constexpr int kCharactersWide = 8;
constexpr int kLeastWidth = 40;
constexpr int kUsualWidth = 160;

}  // namespace

LineTextEdit::LineTextEdit(QWidget* parent) : QTextEdit(parent) {
    setTabChangesFocus(true);
    setAcceptRichText(false);
    setLineWrapMode(QTextEdit::NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMaximumHeight(row_style::kMaxFieldHeight);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
}

void LineTextEdit::setLine(const QString& text) {
    setPlainText(text);
    line_ = text;
    raw_ = document()->toRawText();
}

void LineTextEdit::setBoldLine(const QString& text) {
    setHtml(QStringLiteral("<b style=\"white-space: pre-wrap\">") + text.toHtmlEscaped() +
            QStringLiteral("</b>"));
    line_ = text;
    raw_ = document()->toRawText();
}

QString LineTextEdit::line() const {
    QString raw = document()->toRawText();
    if (raw == raw_)
        return line_;
    return raw.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

QSize LineTextEdit::sizeHint() const { return {kUsualWidth, row_style::kMaxFieldHeight}; }

QSize LineTextEdit::minimumSizeHint() const {
    return {std::max(kLeastWidth, fontMetrics().averageCharWidth() * kCharactersWide),
            row_style::kMaxFieldHeight};
}

void LineTextEdit::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:   // no second line
        case Qt::Key_Escape:  // the window's
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown: event->ignore(); break;
        default: QTextEdit::keyPressEvent(event);
    }
}

void LineTextEdit::resizeEvent(QResizeEvent* event) {
    QTextEdit::resizeEvent(event);
    centreVertically();
}

void LineTextEdit::changeEvent(QEvent* event) {
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        centreVertically();
    else if (event->type() == QEvent::ReadOnlyChange)  // to be told from what can be edited
        viewport()->setBackgroundRole(isReadOnly() ? QPalette::Window : QPalette::Base);
}

/// The wheel moves the list that the field stands in.
void LineTextEdit::wheelEvent(QWheelEvent* event) { event->ignore(); }

void LineTextEdit::insertFromMimeData(const QMimeData* source) {
    if (!source->hasText())
        return;
    QMimeData oneLine;
    oneLine.setText(source->text().replace(u'\n', u' ').remove(u'\r'));
    QTextEdit::insertFromMimeData(&oneLine);
}

void LineTextEdit::centreVertically() {
    const int room = viewport()->height() - fontMetrics().height();
    const double margin = std::max(0, room) / 2.0;
    if (document()->documentMargin() != margin)
        document()->setDocumentMargin(margin);
}
