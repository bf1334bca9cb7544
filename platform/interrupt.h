#pragma once

namespace platform {

/// From now on Ctrl-C no longer ends the process but raises a flag, for programs that have
/// something to put in order.
void watchInterrupts();

/// Whether Ctrl-C was pressed since `watchInterrupts`.
bool interrupted();

}  // namespace platform
