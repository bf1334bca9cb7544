#include "platform/program_arguments.h"

#include <windows.h>
// windows.h must come first.
#include <shellapi.h>

#include <cwchar>
#include <memory>

#include "platform/win32/wide.h"

namespace platform {

std::vector<std::u16string> programArguments(int, const char* const*) {
    struct LocalFreer {
        void operator()(wchar_t** memory) const { LocalFree(memory); }
    };
    int count = 0;
    const std::unique_ptr<wchar_t*, LocalFreer> parts(
        CommandLineToArgvW(GetCommandLineW(), &count));
    std::vector<std::u16string> arguments;
    for (int i = 0; parts && i < count; ++i)
        arguments.emplace_back(fromWide(parts.get()[i], std::wcslen(parts.get()[i])));
    return arguments;
}

}  // namespace platform
