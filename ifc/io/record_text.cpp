#include "ifc/io/record_text.h"

namespace IFC {

namespace {

/// Position behind the string that opens at `begin`. A doubled quote reads as the end of one string and the begin of
/// another, which comes to the same. Behind \S\ a quote is a character, and behind \\ no escape begins.
std::size_t behindString(std::string_view text, std::size_t begin) {
    const char quote = text[begin];
    for (std::size_t at = begin + 1; at < text.size(); ++at) {
        if (text[at] == quote)
            return at + 1;
        if (quote != '\'' || text[at] != '\\')
            continue;
        if (text.substr(at, 3) == "\\S\\")
            at += 3;
        else if (text.substr(at, 2) == "\\\\")
            ++at;
    }
    return text.size();
}

std::size_t behindComment(std::string_view text, std::size_t begin) {
    const std::size_t end = text.find("*/", begin + 2);
    return end == std::string_view::npos ? text.size() : end + 2;
}

}  // namespace

std::vector<std::string_view> recordArguments(std::string_view record) {
    std::vector<std::string_view> arguments;
    std::size_t depth = 0;
    std::size_t begin = 0;
    for (std::size_t at = 0; at < record.size();) {
        switch (record[at]) {
            case '\'':
            case '"': at = behindString(record, at); continue;
            case '/':
                if (record.substr(at, 2) == "/*") {
                    at = behindComment(record, at);
                    continue;
                }
                break;
            case '(':
                if (++depth == 1)
                    begin = at + 1;
                break;
            case ')':
            case ',':
                if (depth == 1) {
                    arguments.push_back(record.substr(begin, at - begin));
                    begin = at + 1;
                }
                if (record[at] == ')' && (depth == 0 || --depth == 0))
                    return arguments;
                break;
            default: break;
        }
        ++at;
    }
    return arguments;
}

}  // namespace IFC
