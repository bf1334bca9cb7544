#include "platform/text.h"
#include "standin/headless/headless_texts.h"
#include "standin/headless/script.h"

namespace standin {
namespace {

void select(Script& script, const Words& words) {
    std::vector<HostObjectId> ids;
    for (const std::string& word : words)
        ids.push_back(script.object(word).id);
    script.host().select(std::move(ids));
}

void click(Script& script, const Words& words) {
    if (!script.host().click(platform::fromUtf8(words[0])))
        throw ScriptError(std::string(texts::kCannotClick) + words[0]);
}

void openMenu(Script& script, const Words&) { script.host().openContextMenu(); }

/// words: the set and, unless a set is meant, the property.
void request(Script& script, HostChangeAction action, const Words& words, bool asQuantity = false) {
    const std::u16string setName = platform::fromUtf8(words[0]);
    // With nothing selected, or with several objects, it is the plug-in that should say so.
    const auto& selected = script.host().objects().selected();
    std::u16string setGuid;
    if (selected.size() == 1) {
        const DisplayedSet* const set = script.selectedObject().display.findSet({}, setName);
        if (!set)
            throw ScriptError(std::string(texts::kUnknownSet) + words[0]);
        setGuid = set->guid;
    }
    const std::u16string property =
        words.size() > 1 ? platform::fromUtf8(words[1]) : std::u16string();
    if (!script.host().requestChange(action, setName, setGuid, property, asQuantity))
        throw ScriptError(script.host().error());
}

void requestEdit(Script& script, const Words& words) {
    request(script, kHostAskEditProperty, words);
}
void requestDelete(Script& script, const Words& words) {
    request(script, kHostAskDeleteProperty, words);
}
void requestAdd(Script& script, const Words& words) { request(script, kHostAskAddProperty, words); }
void requestAddQuantity(Script& script, const Words& words) {
    request(script, kHostAskAddProperty, words, true);
}
void requestDeleteSet(Script& script, const Words& words) {
    request(script, kHostAskDeleteSet, words);
}
void requestRenameSet(Script& script, const Words& words) {
    request(script, kHostAskRenameSet, words);
}

void undo(Script& script, const Words&) {
    if (!script.host().undo())
        throw ScriptError(std::string(texts::kNothingToUndo));
}

void redo(Script& script, const Words&) {
    if (!script.host().redo())
        throw ScriptError(std::string(texts::kNothingToRedo));
}

void forget(Script& script, const Words&) { script.host().forgetUndo(); }

constexpr Action kActions[] = {
    {"select", "[OBJECT...]", "Selects these objects and no others.", "select #65 \"West wall\"", 0,
     kAnyCount, select},
    {"click", "BUTTON", "Clicks the button or check box with that text.", "click \"Edit many\"", 1,
     1, click},
    {"open-menu", "", "Opens the context menu.", "open-menu", 0, 0, openMenu},
    {"request edit", "SET PROPERTY", "Asks to edit a property of the selected object.",
     "request edit Finish Colour", 2, 2, requestEdit},
    {"request delete", "SET PROPERTY", "Asks to delete one.", "request delete Finish Colour", 2, 2,
     requestDelete},
    {"request add", "SET [PROPERTY]", "Asks to add a property; PROPERTY is the row clicked on.",
     "request add Finish Colour", 1, 2, requestAdd},
    {"request add-quantity", "SET [PROPERTY]", "Asks to add a quantity.",
     "request add-quantity Finish Colour", 1, 2, requestAddQuantity},
    {"request delete-set", "SET", "Asks to delete a set.", "request delete-set Finish", 1, 1,
     requestDeleteSet},
    {"request rename-set", "SET", "Asks to rename a set.", "request rename-set Finish", 1, 1,
     requestRenameSet},
    {"undo", "", "Undoes the last entry of the undo list.", "undo", 0, 0, undo},
    {"redo", "", "Does the next entry again.", "redo", 0, 0, redo},
    {"forget", "", "Clears the undo list.", "forget", 0, 0, forget},
};

}  // namespace

std::span<const Action> userActions() { return kActions; }

}  // namespace standin
