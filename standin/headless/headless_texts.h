#pragma once

#include <string_view>

/// What the headless program says. UTF-8.
namespace standin::texts {

inline constexpr std::string_view kUsage =
    "quillet-standin - plays the viewer for the plug-in, by a script\n"
    "\n"
    "  quillet-standin [SCRIPT]     runs the actions of a file, else of the standard input\n"
    "  quillet-standin --help       shows this\n"
    "\n"
    "A script has one action a line. Words are separated by blanks; a word with blanks stands in\n"
    "\"double quotes\", in which \\\" \\\\ and \\n stand for a quote, a backslash and a line end. "
    "What\n"
    "follows a # at the begin of a word is a comment, unless digits follow (#65).\n"
    "OBJECT is a GUID, an instance number such as #65, or a name. SET is a name.\n"
    "\n"
    "Ends with 0 when all expectations held and the plug-in broke no rule of the interface, with "
    "1\n"
    "when not, and with 2 when the script cannot be run; what is wrong is told with its line.\n"
    "\n"
    "Actions:\n";
inline constexpr std::string_view kTooManyArguments = "only one script can be run";
inline constexpr std::string_view kNoScript = "cannot be read";
inline constexpr std::string_view kExample = "example: ";

inline constexpr std::string_view kUnknownAction = "there is no such action: ";
inline constexpr std::string_view kUsedAs = "used as: ";
inline constexpr std::string_view kOpenQuote = "a quote is not closed";
inline constexpr std::string_view kUnknownObject = "there is no such object: ";
inline constexpr std::string_view kUnknownSet = "the object has no such set: ";
inline constexpr std::string_view kOneSelected = "select one object first";
inline constexpr std::string_view kCannotClick = "nothing that can be clicked: ";
inline constexpr std::string_view kNothingToUndo = "there is nothing to undo";
inline constexpr std::string_view kNothingToRedo = "there is nothing to redo";
inline constexpr std::string_view kNotExportedFunction = "the program exports no such function: ";
inline constexpr std::string_view kNotOneOf = "is none of: ";
inline constexpr std::string_view kNotANumber = "is no number: ";
inline constexpr std::string_view kFieldForm = "a field has the form key=value: ";

inline constexpr std::string_view kExpected = "expected ";
inline constexpr std::string_view kFound = ", found ";
inline constexpr std::string_view kBrokenRule = "the plug-in broke a rule: ";
inline constexpr std::string_view kUnexpectedQuestions = "questions that nobody expected: ";
inline constexpr std::string_view kUnusedAnswers = "answers that nobody asked for: ";
inline constexpr std::string_view kExpectationsHeld = "expectations held: ";
inline constexpr std::string_view kExpectationsFailed = ", failed: ";

}  // namespace standin::texts
