#include "ifc/model/xml_export_visitor.h"

#include <tinyxml2.h>

#include "ifc/model/property_set_record.h"
#include "ifc/model/record_texts.h"
#include "ifc/model/xml_property_set_format.h"
#include "ifc/model/xml_text.h"
#include "platform/message_box.h"

namespace IFC {
namespace {

using namespace xml_format;

void showError(std::u16string_view text) {
    platform::showMessageBox(text, texts::kXmlExportErrorCaption, platform::MessageButtons::Ok,
                             platform::MessageIcon::Error);
}

void appendProperty(tinyxml2::XMLElement& setElement, const IfcProperty& property,
                    XmlReferences references) {
    tinyxml2::XMLElement* element = setElement.InsertNewChildElement(kPropertyElement);
    element->SetAttribute(kState, property.state);
    element->SetAttribute(kIsValueBool, property.valueType == kTruthValue ? 1 : 0);
    for (const PropertyText& text : kPropertyTexts) {
        tinyxml2::XMLElement* child = element->InsertNewChildElement(text.element);
        if (const std::u16string& value = property.*text.field; !value.empty())
            child->SetText(toXmlText(value, references).c_str());
    }
}

}  // namespace

void XMLExportVisitator::visit(const IfcPropertySet& set) {
    if (!fileElement_) {
        showError(texts::kNoFileElement);
        return;
    }
    const XmlReferences references = fileElement_->GetDocument()->ProcessEntities()
                                         ? XmlReferences::LeftToPrinter
                                         : XmlReferences::Written;
    const auto utf8 = [references](std::u16string_view text) {
        return toXmlText(text, references);
    };
    tinyxml2::XMLElement* element = fileElement_->InsertNewChildElement(kSetElement);
    element->SetAttribute(kName, utf8(set.name).c_str());
    element->SetAttribute(kGuid, utf8(set.SetIdentifier).c_str());
    element->SetAttribute(kObjectGuid, utf8(objectGuid_).c_str());
    element->SetAttribute(kIfcId, ifcId_);
    if (!setType_ || setType_->empty()) {
        showError(texts::kNoSetType);
        return;
    }
    element->SetAttribute(kType, utf8(*setType_).c_str());
    for (const auto& [name, property] : set.properties)
        appendProperty(*element, property, references);
}

}  // namespace IFC
