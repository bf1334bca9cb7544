#pragma once

namespace platform {

/// Gives errno the value that tells best why the last call of Windows failed. @return false.
bool failWithErrno();

/// Windows' code for what errno tells: that of the failure that `failWithErrno` told of last on
/// this thread, if errno still tells it.
unsigned long codeOfErrno();

}  // namespace platform
