#include "platform/shell_open.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "platform/text.h"

namespace platform {
namespace {

/// In the first child: starts the program as a grandchild, which nobody needs to wait for. Tells
/// `report` the error number when it could not be started; only functions that are safe after a
/// fork of a program with threads.
[[noreturn]] void startDetached(char* const* arguments, int report) {
    const pid_t grandchild = ::fork();
    if (grandchild == 0) {
        ::setsid();
        ::execvp(arguments[0], arguments);
    }
    if (grandchild <= 0) {
        const int error = errno;
        [[maybe_unused]] const ssize_t ignored = ::write(report, &error, sizeof error);
    }
    ::_exit(0);
}

}  // namespace

bool openWithSystemProgram(std::u16string_view path) {
    // What begins with "-" would be an option, and "a:b" an address.
    std::string file = toPathBytes(path);
    if (!file.starts_with('/'))
        file.insert(0, "./");
    std::string program = "xdg-open";
    char* const arguments[] = {program.data(), file.data(), nullptr};

    int ends[2] = {};  // closed without a byte when the program has started
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return false;
    const pid_t child = ::fork();
    if (child == 0)
        startDetached(arguments, ends[1]);
    ::close(ends[1]);
    int error = 0;
    bool started = child > 0;
    if (started) {
        while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
        }
        ssize_t count = 0;
        while ((count = ::read(ends[0], &error, sizeof error)) < 0 && errno == EINTR) {
        }
        started = count == 0;
    }
    ::close(ends[0]);
    return started;
}

}  // namespace platform
