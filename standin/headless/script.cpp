#include "standin/headless/script.h"

#include <algorithm>

#include "platform/text.h"
#include "standin/headless/headless_texts.h"

namespace standin {
namespace {

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

std::vector<Action> commonActions() {
    std::vector<Action> all;
    for (const auto& actions :
         {fileActions(), userActions(), answerActions(), showActions(), expectActions()})
        all.insert(all.end(), actions.begin(), actions.end());
    return all;
}

std::string actionHelp(std::span<const Action> actions) {
    std::string help;
    for (const Action& action : actions)
        help += "  " + usageOf(action) + "\n      " + std::string(action.help) + "\n      " +
                std::string(texts::kExample) + std::string(action.example) + "\n";
    return help;
}

std::string scriptHelp() { return std::string(texts::kUsage) + actionHelp(commonActions()); }

Script::Script(Host& host, Output out, Output err, std::span<const Action> more)
    : host_(host), out_(std::move(out)), err_(std::move(err)), actions_(more.begin(), more.end()) {
    const std::vector<Action> common = commonActions();
    actions_.insert(actions_.end(), common.begin(), common.end());
}

ScriptStatus Script::run(std::string_view name, std::string_view text) {
    begin(name, text);
    while (step()) {
    }
    return conclude();
}

void Script::begin(std::string_view name, std::string_view text) {
    name_ = name;
    text_ = text;
    textAt_ = 0;
    lineNumber_ = 0;
    canGoOn_ = true;
}

bool Script::step() {
    if (!canGoOn_ || textAt_ >= text_.size())
        return false;
    const std::size_t start = textAt_;
    const std::size_t end = std::min(text_.find('\n', start), text_.size());
    const std::string line = text_.substr(start, end - start);
    textAt_ = std::min(end + 1, text_.size());
    std::string place = name_ + ":" + std::to_string(++lineNumber_) + ": ";
    // A line that waits for the user gets its place back when the lines that it let go are done.
    place_.swap(place);
    try {
        runLine(line);
    } catch (const ScriptNotYet& notYet) {
        if (mayWait(notYet)) {
            textAt_ = start;
            --lineNumber_;
        } else {
            giveUp(notYet.what());
        }
    } catch (const ScriptError& error) {
        giveUp(error.what());
    }
    for (; violationsTold_ < host_.violations().size(); ++violationsTold_) {
        ++failed_;
        report(std::string(texts::kBrokenRule) + host_.violations()[violationsTold_]);
    }
    place_.swap(place);
    return canGoOn_ && textAt_ < text_.size();
}

void Script::giveUp(const std::string& why) {
    canGoOn_ = false;
    report(why);
}

void Script::runLine(std::string_view line) {
    const Words words = splitWords(line);
    if (words.empty())
        return;
    // Names of two words come first: "expect file" is not "expect".
    for (const std::size_t nameWords : {std::size_t{2}, std::size_t{1}}) {
        if (words.size() < nameWords)
            continue;
        const std::string name = nameWords == 2 ? words[0] + " " + words[1] : words[0];
        const auto action =
            std::find_if(actions_.begin(), actions_.end(),
                         [&](const Action& candidate) { return candidate.name == name; });
        if (action == actions_.end())
            continue;
        const Words rest(words.begin() + static_cast<std::ptrdiff_t>(nameWords), words.end());
        if (rest.size() < action->wordsAtLeast || rest.size() > action->wordsAtMost)
            throw ScriptError(std::string(texts::kUsedAs) + usageOf(*action));
        beginAction(*action);
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

ScriptStatus Script::conclude() {
    if (!canGoOn_)
        return ScriptStatus::CannotRun;
    const auto tell = [this](std::string_view what, std::size_t count) {
        if (count > 0)
            out_(std::string(what) + std::to_string(count) + "\n");
    };
    tell(texts::kUnexpectedQuestions, host_.dialogs().unexpectedQuestions());
    tell(texts::kUnusedAnswers, host_.dialogs().unusedAnswers());
    out_(std::string(texts::kExpectationsHeld) + std::to_string(held_) +
         std::string(texts::kExpectationsFailed) + std::to_string(failed_) + "\n");
    return failed_ == 0 ? ScriptStatus::Held : ScriptStatus::ExpectationsFailed;
}

}  // namespace standin
