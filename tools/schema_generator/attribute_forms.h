#pragma once

#include <string>

#include "tools/schema_generator/schema.h"

namespace schema_generator {

/// How the generated code names and handles one attribute value.
struct AttributeForm {
    std::string memberType;   ///< "IFC::Text", "IFC::References<IfcProperty>"
    std::string initializer;  ///< "" or " = nullptr"
    std::string operation;    ///< of the reader and the writer: "text", "references"
    std::string info;         ///< constant that goes with it, "kIfcProperty", or ""
};

AttributeForm formOf(const Representation& value);

/// Whether entities can be reached through the value.
bool holdsReferences(const Representation& value);

}  // namespace schema_generator
