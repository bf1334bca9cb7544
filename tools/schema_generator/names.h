#pragma once

#include <string>
#include <string_view>

/// Names of the schema language and the C++ names made from them.
namespace schema_generator {

/// EXPRESS does not tell upper from lower case. ASCII only.
std::string upperCased(std::string_view name);
bool equalNames(std::string_view left, std::string_view right);

/// "Name" -> "Name_": what holds an attribute in its class.
std::string memberName(std::string_view attribute);

/// "IfcWall" -> "kIfcWall": the ClassInfo of a class.
std::string classInfoName(std::string_view className);

/// The EnumerationInfo of an enumeration: "IfcWallTypeEnum" -> "kIfcWallTypeEnum"; one that is a
/// value class as well needs both constants: "IfcNullStyle" -> "kIfcNullStyleEnumeration".
std::string enumerationInfoName(std::string_view enumeration, bool isValueClass);

/// Name without extension of the .cpp file that defines a class, by the first letter behind "Ifc":
/// "IfcWall" -> "ifc_w". The name must be declarable.
std::string bodyFileStem(std::string_view className);

/// Whether classes can be made of the name: "Ifc" and a letter or digit.
bool isDeclarable(std::string_view name);

}  // namespace schema_generator
