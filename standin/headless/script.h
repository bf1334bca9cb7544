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

/// Runs scripts on a host. All texts are UTF-8.
class Script {
public:
    /// Lines of what is shown, and of what is wrong.
    using Output = std::function<void(std::string_view text)>;

    Script(Host& host, Output out, Output err);

    /// name: of the file, for messages.
    ScriptStatus run(std::string_view name, std::string_view text);

    // ---- for the actions ----

    Host& host() { return host_; }
    void print(std::string_view text) { out_(text); }
    /// Counts an expectation; one that does not hold is reported.
    void expect(bool holds, const std::string& expected, const std::string& found);
    /// Throw ScriptError when there is none.
    Object& object(const std::string& text);
    Object& selectedObject();

private:
    void runLine(std::string_view line);
    void report(const std::string& what);
    /// Tells at the end what a person should know besides.
    void conclude();

    Host& host_;
    Output out_;
    Output err_;
    std::string place_;  // "file:line: "
    std::size_t held_ = 0;
    std::size_t failed_ = 0;
    std::size_t violationsTold_ = 0;
};

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

inline constexpr std::size_t kAnyCount = 1000;

std::span<const Action> fileActions();
std::span<const Action> userActions();
std::span<const Action> answerActions();
std::span<const Action> showActions();
std::span<const Action> expectActions();

/// Every action with its help and an example.
std::string scriptHelp();

/// Splits a line; throws ScriptError for a quote that is not closed.
Words splitWords(std::string_view line);

/// The place of `word` among `choices`; throws ScriptError when it is none of them.
std::size_t choiceOf(const std::string& word, std::span<const std::string_view> choices);

}  // namespace standin
