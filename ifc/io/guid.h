#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/new_guid.h"

/// GUIDs in the form that IFC files have: 22 characters, each a digit to the base 64, for 128 bits,
/// the most significant first. The first digit carries two bits and so is one of 0 to 3.
namespace IFC {

/// The digits by their values.
inline constexpr std::u16string_view kGuidDigits =
    u"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_$";
inline constexpr std::size_t kGuidTextUnits = 22;

std::u16string guidText(const platform::GuidBytes& guid);

/// The bits of an IFC GUID; empty when `text` is none.
std::optional<platform::GuidBytes> guidBytes(std::u16string_view text);

/// The GUID that follows from `name`: the same for the same name, whenever and wherever it is asked
/// for.
std::u16string namedIfcGuid(std::u16string_view name);

/// A new GUID. When the system gives none the user is told by a message box, and the text is empty.
std::u16string newIfcGuid();

/// What `newIfcGuid` makes of the system's answer.
std::u16string newIfcGuid(const std::optional<platform::GuidBytes>& systemGuid);

}  // namespace IFC
