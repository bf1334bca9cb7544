#include "ifc/io/record_text.h"

namespace IFC {

namespace {

constexpr std::string_view kBlanks = " \t\n\v\f\r_";  // as the tokenizer has it

}  // namespace

std::string_view argumentText(std::string_view text, std::size_t commas) {
    while (!text.empty()) {
        if (kBlanks.find(text.front()) != std::string_view::npos) {
            text.remove_prefix(1);
        } else if (text.starts_with("/*")) {
            const std::size_t end = text.find("*/", 2);
            text.remove_prefix(end == std::string_view::npos ? text.size() : end + 2);
        } else if (text.front() == ',' && commas > 0) {
            --commas;
            text.remove_prefix(1);
        } else {
            break;
        }
    }
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

}  // namespace IFC
