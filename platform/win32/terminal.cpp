#include "platform/terminal.h"

#include <windows.h>
// windows.h must come first.
#include <fcntl.h>
#include <io.h>

namespace platform {

bool isTerminal(std::FILE* stream) { return _isatty(_fileno(stream)) != 0; }

Utf8Output::Utf8Output() : codePageBefore_(GetConsoleOutputCP()) {
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
}

Utf8Output::~Utf8Output() {
    std::fflush(stdout);
    std::fflush(stderr);
    if (codePageBefore_ != 0)
        SetConsoleOutputCP(codePageBefore_);
}

}  // namespace platform
