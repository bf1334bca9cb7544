#include "cli/reports.h"

#include <algorithm>

#include "cli/cli_texts.h"
#include "cli/printable.h"
#include "cli/screen.h"
#include "ifc/io/log_file.h"
#include "platform/text.h"

namespace cli {
namespace {

/// What the reports of one kind have in common: digits, and what stands between a colon and the end
/// of its sentence, are left out.
std::u16string kindOf(std::u16string_view text) {
    std::u16string kind;
    bool isBehindColon = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (unit == u'.' && (at + 1 == text.size() || text[at + 1] == u' '))
            isBehindColon = false;
        if (!isBehindColon && (unit < u'0' || unit > u'9'))
            kind.push_back(unit);
        if (unit == u':')
            isBehindColon = true;
    }
    return kind;
}

std::u16string onOneLine(std::u16string_view text) {
    while (text.ends_with(u'\n'))
        text.remove_suffix(1);
    std::u16string line;
    for (const char16_t unit : text) {
        if (unit == u'\n')
            line += texts::kLineJoint;
        else
            line.push_back(unit);
    }
    return line;
}

std::string lineOf(const Place& place, std::u16string_view text) {
    std::string line;
    if (!place.file.empty()) {
        line += printable(place.file);
        if (place.line > 0)
            line += ":" + std::to_string(place.line);
        line += ": ";
    }
    if (place.instance > 0)
        line += "#" + std::to_string(place.instance) + ": ";
    return line + printable(text);
}

}  // namespace

std::u16string reportText(const char* key, std::u16string_view detail) {
    if (*key == '\0')
        return std::u16string(detail);
    const auto* const known =
        std::find_if(std::begin(texts::kKeyTexts), std::end(texts::kKeyTexts),
                     [key](const texts::KeyText& entry) { return entry.key == key; });
    std::u16string text =
        known != std::end(texts::kKeyTexts) ? std::u16string(known->text) : platform::fromUtf8(key);
    if (!detail.empty() && !detail.starts_with(u' ') && !detail.starts_with(u'.'))
        text.push_back(u' ');
    return text.append(detail);
}

void Reports::add(const Place& place, std::u16string_view text) {
    const std::u16string line = onOneLine(text);
    ++count_;
    const auto [found, isNew] = kindIndices_.try_emplace(kindOf(line), kinds_.size());
    if (isNew)
        kinds_.push_back({.place = place, .text = line, .count = 0});
    Kind& kind = kinds_[found->second];
    ++kind.count;
    if (showAll_ || kind.count <= kShownPerKind)
        screen_.printError(lineOf(place, line));
    if (log_.isOpen())
        log_.write(line);
}

ErrorCallback Reports::callback(std::u16string file) {
    return [this, place = Place{.file = std::move(file)}](
               const char* key, const char16_t* text, int) { add(place, reportText(key, text)); };
}

void Reports::printHidden() {
    if (showAll_)
        return;
    for (const Kind& kind : kinds_) {
        if (kind.count > kShownPerKind)
            screen_.printError(std::string(texts::kMoreBegin) +
                               std::to_string(kind.count - kShownPerKind) +
                               std::string(texts::kMoreEnd) + lineOf({}, kind.text));
    }
}

}  // namespace cli
