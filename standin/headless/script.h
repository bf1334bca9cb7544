#pragma once

#include <functional>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "standin/core/host.h"

namespace standin {

enum class ScriptStatus { Held = 0, ExpectationsFailed = 1, CannotRun = 2 };

/// What is wrong with a line of a script; ends the script.
class ScriptError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What a line needs is not there yet. To be thrown before the line has done anything.
class ScriptNotYet : public ScriptError {
public:
    /// limitMs: how long it makes sense to try again.
    ScriptNotYet(const std::string& what, int limitMs) : ScriptError(what), limitMs_(limitMs) {}

    int limitMs() const { return limitMs_; }

private:
    int limitMs_;
};

class Script;

/// The words behind an action's name.
using Words = std::vector<std::string>;

struct Action {
    std::string_view name;  ///< one or two words
    std::string_view arguments;
    std::string_view help;
    std::string_view example;
    std::size_t wordsAtLeast;
    std::size_t wordsAtMost;
    void (*run)(Script& script, const Words& words);
};

/// Runs scripts on a host. All texts are UTF-8.
class Script {
public:
    /// Lines of what is shown, and of what is wrong.
    using Output = std::function<void(std::string_view text)>;

    /// more: actions of a program that can do more; they come before those that all have.
    Script(Host& host, Output out, Output err, std::span<const Action> more = {});
    virtual ~Script() = default;
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    /// name: of the file, for messages.
    ScriptStatus run(std::string_view name, std::string_view text);

    // The same line by line.
    void begin(std::string_view name, std::string_view text);
    /// Runs the next line, or leaves it for the next time. It may be called again while a line is
    /// at work, which then waits for the user in an event loop. @return false when there is none
    /// left, or the script cannot go on.
    bool step();
    bool canGoOn() const { return canGoOn_; }
    /// Tells at the end what a person should know besides.
    ScriptStatus conclude();

    // ---- for the actions ----

    Host& host() { return host_; }
    void print(std::string_view text) { out_(text); }
    /// Counts an expectation; one that does not hold is reported.
    void expect(bool holds, const std::string& expected, const std::string& found);
    /// Throw ScriptError when there is none.
    Object& object(const std::string& text);
    Object& selectedObject();

protected:
    /// Before an action is run; may refuse by a ScriptError.
    virtual void beginAction(const Action&) {}
    /// Whether the line is to be tried again; else the script ends.
    virtual bool mayWait(const ScriptNotYet&) { return false; }

private:
    void giveUp(const std::string& why);
    void runLine(std::string_view line);
    void report(const std::string& what);

    Host& host_;
    Output out_;
    Output err_;
    std::vector<Action> actions_;
    std::string name_;
    std::string text_;
    std::size_t textAt_ = 0;
    int lineNumber_ = 0;
    bool canGoOn_ = true;
    std::string place_;  // "file:line: "
    std::size_t held_ = 0;
    std::size_t failed_ = 0;
    std::size_t violationsTold_ = 0;
};

inline constexpr std::size_t kAnyCount = 1000;

std::span<const Action> fileActions();
std::span<const Action> userActions();
std::span<const Action> answerActions();
std::span<const Action> showActions();
std::span<const Action> expectActions();

/// Actions with their help and an example.
std::string actionHelp(std::span<const Action> actions);
/// What the headless program says of itself, with every action.
std::string scriptHelp();
/// What all scripts can do.
std::vector<Action> commonActions();

/// Splits a line; throws ScriptError for a quote that is not closed.
Words splitWords(std::string_view line);

/// The place of `word` among `choices`; throws ScriptError when it is none of them.
std::size_t choiceOf(const std::string& word, std::span<const std::string_view> choices);

}  // namespace standin
