#include "ifc/io/parser.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <thread>

#include "ifc/io/log_file.h"
#include "ifc/model/views.h"
#include "tests/support/reports.h"
#include "tests/support/step_model.h"
#include "tests/support/zip_archive.h"

namespace {

using namespace std::string_view_literals;

/// The DATA section begins on line 8 of stepFile().
struct ReadCase {
    std::string_view data;
    std::string_view reports;
    std::string_view written;  // "=": as read
};

void checkReading(std::span<const ReadCase> cases, std::string_view schema = "IFC4") {
    for (const auto& [data, reports, written] : cases) {
        ReadModel read(stepFile(data, schema));
        EXPECT_EQ(read.reports(), reports) << data;
        ASSERT_TRUE(read.loaded()) << data;
        EXPECT_EQ(dataOf(stepOf(read.model())), written == "=" ? data : written) << data;
    }
}

TEST(ModelParser, KeepsWhatTheSchemaKnows) {
    constexpr ReadCase kCases[] = {
        {"#1=IFCPERSON($,'It''s','',('a','b'),(),$,(#2),$);\n#2=IFCACTORROLE(.OWNER.,$,$);\n", "",
         "="},
        {"#1=IFCCARTESIANPOINT((0.,-1.5,1.E-5));\n", "", "="},
        {"#1=IFCPROPERTYSINGLEVALUE('p',$,IFCLABEL('x'),$);\n"
         "#2=IFCPROPERTYSINGLEVALUE('p',$,IFCBOOLEAN(.T.),$);\n"
         "#3=IFCPROPERTYSINGLEVALUE('p',$,IFCLOGICAL(.U.),$);\n"
         "#4=IFCPROPERTYSINGLEVALUE('p',$,IFCINTEGER(-9223372036854775808),$);\n"
         "#5=IFCPROPERTYSINGLEVALUE('p',$,IFCCOMPLEXNUMBER((1.,2.)),$);\n"
         "#6=IFCPROPERTYSINGLEVALUE('p',$,IFCLENGTHMEASURE(2.),#7);\n"
         "#7=IFCSIUNIT(*,.LENGTHUNIT.,.MILLI.,.METRE.);\n",
         "", "="},
        {"#1=IFCCARTESIANPOINTLIST3D(((0.,0.,0.),(1.,2.,3.)));\n"
         "#2=IFCINDEXEDPOLYCURVE(#1,(IFCLINEINDEX((1,2)),IFCARCINDEX((2,3,4))),.F.);\n",
         "", "="},
        {"#1=IFCPIXELTEXTURE(.T.,.F.,$,$,$,2,1,3,(\"0FFFFFF\",\"1A0\"));\n"
         "#2=IFCBLOBTEXTURE(.T.,.F.,$,$,$,'PNG',\"0AB\");\n",
         "", "="},
        {"#1=IFCTRIMMEDCURVE(#2,(#3,IFCPARAMETERVALUE(0.)),(IFCPARAMETERVALUE(1.),#4),.T.,"
         ".CARTESIAN.);\n"
         "#2=IFCLINE(#3,#5);\n#3=IFCCARTESIANPOINT((0.,0.));\n#4=IFCCARTESIANPOINT((1.,0.));\n"
         "#5=IFCVECTOR(#6,1.);\n#6=IFCDIRECTION((1.,0.));\n",
         "", "="},
        {"#1=IFCORIENTEDEDGE(*,*,#2,.T.);\n#2=IFCEDGE(#3,#3);\n#3=IFCVERTEX();\n", "",
         "#1=IFCORIENTEDEDGE(*,*,#2,.T.);\n#2=IFCEDGE(#3,#3);\n#3=IFCVERTEX);\n"},
    };
    checkReading(kCases);
}

TEST(ModelParser, ReadsNumbersAsFilesWriteThem) {
    constexpr ReadCase kCases[] = {
        {"#1=IFCCARTESIANPOINT((1,1E-05,-2e3,1.0000));\n", "",
         "#1=IFCCARTESIANPOINT((1.,1.E-5,-2000.,1.));\n"},
        {"#1=IFCCARTESIANPOINT((+1.5,+ 2,3.));\n", "", "#1=IFCCARTESIANPOINT((1.5,2.,3.));\n"},
        {"#1=IFCQUANTITYCOUNT('n',$,$,12345678901.,$);\n", "", "="},
        {"#1=IFCPROPERTYSINGLEVALUE('n',$,IFCINTEGER(2E3),$);\n", "",
         "#1=IFCPROPERTYSINGLEVALUE('n',$,IFCINTEGER(2000),$);\n"},
        {"#1=IFCCARTESIANPOINT((0.1,1.E400));\n", "8 #1 Number out of range./\n", "="},
        {"#1=IFCCARTESIANPOINT((-1.#INF,1E));\n", "8 #1 Malformed number./\n", "="},
        {"#1=IFCPROPERTYSINGLEVALUE('n',$,IFCINTEGER(99999999999999999999),$);\n",
         "8 #1 Number out of range./\n", "="},
    };
    checkReading(kCases);
}

TEST(ModelParser, ReadsAnyLayout) {
    constexpr ReadCase kCases[] = {
        {"#1 = IFCCARTESIANPOINT\r\n (\t( 0. , /* y, z */ 1. ) ) ;\r\n", "",
         "#1=IFCCARTESIANPOINT((0.,1.));\n"},
        {"#1=IFCVERTEX();#2=IFCVERTEX()#3=IFCVERTEX();;\n", "",
         "#1=IFCVERTEX);\n#2=IFCVERTEX);\n#3=IFCVERTEX);\n"},
        {"#1=IFCVERTEX);\n", "", "="},
        {"#5=IFCVERTEX();\nENDSEC;\nDATA;\n#3=IFCVERTEX();\n", "",
         "#5=IFCVERTEX);\n#3=IFCVERTEX);\n"},
        {"#1IFCEDGE (#2,#2);\n#2=IFCVERTEX);\n", "", "#1=IFCEDGE(#2,#2);\n#2=IFCVERTEX);\n"},
    };
    checkReading(kCases);
}

TEST(ModelParser, KeepsOrderAndNumbers) {
    constexpr ReadCase kCases[] = {
        {"#2147483647=IFCVERTEX);\n#7=IFCVERTEX);\n#268590526=IFCVERTEX);\n#1=IFCVERTEX);\n"
         "#9=IFCEDGE(#2147483647,#268590526);\n",
         "", "="},
        {"#2147483648=IFCVERTEX();\n#92147483647=IFCVERTEX(';');\n#0=IFCVERTEX();\n"
         "#5=IFCEDGE(#92147483647,$);\n",
         "8 #2147483648 Instance number out of range: #2147483648\n"
         "9 #92147483647 Instance number out of range: #92147483647\n"
         "10 #0 Instance number out of range: #0\n"
         "11 #5 Expected: attribute value. Got: empty argument./\n"
         "11 #5 Reference to an entity that does not exist: #92147483647\n",
         "#5=IFCEDGE(#92147483647,$);\n"},
    };
    checkReading(kCases);
}

TEST(ModelParser, LeavesOutWhatTheReleaseDoesNotKnow) {
    constexpr ReadCase kCases[] = {
        {"#1=IFCFOO('#9=;',(#2),X(.A.));\n#2=IFCVERTEX);\n",
         "8 #1 Entity named: IFCFOO not found\n", "#2=IFCVERTEX);\n"},
        {"#1=IFCLABEL('x');\n", "8 #1 Entity named: IFCLABEL not found\n", ""},
        {"#1=ifcvertex();\n", "8 #1 Entity named: ifcvertex not found\n", ""},
        {"#7=IFCORGANIZATION($,'first',$,$,$);\n#7=IFCORGANIZATION($,'second',$,$,$);\n",
         "9 #7 Entity duplicated: #7\n", "#7=IFCORGANIZATION($,'first',$,$,$);\n"},
        {"#1=('x');\n#2=;\n#3;\n#4=IFCVERTEX);\n",
         "8 #1 Expected: entity name. Got: OpenBracketToken./\n"
         "9 #2 Expected: entity name. Got: SemicolonToken./\n"
         "10 #3 Expected: entity name. Got: SemicolonToken./\n",
         "#4=IFCVERTEX);\n"},
        {"#1=IFCVERTEX;\n", "8 #1 Expected: OpenBracketToken. Got: SemicolonToken./\n", ""},
        {"nonsense (1,'2') # ;\n#4=IFCVERTEX);\n", "8 #0 Instance number out of range: #0\n",
         "#4=IFCVERTEX);\n"},
    };
    checkReading(kCases);
}

TEST(ModelParser, TakesUnknownEnumerationValuesAsTheLastOne) {
    constexpr ReadCase kCases[] = {
        {"#1=IFCWALL('0000000000000000000001',$,$,$,$,$,$,$,.FOO.);\n",
         "8 #1 Enume IfcWallTypeEnum does not contain: \"FOO\"{2}\n",
         "#1=IFCWALL('0000000000000000000001',$,$,$,$,$,$,$,.NOTDEFINED.);\n"},
        {"#1=IFCCONNECTEDFACESET(());\n#2=IFCGRIDAXIS('a',$,.T.);\n",
         "9 #2 Expected: attribute value. Got: empty argument./\n", "="},
    };
    checkReading(kCases);
}

TEST(ModelParser, WritesWrongArgumentsBackAsTheyWere) {
    constexpr ReadCase kCases[] = {
        // One wrong value of each kind; what follows it keeps its place.
        {"#1=IFCORGANIZATION(5,'n',.T.,$,$);\n",
         "8 #1 Expected: StringToken. Got: IntegerDataTypeToken./\n"
         "8 #1 Expected: StringToken. Got: enumeration value./\n",
         "="},
        {"#1=IFCCARTESIANPOINT('x');\n", "8 #1 Expected: OpenBracketToken. Got: StringToken./\n",
         "="},
        {"#1=IFCCARTESIANPOINT((1.,'x',.A.,3.));\n",
         "8 #1 Expected: RealDataTypeToken. Got: StringToken./\n", "="},
        {"#1=IFCQUANTITYCOUNT('n',$,'u',(1.,(2.)),'f');\n",
         "8 #1 Expected: IdentifierToken. Got: StringToken./\n"
         "8 #1 Expected: RealDataTypeToken. Got: OpenBracketToken./\n",
         "="},
        {"#1=IFCQUANTITYCOUNT('n',X(Y('),('),(2.)),$,%7,'f');\n",
         "8 #1 Expected: StringToken. Got: entity name./\n"
         "8 #1 Expected: RealDataTypeToken. Got: UnknownSignToken./\n",
         "="},
        {"#1=IFCSIUNIT(*,LENGTHUNIT,'MILLI',.METRE.);\n",
         "8 #1 Expected: enumeration value. Got: entity name./\n"
         "8 #1 Expected: enumeration value. Got: StringToken./\n",
         "="},
        {"#1=IFCBLOBTEXTURE(.TRUE.,1,$,$,$,'PNG','0AB');\n",
         "8 #1 Expected: enumeration value. Got: enumeration value./\n"
         "8 #1 Expected: enumeration value. Got: IntegerDataTypeToken./\n"
         "8 #1 Expected: BinaryToken. Got: StringToken./\n",
         "="},
        {"#1=IFCPROPERTYSINGLEVALUE('n',$,'bare',$);\n",
         "8 #1 Expected: IdentifierToken. Got: StringToken./\n", "="},
        {"#1=IFCPROPERTYSINGLEVALUE('n',$,IFCNOTHING('x'),$);\n",
         "8 #1 Creating eSet error. No eSet called: IFCNOTHING exists in map of functions.\n", "="},
        {"#1=IFCPROPERTYSINGLEVALUE('n',$,IFCLABEL 'x',$);\n",
         "8 #1 Expected: OpenBracketToken. Got: StringToken./\n", "="},
        {"#1=IFCPROPERTYSINGLEVALUE('n',$,IFCPRESENTABLETEXT('x'),$);\n",
         "8 #1 Wrong reference. Expected: IfcValue. Got: IfcPresentableText./\n", "="},
    };
    checkReading(kCases);
}

TEST(ModelParser, WritesRecordsOfAnotherLengthBackAsTheyWere) {
    constexpr ReadCase kCases[] = {
        {"#1=IFCPERSON($,'n');\n", "", "="},
        {"#1=IFCORGANIZATION('i','n',$,$,$,'extra',(#2, 5.0),X('\\S\\''));\n",
         "8 #1 More arguments than the entity has attributes. Got: StringToken./\n", "="},
        {"#1=IFCVERTEX(1,2);\n",
         "8 #1 More arguments than the entity has attributes. Got: IntegerDataTypeToken./\n", "="},
        {"#1=IFCPERSON();\n", "", "#1=IFCPERSON($,$,$,$,$,$,$,$);\n"},
        {"#1=IFCPERSON(,'n',,,(,'t'),/* , */,,);\n",
         "8 #1 Expected: attribute value. Got: empty argument./\n"
         "8 #1 Expected: attribute value. Got: empty argument./\n"
         "8 #1 Expected: attribute value. Got: empty argument./\n"
         "8 #1 Expected: attribute value. Got: empty argument./\n"
         "8 #1 Expected: attribute value. Got: empty argument./\n"
         "8 #1 Expected: attribute value. Got: empty argument./\n"
         "8 #1 Expected: attribute value. Got: empty argument./\n",
         "#1=IFCPERSON($,'n',$,$,(,'t'),$,$,$);\n"},
        {"#1=IFCPERSONANDORGANIZATION($,,$,,#7);\n",
         "8 #1 Expected: attribute value. Got: empty argument./\n"
         "8 #1 Expected: attribute value. Got: empty argument./\n"
         "8 #1 More arguments than the entity has attributes. Got: IdentifierToken./\n",
         "#1=IFCPERSONANDORGANIZATION($,$,$,,#7);\n"},
        {"#1=IFCPERSON('i','n' 'm',X Y,'l');\n",
         "8 #1 Expected: closing bracket. Got: StringToken./\n"
         "8 #1 Expected: StringToken. Got: entity name./\n"
         "8 #1 Expected: OpenBracketToken. Got: StringToken./\n",
         "="},
        {"#1=IFCPERSON('i';\n#2=IFCPERSON($,'n',$,('m',;\n",
         "8 #1 Statement ended before its closing bracket in entity: #1\n"
         "9 #2 Statement ended before its closing bracket in entity: #2\n",
         "#1=IFCPERSON('i');\n#2=IFCPERSON($,'n',$,('m'));\n"},
        // With a forward reference, so that the second reading finds it.
        {"#1=IFCORGANIZATION($,'n',5,(#2),$,7,1.;0);\n#2=IFCACTORROLE(.OWNER.,$,$);\n",
         "8 #1 Expected: StringToken. Got: IntegerDataTypeToken./\n"
         "8 #1 More arguments than the entity has attributes. Got: IntegerDataTypeToken./\n",
         "="},
    };
    checkReading(kCases);
}

TEST(ModelParser, TakesAsAbsentWhatTheEndCutsOff) {
    constexpr ReadCase kCases[] = {
        {"#1=IFCORGANIZATION('i','n',(5,'x';\n",
         "8 #1 Expected: StringToken. Got: OpenBracketToken./\n"
         "8 #1 Statement ended before its closing bracket in entity: #1\n",
         "#1=IFCORGANIZATION('i','n',$);\n"},
        {"#1=IFCPERSON('i',END-);\n",
         "8 #1 Expected: StringToken. Got: EndIsoToken./\n"
         "8 #1 Statement ended before its closing bracket in entity: #1\n",
         "#1=IFCPERSON('i',$);\n"},
    };
    checkReading(kCases);

    const std::pair<std::string_view, std::string_view> cutFiles[] = {
        {"#1=IFCPERSON('i',%'open", "#1=IFCPERSON('i',$);\n"},
        // What follows in the second reading is no part of the string.
        {"#1=IFCWALL('0000000000000000000001',#9,'open",
         "#1=IFCWALL('0000000000000000000001',#9,'open');\n"},
    };
    for (const auto& [data, written] : cutFiles) {
        const std::string step = stepFile(data);
        ReadModel read(step.substr(0, step.find("open") + 4));
        ASSERT_TRUE(read.loaded());
        EXPECT_EQ(dataOf(stepOf(read.model())), written);
    }
}

TEST(ModelParser, KeepsReferencesToNothingAndToTheWrongClass) {
    constexpr ReadCase kCases[] = {
        {"#1=IFCEDGE(#8,#2);\n#2=IFCPERSON($,$,$,$,$,$,$,$);\n",
         "8 #1 Reference to an entity that does not exist: #8\n"
         "8 #1 Wrong reference. Expected: IfcVertex. Got: IfcPerson #2./\n",
         "="},
        // The line is that of the file, not of what is read twice.
        {"#1=IFCVERTEX);\n\n\n#2=IFCEDGELOOP((#3,#9));\n#3=IFCORIENTEDEDGE(*,*,$,.T.);\n",
         "12 #3 Expected: attribute value. Got: empty argument./\n"
         "11 #2 Reference to an entity that does not exist: #9\n",
         "#1=IFCVERTEX);\n#2=IFCEDGELOOP((#3,#9));\n#3=IFCORIENTEDEDGE(*,*,$,.T.);\n"},
        // What was left out is not referred to any more.
        {"#1=IFCORGANIZATION($,'n',$,(#2,#3),$);\n#2=IFCFOO();\n#3=IFCACTORROLE(.OWNER.,$,$);\n",
         "9 #2 Entity named: IFCFOO not found\n"
         "8 #1 Reference to an entity that does not exist: #2\n",
         "#1=IFCORGANIZATION($,'n',$,(#3),$);\n#3=IFCACTORROLE(.OWNER.,$,$);\n"},
    };
    checkReading(kCases);
}

TEST(ModelParser, BindsReferencesInBothDirections) {
    ReadModel read(
        stepFile("#1=IFCPERSONANDORGANIZATION(#2,#3,(#4,#5));\n"
                 "#2=IFCPERSON($,'p',$,$,$,$,$,$);\n"
                 "#4=IFCACTORROLE(.OWNER.,$,$);\n"
                 "#3=IFCORGANIZATION($,'o',$,(#4),$);\n"
                 "#5=IFCACTORROLE(.USERDEFINED.,'#6=IFCVERTEX();',$);\n"));
    ASSERT_TRUE(read.loaded());
    EXPECT_EQ(read.reports(), "");
    std::deque<IFC::IfcEntity*> targets;
    read.model().find(1)->collectReferences(targets);
    std::string numbers;
    for (const IFC::IfcEntity* target : targets)
        numbers += std::to_string(target->id()) + " ";
    EXPECT_EQ(numbers, "2 3 4 5 ");
    EXPECT_EQ(read.model().find(6), nullptr);
}

TEST(ModelParser, GivesNoNewEntityANumberThatTheFileRefersTo) {
    ReadModel read(
        stepFile("#1=IFCEDGE(#8,#1000000000000);\n#2=IFCEDGE(#2147483647,#1);\n"
                 "#9=IFCFOO();\n"));
    ASSERT_TRUE(read.loaded());
    EXPECT_EQ(read.model().createEntity("IfcVertex", {})->id(), 10);
}

TEST(ModelParser, RepairsMissingAndRepeatedGuids) {
    ReadModel read(
        stepFile("#1=IFCWALL('0000000000000000000001',$,$,$,$,$,$,$,$);\n"
                 "#2=IFCWALL('',$,$,$,$,$,$,$,$);\n"
                 "#3=IFCSLAB('0000000000000000000001',$,$,$,$,$,$,$,$);\n"
                 "#4=IFCWALL(7,$,$,$,$,$,$,$,$);\n"
                 // What #2 would get.
                 "#5=IFCWALL('1e8T6$qdM2TxW6wG$CdlHL',$,$,$,$,$,$,$,$);\n"));
    ASSERT_TRUE(read.loaded());
    const auto guid = [&](int number) {
        auto* root = dynamic_cast<IFC::VirtualIfcRoot*>(read.model().find(number));
        return platform::toUtf8(root->globalId());
    };
    // These stand in projects and logs: no later version may give others.
    const std::pair<int, std::string_view> guids[] = {{1, "0000000000000000000001"},
                                                      {2, "2E3kQAmcMAOgCTTA1LbXds"},
                                                      {3, "3K2B8wgKo5xu$wMg0oWRYj"},
                                                      {4, "1dzHlQ8dM2TxW6wG8BnSqp"}};
    for (const auto& [number, expected] : guids) {
        EXPECT_EQ(guid(number), expected);
        EXPECT_EQ(read.model().findByGuid(platform::fromUtf8(guid(number))),
                  read.model().find(number));
        EXPECT_EQ(read.model().replacedGuid(read.model().find(number)).has_value(), number != 1);
    }
    EXPECT_EQ(
        read.reports(),
        "11 #4 Expected: StringToken. Got: IntegerDataTypeToken./\n"
        "0 #0 Object IfcWall has no GUID. Generating new GUID: " +
            guid(2) +
            "/"
            "Object with GUID: \"0000000000000000000001\" already exists. Multiple GUIDs are not "
            "allowed. New GUID will be created for this object: \"" +
            guid(3) +
            "\"/"
            "Object IfcWall has no GUID. Generating new GUID: " +
            guid(4) + "/\n");
    EXPECT_NE(stepOf(read.model()).find("#4=IFCWALL('" + guid(4) + "',$,"), std::string::npos);
}

TEST(ModelParser, FindsTheInstancesThatEditingNeeds) {
    ReadModel read(
        stepFile("#5=IFCOWNERHISTORY($,$,$,$,$,$,$,0);\n#1=IFCUNITASSIGNMENT(());\n"
                 "#6=IFCOWNERHISTORY($,$,$,$,$,$,$,0);\n"
                 "#2=IFCPROJECT('0000000000000000000001',$,$,$,$,$,$,$,$);\n"));
    ASSERT_TRUE(read.loaded());
    EXPECT_EQ(read.parser().ownerHistory(), read.model().find(5));
    EXPECT_EQ(read.parser().unitAssignment(), read.model().find(1));
    EXPECT_EQ(read.model().project(), read.model().find(2));
    EXPECT_EQ(read.model().site(), nullptr);
    EXPECT_EQ(read.parser().iso(), u"ISO-10303-21");
    EXPECT_EQ(read.parser().headerInfo().schemaIdentifier, u"IFC4");
}

TEST(ModelParser, WithoutAModelSaysThatItIsNotInitialized) {
    ErrorLog log;
    const IFC::ModelParser parser(log.callback(), {});
    EXPECT_EQ(parser.filePath(), u"");
    EXPECT_EQ(parser.headerInfo().name, u"");
    EXPECT_EQ(parser.unitAssignment(), nullptr);
    EXPECT_EQ(parser.ownerHistory(), nullptr);
    EXPECT_EQ(parser.iso(), u"");
    EXPECT_EQ(parser.memoryPool(), nullptr);
    EXPECT_EQ(log.entries, (std::vector<std::string>{
                               "|Parser is not initialized. Unable to get file path",
                               "|Parser is not initialized. Unable to get header info.",
                               "|Parser is not initialized. Unable to get IfcUnitAssignment.",
                               "|Parser is not initialized. Unable to get IfcOwnerHistory.",
                               "|Parser is not initialized. Unable to get ISO.",
                               "|Parser is not initialized. Unable to get MemmoryPool."}));
}

TEST(ModelParser, ChoosesTheReleaseByTheExactIdentifier) {
    constexpr std::pair<std::string_view, std::string_view> kReleases[] = {
        {"IFC2X_FINAL", "IFC2X_FINAL"},
        {"IFC2X", "IFC2X_FINAL"},
        {"IFC2X3_FINAL", "IFC2X_FINAL"},
        {"IFC2X2_FINAL", "IFC2X2_FINAL"},
        {"IFC2X2_PLATFORM", "IFC2X2_PLATFORM"},
        {"IFC2X3", "IFC2X3"},
        {"IFC4", "IFC4"},
        {"IFC4X1", "IFC4X1"},
        {"IFC4X2", "IFC4X2"},
        {"IFC4X3", "IFC4X3_ADD2"},
        {"IFC4X3_ADD2", "IFC4X3_ADD2"},
        {"IFC4x1", ""},
        {"ifc2x3", ""},
        {"IFC4X3_ADD1", ""},
        {"IFC4RC4", ""},
        {"", ""},
    };
    for (const auto& [identifier, release] : kReleases) {
        ReadModel read(stepFile("#1=IFCCARTESIANPOINT((1.));\n", identifier));
        EXPECT_EQ(read.parser().releaseName(), release) << identifier;
        EXPECT_EQ(read.loaded(), !release.empty()) << identifier;
        EXPECT_EQ(read.reports(), release.empty() ? "0 #0 [unknown_schema_identifier]" +
                                                        std::string(identifier) + "\n"
                                                  : "");
    }
}

TEST(ModelParser, RefusesFilesWithoutAHeader) {
    for (const std::string_view step :
         {""sv, "ISO-10303-21;"sv, "x y z HEADER;"sv, "PK\x03\x04\xFF\xFF"sv, "HEADE"sv}) {
        ReadModel read(step);
        EXPECT_FALSE(read.loaded());
        EXPECT_EQ(read.parser().state(), IFC::ModelParser::State::Failed);
        EXPECT_EQ(read.reports(),
                  "0 #0 Unable to read header token. No schema identifier can be read.\n");
    }
}

TEST(ModelParser, RefusesFilesThatItCannotOpen) {
    const TempFolder folder;
    folder.write(u"broken.ifczip", "no archive");
    const std::pair<std::u16string, std::string> cases[] = {
        {folder / u"missing.ifc",
         "could_not_open_file|. File path: " + platform::toUtf8(folder / u"missing.ifc")},
        {folder / u"broken.ifczip",
         "|Could not open zip archive: " + platform::toUtf8(folder / u"broken.ifczip")},
        {u"model.stp", "could_not_open_file_extension| model.stp"}};
    for (const auto& [path, report] : cases) {
        ErrorLog log;
        IFC::ModelParser parser(log.callback(), {});
        EXPECT_FALSE(parser.load(path));
        EXPECT_EQ(log.entries, std::vector{report});
    }
}

/// Forward references all the way, so that the second pass reads all of it again.
std::string manyEdges(int count) {
    std::string data;
    for (int number = 1; number <= count; ++number)
        data += "#" + std::to_string(number) + "=IFCEDGE(#" + std::to_string(count + 1) + ",#" +
                std::to_string(count + 1) + ");\n";
    return data + "#" + std::to_string(count + 1) + "=IFCVERTEX();\n";
}

TEST(ModelParser, ReportsEachPercentOnceUpTo80InEachPass) {
    std::vector<int> percents;
    IFC::ModelParser::Options options;
    options.progress = [&](int percent, int) {
        percents.push_back(percent);
        return true;
    };
    ReadModel read(stepFile(manyEdges(5000)), options);
    std::vector<int> expected;
    for (int pass = 0; pass < 2; ++pass) {
        for (int percent = 1; percent <= 80; ++percent)
            expected.push_back(percent);
    }
    ASSERT_TRUE(read.loaded());
    // The last statements of the file hold no instances, so 80 may be missing.
    std::erase(percents, 80);
    std::erase(expected, 80);
    EXPECT_EQ(percents, expected);
}

TEST(ModelParser, AsksBeforeItStops) {
    for (const int stopAt : {10, 100}) {  // in the first pass and in the second
        for (const auto answer : {platform::MessageAnswer::Yes, platform::MessageAnswer::No}) {
            AnsweredMessages messages(answer);
            int calls = 0;
            IFC::ModelParser::Options options;
            options.progress = [&](int, int) { return ++calls != stopAt; };
            ReadModel read(stepFile(manyEdges(5000)), options);
            const bool stopped = answer == platform::MessageAnswer::Yes;
            EXPECT_EQ(messages.entries,
                      std::vector<std::string>{"Cancel|Are you sure you want to cancel?"});
            EXPECT_EQ(read.loaded(), !stopped);
            EXPECT_EQ(read.parser().state(), stopped ? IFC::ModelParser::State::Cancelled
                                                     : IFC::ModelParser::State::Finished);
            EXPECT_EQ(calls == stopAt, stopped);
            EXPECT_EQ(read.reports(), "");
        }
    }
}

TEST(ModelParser, AsksWhetherToGoOnAfterAnUnknownEnumerationValue) {
    for (const bool goOn : {true, false}) {
        IFC::ModelParser::Options options;
        options.ignoreEnumerationErrors = false;
        int asked = 0;
        options.continueQuestion = [&] {
            ++asked;
            return goOn;
        };
        ReadModel read(stepFile("#1=IFCSIUNIT(*,.FOO.,$,.METRE.);\n#2=IFCVERTEX();\n"), options);
        EXPECT_EQ(asked, 1);
        EXPECT_EQ(read.loaded(), goOn);
        EXPECT_EQ(read.reports(), "8 #1 Enume IfcUnitEnum does not contain: \"FOO\"\n");
    }
}

TEST(ModelParser, LeavesNoTemporaryFileBehind) {
    const TempFolder folder;
    folder.write(u"model.ifc", stepFile(manyEdges(10)));
    const auto temporaries = [] {
        std::set<std::u16string> names;
        for (const auto& entry :
             std::filesystem::directory_iterator(std::filesystem::temp_directory_path()))
            if (entry.path().u16string().ends_with(u"_TEMP.ifc"))
                names.insert(entry.path().u16string());
        return names;
    };
    const std::set<std::u16string> before = temporaries();
    for (const int stopAt : {0, 1, 2}) {
        AnsweredMessages messages(platform::MessageAnswer::Yes);
        IFC::ModelParser::Options options;
        int calls = 0;
        options.progress = [&](int, int) { return ++calls != stopAt; };
        IFC::ModelParser parser({}, options);
        EXPECT_EQ(parser.load(folder / u"model.ifc"), stopAt == 0);
        EXPECT_EQ(folder.count(), 1);
    }
    // Other programs read models too; what they have there goes away.
    for (const std::u16string& name : temporaries()) {
        for (int wait = 0; !before.contains(name) && std::filesystem::exists(name); ++wait) {
            ASSERT_LT(wait, 300) << "left behind";
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
    }
}

TEST(ModelParser, LogsOneInstanceOfManyThatAreRight) {
    const TempFolder folder;
    std::string data;
    for (int number = 1; number <= 1000; ++number)
        data += "#" + std::to_string(number) + "=IFCVERTEX();\n";
    const std::u16string path = folder.write(u"model.ifc", stepFile(data));
    LogFile log;
    ASSERT_TRUE(log.open(path));
    IFC::ModelParser::Options options;
    options.log = &log;
    EXPECT_TRUE(IFC::ModelParser({}, options).load(path));
    log.close();
    const std::string text = folder.read(u"model_IFC_LOG.txt");
    EXPECT_EQ(text.substr(text.find('\n') + 1),
              "Parsing file...\n"
              "\tReading first part of file...\n"
              "\t\tReading entity: #1000\n"
              "\tDone.\n");
}

TEST(ModelParser, LogsWhatItReadsAndWhereItGoesWrong) {
    const TempFolder folder;
    const std::u16string path = folder.write(
        u"model.ifc", stepFile("#1=IFCEDGE(#9,#9);\n#2=IFCORGANIZATION('a','b',3,$,$);\n"));
    LogFile log;
    ASSERT_TRUE(log.open(path));
    IFC::ModelParser::Options options;
    options.log = &log;
    IFC::ModelParser parser({}, options);
    EXPECT_TRUE(parser.load(path));
    log.close();
    const std::string text = folder.read(u"model_IFC_LOG.txt");
    EXPECT_EQ(text.substr(text.find('\n') + 1),
              "Parsing file...\n"
              "\tReading first part of file...\n"
              "\t\tReading entity: #2\n"
              "\t\tError occurred. Wrong argument(3). Line: 9.\n\n"
              "\tReading second part of file...\n"
              "\t\tReading entity: #1\n"
              "\tDone.\n");
}

constexpr std::string_view kSmallData =
    "#1=IFCPERSON($,'It''s',$,('a','\\X2\\00E4\\X0\\'),$,$,(#3),$);\n"
    "#2=IFCPROPERTYSINGLEVALUE('p',/* c */$,IFCLENGTHMEASURE(1.5E2),#4);\n"
    "#3=IFCACTORROLE(.USERDEFINED.,'r',$);\r\n"
    "#4=IFCSIUNIT(*,.LENGTHUNIT.,.MILLI.,.METRE.);\n";

TEST(ModelParser, EndsWhereverTheFileIsCut) {
    const std::string whole = stepFile(kSmallData);
    const std::size_t lastNeeded = whole.rfind(';');
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        ReadModel read(std::string_view(whole).substr(0, length));
        // The last ";" itself is not missed by anybody.
        EXPECT_EQ(read.reports().empty(), length >= lastNeeded) << length;
        EXPECT_TRUE(!read.loaded() || !stepOf(read.model()).starts_with("not written")) << length;
    }
}

TEST(ModelParser, GivesTheSameModelForEveryBufferSizeAndFromAnArchive) {
    const std::string whole = stepFile(kSmallData);
    ReadModel reference(whole);
    ASSERT_TRUE(reference.loaded());
    const std::string expected = stepOf(reference.model());
    constexpr std::size_t kBufferSizes[] = {1, 2, 3, 7, 64, 4096};
    for (const std::size_t bufferBytes : kBufferSizes) {
        for (const bool zipped : {false, true}) {
            IFC::ModelParser::Options options;
            options.readBufferBytes = bufferBytes;
            ReadModel read(whole, options, zipped);
            ASSERT_TRUE(read.loaded());
            EXPECT_EQ(stepOf(read.model()), expected) << bufferBytes;
        }
    }
}

TEST(ModelParser, ReadsAnEntryOfAProjectArchive) {
    const TempFolder folder;
    writeZip(folder / u"p.ahx",
             {{"Data.xml", "<x/>"}, {"f/Model.ifc", stepFile("#1=IFCVERTEX();\n")}});
    ErrorLog log;
    IFC::ModelParser parser(log.callback(), {});
    EXPECT_TRUE(parser.load(folder / u"p.ahx|f/Model.ifc"));
    EXPECT_EQ(parser.filePath(), folder / u"p.ahx|f/Model.ifc");
    IFC::ModelParser other(log.callback(), {});
    EXPECT_FALSE(other.load(folder / u"p.ahx|f/model.ifc"));
    EXPECT_EQ(log.entries.size(), 1U);
}

TEST(ModelParser, ReadsOverNestingOfAnyDepth) {
    const std::string open(100'000, '(');
    const std::string close(100'000, ')');
    for (const std::string& argument :
         {open + "1." + close, open, "IFCLABEL" + open + "'x'" + close}) {
        ReadModel read(stepFile("#1=IFCCARTESIANPOINT(" + argument + ");\n#2=IFCVERTEX();\n"));
        ASSERT_TRUE(read.loaded());
        EXPECT_NE(read.reports(), "");
        EXPECT_NE(read.model().find(2), nullptr);
    }
    std::string value = "IFCLABEL('x')";
    for (int depth = 0; depth < 10'000; ++depth)
        value = "IFCLABEL(" + value + ")";
    ReadModel read(stepFile("#1=IFCPROPERTYSINGLEVALUE('n',$," + value + ",$);\n"));
    ASSERT_TRUE(read.loaded());
    EXPECT_EQ(read.reports(), "8 #1 Expected: StringToken. Got: entity name./\n");
}

}  // namespace
