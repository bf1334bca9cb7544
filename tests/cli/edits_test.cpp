#include <gtest/gtest.h>

#include "tests/cli/command_line.h"
#include "tests/support/step_model.h"

namespace {

constexpr std::string_view kSouth = "#1 IfcWall 0000000000000000000001 South wall\n";
constexpr std::string_view kNorth = "#2 IfcWall 0000000000000000000002 North wall\n";
constexpr std::string_view kDoor = "#3 IfcDoor 0000000000000000000003\n";
constexpr std::string_view kCommon =
    "  Common\n    FireRating = F 90 [IfcLabel]\n    Lead = 1.5 [IfcPositiveLengthMeasure]\n";
constexpr std::string_view kSizes =
    "  Sizes\n    Length = 6000 [IfcQuantityLength] mm (MilliMetre)\n";
constexpr std::string_view kKinds =
    "  Kinds\n"
    "    Lock = (IFCLABEL('CODE')),$ [IfcPropertyEnumeratedValue]\n"
    "    Glass = 'pane',(#31,#32) [IfcComplexProperty]\n"
    "      Panes = 3 [IfcInteger]\n"
    "    Open = \n";
constexpr std::string_view kLining = "  Lining\n";

template <class... Parts>
std::string joined(Parts... parts) {
    std::string text;
    (text.append(parts), ...);
    return text;
}

/// One command on the small model, what it reports, and what the new model's objects have.
struct EditCase {
    std::string_view words;  // without the model and the output
    int status;
    std::string err;
    std::string sets;  // of the output; empty: none is written
};

TEST(EditCommands, ChangeWhatTheyNameAndNothingElse) {
    const std::string written = "quillet-cli: @new.ifc written, 1 set changed\n";
    const std::string notDone =
        "@a.ifc: None of the edits could be done as asked; the output was not written.\n"
        "quillet-cli: not done, 2 reports\n";
    const std::string restOfSouth = joined(kSouth, kCommon, kSizes);
    const std::string restOfDoor = joined(kDoor, kKinds, kLining);
    const EditCase cases[] = {
        // A shared set is copied for the object; the value keeps its type.
        {"set --object 0000000000000000000002 --pset Common --property Lead --value 2", 0, written,
         joined(restOfSouth, kNorth, "  Common\n    FireRating = F 90 [IfcLabel]\n",
                "    Lead = 2 [IfcPositiveLengthMeasure]\n", restOfDoor)},
        {"set --object #1 --pset Sizes --property Length --value 6.5 --unit metre", 0, written,
         joined(kSouth, kCommon, "  Sizes\n    Length = 6.5 [IfcQuantityLength] m (Metre)\n",
                kNorth, kCommon, restOfDoor)},
        {"set --object 1 --pset Sizes --property Length --unit METRE --prefix KILO", 0, written,
         joined(kSouth, kCommon, "  Sizes\n    Length = 6000 [IfcQuantityLength] km (KiloMetre)\n",
                kNorth, kCommon, restOfDoor)},
        {"set --type IfcWall --pset Common --property FireRating --value=--", 0,
         "quillet-cli: @new.ifc written, 2 sets changed\n",
         joined(kSouth, kSizes,
                "  Common\n    FireRating = -- [IfcLabel]\n"
                "    Lead = 1.5 [IfcPositiveLengthMeasure]\n",
                kNorth,
                "  Common\n    FireRating = -- [IfcLabel]\n"
                "    Lead = 1.5 [IfcPositiveLengthMeasure]\n",
                restOfDoor)},
        // A part can be done.
        {"set --type IfcWall --pset Sizes --property Length --value 7", 1,
         "@a.ifc: #2: The object has no such set: Sizes\n"
         "quillet-cli: @new.ifc written, 1 set changed, 1 report\n",
         joined(kSouth, kCommon, "  Sizes\n    Length = 7 [IfcQuantityLength] mm (MilliMetre)\n",
                kNorth, kCommon, restOfDoor)},
        {"set --object 3 --object 77 --pset Kinds --property Open --value 1 --value-type "
         "IfcBoolean",
         1,
         "@a.ifc: The file has no such object: 77\n"
         "quillet-cli: @new.ifc written, 1 set changed, 1 report\n",
         joined(restOfSouth, kNorth, kCommon, kDoor, kKinds.substr(0, kKinds.rfind("    Open")),
                "    Open = true [IfcBoolean]\n", kLining)},
        {"add --object 2 --pset Common --property Colour --value 'red brown'", 0, written,
         joined(restOfSouth, kNorth, kCommon, "    Colour = red brown [IfcLabel]\n", restOfDoor)},
        // Named twice, edited once.
        {"add --object 1 --object #1 --pset Sizes --property Gross --quantity IfcQuantityCount "
         "--value 2",
         0, written,
         joined(kSouth, kCommon, kSizes, "    Gross = 2 [IfcQuantityCount]\n", kNorth, kCommon,
                restOfDoor)},
        {"add --object 2 --pset Sizes --property Area --quantity ifcquantityarea --value 3.5", 0,
         written,
         joined(restOfSouth, kNorth, kCommon, "  Sizes\n    Area = 3.5 [IfcQuantityArea]\n",
                restOfDoor)},
        {"add --object 3 --pset New --property P --value 1 --value-type IFCINTEGER", 0, written,
         joined(restOfSouth, kNorth, kCommon, kDoor, kKinds, kLining,
                "  New\n    P = 1 [IfcInteger]\n")},
        {"rename --object 1 --pset Sizes --to Measures", 0, written,
         joined(kSouth, kCommon, "  Measures\n", kSizes.substr(kSizes.find("    ")), kNorth,
                kCommon, restOfDoor)},
        {"rename --object 1 --pset Sizes --property Length --to Run", 0, written,
         joined(kSouth, kCommon, "  Sizes\n    Run = 6000 [IfcQuantityLength] mm (MilliMetre)\n",
                kNorth, kCommon, restOfDoor)},
        {"delete --object 1 --pset Common", 0, written,
         joined(kSouth, kSizes, kNorth, kCommon, restOfDoor)},
        {"delete --object 3 --pset Kinds --property Lock", 0, written,
         joined(restOfSouth, kNorth, kCommon, kDoor, "  Kinds\n",
                kKinds.substr(kKinds.find("    Glass")), kLining)},
        {"delete --object 1 --pset Sizes --property Length", 0, written,
         joined(kSouth, kCommon, kNorth, kCommon, restOfDoor)},
        // Nothing can be done.
        {"set --object 1 --pset Common --property Nope --value 1", 2,
         "@a.ifc: #1: The set has no such property: Common.Nope\n" + notDone, ""},
        {"set --object 3 --pset Kinds --property Lock --value 1", 2,
         "@a.ifc: #3: Only single values and quantities can be edited: Lock\n" + notDone, ""},
        {"set --object 3 --pset Lining --property Depth --value 1", 2,
         "@a.ifc: #3: Predefined property sets can not be edited: IfcDoorLiningProperties\n" +
             notDone,
         ""},
        {"set --object 1 --pset Sizes --property Length --value 1 --value-type IfcReal", 2,
         "@a.ifc: #1: A quantity takes no --value-type: Length\n" + notDone, ""},
        {"set --object 1 --pset Sizes --property Length --value long", 2,
         "@a.ifc: Quantity: Length. The value is not a number of the quantity: long\n" + notDone,
         ""},
        {"add --object 1 --pset Common --property Lead --value 1", 2,
         "@a.ifc: #1: The set has a property of that name already: Lead\n" + notDone, ""},
        {"add --object 42 --pset New --property P --value 1", 2,
         "@a.ifc: #42: A type can not be given a new set: New\n" + notDone, ""},
        {"rename --object 1 --pset Common --property Lead --to FireRating", 2,
         "@a.ifc: #1: The set has a property of that name already: FireRating\n" + notDone, ""},
        {"rename --object 1 --pset Common --to Sizes", 2,
         "@a.ifc: #1: The object has a set of that name already: Sizes\n" + notDone, ""},
        {"delete --type IfcWindow --pset Common", 2,
         "@a.ifc: The file has no object of type IfcWindow\n" + notDone, ""},
        {"delete --type IfcLabel --pset Common", 2,
         "@a.ifc: The schema has no such entity: IfcLabel\n" + notDone, ""},
        {"add --object 1 --pset Common --property P --value 1 --value-type IfcWall", 2,
         "@a.ifc: The schema has no such value type: IfcWall\nquillet-cli: not done, 1 report\n",
         ""},
    };
    for (const EditCase& entry : cases) {
        SCOPED_TRACE(entry.words);
        const CommandLine line;
        line.folder.write(u"a.ifc", smallModel());
        std::string words(entry.words);
        words.insert(words.find(' '), " @a.ifc @new.ifc");
        const Outcome outcome = line.run(words);
        EXPECT_EQ(outcome.status, entry.status);
        EXPECT_EQ(outcome.err, entry.err);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(line.folder.read(u"a.ifc"), smallModel());
        EXPECT_TRUE(line.holdsOnly(entry.sets.empty() ? 1 : 2));
        if (!entry.sets.empty()) {
            EXPECT_EQ(line.sets("@new.ifc"), entry.sets);
        }
    }
}

TEST(EditCommands, EditATypesOwnSetWhileNobodyElseHasIt) {
    const CommandLine line;
    const std::string model = smallModel();
    line.folder.write(u"a.ifc", model);
    EXPECT_EQ(line.run("set @a.ifc @b.ifc --object 42 --pset Build-up --property Layers --value 5")
                  .status,
              0);
    EXPECT_NE(line.run("psets @b.ifc 42").out.find("Layers = 5 [IfcCountMeasure]"),
              std::string::npos);

    const std::string second =
        "#43=IFCWALLTYPE('0000000000000000000043',$,'W36',$,$,(#41),$,$,$,.SOLIDWALL.);\n";
    std::string shared = model;
    line.folder.write(u"shared.ifc", shared.insert(shared.find("ENDSEC;\nEND-"), second));
    const Outcome refused =
        line.run("set @shared.ifc @c.ifc --object 42 --pset Build-up --property Layers --value 5");
    EXPECT_EQ(refused.status, 2);
    EXPECT_TRUE(refused.err.starts_with(
        "@shared.ifc: #42: The set belongs to a type and is used elsewhere too, it can not be "
        "edited: Build-up\n"));
}

TEST(EditCommands, KeepTheirEditsForApply) {
    const CommandLine line;
    line.folder.write(u"a.ifc", smallModel());
    const std::string_view words =
        "set @a.ifc @b.ifc --type IfcWall --pset Common --property FireRating --value F120 "
        "--edits @kept.xml";
    EXPECT_EQ(line.run(words).status, 0);
    EXPECT_EQ(line.run("apply @a.ifc @kept.xml @c.ifc").err,
              "quillet-cli: @c.ifc written, 2 sets changed\n");
    EXPECT_EQ(line.sets("@c.ifc"), line.sets("@b.ifc"));
    EXPECT_NE(line.sets("@c.ifc").find("FireRating = F120"), std::string::npos);

    // The file is replaced only on demand, and never the model.
    const std::string kept = line.folder.read(u"kept.xml");
    const std::string before = line.folder.read(u"b.ifc");
    const Outcome refused = line.run(words);
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.err,
              "@kept.xml: The file exists; --force allows to replace it.\n"
              "quillet-cli: not done, 1 report\n");
    EXPECT_EQ(line.folder.read(u"b.ifc"), before);
    EXPECT_EQ(
        line.run("delete @a.ifc @b.ifc --object 3 --pset Kinds --edits @kept.xml --force").status,
        0);
    EXPECT_NE(line.folder.read(u"kept.xml"), kept);
    for (const std::string_view model : {"@a.ifc", "@b.ifc"})
        EXPECT_EQ(line.run("delete @a.ifc @b.ifc --object 3 --pset Kinds --force --edits " +
                           std::string(model))
                      .status,
                  2);
    const Outcome sameNewFile = line.run(
        "delete @a.ifc no_such_file.ifc --object 3 --pset Kinds --edits ./no_such_file.ifc");
    EXPECT_EQ(sameNewFile.err,
              "./no_such_file.ifc: The edits can not be kept in a file that the command reads or "
              "writes.\nquillet-cli: not done, 1 report\n");
    EXPECT_EQ(line.folder.read(u"a.ifc"), smallModel());
}

TEST(Apply, TakesTheEditsOfTheFileOfThatName) {
    const CommandLine line;
    line.folder.write(u"a.ifc", smallModel());
    line.folder.write(u"b.ifc", smallModel());
    line.folder.write(
        u"log.xml",
        "\n\n\n\n\n\n\n\n<File FileName=\"A.IFC\" IsCached=\"false\">\n"
        "<IfcPropertySet Name=\"Common\" GUID=\"0000000000000000000012\" "
        "ObjectGUID=\"0000000000000000000002\" IfcId=\"2\" Type=\"Deleted\"/>\n"
        "<IfcPropertySet Name=\"Gone\" GUID=\"0000000000000000000099\" "
        "ObjectGUID=\"0000000000000000000002\" IfcId=\"2\" Type=\"Deleted\"/>\n"
        "<IfcPropertySet Name=\"Odd\" GUID=\"0000000000000000000012\" IfcId=\"2\" Type=\"None\"/>\n"
        "</File>\n<File FileName=\"other.ifc\" IsCached=\"false\"/>\n");
    const std::string oddType = "@log.xml:12: Unknown type of set: Odd\n";

    const Outcome part = line.run("apply @a.ifc @log.xml @new.ifczip");
    EXPECT_EQ(part.status, 1);
    EXPECT_EQ(part.err, oddType +
                            "@a.ifc: Unable to find property set in GUIDs map. GUID: "
                            "0000000000000000000099\n"
                            "@a.ifc: Property set guid: 0000000000000000000099 not found.\n"
                            "quillet-cli: @new.ifczip written, 1 set changed, 3 reports\n");
    EXPECT_EQ(line.sets("@new.ifczip"),
              joined(kSouth, kCommon, kSizes, kNorth, kDoor, kKinds, kLining));

    const Outcome none = line.run("apply @b.ifc @log.xml @none.ifc");
    EXPECT_EQ(none.status, 2);
    EXPECT_EQ(none.err, oddType +
                            "@log.xml: It holds no edits for b.ifc. It holds edits for: A.IFC, "
                            "other.ifc\nquillet-cli: not done, 2 reports\n");
    EXPECT_EQ(line.run("apply @b.ifc @log.xml @b2.ifc --entry a.ifc").status, 1);
    EXPECT_EQ(line.sets("@b2.ifc"), line.sets("@new.ifczip"));
}

TEST(Apply, DoesTheSampleOfTheRepository) {
    const CommandLine line;
    const std::string samples = std::string(QUILLET_SOURCE_DIR) + "/samples/";
    const Outcome outcome = line.run("apply " + samples + "sample_house.ifc " + samples +
                                     "sample_edits.xml @house.ifc");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const std::string sets = line.run("psets @house.ifc 65 77").out;
    EXPECT_NE(sets.find("FireRating = F 120 [IfcLabel]"), std::string::npos) << sets;
    EXPECT_NE(sets.find("FireRating = F 90 [IfcLabel]"), std::string::npos) << sets;
    EXPECT_EQ(sets.find("Site log"), std::string::npos) << sets;
}

}  // namespace
