// The entry holds, in this order, numbers as 4 bytes with the least significant first and texts as
// their length in bytes and UTF-8:
//   the letters "QDSP", the version 1, the number of objects; for each object
//   the entry name of its file, its instance number, its GUID, the number of sets; for each set
//   name, initial name, GUID, entity name, 1 for a set of the file, the number of rows; for each
//   row name, initial name, value, entity name, quantity type, prefix, unit, kind, value type,
//   state.

#include "standin/core/display_cache.h"

#include <map>
#include <stdexcept>
#include <utility>
#include <vector>

#include "platform/text.h"

namespace standin {
namespace {

constexpr std::string_view kMark = "QDSP";
constexpr std::uint32_t kVersion = 1;

class Writer {
public:
    void number(std::uint32_t value) {
        for (int shift = 0; shift < 32; shift += 8)
            bytes_ += static_cast<char>(value >> shift & 0xFF);
    }
    void text(const std::u16string& value) {
        const std::string utf8 = platform::toUtf8(value);
        number(static_cast<std::uint32_t>(utf8.size()));
        bytes_ += utf8;
    }
    void mark() { bytes_ += kMark; }
    std::string take() { return std::move(bytes_); }

private:
    std::string bytes_;
};

/// Throws std::out_of_range when the bytes end early.
class Reader {
public:
    explicit Reader(std::string_view bytes) : rest_(bytes) {}

    std::string_view take(std::size_t count) {
        if (count > rest_.size())
            throw std::out_of_range("the bytes end early");
        const std::string_view taken = rest_.substr(0, count);
        rest_.remove_prefix(count);
        return taken;
    }
    std::uint32_t number() {
        const std::string_view bytes = take(4);
        std::uint32_t value = 0;
        for (std::size_t at = 4; at-- > 0;)
            value = value << 8 | static_cast<unsigned char>(bytes[at]);
        return value;
    }
    std::int32_t integer() { return static_cast<std::int32_t>(number()); }
    std::u16string text() { return platform::fromUtf8(take(number())); }
    bool atEnd() const { return rest_.empty(); }

private:
    std::string_view rest_;
};

void writeSet(Writer& out, const DisplayedSet& set) {
    for (const std::u16string* text : {&set.name, &set.initialName, &set.guid, &set.entityName})
        out.text(*text);
    out.number(set.isFromFile ? 1 : 0);
    out.number(static_cast<std::uint32_t>(set.rows.size()));
    for (const Row& row : set.rows) {
        for (const std::u16string* text : {&row.name, &row.initialName, &row.value, &row.entityName,
                                           &row.quantityType, &row.prefix, &row.unit})
            out.text(*text);
        for (const std::int32_t number : {row.kind, row.valueType, row.state})
            out.number(static_cast<std::uint32_t>(number));
    }
}

DisplayedSet readSet(Reader& in) {
    DisplayedSet set;
    for (std::u16string* text : {&set.name, &set.initialName, &set.guid, &set.entityName})
        *text = in.text();
    set.isFromFile = in.number() != 0;
    for (std::uint32_t count = in.number(); count > 0; --count) {
        Row row;
        for (std::u16string* text : {&row.name, &row.initialName, &row.value, &row.entityName,
                                     &row.quantityType, &row.prefix, &row.unit})
            *text = in.text();
        for (std::int32_t* number : {&row.kind, &row.valueType, &row.state})
            *number = in.integer();
        set.rows.push_back(std::move(row));
    }
    return set;
}

struct KeptDisplay {
    std::u16string entryName;
    std::int32_t instanceNumber = 0;
    std::u16string guid;
    std::vector<DisplayedSet> sets;
};

std::vector<KeptDisplay> readAll(std::string_view bytes) {
    Reader in(bytes);
    if (in.take(kMark.size()) != kMark || in.number() != kVersion)
        throw std::out_of_range("another form");
    std::vector<KeptDisplay> displays;
    for (std::uint32_t count = in.number(); count > 0; --count) {
        KeptDisplay& display = displays.emplace_back();
        display.entryName = in.text();
        display.instanceNumber = in.integer();
        display.guid = in.text();
        for (std::uint32_t sets = in.number(); sets > 0; --sets)
            display.sets.push_back(readSet(in));
    }
    if (!in.atEnd())
        throw std::out_of_range("more bytes than displays");
    return displays;
}

}  // namespace

std::string writeDisplays(const Objects& objects) {
    std::vector<std::pair<const LoadedFile*, const Object*>> changed;
    for (const LoadedFile& file : objects.files())
        for (const auto& object : file.objects)
            if (object->display.isChanged())
                changed.emplace_back(&file, object.get());
    Writer out;
    out.mark();
    out.number(kVersion);
    out.number(static_cast<std::uint32_t>(changed.size()));
    for (const auto& [file, object] : changed) {
        out.text(file->entryName);
        out.number(static_cast<std::uint32_t>(object->instanceNumber));
        out.text(object->guid);
        out.number(static_cast<std::uint32_t>(object->display.sets.size()));
        for (const DisplayedSet& set : object->display.sets)
            writeSet(out, set);
    }
    return out.take();
}

bool readDisplays(std::string_view bytes, Objects& objects) {
    std::vector<KeptDisplay> kept;
    try {
        kept = readAll(bytes);
    } catch (const std::out_of_range&) {
        return false;
    }
    std::map<std::pair<std::u16string_view, std::int32_t>, Object*> places;
    for (const LoadedFile& file : objects.files())
        for (const auto& object : file.objects)
            places[{file.entryName, object->instanceNumber}] = object.get();
    for (KeptDisplay& display : kept) {
        const auto place = places.find({display.entryName, display.instanceNumber});
        if (place == places.end() || place->second->guid != display.guid)
            continue;
        place->second->display.takeKept(std::move(display.sets));
    }
    return true;
}

}  // namespace standin
