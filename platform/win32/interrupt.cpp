#include "platform/interrupt.h"

#include <windows.h>

#include <atomic>

namespace platform {
namespace {

std::atomic<bool> pressed{false};

BOOL WINAPI onConsoleEvent(DWORD event) {
    if (event != CTRL_C_EVENT)
        return FALSE;
    pressed = true;
    return TRUE;
}

}  // namespace

void watchInterrupts() { SetConsoleCtrlHandler(onConsoleEvent, TRUE); }

bool interrupted() { return pressed; }

}  // namespace platform
