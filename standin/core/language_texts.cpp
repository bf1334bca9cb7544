#include "standin/core/language_texts.h"

#include <algorithm>
#include <optional>

#include "platform/text.h"
#include "platform/whole_file.h"
#include "standin/core/disk.h"

namespace standin {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string withoutEscapes(std::string_view text) {
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '\\' || at + 1 == text.size()) {
            plain += text[at];
            continue;
        }
        ++at;
        if (text[at] == 'n') {
            plain += '\n';
        } else {
            if (text[at] != '\\')
                plain += '\\';
            plain += text[at];
        }
    }
    return plain;
}

}  // namespace

bool LanguageTexts::load(const std::u16string& path) {
    const std::optional<std::string> bytes = platform::readWholeFile(path);
    if (!bytes)
        return false;
    std::string_view rest = *bytes;
    if (rest.starts_with(kByteOrderMark))
        rest.remove_prefix(kByteOrderMark.size());
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        const std::size_t equals = line.find('=');
        if (line.starts_with('#') || equals == std::string_view::npos)
            continue;
        texts_[std::string(line.substr(0, equals))] =
            platform::fromUtf8(withoutEscapes(line.substr(equals + 1)));
    }
    return true;
}

const std::u16string* LanguageTexts::find(std::string_view key) const {
    const auto found = texts_.find(key);
    return found == texts_.end() ? nullptr : &found->second;
}

}  // namespace standin
