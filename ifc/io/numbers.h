#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

/// Real numbers as text, independent of the process locale.
namespace IFC {

/// Room that `formatReal` needs: sign, 17 digits, "." and "E-308", or the zeros of a small number.
inline constexpr std::size_t kRealTextBytes = 32;

/// Writes `value` as a STEP real (ISO 10303-21): the shortest digits that read back as the same
/// double, always with a ".", an exponent only where that is shorter: "1.", "0.1", "-0.", "1.E-5",
/// "1.5E20". `out` has kRealTextBytes. STEP knows finite numbers only. Infinity becomes "inf",
/// which the tokenizer reads back; minus infinity the lowest double; what is not a number "$", the
/// absent value.
/// @return the end of the text, which is not zero-terminated.
char* formatReal(char* out, double value);

/// Whether a number that from_chars called out of range is too large for a double, and not too
/// small. number: its text as from_chars matched it.
bool isTooLarge(std::string_view number);

/// The number that `text` is, with a decimal point, blanks around it and a sign allowed; empty when
/// it is none or too large for a double.
std::optional<double> realOf(std::u16string_view text);

/// The same for callers who want 0 then; the user is told by a message box.
double toReal(std::u16string_view text);

}  // namespace IFC
