#include "platform/host_loop.h"

#include <windows.h>

namespace platform {

void putBackQuitRequest() { PostQuitMessage(0); }

}  // namespace platform
