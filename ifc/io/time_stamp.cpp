#include "ifc/io/time_stamp.h"

#include <cstddef>

namespace IFC {
namespace {

/// strftime with conversions that give digits only, so that no locale has a say.
std::u16string formatted(const std::tm& time, const char* form) {
    char text[64];
    const std::size_t length = std::strftime(text, sizeof text, form, &time);
    return {text, text + length};
}

}  // namespace

std::u16string timeStamp(const std::tm& time) { return formatted(time, "%Y-%m-%dT%H:%M:%S"); }

std::u16string clockTime(const std::tm& time) { return formatted(time, "%H:%M:%S"); }

std::u16string logTimeStamp(const std::tm& time) { return formatted(time, "%Y-%m-%d    %H:%M:%S"); }

}  // namespace IFC
