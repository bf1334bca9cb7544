#pragma once

#include <span>
#include <string_view>

#include "ifc/model/class_info.h"

namespace IFC {

/// One schema release that the library can read.
struct SchemaRelease {
    std::string_view name;                      ///< of the generated namespace: "IFC4X3_ADD2"
    std::span<const ClassInfo* const> classes;  ///< every entity and value class
};

/// The release that a FILE_SCHEMA identifier selects, exactly as it is spelt; null for an unknown
/// one.
const SchemaRelease* findRelease(std::u16string_view schemaIdentifier);

}  // namespace IFC
