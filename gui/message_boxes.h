#pragma once

#include <string_view>

#include "gui/text_lookup.h"
#include "platform/message_box.h"

class QWidget;

/// Shows a message, taken literally, and waits for the answer. parent: the window that waits for
/// it; null for the active one. textOf: captions of the buttons, by key; an empty text leaves Qt's.
platform::MessageAnswer showMessage(QWidget* parent, std::u16string_view text,
                                    std::u16string_view caption, platform::MessageButtons buttons,
                                    platform::MessageIcon icon, const TextLookup& textOf);

/// While it lives, the messages of the process are boxes of this folder's kind, whenever there is
/// an application object to show them; else they are shown as before.
class QtMessageBoxes {
public:
    /// textOf: as in showMessage().
    explicit QtMessageBoxes(TextLookup textOf);
    ~QtMessageBoxes();
    QtMessageBoxes(const QtMessageBoxes&) = delete;
    QtMessageBoxes& operator=(const QtMessageBoxes&) = delete;

private:
    platform::MessageAnswer show(std::u16string_view text, std::u16string_view caption,
                                 platform::MessageButtons buttons,
                                 platform::MessageIcon icon) const;

    TextLookup textOf_;
    platform::MessageBoxHandler handlerBefore_;
};
