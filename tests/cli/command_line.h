#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "tests/support/temp_folder.h"

/// What a run of the program left behind; the test's folder stands in the texts as "@".
struct Outcome {
    int status = -1;
    std::string out;
    std::string err;
};

/// Runs commands in a folder of their own.
class CommandLine {
public:
    /// words: separated by blanks; 'in quotes' a word may have some. A word that begins with "@" is
    /// a file of the folder.
    Outcome run(std::string_view words, std::function<bool()> interrupted = {},
                bool showsProgress = false) const;

    /// What `psets` shows of the file, without the numbers and GUIDs of the sets, which edits make
    /// anew.
    std::string sets(std::string_view file) const;

    /// Whether nothing but these files is in the folder.
    bool holdsOnly(std::ptrdiff_t count) const { return folder.count() == count; }

    TempFolder folder;

private:
    std::string shortened(std::string text) const;
};

/// A model with two walls that share a set, a door with properties of other kinds, and a type.
std::string smallModel();
