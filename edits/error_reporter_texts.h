#pragma once

#include <string_view>

/// Texts of the error reporter, word for word.
namespace texts {

inline constexpr std::u16string_view kReporterCaption = u"Quillet Error";
inline constexpr std::u16string_view kMoreReportsBegin = u"... and ";
inline constexpr std::u16string_view kMoreReportsEnd = u" more.";

}  // namespace texts
