#pragma once

#include <string>
#include <string_view>

#include "standin/core/objects.h"

namespace standin {

/// The displays that differ from the files, as the host keeps them in a project. Change ids and
/// what was taken off belong to a session and are left out.
std::string writeDisplays(const Objects& objects);

/// Gives the objects the displays that were kept; what no loaded file has is left out.
/// @return false, with nothing changed, when `bytes` are not of that form.
bool readDisplays(std::string_view bytes, Objects& objects);

}  // namespace standin
