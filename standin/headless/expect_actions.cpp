#include <algorithm>

#include "platform/files.h"
#include "platform/text.h"
#include "standin/core/display_table.h"
#include "standin/headless/headless_texts.h"
#include "standin/headless/script.h"

namespace standin {
namespace {

constexpr std::string_view kNoYes[] = {"no", "yes"};

std::string inQuotes(std::string_view text) { return "\"" + std::string(text) + "\""; }
std::string inQuotes(const std::u16string& text) { return inQuotes(onOneLine(text)); }

const DisplayedSet* setOf(Script& script, const std::string& object, const std::string& set) {
    return script.object(object).display.findSet({}, platform::fromUtf8(set));
}

const Row* rowOf(Script& script, const Words& words) {
    const DisplayedSet* const set = setOf(script, words[0], words[1]);
    if (!set)
        return nullptr;
    const std::u16string name = platform::fromUtf8(words[2]);
    const auto found = std::find_if(set->rows.begin(), set->rows.end(),
                                    [&](const Row& row) { return row.name == name; });
    return found == set->rows.end() ? nullptr : &*found;
}

std::string markWord(std::int32_t state) {
    static constexpr std::string_view kWords[] = {"unchanged", "added", "edited", "deleted"};
    return state >= 0 && state < 4 ? std::string(kWords[state]) : std::to_string(state);
}

void expectProperty(Script& script, const Words& words) {
    const Row* const row = rowOf(script, words);
    std::string expected = inQuotes(words[2]) + " = " + inQuotes(words[3]);
    std::string found =
        row ? inQuotes(row->name) + " = " + inQuotes(row->value) : "no such property";
    bool holds = row && platform::toUtf8(row->value) == words[3];
    if (words.size() > 4) {
        expected += " " + words[4];
        found += row ? " " + markWord(row->state) : "";
        holds = holds && markWord(row->state) == words[4];
    }
    script.expect(holds, expected, found);
}

void expectNoProperty(Script& script, const Words& words) {
    const Row* const row = rowOf(script, words);
    script.expect(!row, "no property " + inQuotes(words[2]), row ? inQuotes(row->value) : "none");
}

void expectSet(Script& script, const Words& words) {
    script.expect(setOf(script, words[0], words[1]) != nullptr, "set " + inQuotes(words[1]),
                  "none");
}

void expectNoSet(Script& script, const Words& words) {
    script.expect(!setOf(script, words[0], words[1]), "no set " + inQuotes(words[1]), "one");
}

void expectMessage(Script& script, const Words& words) {
    const std::vector<std::string> messages = script.host().dialogs().messages();
    const bool holds = std::any_of(
        messages.begin(), messages.end(),
        [&](const std::string& message) { return message.find(words[0]) != std::string::npos; });
    script.expect(holds, "a message with " + inQuotes(words[0]),
                  messages.empty() ? "no message" : inQuotes(messages.back()));
}

void expectNoMessage(Script& script, const Words&) {
    const std::vector<std::string> messages = script.host().dialogs().messages();
    script.expect(messages.empty(), "no message",
                  messages.empty() ? "" : inQuotes(messages.back()));
}

void expectUndo(Script& script, const Words& words) {
    const UndoList& list = script.host().undoList();
    const std::u16string text = list.canUndo() ? list.texts()[list.doneCount() - 1] : u"";
    script.expect(list.canUndo() && platform::toUtf8(text) == words[0],
                  "undo entry " + inQuotes(words[0]), list.canUndo() ? inQuotes(text) : "none");
}

void expectNeedsSave(Script& script, const Words& words) {
    const bool expected = choiceOf(words[0], kNoYes) == 1;
    const bool found = script.host().needsSave();
    script.expect(found == expected, "needs save: " + words[0], found ? "yes" : "no");
}

void expectEnabled(Script& script, const Words& words) {
    const bool expected = choiceOf(words[1], kNoYes) == 1;
    const RibbonItem* const item = script.host().ribbon().findByText(platform::fromUtf8(words[0]));
    script.expect(item && item->isEnabled == expected, inQuotes(words[0]) + " enabled: " + words[1],
                  !item             ? "no such button"
                  : item->isEnabled ? "yes"
                                    : "no");
}

void expectDown(Script& script, const Words& words) {
    const bool expected = choiceOf(words[1], kNoYes) == 1;
    const RibbonItem* const item = script.host().ribbon().findByText(platform::fromUtf8(words[0]));
    script.expect(item && item->isDown == expected, inQuotes(words[0]) + " down: " + words[1],
                  !item          ? "no such button"
                  : item->isDown ? "yes"
                                 : "no");
}

void expectFile(Script& script, const Words& words) {
    script.expect(platform::fileExists(platform::fromUtf8(words[0])), "file " + inQuotes(words[0]),
                  "none");
}

void expectEntry(Script& script, const Words& words) {
    const std::string* const bytes = script.host().project().entry(platform::fromUtf8(words[0]));
    const std::string part = words.size() > 1 ? words[1] : "";
    script.expect(bytes && bytes->find(part) != std::string::npos,
                  "entry " + inQuotes(words[0]) + (part.empty() ? "" : " with " + inQuotes(part)),
                  bytes ? inQuotes(onOneLine(platform::fromUtf8(*bytes))) : "none");
}

constexpr Action kActions[] = {
    {"expect property", "OBJECT SET PROPERTY VALUE [unchanged|added|edited|deleted]",
     "The display shows that value, and that mark.",
     "expect property #65 Finish Colour blue edited", 4, 5, expectProperty},
    {"expect no-property", "OBJECT SET PROPERTY", "The display shows no such property.",
     "expect no-property #65 Finish Colour", 3, 3, expectNoProperty},
    {"expect set", "OBJECT SET", "The display shows the set.", "expect set #65 Finish", 2, 2,
     expectSet},
    {"expect no-set", "OBJECT SET", "The display shows no such set.", "expect no-set #65 Finish", 2,
     2, expectNoSet},
    {"expect message", "TEXT", "A message with that in its \"caption|text\" was shown.",
     "expect message \"select one\"", 1, 1, expectMessage},
    {"expect no-message", "", "No message was shown.", "expect no-message", 0, 0, expectNoMessage},
    {"expect undo", "TEXT", "That is what would be undone next.",
     "expect undo \"Edit property: Colour\"", 1, 1, expectUndo},
    {"expect needs-save", "yes|no", "Whether the project has to be saved.", "expect needs-save yes",
     1, 1, expectNeedsSave},
    {"expect enabled", "BUTTON yes|no", "Whether a button can be clicked.",
     "expect enabled Export no", 2, 2, expectEnabled},
    {"expect down", "BUTTON yes|no", "Whether a check box is ticked.",
     "expect down \"Erase white signs\" yes", 2, 2, expectDown},
    {"expect file", "FILE", "There is such a file.", "expect file house_edited.ifc", 1, 1,
     expectFile},
    {"expect entry", "NAME [TEXT]",
     "The project as saved or opened has that entry, with that text.",
     "expect entry Data.xml Colour", 1, 2, expectEntry},
};

}  // namespace

std::span<const Action> expectActions() { return kActions; }

}  // namespace standin
