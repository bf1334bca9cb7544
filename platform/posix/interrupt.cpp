#include "platform/interrupt.h"

#include <signal.h>

#include <atomic>

namespace platform {
namespace {

std::atomic<bool> pressed{false};
static_assert(std::atomic<bool>::is_always_lock_free);  // it is set inside a signal handler

void onInterrupt(int) { pressed = true; }

}  // namespace

void watchInterrupts() {
    struct sigaction action = {};
    action.sa_handler = onInterrupt;
    action.sa_flags = SA_RESTART;  // a read that is under way goes on
    ::sigemptyset(&action.sa_mask);
    ::sigaction(SIGINT, &action, nullptr);
}

bool interrupted() { return pressed; }

}  // namespace platform
