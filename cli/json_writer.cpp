#include "cli/json_writer.h"

#include <charconv>
#include <cmath>

#include "cli/printable.h"
#include "cli/screen.h"

namespace cli {

JsonWriter& JsonWriter::key(std::string_view name) {
    startLine();
    screen_.print("\"");
    screen_.print(name);
    screen_.print("\": ");
    afterKey_ = true;
    return *this;
}

void JsonWriter::value(std::u16string_view text) { item(jsonString(text)); }

void JsonWriter::value(std::int64_t number) { item(std::to_string(number)); }

void JsonWriter::value(double number) {
    if (!std::isfinite(number))
        return null();
    char text[32];  // the shortest digits that read back as the same number need up to 24
    std::string digits(text, std::to_chars(text, text + sizeof text, number).ptr);
    if (digits.find_first_of(".e") == digits.npos)
        digits += ".0";
    item(digits);
}

void JsonWriter::begin(char bracket) {
    item(std::string_view(&bracket, 1));
    ++depth_;
    empty_ = true;
}

void JsonWriter::end(char bracket) {
    --depth_;
    if (!empty_)
        breakLine();
    screen_.print(std::string_view(&bracket, 1));
    empty_ = false;
    if (depth_ == 0)
        screen_.print("\n");
}

void JsonWriter::item(std::string_view text) {
    if (!afterKey_)
        startLine();
    screen_.print(text);
    afterKey_ = false;
}

/// Where the next key or element begins.
void JsonWriter::startLine() {
    if (!empty_)
        screen_.print(",");
    empty_ = false;
    if (depth_ > 0)
        breakLine();
}

void JsonWriter::breakLine() { screen_.print("\n" + std::string(2 * depth_, ' ')); }

}  // namespace cli
