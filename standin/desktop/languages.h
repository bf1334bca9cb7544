#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace standin {

/// A language that the plug-in has texts in.
struct Language {
    std::u16string_view code;
    std::u16string_view name;  ///< in itself
};

inline constexpr std::array<Language, 7> kLanguages = {{{u"de", u"Deutsch"},
                                                        {u"en", u"English"},
                                                        {u"es", u"Espa\u00F1ol"},
                                                        {u"fr", u"Fran\u00E7ais"},
                                                        {u"it", u"Italiano"},
                                                        {u"pl", u"Polski"},
                                                        {u"pt", u"Portugu\u00EAs"}}};

inline bool isLanguage(std::u16string_view code) {
    return std::any_of(kLanguages.begin(), kLanguages.end(),
                       [&](const Language& language) { return language.code == code; });
}

}  // namespace standin
