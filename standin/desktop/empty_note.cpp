#include "standin/desktop/empty_note.h"

#include <QEvent>

namespace standin {
namespace {

constexpr int kMargin = 24;

}  // namespace

EmptyNote::EmptyNote(const QString& text, QAbstractItemView* view)
    : QuietLabel(text, view->viewport()), view_(view) {
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setMargin(kMargin);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    view->viewport()->installEventFilter(this);
    const QAbstractItemModel* const model = view->model();
    connect(model, &QAbstractItemModel::modelReset, this, &EmptyNote::update);
    connect(model, &QAbstractItemModel::rowsInserted, this, &EmptyNote::update);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &EmptyNote::update);
    update();
}

bool EmptyNote::eventFilter(QObject* watched, QEvent* event) {
    if (watched == view_->viewport() && event->type() == QEvent::Resize)
        update();
    return QuietLabel::eventFilter(watched, event);
}

void EmptyNote::update() {
    setGeometry(view_->viewport()->rect());
    setVisible(view_->model()->rowCount() == 0);
}

}  // namespace standin
