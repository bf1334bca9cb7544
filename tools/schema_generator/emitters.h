#pragma once

#include <string>

#include "tools/schema_generator/schema.h"
#include "tools/schema_generator/views.h"

/// One pair of functions per kind of declaration: what stands in the release's headers, and what in
/// its .cpp files.
namespace schema_generator {

std::string declareEntity(const EntityType& entity, const ViewPlan& plan);
std::string defineEntity(const EntityType& entity, const ViewPlan& plan);

std::string declareDefinedType(const DefinedType& type);
std::string defineDefinedType(const DefinedType& type);

std::string declareSelect(const SelectType& select);
/// leaves: the entities and value classes that the select stands for, nested selects resolved.
std::string defineSelect(const SelectType& select, const std::vector<std::string>& leaves);

std::string declareEnumeration(const EnumerationType& enumeration);
std::string defineEnumeration(const EnumerationType& enumeration);

/// For enumerations that are members of a select only.
std::string declareEnumerationValue(const EnumerationType& enumeration);
std::string defineEnumerationValue(const EnumerationType& enumeration);

}  // namespace schema_generator
