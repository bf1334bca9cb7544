#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/schema_generator/schema.h"

/// Pieces that the emitters of several kinds of class share.
namespace schema_generator {

/// "public A" for each select base, virtual where it has to be.
std::vector<std::string> basesOf(const std::vector<SelectBase>& selects);

/// Constructor, destructor and classInfo() as they are declared in every class that has objects.
std::string declareObjectClass(std::string_view className);
/// The same, defined, behind the class's ClassInfo constant. derived: the constant's third
/// argument, or empty.
std::string defineObjectClass(std::string_view className, std::string_view derived = {});

/// "constinit const IFC::ClassInfo kIfcWall = IFC::<maker><IfcWall>(u"IfcWall", "IFCWALL");"
std::string defineClassInfo(std::string_view className, std::string_view maker,
                            std::string_view derived = {});

/// A function definition. statements: each line indented once and ended; a single short one stands
/// on the signature's line, as the house format has it. Ends with an empty line in front.
std::string defineFunction(std::string_view head, const std::vector<std::string>& parameters,
                           std::string_view qualifiers, std::string_view statements);

/// The statement that reads, or writes, `member`.
std::string readStatement(std::string_view member, bool optional, const Representation& value);
std::string writeStatement(std::string_view member, const Representation& value);
/// The statement that puts the entities behind `member` on the queue.
std::string collectStatement(std::string_view member, const Representation& value);

inline constexpr std::string_view kAttributeReader = "IFC::AttributeReader& reader";
inline constexpr std::string_view kAttributeWriter = "IFC::AttributeWriter& writer";
inline constexpr std::string_view kReferenceQueue = "std::deque<IFC::IfcEntity*>& queue";

}  // namespace schema_generator
