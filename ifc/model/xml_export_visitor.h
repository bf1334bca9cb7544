#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

class IfcPropertySet;

namespace tinyxml2 {
class XMLElement;
}

namespace IFC {

/// Goes over editing records.
class Visitator {  // sic
public:
    Visitator() = default;
    Visitator(const Visitator&) = delete;
    Visitator& operator=(const Visitator&) = delete;
    virtual ~Visitator() = default;

    virtual void visit(const IfcPropertySet& set) = 0;
};

/// Appends each visited record as an "IfcPropertySet" element (xml_property_set_format.h) to the
/// file element. What is not set before a visit shows a message box and ends the visit; nothing is
/// thrown.
class XMLExportVisitator : public Visitator {
public:
    /// Borrowed; must be set before the first visit. Texts keep every unit when the element's
    /// document does not process entities; otherwise one of blanks only is lost in reading.
    void setFileElement(tinyxml2::XMLElement* fileElement) { fileElement_ = fileElement; }
    /// Kind of the sets that follow: "New", "Edited" or "Deleted". An empty one counts as not set.
    void setSetType(std::u16string_view setType) { setType_ = setType; }
    /// The object that the sets belong to.
    void setObjectGuid(std::u16string_view objectGuid) { objectGuid_ = objectGuid; }
    /// Its instance number in the IFC file.
    void setIfcId(std::int32_t ifcId) { ifcId_ = ifcId; }

    void visit(const IfcPropertySet& set) override;

private:
    tinyxml2::XMLElement* fileElement_ = nullptr;
    std::optional<std::u16string> setType_;
    std::u16string objectGuid_;
    std::int32_t ifcId_ = 0;
};

}  // namespace IFC
