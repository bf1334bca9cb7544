#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ifc/io/error_callback.h"
#include "ifc/model/property_set_record.h"

namespace tinyxml2 {
class XMLElement;
class XMLNode;
}  // namespace tinyxml2

namespace IFC {

/// Reports what is wrong in an XML text, each time with the text's name and the line.
class XmlProblems {
public:
    /// logName: as the user knows the text, such as "Data.xml".
    XmlProblems(ErrorCallback errors, std::u16string_view logName);

    void reportAt(int line, std::u16string_view text) const;

    /// Reports an element or attribute that the reader does not know and that therefore is not
    /// written again; only the first one, because a log of a later version would have it
    /// everywhere.
    void reportIgnored(int line, std::string_view name);

private:
    ErrorCallback errors_;
    std::u16string logName_;
    bool ignoredReported_ = false;
};

/// One "IfcPropertySet" element of the edit log.
struct LoggedPropertySet {
    std::shared_ptr<IfcPropertySet> record;
    std::u16string type;  // "New", "Edited" or "Deleted"; not checked here
    std::u16string objectGuid;
    std::int32_t ifcId = 0;
};

/// Value of an attribute, empty when it is not there. Reports damaged text.
std::u16string attributeText(const tinyxml2::XMLElement& element, const char* name,
                             const XmlProblems& problems);

/// Reports the attributes of `element` that are not among `known`.
void reportUnknownAttributes(const tinyxml2::XMLElement& element,
                             std::initializer_list<std::string_view> known, XmlProblems& problems);

/// The elements directly in `parent`, which lend their lifetime. Reports what else there is, but
/// for comments.
std::vector<const tinyxml2::XMLElement*> childElements(const tinyxml2::XMLNode& parent,
                                                       XmlProblems& problems);

/// Reads one "IfcPropertySet" element (xml_property_set_format.h). Where a name occurs twice, the
/// last property is kept. Empty, with a report, for a set that cannot be told from others: without
/// name, GUID or a number as IfcId.
std::optional<LoggedPropertySet> readPropertySet(const tinyxml2::XMLElement& element,
                                                 XmlProblems& problems);

}  // namespace IFC
