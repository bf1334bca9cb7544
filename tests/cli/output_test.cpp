#include <gtest/gtest.h>

#include <regex>

#include "cli/printable.h"
#include "cli/reports.h"
#include "ifc/io/io_texts.h"
#include "ifc/io/parser_texts.h"
#include "platform/text.h"
#include "tests/cli/command_line.h"
#include "tests/support/step_model.h"

namespace {

struct TextCase {
    std::u16string_view text;
    std::string_view printed;
    std::string_view json;
};
constexpr TextCase kTexts[] = {
    {u"plain", "plain", "\"plain\""},
    {u"", "", "\"\""},
    {u"M\u00FCller \U0001F3E0", "M\xC3\xBCller \xF0\x9F\x8F\xA0",
     "\"M\xC3\xBCller \xF0\x9F\x8F\xA0\""},
    {u"a\"b\\c/", "a\"b\\c/", R"("a\"b\\c/")"},
    {u"1\n2\r3\t4", R"(1\n2\r3\t4)", R"("1\n2\r3\t4")"},
    {u"\u001B[31m\u007F\u009B", R"(\u001B[31m\u007F\u009B)", R"("\u001B[31m\u007F\u009B")"},
    {std::u16string_view(u"nul\0", 4), R"(nul\u0000)", R"("nul\u0000")"},
    {u"\xD83C"
     u"a",
     R"(\uD83Ca)", R"("\uD83Ca")"},
    {u"b\xDFE0", R"(b\uDFE0)", R"("b\uDFE0")"},
    {u"\xDFE0\xD83C", R"(\uDFE0\uD83C)", R"("\uDFE0\uD83C")"},
};

TEST(Output, IsUtf8OnOneLineWhateverAFileHolds) {
    for (const TextCase& entry : kTexts) {
        EXPECT_EQ(cli::printable(entry.text), entry.printed);
        EXPECT_EQ(cli::jsonString(entry.text), entry.json);
    }
}

TEST(Reports, HaveAnEnglishTextForEachKeyOfTheLibrary) {
    const std::u16string path = u"/house.ifc";
    struct KeyCase {
        const char* key;
        std::u16string detail;
        std::u16string_view text;
    };
    const KeyCase cases[] = {
        {texts::kCouldNotOpenFileKey, std::u16string(texts::kFilePath) + path,
         u"The file could not be opened. File path: /house.ifc"},
        {texts::kCouldNotOpenFileWriteKey, std::u16string(texts::kWriteFilePath) + path,
         u"The file could not be written. File path: /house.ifc"},
        {texts::kCouldNotOpenFileExtensionKey, u" " + path,
         u"This is no extension of an IFC file (.ifc, .ifczip, .ahx|entry): /house.ifc"},
        {texts::kUnknownSchemaIdentifierKey, u"IFC9",
         u"The schema is none of those that can be read: IFC9"},
        {"", u"as it is", u"as it is"},
        {"key_of_a_later_version", u"detail", u"key_of_a_later_version detail"},
    };
    for (const KeyCase& entry : cases)
        EXPECT_EQ(platform::toUtf8(cli::reportText(entry.key, entry.detail)),
                  platform::toUtf8(entry.text));
}

TEST(Reports, AreShownTwentyTimesOfAKind) {
    const CommandLine line;
    std::string data;
    std::string all;
    for (int number = 1; number <= 23; ++number) {
        const std::string name = "IFCNEW" + std::to_string(number);
        data += "#" + std::to_string(number) + "=" + name + "();\n";
        all += "@new.ifc:" + std::to_string(7 + number) + ": #" + std::to_string(number) +
               ": Entity named: " + name + " not found\n";
    }
    data +=
        "#30=IFCLOCALPLACEMENT(#99,#31);\n"
        "#31=IFCAXIS2PLACEMENT3D(#32,$,$);\n"
        "#32=IFCCARTESIANPOINT((0.,0.,0.));\n";
    line.folder.write(u"new.ifc", stepFile(data));
    const std::string other = "@new.ifc:31: #30: Reference to an entity that does not exist: #99\n";
    const std::string twenty = all.substr(0, all.find("@new.ifc:28:"));

    const Outcome some = line.run("copy @new.ifc @out.ifc");
    EXPECT_EQ(some.status, 1);
    EXPECT_EQ(some.err.substr(0, twenty.size()), twenty);
    EXPECT_NE(some.err.find(other), std::string::npos);
    EXPECT_EQ(some.err.find("IFCNEW21"), std::string::npos);
    EXPECT_NE(some.err.find("… 3 more like this: Entity named: IFCNEW1 not found\n"),
              std::string::npos);
    EXPECT_TRUE(some.err.ends_with("quillet-cli: @out.ifc written, 24 reports\n")) << some.err;

    EXPECT_EQ(line.run("copy @new.ifc @out.ifc --all-reports --quiet").err, all + other);
}

TEST(Info, ShowsHeaderCountsAndReports) {
    const CommandLine line;
    line.folder.write(u"a.ifc", stepFile("#1=IFCSIUNIT(*,.LENGTHUNIT.,$,.METRE.);\n"
                                         "#2=IFCFOO();\n"
                                         "#3=IFCLOCALPLACEMENT($,#4);\n"
                                         "#4=IFCAXIS2PLACEMENT3D(#5,$,$);\n"
                                         "#5=IFCCARTESIANPOINT((0.,0.,0.));\n"
                                         "#6=IFCCARTESIANPOINT((0.,1.,0.));\n"));
    const Outcome text = line.run("info @a.ifc");
    EXPECT_EQ(text.status, 1);
    EXPECT_EQ(text.out,
              "File:                  @a.ifc\n"
              "Release:               IFC4\n"
              "Description:           ViewDefinition\n"
              "Implementation level:  2;1\n"
              "Name:                  n\n"
              "Time stamp:            2024-01-02T03:04:05\n"
              "Author:                a\n"
              "Organization:          o\n"
              "Preprocessor:          p\n"
              "Originating system:    s\n"
              "Authorization:         z\n"
              "Schema:                IFC4\n"
              "Instances:             5\n"
              "         2  IfcCartesianPoint\n"
              "         1  IfcAxis2Placement3D\n"
              "         1  IfcLocalPlacement\n"
              "         1  IfcSIUnit\n"
              "Reported while reading: 1\n"
              "         1 x Entity named: IFCFOO not found\n");
    EXPECT_EQ(text.err,
              "@a.ifc:9: #2: Entity named: IFCFOO not found\n"
              "quillet-cli: 1 report\n");

    const Outcome json = line.run("info --json @a.ifc");
    EXPECT_EQ(json.out, R"json({
  "file": "@a.ifc",
  "release": "IFC4",
  "header": {
    "description": [
      "ViewDefinition"
    ],
    "implementationLevel": "2;1",
    "name": "n",
    "timeStamp": "2024-01-02T03:04:05",
    "author": [
      "a"
    ],
    "organization": [
      "o"
    ],
    "preprocessorVersion": "p",
    "originatingSystem": "s",
    "authorization": "z",
    "schemaIdentifier": "IFC4"
  },
  "instances": 5,
  "types": [
    {
      "type": "IfcCartesianPoint",
      "count": 2
    },
    {
      "type": "IfcAxis2Placement3D",
      "count": 1
    },
    {
      "type": "IfcLocalPlacement",
      "count": 1
    },
    {
      "type": "IfcSIUnit",
      "count": 1
    }
  ],
  "reports": [
    {
      "count": 1,
      "line": 9,
      "instance": 2,
      "text": "Entity named: IFCFOO not found"
    }
  ]
}
)json");
}

TEST(Psets, ShowsEveryKindOfPropertyAndEachPartOnce) {
    const CommandLine line;
    line.folder.write(u"a.ifc", smallModel());
    const std::string wall =
        "  Common (IfcPropertySet #12, 0000000000000000000012)\n"
        "    FireRating = F 90 [IfcLabel]\n"
        "    Lead = 1.5 [IfcPositiveLengthMeasure]\n";
    const std::string door =
        "#3 IfcDoor 0000000000000000000003\n"
        "  Kinds (IfcPropertySet #34, 0000000000000000000034)\n"
        "    Lock = (IFCLABEL('CODE')),$ [IfcPropertyEnumeratedValue]\n"
        "    Glass = 'pane',(#31,#32) [IfcComplexProperty]\n"
        "      Panes = 3 [IfcInteger]\n"
        "    Open = \n"
        "  Lining (IfcDoorLiningProperties #36, 0000000000000000000036)\n";
    const Outcome all = line.run("psets @a.ifc");
    EXPECT_EQ(all.status, 0) << all.err;
    EXPECT_EQ(all.out, "#1 IfcWall 0000000000000000000001 South wall\n" + wall +
                           "  Sizes (IfcElementQuantity #22, 0000000000000000000022)\n"
                           "    Length = 6000 [IfcQuantityLength] mm (MilliMetre)\n"
                           "#2 IfcWall 0000000000000000000002 North wall\n" +
                           wall + door);

    // By GUID and number, in the order given; a type has sets of its own.
    const Outcome some = line.run("psets @a.ifc 0000000000000000000003 #42 77");
    EXPECT_EQ(some.status, 1);
    EXPECT_EQ(some.out, door +
                            "#42 IfcWallType 0000000000000000000042 W24\n"
                            "  Build-up (IfcPropertySet #41, 0000000000000000000041)\n"
                            "    Layers = 2 [IfcCountMeasure]\n");
    EXPECT_EQ(some.err, "@a.ifc: The file has no such object: 77\nquillet-cli: 1 report\n");
    EXPECT_EQ(line.run("psets @a.ifc 77 #x").status, 2);
}

TEST(Psets, AreJsonWithStableKeys) {
    const CommandLine line;
    line.folder.write(u"a.ifc", smallModel());
    EXPECT_EQ(line.run("psets @a.ifc 3 --json").out, R"json({
  "file": "@a.ifc",
  "objects": [
    {
      "number": 3,
      "type": "IfcDoor",
      "guid": "0000000000000000000003",
      "name": "",
      "sets": [
        {
          "number": 34,
          "type": "IfcPropertySet",
          "guid": "0000000000000000000034",
          "name": "Kinds",
          "properties": [
            {
              "name": "Lock",
              "type": "IfcPropertyEnumeratedValue",
              "step": "(IFCLABEL('CODE')),$",
              "parts": []
            },
            {
              "name": "Glass",
              "type": "IfcComplexProperty",
              "step": "'pane',(#31,#32)",
              "parts": [
                {
                  "name": "Panes",
                  "type": "IfcInteger",
                  "value": 3,
                  "unit": null
                }
              ]
            },
            {
              "name": "Open",
              "type": null,
              "value": null,
              "unit": null
            }
          ]
        },
        {
          "number": 36,
          "type": "IfcDoorLiningProperties",
          "guid": "0000000000000000000036",
          "name": "Lining",
          "properties": []
        }
      ]
    }
  ]
}
)json");
}

struct ValueCase {
    std::string_view record;  // behind the property's name and description
    std::string_view text;
    std::string_view json;  // of value, unit and unitSource
};
constexpr ValueCase kValues[] = {
    {"IFCLABEL('0 1'),$", "0 1 [IfcLabel]", R"("0 1",null)"},
    {"IFCLABEL(''),$", " [IfcLabel]", R"("",null)"},
    {"$,$", "", "null,null"},
    {"IFCBOOLEAN(.T.),$", "true [IfcBoolean]", "true,null"},
    {"IFCLOGICAL(.F.),$", "false [IfcLogical]", "false,null"},
    {"IFCLOGICAL(.U.),$", "unknown [IfcLogical]", R"("unknown",null)"},
    {"IFCINTEGER(9007199254740993),$", "9007199254740993 [IfcInteger]", "9007199254740993,null"},
    {"IFCREAL(1.E-7),$", "1.E-7 [IfcReal]", "1e-07,null"},
    {"IFCREAL(5.),#7", "5 [IfcReal] m2 (SquareMetre)", R"-(5.0,"m2 (SquareMetre)",property)-"},
    {"IFCPOSITIVELENGTHMEASURE(2.5),$",
     "2.5 [IfcPositiveLengthMeasure] mm (MilliMetre) (the "
     "project's)",
     R"-(2.5,"mm (MilliMetre)",project)-"},
    {"IFCLENGTHMEASURE(2.5),#2", "2.5 [IfcLengthMeasure] m (Metre)",
     R"-(2.5,"m (Metre)",property)-"},
    {"IFCPLANEANGLEMEASURE(90.),$", "90 [IfcPlaneAngleMeasure] DEGREE (the project's)",
     R"(90.0,"DEGREE",project)"},
    {"IFCTHERMALTRANSMITTANCEMEASURE(0.25),$",
     "0.25 [IfcThermalTransmittanceMeasure] W/(m2\xC2\xB7K) (the project's)",
     "0.25,\"W/(m2\xC2\xB7K)\",project"},
    {"IFCMONETARYMEASURE(7.),$", "7 [IfcMonetaryMeasure] EUR (the project's)",
     R"(7.0,"EUR",project)"},
    {"IFCRATIOMEASURE(0.5),$", "0.5 [IfcRatioMeasure]", "0.5,null"},
    {"IFCMASSMEASURE(1.),$", "1 [IfcMassMeasure]", "1.0,null"},  // the project sets none
};

TEST(Psets, ShowEachValueInItsTypeAndTheUnitThatCounts) {
    std::string data =
        "#1=IFCSIUNIT(*,.LENGTHUNIT.,.MILLI.,.METRE.);\n#2=IFCSIUNIT(*,.LENGTHUNIT.,$,.METRE.);\n"
        "#3=IFCSIUNIT(*,.POWERUNIT.,$,.WATT.);\n"
        "#4=IFCSIUNIT(*,.THERMODYNAMICTEMPERATUREUNIT.,$,.KELVIN.);\n"
        "#5=IFCMEASUREWITHUNIT(IFCPLANEANGLEMEASURE(0.0174532925),#6);\n"
        "#6=IFCSIUNIT(*,.PLANEANGLEUNIT.,$,.RADIAN.);\n"
        "#7=IFCSIUNIT(*,.AREAUNIT.,$,.SQUARE_METRE.);\n"
        "#8=IFCDIMENSIONALEXPONENTS(0,0,0,0,0,0,0);\n"
        "#9=IFCCONVERSIONBASEDUNIT(#8,.PLANEANGLEUNIT.,'DEGREE',#5);\n"
        "#10=IFCDERIVEDUNITELEMENT(#3,1);\n#11=IFCDERIVEDUNITELEMENT(#2,-2);\n"
        "#12=IFCDERIVEDUNITELEMENT(#4,-1);\n"
        "#13=IFCDERIVEDUNIT((#10,#11,#12),.THERMALTRANSMITTANCEUNIT.,$);\n"
        "#14=IFCMONETARYUNIT('EUR');\n#15=IFCUNITASSIGNMENT((#1,#7,#9,#13,#14));\n"
        "#16=IFCPROJECT('0000000000000000000016',$,$,$,$,$,$,$,#15);\n"
        "#17=IFCWALL('0000000000000000000017',$,$,$,$,$,$,$,$);\n"
        "#18=IFCRELDEFINESBYPROPERTIES('0000000000000000000018',$,$,$,(#17),#19);\n";
    std::string members;
    std::string text;
    std::string json;
    int number = 20;
    for (const ValueCase& entry : kValues) {
        members += (members.empty() ? "#" : ",#") + std::to_string(number);
        data += "#" + std::to_string(number++) + "=IFCPROPERTYSINGLEVALUE('P',$," +
                std::string(entry.record) + ");\n";
        text += "    P = " + std::string(entry.text) + "\n";
        json += std::string(entry.json) + "\n";
    }
    data += "#19=IFCPROPERTYSET('0000000000000000000019',$,'S',$,(" + members + "));\n";
    const CommandLine line;
    line.folder.write(u"a.ifc", stepFile(data));
    const std::string shown = line.run("psets @a.ifc").out;
    EXPECT_EQ(shown.substr(shown.find("    P")), text);

    std::string values;
    static const std::regex kValue(
        R"re("value": (.*),\n *"unit": ([^,\n]*)(,\n *"unitSource": "(.*)")?\n)re");
    const std::string out = line.run("psets @a.ifc --json").out;
    for (std::sregex_iterator found(out.begin(), out.end(), kValue), end; found != end; ++found)
        values += (*found)[1].str() + "," + (*found)[2].str() +
                  ((*found)[4].matched ? "," + (*found)[4].str() : "") + "\n";
    EXPECT_EQ(values, json);
}

TEST(Psets, ShowValuesOfAnyLengthAsStepText) {
    const CommandLine line;
    std::string values;
    for (int value = 0; value < 20000; ++value)  // larger than any buffer on the way
        values +=
            (value == 0 ? "" : ",") + std::string("IFCINTEGER(") + std::to_string(value) + ")";
    line.folder.write(
        u"a.ifc",
        stepFile("#1=IFCWALL('0000000000000000000001',$,$,$,$,$,$,$,$);\n"
                 "#2=IFCPROPERTYLISTVALUE('List',$,(" +
                 values +
                 "),$);\n"
                 "#3=IFCPROPERTYSET('0000000000000000000012',$,'S',$,(#2));\n"
                 "#4=IFCRELDEFINESBYPROPERTIES('0000000000000000000013',$,$,$,(#1),#3);\n"));
    const std::string out = line.run("psets @a.ifc").out;
    EXPECT_TRUE(out.ends_with("    List = (" + values + "),$ [IfcPropertyListValue]\n"));
}

TEST(Progress, IsShownOnATerminalOnlyAndTakenAway) {
    const CommandLine line;
    line.folder.write(u"a.ifc", smallModel());
    const std::string shown = line.run("copy @a.ifc @b.ifc", {}, true).err;
    EXPECT_NE(shown.find("\rReading ["), std::string::npos);
    EXPECT_NE(shown.find("\rWriting [##############################] 100 %"), std::string::npos);
    EXPECT_TRUE(shown.ends_with(" \rquillet-cli: @b.ifc written\n")) << shown;
    EXPECT_EQ(line.run("copy @a.ifc @b.ifc").err, "quillet-cli: @b.ifc written\n");
    EXPECT_EQ(line.run("copy @a.ifc @b.ifc --quiet", {}, true).err, "");

    line.folder.write(u"ahead.ifc", stepFile("#1=IFCLOCALPLACEMENT($,#3);\n"
                                             "#2=IFCLOCALPLACEMENT($,#3);\n"
                                             "#3=IFCAXIS2PLACEMENT3D(#4,$,$);\n"
                                             "#4=IFCCARTESIANPOINT((0.,0.,0.));\n"));
    EXPECT_NE(line.run("info @ahead.ifc", {}, true).err.find("\rReading, second pass ["),
              std::string::npos);
}

}  // namespace
