#include "platform/display.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/dynamic_library.h"

namespace platform {
namespace {

std::string environment(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
}

/// Whether the X server of DISPLAY accepts connections. libxcb is loaded because programs without
/// windows have no use for it.
bool canConnectToX() {
    if (environment("DISPLAY").empty())
        return false;
    const DynamicLibrary xcb(u"libxcb.so.1");
    if (!xcb.isOpen())
        return false;
    struct Connection;
    const auto connect = reinterpret_cast<Connection* (*)(const char* display, int* screen)>(
        xcb.symbol("xcb_connect"));
    const auto hasError =
        reinterpret_cast<int (*)(Connection*)>(xcb.symbol("xcb_connection_has_error"));
    const auto disconnect = reinterpret_cast<void (*)(Connection*)>(xcb.symbol("xcb_disconnect"));
    if (!connect || !hasError || !disconnect)
        return false;
    Connection* const connection = connect(nullptr, nullptr);  // never null
    const bool isConnected = hasError(connection) == 0;
    disconnect(connection);
    return isConnected;
}

/// WAYLAND_DISPLAY: a socket's path, or its name in XDG_RUNTIME_DIR.
bool canConnectToWayland() {
    std::string path = environment("WAYLAND_DISPLAY");
    if (path.empty())
        return false;
    if (path.front() != '/')
        path = environment("XDG_RUNTIME_DIR") + '/' + path;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        return false;
    path.copy(address.sun_path, path.size());
    const int handle = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (handle < 0)
        return false;
    const bool isConnected =
        ::connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(handle);
    return isConnected;
}

/// `list`: kinds of windows to try in turn, "wayland;xcb", each with arguments behind a colon.
bool canShowOneOf(std::string_view list) {
    while (true) {
        const std::size_t end = list.find(';');
        const std::string_view entry = list.substr(0, end);
        const std::string_view kind = entry.substr(0, entry.find(':'));
        const bool isUsable = kind == "xcb"                 ? canConnectToX()
                              : kind.starts_with("wayland") ? canConnectToWayland()
                                                            : true;
        if (isUsable)
            return true;
        if (end == std::string_view::npos)
            return false;
        list.remove_prefix(end + 1);
    }
}

}  // namespace

bool canConnectToDisplay() {
    const std::string asked = environment("QT_QPA_PLATFORM");
    if (!asked.empty())
        return canShowOneOf(asked);
    return canConnectToX() || canConnectToWayland();
}

}  // namespace platform
