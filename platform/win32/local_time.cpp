#include "platform/local_time.h"

namespace platform {

std::tm localTime(std::time_t time) {
    std::tm parts = {};
    if (localtime_s(&parts, &time) != 0) {
        parts = {};
        parts.tm_mday = 1;
    }
    return parts;
}

}  // namespace platform
