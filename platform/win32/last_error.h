#pragma once

namespace platform {

/// Gives errno the value that tells best why the last call of Windows failed. @return false.
bool failWithErrno();

}  // namespace platform
