#pragma once

#include <QAbstractItemView>

#include "standin/desktop/quiet_label.h"

namespace standin {

/// Says in the middle of a view what there could be, as long as its model is empty.
class EmptyNote : public QuietLabel {
    Q_OBJECT

public:
    /// view: with its model set; takes the note.
    EmptyNote(const QString& text, QAbstractItemView* view);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void update();

    QAbstractItemView* view_;
};

}  // namespace standin
