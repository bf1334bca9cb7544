#pragma once

#include <cstdio>

namespace platform {

/// Whether `stream` is shown to a person rather than kept in a file or pipe.
bool isTerminal(std::FILE* stream);

/// While it lives, bytes for stdout and stderr arrive as they are, and a console takes them as
/// UTF-8. Windows alone needs that: it would put a carriage return before each line feed, and read
/// the bytes by the console's own code page.
class Utf8Output {
public:
    Utf8Output();
    ~Utf8Output();  // NOLINT(performance-trivially-destructible): not on Windows
    Utf8Output(const Utf8Output&) = delete;
    Utf8Output& operator=(const Utf8Output&) = delete;

private:
    // Of the console, which outlives the program; 0 when there is none to give back.
    [[maybe_unused]] unsigned codePageBefore_ = 0;
};

}  // namespace platform
