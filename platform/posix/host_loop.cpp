#include "platform/host_loop.h"

namespace platform {

void putBackQuitRequest() {}

}  // namespace platform
