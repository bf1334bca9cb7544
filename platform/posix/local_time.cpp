#include "platform/local_time.h"

#include <time.h>

namespace platform {

std::tm localTime(std::time_t time) {
    std::tm parts = {};
    if (!::localtime_r(&time, &parts)) {
        parts = {};
        parts.tm_mday = 1;
    }
    return parts;
}

}  // namespace platform
