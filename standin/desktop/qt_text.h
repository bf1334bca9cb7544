#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace standin {

/// UTF-16 on both sides: nothing is converted.
inline QString toQString(std::u16string_view text) {
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<int>(text.size()));
}

inline std::u16string fromQString(const QString& text) {
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}

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
