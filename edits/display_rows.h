#pragma once

#include <string_view>
#include <vector>

#include "ifc/model/property_set_record.h"
#include "plugin/host_calls.h"

/// Editing records as rows of the host's property display, and back.
namespace IFC {

/// The row of a property of the set with that name and GUID.
DisplayedProperty rowOf(std::u16string_view setName, std::u16string_view setGuid,
                        const IfcProperty& property);

/// The rows of a set; of one without properties a single row that says so. What is marked for
/// deletion has none.
std::vector<DisplayedProperty> rowsOf(const IfcPropertySet& set);

/// The property of a row, as it is displayed now.
IfcProperty propertyOf(const DisplayedProperty& row);

}  // namespace IFC
