#include "ifc/model/xml_property_set_reader.h"

#include <tinyxml2.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <system_error>
#include <utility>

#include "ifc/model/record_texts.h"
#include "ifc/model/xml_property_set_format.h"
#include "ifc/model/xml_text.h"
#include "platform/text.h"

namespace IFC {
namespace {

using namespace xml_format;

constexpr std::size_t kLongestQuoteBytes = 80;

struct Integer32 {
    std::int32_t value = 0;
    std::u16string_view problem;  // empty when `text` is a number
};

/// Decimal, with a sign and blanks before it; nothing behind it.
Integer32 integerOf(const char* text) {
    std::string_view digits = text ? text : "";
    digits.remove_prefix(std::min(digits.find_first_not_of(" \t\r\n"), digits.size()));
    if (digits.starts_with('+') && !digits.starts_with("+-"))
        digits.remove_prefix(1);
    Integer32 result;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), result.value);
    if (error == std::errc::result_out_of_range)
        result.problem = texts::kNumberOutOfRange;
    else if (error != std::errc() || end != digits.data() + digits.size())
        result.problem = texts::kInvalidNumber;
    return result;
}

std::u16string decoded(std::string_view utf8, int line, std::string_view owner,
                       const XmlProblems& problems) {
    TextFromXml read = fromXmlText(utf8);
    if (read.damaged)
        problems.reportAt(line,
                          std::u16string(texts::kDamagedText).append(platform::fromUtf8(owner)));
    return std::move(read.text);
}

/// All text directly in `element`: it may be cut by comments and CDATA sections.
std::u16string elementText(const tinyxml2::XMLElement& element, XmlProblems& problems) {
    std::string utf8;
    for (const tinyxml2::XMLNode* child = element.FirstChild(); child;
         child = child->NextSibling()) {
        if (child->ToText())
            utf8 += child->Value();
        else if (!child->ToComment())
            problems.reportIgnored(child->GetLineNum(), child->Value());
    }
    return decoded(utf8, element.GetLineNum(), element.Name(), problems);
}

/// Without what its attributes say.
IfcProperty readPropertyTexts(const tinyxml2::XMLElement& element, XmlProblems& problems) {
    IfcProperty property;
    std::array<bool, std::size(kPropertyTexts)> seen{};
    for (const tinyxml2::XMLElement* child : childElements(element, problems)) {
        const auto* text = std::find_if(std::begin(kPropertyTexts), std::end(kPropertyTexts),
                                        [child](const PropertyText& known) {
                                            return std::string_view(known.element) == child->Name();
                                        });
        const auto index = static_cast<std::size_t>(text - std::begin(kPropertyTexts));
        if (index == seen.size() || std::exchange(seen[index], true)) {
            problems.reportIgnored(child->GetLineNum(), child->Name());
            continue;
        }
        reportUnknownAttributes(*child, {}, problems);
        property.*text->field = elementText(*child, problems);
    }
    return property;
}

IfcProperty readProperty(const tinyxml2::XMLElement& element, XmlProblems& problems) {
    reportUnknownAttributes(element, {kState, kIsValueBool}, problems);
    IfcProperty property = readPropertyTexts(element, problems);
    const Integer32 state = integerOf(element.Attribute(kState));
    const bool known = state.problem.empty() && state.value >= kPropertyUnchanged &&
                       state.value <= kPropertyDeleted;
    if (known)
        property.state = state.value;
    else
        problems.reportAt(element.GetLineNum(),
                          std::u16string(texts::kUnknownPropertyState).append(property.name));
    bool isTruthValue = false;
    if (element.QueryBoolAttribute(kIsValueBool, &isTruthValue) ==
        tinyxml2::XML_WRONG_ATTRIBUTE_TYPE)
        problems.reportAt(element.GetLineNum(),
                          std::u16string(texts::kBadTruthValue).append(property.name));
    property.valueType = isTruthValue ? kTruthValue : kTextValue;
    return property;
}

void readProperties(const tinyxml2::XMLElement& element, IfcPropertySet& set,
                    XmlProblems& problems) {
    for (const tinyxml2::XMLElement* child : childElements(element, problems)) {
        if (std::string_view(child->Name()) != kPropertyElement) {
            problems.reportIgnored(child->GetLineNum(), child->Name());
            continue;
        }
        IfcProperty property = readProperty(*child, problems);
        if (!child->FirstChildElement(kName)) {
            problems.reportAt(child->GetLineNum(),
                              std::u16string(texts::kMissingPropertyName).append(set.name));
            continue;
        }
        set.freeName(property.name);
        const bool isTaken = set.properties.contains(property.name);
        if (isTaken && property.state == kPropertyDeleted) {
            const std::u16string key = IfcPropertySet::keyAside(property);
            set.properties.insert_or_assign(key, std::move(property));
            continue;
        }
        if (isTaken)
            problems.reportAt(child->GetLineNum(), std::u16string(texts::kPropertyDuplication)
                                                       .append(property.name)
                                                       .append(texts::kPropertyDuplicationOfSet)
                                                       .append(set.name));
        set.properties.insert_or_assign(property.name, std::move(property));
    }
}

}  // namespace

XmlProblems::XmlProblems(ErrorCallback errors, std::u16string_view logName)
    : errors_(std::move(errors)), logName_(logName) {}

void XmlProblems::reportAt(int line, std::u16string_view text) const {
    report(errors_, "",
           std::u16string(text)
               .append(texts::kPlaceOpen)
               .append(logName_)
               .append(texts::kPlaceLine)
               .append(platform::fromUtf8(std::to_string(line)))
               .append(texts::kPlaceClose));
}

void XmlProblems::reportIgnored(int line, std::string_view name) {
    if (!std::exchange(ignoredReported_, true))
        reportAt(line, std::u16string(texts::kNotUnderstood)
                           .append(platform::fromUtf8(name.substr(0, kLongestQuoteBytes))));
}

std::vector<const tinyxml2::XMLElement*> childElements(const tinyxml2::XMLNode& parent,
                                                       XmlProblems& problems) {
    std::vector<const tinyxml2::XMLElement*> elements;
    for (const tinyxml2::XMLNode* child = parent.FirstChild(); child;
         child = child->NextSibling()) {
        if (const tinyxml2::XMLElement* element = child->ToElement())
            elements.push_back(element);
        else if (!child->ToComment())
            problems.reportIgnored(child->GetLineNum(), child->Value());
    }
    return elements;
}

std::u16string attributeText(const tinyxml2::XMLElement& element, const char* name,
                             const XmlProblems& problems) {
    const char* utf8 = element.Attribute(name);
    return utf8 ? decoded(utf8, element.GetLineNum(), name, problems) : std::u16string();
}

void reportUnknownAttributes(const tinyxml2::XMLElement& element,
                             std::initializer_list<std::string_view> known, XmlProblems& problems) {
    for (const tinyxml2::XMLAttribute* attribute = element.FirstAttribute(); attribute;
         attribute = attribute->Next()) {
        if (std::find(known.begin(), known.end(), attribute->Name()) == known.end())
            problems.reportIgnored(attribute->GetLineNum(), attribute->Name());
    }
}

std::optional<LoggedPropertySet> readPropertySet(const tinyxml2::XMLElement& element,
                                                 XmlProblems& problems) {
    reportUnknownAttributes(element, {kName, kGuid, kObjectGuid, kIfcId, kType}, problems);
    const int line = element.GetLineNum();
    for (const char* required : {kName, kGuid}) {
        if (!element.Attribute(required)) {
            problems.reportAt(
                line,
                std::u16string(texts::kMissingAttribute).append(platform::fromUtf8(required)));
            return std::nullopt;
        }
    }
    const Integer32 ifcId = integerOf(element.Attribute(kIfcId));
    if (!ifcId.problem.empty()) {
        problems.reportAt(line, ifcId.problem);
        return std::nullopt;
    }
    const std::u16string guid = attributeText(element, kGuid, problems);
    if (guid.empty()) {
        problems.reportAt(line, platform::fromUtf8(texts::kEmptySetIdentifier));
        return std::nullopt;
    }
    LoggedPropertySet logged{
        .record = std::make_shared<IfcPropertySet>(guid, attributeText(element, kName, problems)),
        .type = attributeText(element, kType, problems),
        .objectGuid = attributeText(element, kObjectGuid, problems),
        .ifcId = ifcId.value};
    readProperties(element, *logged.record, problems);
    return logged;
}

}  // namespace IFC
