#pragma once

/// What a library with windows does in a host that knows nothing of Qt. windowSystem: as in
/// QT_QPA_PLATFORM.
extern "C" {

/// Shows windows in two application objects, one after the other.
__attribute__((visibility("default"))) bool runWindows(const char* windowSystem);

/// Tries to, where there is no screen. @return the number of messages that say so; 100 and more for
/// anything else.
__attribute__((visibility("default"))) int messagesWithoutScreen(const char* windowSystem);
}
