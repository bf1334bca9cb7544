#pragma once

namespace platform {

/// Puts back the system's request to end the program, where such a request goes through the message
/// queue and an inner loop has taken it from there: the loop of the host ends by it.
void putBackQuitRequest();

}  // namespace platform
