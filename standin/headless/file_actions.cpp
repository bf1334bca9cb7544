#include "platform/text.h"
#include "standin/headless/headless_texts.h"
#include "standin/headless/script.h"

namespace standin {
namespace {

void orThrow(Script& script, bool isDone) {
    if (!isDone)
        throw ScriptError(script.host().error());
}

std::u16string optionalPath(const Words& words) {
    return words.empty() ? std::u16string() : platform::fromUtf8(words[0]);
}

void loadPlugin(Script& script, const Words& words) {
    orThrow(script, script.host().loadPlugin(optionalPath(words)));
}

void unloadPlugin(Script& script, const Words&) { script.host().unloadPlugin(); }

void open(Script& script, const Words& words) {
    std::vector<std::u16string> paths;
    for (const std::string& word : words)
        paths.push_back(platform::fromUtf8(word));
    orThrow(script, script.host().open(paths));
}

void save(Script& script, const Words& words) {
    orThrow(script, script.host().save(optionalPath(words)));
}

void close(Script& script, const Words&) { script.host().close(); }

void language(Script& script, const Words& words) {
    script.host().setLanguage(platform::fromUtf8(words[0]));
}

void geometryCache(Script& script, const Words& words) {
    static constexpr std::string_view kChoices[] = {"off", "on"};
    orThrow(script, script.host().setGeometryCache(choiceOf(words[0], kChoices) == 1));
}

void lack(Script& script, const Words& words) {
    for (const std::string& function : words)
        if (!script.host().faults().lack(function))
            throw ScriptError(std::string(texts::kNotExportedFunction) + function);
}

void fault(Script& script, const Words& words) {
    static constexpr std::string_view kChoices[] = {"nothing", "negative", "wrong"};
    script.host().faults().set(words[0], static_cast<Fault>(choiceOf(words[1], kChoices)));
}

void smallDisk(Script& script, const Words& words) {
    try {
        script.host().faults().diskBytes = std::stoll(words[0]);
    } catch (const std::exception&) {
        throw ScriptError(std::string(texts::kNotANumber) + words[0]);
    }
}

void wholeHost(Script& script, const Words&) { script.host().faults().clear(); }

constexpr Action kActions[] = {
    {"load", "[FILE]",
     "Loads the plug-in, by default plugins/quillet/quillet.so beside this program.", "load", 0, 1,
     loadPlugin},
    {"unload", "", "Unloads the plug-in.", "unload", 0, 0, unloadPlugin},
    {"open", "FILE...", "Opens IFC files together, or one project file.",
     "open \"My house.ifc\" garden.ifczip", 1, kAnyCount, open},
    {"save", "[FILE]", "Saves the project, by default under its own name.", "save house.ahx", 0, 1,
     save},
    {"close", "", "Closes what is open without saving.", "close", 0, 0, close},
    {"language", "CODE", "Chooses the language of a plug-in that is loaded from now on.",
     "language de", 1, 1, language},
    {"geometry-cache", "on|off", "Switches the option of that name in main.cfg.",
     "geometry-cache off", 1, 1, geometryCache},
    {"lack", "FUNCTION...", "Lets the program lack host functions when the plug-in is loaded next.",
     "lack get_text message_box", 1, kAnyCount, lack},
    {"fault", "FUNCTION nothing|negative|wrong",
     "Lets a host function do nothing, also with a count of -1, or tell what is not true.",
     "fault get_selected negative", 2, 2, fault},
    {"small-disk", "BYTES", "Lets a save fail after so many bytes.", "small-disk 1000", 1, 1,
     smallDisk},
    {"whole-host", "", "Ends all faults.", "whole-host", 0, 0, wholeHost},
};

}  // namespace

std::span<const Action> fileActions() { return kActions; }

}  // namespace standin
