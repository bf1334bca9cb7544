#include "platform/text.h"
#include "standin/headless/headless_texts.h"
#include "standin/headless/script.h"

namespace standin {
namespace {

constexpr std::string_view kCancelWord = "cancel";

void answerMessage(Script& script, const Words& words) {
    static constexpr std::string_view kButtons[] = {"ok",     "cancel", "abort", "retry",
                                                    "ignore", "yes",    "no"};
    const std::size_t button = choiceOf(words[0], kButtons) + 1;
    script.host().dialogs().answerMessage(static_cast<std::int32_t>(button));
}

void answerSave(Script& script, const Words& words) {
    script.host().dialogs().answerSaveDialog(
        words[0] == kCancelWord ? std::nullopt : std::optional(platform::fromUtf8(words[0])));
}

void answerWindow(Script& script, const Words& words) {
    if (words.size() == 2 && words[1] == kCancelWord) {
        script.host().dialogs().answerWindow(words[0], std::nullopt);
        return;
    }
    WindowFields fields;
    for (std::size_t at = 1; at < words.size(); ++at) {
        const std::size_t equals = words[at].find('=');
        if (equals == std::string::npos)
            throw ScriptError(std::string(texts::kFieldForm) + words[at]);
        fields.emplace_back(words[at].substr(0, equals),
                            platform::fromUtf8(std::string_view(words[at]).substr(equals + 1)));
    }
    script.host().dialogs().answerWindow(words[0], std::move(fields));
}

constexpr Action kActions[] = {
    {"answer message", "ok|cancel|abort|retry|ignore|yes|no",
     "Answers the next question of a message box.", "answer message yes", 1, 1, answerMessage},
    {"answer save", "FILE|cancel",
     "Answers the next save dialog: a full path, or the folder for several files.",
     "answer save \"My house_edited.ifc\"", 1, 1, answerSave},
    {"answer window", "NAME KEY=VALUE...|cancel",
     "Answers the next window of that name of the plug-in.",
     "answer window property \"name=Colour\" value=blue", 1, kAnyCount, answerWindow},
};

}  // namespace

std::span<const Action> answerActions() { return kActions; }

}  // namespace standin
