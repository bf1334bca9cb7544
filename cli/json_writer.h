#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace cli {

class Screen;

/// Prints one JSON document (RFC 8259) to the screen while it is made, indented by two blanks, keys
/// in the order of the calls. Inside an object each value follows its key.
class JsonWriter {
public:
    explicit JsonWriter(Screen& screen) : screen_(screen) {}
    JsonWriter(const JsonWriter&) = delete;
    JsonWriter& operator=(const JsonWriter&) = delete;

    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }

    /// name: ASCII.
    JsonWriter& key(std::string_view name);
    void value(std::u16string_view text);
    void value(std::int64_t number);
    /// With a fraction or an exponent, so that readers see that it is no integer; null for what is
    /// not finite.
    void value(double number);
    void truth(bool truth) { item(truth ? "true" : "false"); }
    void null() { item("null"); }

private:
    void begin(char bracket);
    void end(char bracket);
    void item(std::string_view text);
    void startLine();
    void breakLine();

    Screen& screen_;
    std::size_t depth_ = 0;
    bool empty_ = true;  // the innermost object or array has nothing in it
    bool afterKey_ = false;
};

}  // namespace cli
