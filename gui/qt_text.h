#pragma once

#include <QString>
#include <string>
#include <string_view>

/// UTF-16 on both sides: nothing is converted, lone surrogates stay.
inline QString toQString(std::u16string_view text) {
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<int>(text.size()));
}

inline std::u16string fromQString(const QString& text) {
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}
