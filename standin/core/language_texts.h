#pragma once

#include <map>
#include <string>
#include <string_view>

namespace standin {

/// Texts by key, from language files: UTF-8, with or without a byte order mark, one "key=text" a
/// line. Blank lines and lines that begin with "#" are left out; in a text "\n" is a line end and
/// "\\" a backslash.
class LanguageTexts {
public:
    /// Adds the texts of a file; a key that is there already gets the new text.
    /// @return false when it cannot be read.
    bool load(const std::u16string& path);
    /// Null for an unknown key.
    const std::u16string* find(std::string_view key) const;
    void clear() { texts_.clear(); }

private:
    std::map<std::string, std::u16string, std::less<>> texts_;
};

}  // namespace standin
