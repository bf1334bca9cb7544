#include <algorithm>

#include "platform/text.h"
#include "standin/core/display_table.h"
#include "standin/headless/script.h"

namespace standin {
namespace {

void showDisplay(Script& script, const Words& words) {
    if (words.empty())
        script.print(displayTable(script.selectedObject()));
    for (const std::string& word : words)
        script.print(displayTable(script.object(word)));
}

void printTree(Script& script, HostObjectId parent, std::size_t depth) {
    const Objects& objects = script.host().objects();
    for (const HostObjectId id : objects.children(parent)) {
        const Object& object = *objects.find(id);
        script.print(std::string(depth * 2, ' ') + "#" + std::to_string(object.instanceNumber) +
                     " " + onOneLine(object.entityName) + " '" + onOneLine(object.name) + "'\n");
        printTree(script, id, depth + 1);
    }
}

void showObjects(Script& script, const Words&) {
    for (const LoadedFile& file : script.host().objects().files()) {
        script.print(onOneLine(file.entryName) + "\n");
        printTree(script, file.id, 1);
    }
}

void showRibbon(Script& script, const Words&) {
    static constexpr std::string_view kKinds[] = {"group", "button", "check box", "list"};
    for (const RibbonItem& item : script.host().ribbon().items()) {
        std::string line = item.group == 0 && item.list == 0 ? "" : item.list == 0 ? "  " : "    ";
        line += std::string(kKinds[static_cast<std::size_t>(item.kind)]) + " '" +
                onOneLine(item.text) + "'";
        line += item.isDown ? " down" : "";
        line += item.isEnabled ? "" : " disabled";
        script.print(line + "\n");
    }
}

void showMenu(Script& script, const Words&) {
    for (const HostButtonId id : script.host().ribbon().contextMenu())
        if (const RibbonItem* const item = script.host().ribbon().find(id))
            script.print("'" + onOneLine(item->text) + "'\n");
}

void showUndo(Script& script, const Words&) {
    const UndoList& list = script.host().undoList();
    for (std::size_t at = 0; at < list.texts().size(); ++at)
        script.print((at < list.doneCount() ? "undo '" : "redo '") + onOneLine(list.texts()[at]) +
                     "'\n");
}

std::string lineOf(const Shown& shown) {
    static constexpr std::string_view kKinds[] = {"message",  "save dialog", "window",
                                                  "progress", "progress",    "progress"};
    std::string line(kKinds[static_cast<std::size_t>(shown.kind)]);
    switch (shown.kind) {
        case Shown::Kind::Progress:
            return line + " " + std::to_string(shown.overallPercent) + " '" +
                   onOneLine(shown.caption) + "' " + std::to_string(shown.currentPercent) + " '" +
                   onOneLine(shown.text) + "'";
        case Shown::Kind::ProgressShown: return line + " shown '" + onOneLine(shown.caption) + "'";
        case Shown::Kind::ProgressHidden: return line + " hidden";
        default: break;
    }
    line += " '" + onOneLine(shown.caption) + "' '" + onOneLine(shown.text) + "'";
    for (const auto& [key, value] : shown.fields)
        line += " " + key + "='" + onOneLine(value) + "'";
    line += " answered " + std::to_string(shown.answer);
    return line + (shown.isUnexpected ? " unexpected" : "");
}

void showShown(Script& script, const Words&) {
    for (const Shown& shown : script.host().dialogs().shown())
        script.print(lineOf(shown) + "\n");
}

constexpr Action kActions[] = {
    {"show display", "[OBJECT...]", "Prints property displays, by default the selected object's.",
     "show display #65", 0, kAnyCount, showDisplay},
    {"show objects", "", "Prints the objects of all files as a tree.", "show objects", 0, 0,
     showObjects},
    {"show ribbon", "", "Prints the plug-in's part of the ribbon.", "show ribbon", 0, 0,
     showRibbon},
    {"show menu", "", "Prints the context menu as it was opened last.", "show menu", 0, 0,
     showMenu},
    {"show undo", "", "Prints the undo list.", "show undo", 0, 0, showUndo},
    {"show shown", "", "Prints all messages, dialogs, windows and progress so far.", "show shown",
     0, 0, showShown},
};

}  // namespace

std::span<const Action> showActions() { return kActions; }

}  // namespace standin
