#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// Numbers and truth values as text, independent of the process locale.
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

/// The whole number that `text` is; "12." and "1.2E1" are 12. Empty when it is none, and when it is
/// beyond 64 bits or, with a point or an exponent, beyond what a double holds exactly.
std::optional<std::int64_t> integerOf(std::u16string_view text);

enum class Truth { False, True, Unknown };
/// "true", "T", ".T.", "yes" and "1", "false" and its like, "unknown", "U" and ".U.", in any case.
std::optional<Truth> truthOf(std::u16string_view text);

/// The same as realOf for callers who want 0 then; the user is told by a message box.
double toReal(std::u16string_view text);

}  // namespace IFC
