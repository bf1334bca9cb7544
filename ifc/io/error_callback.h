#pragma once

#include <functional>
#include <string>
#include <string_view>

/// Through this the IFC library reports trouble; it does not throw to its callers.
/// key: entry of the language files (ASCII), or "" for a fixed English text. text: UTF-16,
/// zero-terminated, valid for the call (a pointer, so that running out of memory can be reported
/// without allocating). flag: severity, usually 0.
using ErrorCallback = std::function<void(const char* key, const char16_t* text, int flag)>;

/// Calls `errors` with `text`; an empty callback is accepted and reports nothing.
inline void report(const ErrorCallback& errors, const char* key, std::u16string_view text,
                   int flag = 0) {
    if (errors)
        errors(key, std::u16string(text).c_str(), flag);
}
