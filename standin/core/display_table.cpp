#include "standin/core/display_table.h"

#include <algorithm>

#include "platform/text.h"

namespace standin {
namespace {

char markOf(std::int32_t state) {
    switch (state) {
        case kHostUnchanged: return ' ';
        case kHostAdded: return '+';
        case kHostEdited: return '*';
        case kHostDeleted: return '-';
        default: return '?';
    }
}

char markOf(const DisplayedSet& set) {
    if (!set.isFromFile)
        return '+';
    return set.name == set.initialName ? ' ' : '*';
}

/// In characters, as far as each takes one column.
std::size_t widthOf(const std::string& utf8) {
    return static_cast<std::size_t>(
        std::count_if(utf8.begin(), utf8.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

std::string rowLine(const Row& row, std::size_t nameWidth) {
    std::string name = onOneLine(row.name);
    name.append(nameWidth - widthOf(name), ' ');
    std::string line = std::string("  ") + markOf(row.state) + "   " + name;
    line += row.kind == kHostOtherProperty ? "   " : " = ";
    line += onOneLine(row.value);
    if (!row.entityName.empty())
        line += " [" + onOneLine(row.entityName) + "]";
    for (const std::u16string* text : {&row.prefix, &row.unit})
        if (!text->empty())
            line += " " + onOneLine(*text);
    if (!row.initialName.empty() && row.initialName != row.name)
        line += " (" + onOneLine(row.initialName) + ")";
    return line + "\n";
}

}  // namespace

std::string onOneLine(std::u16string_view text) {
    std::string line;
    for (const char byte : platform::toUtf8(text)) {
        if (byte == '\n')
            line += "\\n";
        else if (byte == '\t')
            line += "\\t";
        else if (static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F)
            line += '?';
        else
            line += byte;
    }
    return line;
}

std::string displayTable(const Object& object) {
    std::string table = "#" + std::to_string(object.instanceNumber) + " " +
                        onOneLine(object.entityName) + " '" + onOneLine(object.name) + "'\n";
    for (const DisplayedSet& set : object.display.sets) {
        table += std::string("  ") + markOf(set) + " " + onOneLine(set.name) + " (" +
                 onOneLine(set.entityName) + ")";
        if (set.initialName != set.name)
            table += " (" + onOneLine(set.initialName) + ")";
        table += "\n";
        std::size_t nameWidth = 0;
        for (const Row& row : set.rows)
            nameWidth = std::max(nameWidth, widthOf(onOneLine(row.name)));
        for (const Row& row : set.rows)
            table += rowLine(row, nameWidth);
    }
    return table;
}

}  // namespace standin
