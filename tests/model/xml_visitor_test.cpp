#include <gtest/gtest.h>
#include <tinyxml2.h>

#include <random>
#include <string>
#include <vector>

#include "ifc/model/property_set_record.h"
#include "ifc/model/xml_export_visitor.h"
#include "ifc/model/xml_text.h"
#include "tests/support/reports.h"

namespace {

using namespace IFC;
using Texts = std::vector<std::string>;

IfcPropertySet sampleSet() {
    IfcPropertySet set(u"0uNK6qhSj5RvPSUfVkbX1t", u"Pset \u00C4 & \"B\"");
    IfcProperty deleted;
    deleted.initialName = deleted.name = u"Weight";
    deleted.value = u"12.5";
    deleted.valueType = kRealValue;
    deleted.quantityType = deleted.entityName = u"IfcQuantityWeight";
    deleted.prefix = u"KILO";
    deleted.unit = u"GRAM";
    deleted.state = kPropertyDeleted;
    set.properties[u"Weight"] = deleted;
    IfcProperty renamed;
    renamed.initialName = u"External";
    renamed.name = u"IsExternal";
    renamed.value = u"<true>";
    renamed.valueType = kTruthValue;
    renamed.entityName = u"IfcBoolean";
    renamed.state = kPropertyEdited;
    set.properties[u"IsExternal"] = renamed;
    return set;
}

std::string printed(const tinyxml2::XMLDocument& document) {
    tinyxml2::XMLPrinter printer;
    document.Print(&printer);
    return printer.CStr();
}

constexpr const char* kSampleXml =
    R"(<File>
    <IfcPropertySet Name="Pset Ä &amp; &quot;B&quot;" GUID="0uNK6qhSj5RvPSUfVkbX1t" ObjectGUID="2O2Fr$t4X7Zf8NOew3FNr2" IfcId="412" Type="Edited">
        <IfcProperty State="2" IsValueBool="1">
            <InitialName>External</InitialName>
            <Name>IsExternal</Name>
            <Value>&lt;true&gt;</Value>
            <QuantityType/>
            <IfcEntityName>IfcBoolean</IfcEntityName>
            <Prefix/>
            <Unit/>
        </IfcProperty>
        <IfcProperty State="3" IsValueBool="0">
            <InitialName>Weight</InitialName>
            <Name>Weight</Name>
            <Value>12.5</Value>
            <QuantityType>IfcQuantityWeight</QuantityType>
            <IfcEntityName>IfcQuantityWeight</IfcEntityName>
            <Prefix>KILO</Prefix>
            <Unit>GRAM</Unit>
        </IfcProperty>
    </IfcPropertySet>
    <IfcPropertySet Name="Empty" GUID="1" ObjectGUID="2O2Fr$t4X7Zf8NOew3FNr2" IfcId="412" Type="Edited"/>
</File>
)";

TEST(XmlExportVisitor, WritesARecordWhoeverEscapes) {
    for (const bool processEntities : {false, true}) {
        AnsweredMessages boxes;
        tinyxml2::XMLDocument document(processEntities);
        tinyxml2::XMLElement* file = document.NewElement("File");
        document.InsertEndChild(file);
        XMLExportVisitator visitor;
        visitor.setFileElement(file);
        visitor.setSetType(u"Edited");
        visitor.setObjectGuid(u"2O2Fr$t4X7Zf8NOew3FNr2");
        visitor.setIfcId(412);
        visitor.visit(sampleSet());
        visitor.visit(IfcPropertySet(u"1", u"Empty"));
        EXPECT_EQ(printed(document), kSampleXml);
        EXPECT_TRUE(boxes.entries.empty());
    }
}

TEST(XmlExportVisitor, SaysWhatIsMissing) {
    AnsweredMessages boxes;
    tinyxml2::XMLDocument document;
    tinyxml2::XMLElement* file = document.NewElement("File");
    document.InsertEndChild(file);
    XMLExportVisitator visitor;
    visitor.setSetType(u"New");
    visitor.visit(sampleSet());
    visitor.setFileElement(file);
    visitor.setSetType(u"");
    visitor.visit(IfcPropertySet(u"g", u"n"));
    EXPECT_EQ(boxes.entries,
              (Texts{"XML Export Error|XMLExportVisitator: Property set has to be added to file "
                     "element.",
                     "XML Export Error|XMLExportVisitator: Set type has to be definied"}));
    EXPECT_EQ(printed(document),
              "<File>\n    <IfcPropertySet Name=\"n\" GUID=\"g\" "
              "ObjectGUID=\"\" IfcId=\"0\"/>\n</File>\n");
}

struct TextCase {
    std::u16string text;
    std::string xml;
};

TEST(XmlText, EscapesOnlyWhatXmlCannotHold) {
    const TextCase cases[] = {
        {u"C:\\X2 \\X\\ \\X2", "C:\\X2 \\X\\ \\X2"},
        {u"a\tb\r\n", "a&#9;b&#13;&#10;"},
        {u"  ", "&#32;&#32;"},
        {u"\U0001F600", "\xF0\x9F\x98\x80"},
        {std::u16string(1, u'\0'), "\\X2\\0000\\X0\\"},
        {u"\x01\x1F", "\\X2\\0001\\X0\\\\X2\\001F\\X0\\"},
        {u"\xFFFE\xFFFF\xFFFD", "\\X2\\FFFE\\X0\\\\X2\\FFFF\\X0\\\xEF\xBF\xBD"},
        {{u'x', 0xD83D, u'y', 0xDE00}, "x\\X2\\D83D\\X0\\y\\X2\\DE00\\X0\\"},
        {u"\\X2\\0001\\X0\\", "\\X2\\005C\\X0\\X2\\0001\\X0\\"},
    };
    for (const TextCase& each : cases)
        EXPECT_EQ(toXmlText(each.text, XmlReferences::Written), each.xml);
}

TEST(XmlText, LeavesSequencesOfOtherOriginAlone) {
    for (const char* text :
         {"\\X2\\00E4\\X0\\", "\\X2\\005C\\X0\\", "\\X2\\0001\\X0", "\\X2\\000g\\X0\\", "\\X2\\",
          "\\X2\\00010002\\X0\\", "\\X2\\000a\\X0\\"})
        EXPECT_EQ(platform::toUtf8(fromXmlText(text).text), text);
}

/// Texts of the pieces that could be mistaken for, or run into, an escape.
TEST(XmlText, SurvivesTheWayThroughAParser) {
    const std::u16string pieces[] = {u"\\",     u"X2",    u"X0",    u"0001",  u"005C", u"\\X2\\",
                                     u"\\X0\\", u"\x01",  u"\r",    u"\n",    u"\t",   u" ",
                                     u"&#13;",  u"]]>",   u"<",     u"\"",    u"'",    u"a",
                                     u"\u00E9", {0xD83D}, {0xDE00}, {0xFFFE}, {0}};
    for (unsigned seed = 1; seed <= 3000; ++seed) {
        std::mt19937 random(seed);
        std::u16string text;
        for (auto count = random() % 9; count > 0; --count)
            text += pieces[random() % std::size(pieces)];
        const std::string xml = "<a b=\"" + toXmlText(text, XmlReferences::Written) + "\">" +
                                toXmlText(text, XmlReferences::Written) + "</a>";
        tinyxml2::XMLDocument document(true, tinyxml2::PRESERVE_WHITESPACE);
        ASSERT_EQ(document.Parse(xml.c_str()), tinyxml2::XML_SUCCESS) << "seed " << seed << xml;
        const tinyxml2::XMLElement* root = document.RootElement();
        const TextFromXml attribute = fromXmlText(root->Attribute("b"));
        ASSERT_TRUE(attribute.text == text && !attribute.damaged) << "seed " << seed << xml;
        const char* content = root->GetText();
        ASSERT_TRUE(fromXmlText(content ? content : "").text == text) << "seed " << seed << xml;
    }
}

}  // namespace
