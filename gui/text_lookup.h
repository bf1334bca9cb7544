#pragma once

#include <functional>
#include <string>

/// The text of a key of the language files in the user's language, UTF-16; empty when there is
/// none.
using TextLookup = std::function<std::u16string(const char* key)>;
