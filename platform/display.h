#pragma once

namespace platform {

/// Whether windows can be shown: there is a display server that accepts this process, or the
/// environment asks for windows that need none. True where the system always has one.
bool canConnectToDisplay();

}  // namespace platform
