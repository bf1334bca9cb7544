#include "tools/schema_generator/layout.h"

#include <algorithm>

namespace schema_generator {

namespace {

constexpr std::size_t kContinuationIndent = 4;

std::string blanks(std::size_t count) { return std::string(count, ' '); }

std::size_t longestLine(std::string_view text) {
    std::size_t longest = 0;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        longest = std::max(longest, end - start);
        start = end + 1;
    }
    return longest;
}

}  // namespace

std::string filledLines(const std::vector<std::string>& items, std::string_view tail,
                        std::size_t column) {
    std::string result;
    std::size_t used = column;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const bool isLast = i + 1 == items.size();
        const std::size_t needed = items[i].size() + (isLast ? tail.size() : 1);
        if (i > 0 && used + 1 + needed > kColumnLimit) {
            result += "\n" + blanks(column);
            used = column;
        } else if (i > 0) {
            result += " ";
            ++used;
        }
        result += items[i] + (isLast ? "" : ",");
        used += items[i].size() + 1;
    }
    return result + std::string(tail);
}

std::string wrappedCall(std::size_t indent, std::string_view head,
                        const std::vector<std::string>& arguments, std::string_view tail) {
    const std::string start = blanks(indent) + std::string(head);
    const std::string below = start + filledLines(arguments, tail, start.size());
    if (longestLine(below) <= kColumnLimit && arguments.size() > 1)
        return below + "\n";
    if (below.size() <= kColumnLimit)
        return below + "\n";
    const std::size_t column = indent + kContinuationIndent;
    return start + "\n" + blanks(column) + filledLines(arguments, tail, column) + "\n";
}

std::string hangingCall(std::string_view head, const std::vector<std::string>& arguments,
                        std::string_view tail) {
    const std::string line = std::string(head) + filledLines(arguments, tail, head.size());
    if (longestLine(line) == line.size() && line.size() <= kColumnLimit)
        return line + "\n";
    return std::string(head) + "\n" + blanks(kContinuationIndent) +
           filledLines(arguments, tail, kContinuationIndent) + "\n";
}

std::string classHead(std::string_view name, const std::vector<std::string>& bases) {
    const std::string start = "class " + std::string(name);
    std::string line = start;
    std::string below = start;
    std::string indented = start;
    for (std::size_t i = 0; i < bases.size(); ++i) {
        line += (i == 0 ? " : " : ", ") + bases[i];
        below += (i == 0 ? " : " : ",\n" + blanks(start.size() + 3)) + bases[i];
        indented += (i == 0 ? "\n    : " : ",\n      ") + bases[i];
    }
    for (const std::string& candidate : {line, below}) {
        if (longestLine(candidate + " {") <= kColumnLimit)
            return candidate + " {\n";
    }
    return indented + " {\n";
}

std::string docComment(std::string_view text) {
    static constexpr std::string_view kLead = "/// ";
    std::string result;
    while (kLead.size() + text.size() > kColumnLimit) {
        std::size_t cut = text.rfind(' ', kColumnLimit - kLead.size());
        if (cut == std::string_view::npos)
            cut = std::min(text.find(' '), text.size());
        result += std::string(kLead) + std::string(text.substr(0, cut)) + "\n";
        text.remove_prefix(std::min(cut + 1, text.size()));
    }
    return result + std::string(kLead) + std::string(text) + "\n";
}

std::string enumerated(const std::vector<std::string>& items, std::string_view lastWord) {
    std::string result;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i > 0)
            result += i + 1 == items.size() ? " " + std::string(lastWord) + " " : ", ";
        result += items[i];
    }
    return result;
}

}  // namespace schema_generator
