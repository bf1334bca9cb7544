#include "gui/message_boxes.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <utility>

#include "gui/dialog_texts.h"
#include "gui/qt_text.h"

namespace {

using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;

struct Button {
    QMessageBox::StandardButton button;
    MessageAnswer answer;
    const char* captionKey;
};

constexpr Button kButtons[] = {
    {QMessageBox::Ok, MessageAnswer::Ok, texts::kOkButtonKey},
    {QMessageBox::Yes, MessageAnswer::Yes, texts::kYesButtonKey},
    {QMessageBox::No, MessageAnswer::No, texts::kNoButtonKey},
    {QMessageBox::Cancel, MessageAnswer::Cancel, texts::kCancelButtonKey},
};

QMessageBox::StandardButtons offered(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::Ok: break;
        case MessageButtons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
        case MessageButtons::YesNo: return QMessageBox::Yes | QMessageBox::No;
        case MessageButtons::YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon iconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::None: break;
        case MessageIcon::Error: return QMessageBox::Critical;
        case MessageIcon::Question: return QMessageBox::Question;
        case MessageIcon::Warning: return QMessageBox::Warning;
        case MessageIcon::Information: return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButton buttonOf(MessageAnswer answer) {
    for (const Button& each : kButtons)
        if (each.answer == answer)
            return each.button;
    return QMessageBox::NoButton;
}

}  // namespace

MessageAnswer showMessage(QWidget* parent, std::u16string_view text, std::u16string_view caption,
                          MessageButtons buttons, MessageIcon icon, const TextLookup& textOf) {
    QMessageBox box(iconOf(icon), toQString(caption), toQString(text), offered(buttons),
                    parent ? parent : QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setEscapeButton(buttonOf(platform::neutralAnswer(buttons)));
    for (const Button& each : kButtons) {
        const QString ownCaption = textOf ? toQString(textOf(each.captionKey)) : QString();
        if (QAbstractButton* const button = box.button(each.button);
            button && !ownCaption.isEmpty())
            button->setText(ownCaption);
    }
    const int pressed = box.exec();
    for (const Button& each : kButtons)
        if (each.button == pressed)
            return each.answer;
    return platform::neutralAnswer(buttons);
}

QtMessageBoxes::QtMessageBoxes(TextLookup textOf)
    : textOf_(std::move(textOf)),
      handlerBefore_(platform::setMessageBoxHandler(
          [this](std::u16string_view text, std::u16string_view caption, MessageButtons buttons,
                 MessageIcon icon) { return show(text, caption, buttons, icon); })) {}

QtMessageBoxes::~QtMessageBoxes() { platform::setMessageBoxHandler(std::move(handlerBefore_)); }

MessageAnswer QtMessageBoxes::show(std::u16string_view text, std::u16string_view caption,
                                   MessageButtons buttons, MessageIcon icon) const {
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        return handlerBefore_ ? handlerBefore_(text, caption, buttons, icon)
                              : platform::showSystemMessageBox(text, caption, buttons, icon);
    return showMessage(nullptr, text, caption, buttons, icon, textOf_);
}
