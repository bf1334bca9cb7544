#include "platform/shell_open.h"

#include <utility>

#include "platform/files.h"

namespace platform {
namespace {

OpenFileHandler& currentHandler() {
    static OpenFileHandler handler;
    return handler;
}

}  // namespace

bool openWithDefaultProgram(std::u16string_view path) {
    if (path.empty() || !fileExists(path))
        return false;
    // A copy: the handler may be replaced while it works.
    if (const OpenFileHandler handler = currentHandler())
        return handler(path);
    return openWithSystemProgram(path);
}

OpenFileHandler setOpenFileHandler(OpenFileHandler handler) {
    return std::exchange(currentHandler(), std::move(handler));
}

}  // namespace platform
