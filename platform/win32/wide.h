#pragma once

#include <string>
#include <string_view>

namespace platform {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

/// The one place where UTF-16 text changes its type between ours and Windows'.
inline const wchar_t* wide(const std::u16string& text) {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}

inline std::u16string_view fromWide(const wchar_t* text, std::size_t length) {
    return {reinterpret_cast<const char16_t*>(text), length};
}

}  // namespace platform
