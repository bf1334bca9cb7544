#include "standin/headless/script.h"

#include <algorithm>

#include "platform/text.h"
#include "standin/headless/headless_texts.h"

namespace standin {
namespace {

std::vector<Action> allActions() {
    std::vector<Action> all;
    for (const auto& actions :
         {fileActions(), userActions(), answerActions(), showActions(), expectActions()})
        all.insert(all.end(), actions.begin(), actions.end());
    return all;
}

bool beginsComment(std::string_view rest) {
    return rest.starts_with('#') && (rest.size() == 1 || rest[1] < '0' || rest[1] > '9');
}

std::string unescaped(char letter) { return letter == 'n' ? "\n" : std::string(1, letter); }

std::string usageOf(const Action& action) {
    return std::string(action.name) + (action.arguments.empty() ? "" : " ") +
           std::string(action.arguments);
}

}  // namespace

Words splitWords(std::string_view line) {
    Words words;
    std::size_t at = 0;
    const auto isBlank = [&](std::size_t place) {
        return line[place] == ' ' || line[place] == '\t' || line[place] == '\r';
    };
    while (true) {
        while (at < line.size() && isBlank(at))
            ++at;
        if (at == line.size() || beginsComment(line.substr(at)))
            return words;
        std::string& word = words.emplace_back();
        bool isQuoted = false;
        for (; at < line.size() && (isQuoted || !isBlank(at)); ++at) {
            if (line[at] == '"')
                isQuoted = !isQuoted;
            else if (isQuoted && line[at] == '\\' && at + 1 < line.size())
                word += unescaped(line[++at]);
            else
                word += line[at];
        }
        if (isQuoted)
            throw ScriptError(std::string(texts::kOpenQuote));
    }
}

std::size_t choiceOf(const std::string& word, std::span<const std::string_view> choices) {
    const auto found = std::find(choices.begin(), choices.end(), word);
    if (found != choices.end())
        return static_cast<std::size_t>(found - choices.begin());
    std::string all;
    for (const std::string_view choice : choices)
        all += (all.empty() ? "" : ", ") + std::string(choice);
    throw ScriptError("\"" + word + "\" " + std::string(texts::kNotOneOf) + all);
}

std::string scriptHelp() {
    std::string help(texts::kUsage);
    for (const Action& action : allActions())
        help += "  " + usageOf(action) + "\n      " + std::string(action.help) + "\n      " +
                std::string(texts::kExample) + std::string(action.example) + "\n";
    return help;
}

Script::Script(Host& host, Output out, Output err)
    : host_(host), out_(std::move(out)), err_(std::move(err)) {}

ScriptStatus Script::run(std::string_view name, std::string_view text) {
    int number = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        place_ = std::string(name) + ":" + std::to_string(++number) + ": ";
        try {
            runLine(text.substr(0, end));
        } catch (const ScriptError& error) {
            report(error.what());
            return ScriptStatus::CannotRun;
        }
        for (; violationsTold_ < host_.violations().size(); ++violationsTold_) {
            ++failed_;
            report(std::string(texts::kBrokenRule) + host_.violations()[violationsTold_]);
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    conclude();
    return failed_ == 0 ? ScriptStatus::Held : ScriptStatus::ExpectationsFailed;
}

void Script::runLine(std::string_view line) {
    const Words words = splitWords(line);
    if (words.empty())
        return;
    const std::vector<Action> actions = allActions();
    // Names of two words come first: "expect file" is not "expect".
    for (const std::size_t nameWords : {std::size_t{2}, std::size_t{1}}) {
        if (words.size() < nameWords)
            continue;
        const std::string name = nameWords == 2 ? words[0] + " " + words[1] : words[0];
        const auto action =
            std::find_if(actions.begin(), actions.end(),
                         [&](const Action& candidate) { return candidate.name == name; });
        if (action == actions.end())
            continue;
        const Words rest(words.begin() + static_cast<std::ptrdiff_t>(nameWords), words.end());
        if (rest.size() < action->wordsAtLeast || rest.size() > action->wordsAtMost)
            throw ScriptError(std::string(texts::kUsedAs) + usageOf(*action));
        action->run(*this, rest);
        return;
    }
    throw ScriptError(std::string(texts::kUnknownAction) + words[0] +
                      (words.size() > 1 ? " " + words[1] : ""));
}

void Script::report(const std::string& what) { err_(place_ + what + "\n"); }

void Script::expect(bool holds, const std::string& expected, const std::string& found) {
    ++(holds ? held_ : failed_);
    if (!holds)
        report(std::string(texts::kExpected) + expected + std::string(texts::kFound) + found);
}

Object& Script::object(const std::string& text) {
    Object* const found = host_.objects().findNamed(platform::fromUtf8(text));
    if (!found)
        throw ScriptError(std::string(texts::kUnknownObject) + text);
    return *found;
}

Object& Script::selectedObject() {
    const auto& selected = host_.objects().selected();
    Object* const found = selected.size() == 1 ? host_.objects().find(selected[0]) : nullptr;
    if (!found)
        throw ScriptError(std::string(texts::kOneSelected));
    return *found;
}

void Script::conclude() {
    const auto tell = [this](std::string_view what, std::size_t count) {
        if (count > 0)
            out_(std::string(what) + std::to_string(count) + "\n");
    };
    tell(texts::kUnexpectedQuestions, host_.dialogs().unexpectedQuestions());
    tell(texts::kUnusedAnswers, host_.dialogs().unusedAnswers());
    out_(std::string(texts::kExpectationsHeld) + std::to_string(held_) +
         std::string(texts::kExpectationsFailed) + std::to_string(failed_) + "\n");
}

}  // namespace standin
