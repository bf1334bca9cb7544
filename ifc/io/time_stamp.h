#pragma once

#include <ctime>
#include <string>

namespace IFC {

/// "2024-05-31T09:07:05", the form of a STEP header's time stamp.
std::u16string timeStamp(const std::tm& time);

/// "09:07:05".
std::u16string clockTime(const std::tm& time);

/// "2024-05-31    09:07:05", the first line of a log.
std::u16string logTimeStamp(const std::tm& time);

}  // namespace IFC
