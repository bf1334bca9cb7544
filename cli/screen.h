#pragma once

#include <string>
#include <string_view>

#include "cli/quillet_cli.h"

namespace cli {

/// The console with a line for progress, which goes away before anything else is shown there.
class Screen {
public:
    /// isQuiet: no progress, no notes. `console` outlives the screen.
    Screen(const Console& console, bool isQuiet) : console_(console), isQuiet_(isQuiet) {}
    /// Hands over what is still to be printed.
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// Appends to the standard output. utf8: written as it is.
    void print(std::string_view utf8);
    /// One line for the standard error.
    void printError(std::string_view utf8);
    /// The same, but not when quiet.
    void printNote(std::string_view utf8);

    /// label: ASCII.
    void showProgress(std::string_view label, int percent);
    void hideProgress();

    bool interrupted() const { return console_.interrupted && console_.interrupted(); }

private:
    void flush();

    const Console& console_;
    const bool isQuiet_;
    std::string unprinted_;
    std::size_t progressWidth_ = 0;  // columns; 0 when there is no progress line
};

}  // namespace cli
