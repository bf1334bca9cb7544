#include "gui/custom_q_check_box.h"

#include <QDebug>
#include <QMouseEvent>

#include "gui/dialog_texts.h"

void CustomQCheckBox::mousePressEvent(QMouseEvent* event) {
    wasPressed_ = true;
    qDebug().nospace() << texts::kEventType << event->type();
    QCheckBox::mousePressEvent(event);
}
