#pragma once

#include <QString>
#include <string_view>

#include "gui/qt_text.h"

namespace standin {

/// For buttons and menus, where "&" would mark a key.
inline QString asCaption(std::u16string_view text) {
    return toQString(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

/// For tool tips, which would take "<b>" for markup.
inline QString asToolTip(const QString& text) {
    if (text.isEmpty())
        return {};
    return QLatin1String("<qt>") +
           text.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>")) +
           QLatin1String("</qt>");
}

}  // namespace standin
