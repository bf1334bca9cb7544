#include "platform/terminal.h"

#include <unistd.h>

namespace platform {

bool isTerminal(std::FILE* stream) { return ::isatty(::fileno(stream)) == 1; }

Utf8Output::Utf8Output() = default;

Utf8Output::~Utf8Output() = default;

}  // namespace platform
