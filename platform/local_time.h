#pragma once

#include <ctime>

namespace platform {

/// `time` in the user's time zone; all fields 0 (but tm_mday 1) when it cannot be told.
std::tm localTime(std::time_t time);

/// The present moment in the user's time zone.
inline std::tm localTime() { return localTime(std::time(nullptr)); }

}  // namespace platform
