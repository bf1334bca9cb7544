#pragma once

#include <optional>
#include <string>

#include "standin/core/objects.h"

namespace standin {

/// Reads an IFC file into the host's objects with their property displays, ready for Objects::add.
/// The model itself is not kept. `error`: why there is nothing; UTF-8.
std::optional<LoadedFile> readModel(const std::u16string& path, std::string& error);

}  // namespace standin
