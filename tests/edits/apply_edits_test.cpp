#include "edits/apply_edits.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/reports.h"
#include "tests/support/step_model.h"

namespace {

using namespace IFC;

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

/// The instances that went (-) and came (+), in file order; new GUIDs, which are random, as <guid>.
std::string changesBetween(const std::string& before, const std::string& after) {
    static const std::regex kNewGuid("'[0-3][0-9A-Za-z_$]{21}'");
    const std::vector<std::string> old = linesOf(before);
    const std::vector<std::string> now = linesOf(after);
    const std::set<std::string> oldSet(old.begin(), old.end());
    const std::set<std::string> nowSet(now.begin(), now.end());
    std::string changes;
    for (const std::string& line : old)
        changes += nowSet.contains(line) ? "" : "- " + line + "\n";
    for (const std::string& line : now)
        changes +=
            oldSet.contains(line) ? "" : "+ " + std::regex_replace(line, kNewGuid, "<guid>") + "\n";
    return changes;
}

IfcProperty property(std::int32_t state, std::u16string name, std::u16string value,
                     std::u16string valueType = u"") {
    IfcProperty record;
    record.initialName = state == kPropertyAdded ? u"" : name;
    record.name = std::move(name);
    record.value = std::move(value);
    record.entityName = std::move(valueType);
    record.state = state;
    return record;
}

IfcProperty edited(std::u16string name, std::u16string value, std::u16string valueType = u"") {
    return property(kPropertyEdited, std::move(name), std::move(value), std::move(valueType));
}

IfcProperty added(std::u16string name, std::u16string value, std::u16string valueType = u"") {
    return property(kPropertyAdded, std::move(name), std::move(value), std::move(valueType));
}

IfcProperty deleted(std::u16string name) {
    return property(kPropertyDeleted, std::move(name), u"");
}

IfcProperty renamed(std::u16string from, std::u16string to) {
    IfcProperty record = edited(std::move(from), u"");
    record.name = std::move(to);
    return record;
}

IfcProperty withUnit(IfcProperty record, std::u16string prefix, std::u16string unit) {
    record.prefix = std::move(prefix);
    record.unit = std::move(unit);
    return record;
}

IfcProperty quantity(std::u16string type, IfcProperty record) {
    record.quantityType = std::move(type);
    return record;
}

std::shared_ptr<IfcPropertySet> set(std::u16string guid, std::u16string name,
                                    const std::vector<IfcProperty>& properties = {}) {
    auto record = std::make_shared<IfcPropertySet>(guid, name);
    for (const IfcProperty& entry : properties)
        record->properties[entry.name] = entry;
    return record;
}

/// Edits of wall #10, GUID w1.
struct WallEdits {
    PropertySetRecords newSets = {};
    PropertySetRecords editedSets = {};
    PropertySetRecords deletedSets = {};
    std::u16string guid = u"w1";
    std::int32_t number = 10;
};

struct Case {
    const char* title;
    std::string data;
    WallEdits edits;
    std::string changes;
    std::vector<std::string> reports;
    const char* schema = "IFC4";
};

const std::string kWalls =
    "#10=IFCWALL('w1',$,'One',$,$,$,$,$,$);\n"
    "#11=IFCWALL('w2',$,'Two',$,$,$,$,$,$);\n"
    "#12=IFCWALL('w3',$,'Three',$,$,$,$,$,$);\n";
const std::string kSet =
    "#20=IFCPROPERTYSINGLEVALUE('A',$,IFCLABEL('x'),$);\n"
    "#21=IFCPROPERTYSINGLEVALUE('B',$,IFCLENGTHMEASURE(1.5),$);\n"
    "#30=IFCPROPERTYSET('s1',$,'Set',$,(#20,#21));\n";
const std::string kOwn = kWalls + kSet + "#40=IFCRELDEFINESBYPROPERTIES('r1',$,$,$,(#10),#30);\n";
const std::string kShared =
    kWalls + kSet + "#40=IFCRELDEFINESBYPROPERTIES('r1',$,$,$,(#10,#11,#12),#30);\n";
const std::string kQuantities = kWalls +
                                "#15=IFCSIUNIT(*,.LENGTHUNIT.,.MILLI.,.METRE.);\n"
                                "#20=IFCQUANTITYLENGTH('L',$,#15,2000.,$);\n"
                                "#21=IFCQUANTITYCOUNT('N',$,$,4.,$);\n"
                                "#30=IFCELEMENTQUANTITY('q1',$,'Q',$,$,(#20,#21));\n"
                                "#40=IFCRELDEFINESBYPROPERTIES('r1',$,$,$,(#10),#30);\n";

const std::vector<Case>& cases() {
    static const std::vector<Case> kCases = {
        {.title = "an own property is changed in place and keeps its value type",
         .data = kOwn,
         .edits = {.editedSets = {set(u"s1", u"Set", {edited(u"A", u"y"), edited(u"B", u"2.5")})}},
         .changes = "- #20=IFCPROPERTYSINGLEVALUE('A',$,IFCLABEL('x'),$);\n"
                    "- #21=IFCPROPERTYSINGLEVALUE('B',$,IFCLENGTHMEASURE(1.5),$);\n"
                    "+ #20=IFCPROPERTYSINGLEVALUE('A',$,IFCLABEL('y'),$);\n"
                    "+ #21=IFCPROPERTYSINGLEVALUE('B',$,IFCLENGTHMEASURE(2.5),$);\n",
         .reports = {}},
        {.title = "of a set that three walls share one wall gets a copy",
         .data = kShared,
         .edits = {.editedSets = {set(u"s1", u"Set", {edited(u"A", u"y")})}},
         .changes = "- #40=IFCRELDEFINESBYPROPERTIES('r1',$,$,$,(#10,#11,#12),#30);\n"
                    "+ #40=IFCRELDEFINESBYPROPERTIES('r1',$,$,$,(#11,#12),#30);\n"
                    "+ #41=IFCPROPERTYSET(<guid>,$,'Set',$,(#42,#43));\n"
                    "+ #42=IFCPROPERTYSINGLEVALUE('A',$,IFCLABEL('y'),$);\n"
                    "+ #43=IFCPROPERTYSINGLEVALUE('B',$,IFCLENGTHMEASURE(1.5),$);\n"
                    "+ #44=IFCRELDEFINESBYPROPERTIES(<guid>,$,$,$,(#10),#41);\n",
         .reports = {}},
        {.title = "the other relation of a set keeps it",
         .data = kOwn + "#50=IFCRELDEFINESBYPROPERTIES('r2',$,$,$,(#11),#30);\n",
         .edits = {.editedSets = {set(u"s1", u"New name")}},
         .changes = "- #40=IFCRELDEFINESBYPROPERTIES('r1',$,$,$,(#10),#30);\n"
                    "+ #51=IFCPROPERTYSET(<guid>,$,'New name',$,(#52,#53));\n"
                    "+ #52=IFCPROPERTYSINGLEVALUE('A',$,IFCLABEL('x'),$);\n"
                    "+ #53=IFCPROPERTYSINGLEVALUE('B',$,IFCLENGTHMEASURE(1.5),$);\n"
                    "+ #54=IFCRELDEFINESBYPROPERTIES(<guid>,$,$,$,(#10),#51);\n",
         .reports = {}},
        {.title = "a property that another set has too is copied",
         .data = kOwn + "#50=IFCPROPERTYSET('s2',$,'Other',$,(#20));\n"
                        "#51=IFCRELDEFINESBYPROPERTIES('r2',$,$,$,(#11),#50);\n",
         .edits = {.editedSets = {set(u"s1", u"Set", {renamed(u"A", u"Z")})}},
         .changes = "- #30=IFCPROPERTYSET('s1',$,'Set',$,(#20,#21));\n"
                    "+ #30=IFCPROPERTYSET('s1',$,'Set',$,(#52,#21));\n"
                    "+ #52=IFCPROPERTYSINGLEVALUE('Z',$,IFCLABEL('x'),$);\n",
         .reports = {}},
        {.title = "a deleted property that another set has too stays there",
         .data = kOwn + "#50=IFCPROPERTYSET('s2',$,'Other',$,(#20));\n"
                        "#51=IFCRELDEFINESBYPROPERTIES('r2',$,$,$,(#11),#50);\n",
         .edits = {.editedSets = {set(u"s1", u"Set", {deleted(u"A")})}},
         .changes = "- #30=IFCPROPERTYSET('s1',$,'Set',$,(#20,#21));\n"
                    "+ #30=IFCPROPERTYSET('s1',$,'Set',$,(#21));\n",
         .reports = {}},
        {.title = "the last property takes set and relation with it",
         .data = kOwn,
         .edits = {.editedSets = {set(u"s1", u"Set", {deleted(u"A"), deleted(u"B")})}},
         .changes = "- #20=IFCPROPERTYSINGLEVALUE('A',$,IFCLABEL('x'),$);\n"
                    "- #21=IFCPROPERTYSINGLEVALUE('B',$,IFCLENGTHMEASURE(1.5),$);\n"
                    "- #30=IFCPROPERTYSET('s1',$,'Set',$,(#20,#21));\n"
                    "- #40=IFCRELDEFINESBYPROPERTIES('r1',$,$,$,(#10),#30);\n",
         .reports = {}},
        {.title = "an enumerated property keeps its set alive and itself untouched",
         .data = kWalls + "#20=IFCPROPERTYSINGLEVALUE('A',$,IFCLABEL('x'),$);\n"
                          "#22=IFCPROPERTYENUMERATEDVALUE('E',$,(IFCLABEL('p')),$);\n"
                          "#30=IFCPROPERTYSET('s1',$,'Set',$,(#20,#22));\n"
                          "#40=IFCRELDEFINESBYPROPERTIES('r1',$,$,$,(#10),#30);\n",
         .edits = {.editedSets = {set(u"s1", u"Set", {deleted(u"A"), edited(u"E", u"q")})}},
         .changes = "- #20=IFCPROPERTYSINGLEVALUE('A',$,IFCLABEL('x'),$);\n"
                    "- #30=IFCPROPERTYSET('s1',$,'Set',$,(#20,#22));\n"
                    "+ #30=IFCPROPERTYSET('s1',$,'Set',$,(#22));\n",
         .reports = {"Bad dynamic_cast to VirtualIfcPropertySet and VIfcPropertySingleValue. E"}},
        {.title = "a deleted set that others use leaves only this wall",
         .data = kShared,
         .edits = {.deletedSets = {set(u"s1", u"Set")}},
         .changes = "- #40=IFCRELDEFINESBYPROPERTIES('r1',$,$,$,(#10,#11,#12),#30);\n"
                    "+ #40=IFCRELDEFINESBYPROPERTIES('r1',$,$,$,(#11,#12),#30);\n",
         .reports = {}},
        {.title = "a type's set stays when a wall's edit touches it",
         .data = kOwn + "#50=IFCWALLTYPE('t1',$,'T',$,$,(#30),$,$,$,.STANDARD.);\n",
         .edits = {.deletedSets = {set(u"s1", u"Set")}},
         .changes = "- #40=IFCRELDEFINESBYPROPERTIES('r1',$,$,$,(#10),#30);\n",
         .reports = {}},
        {.title = "a relation of several sets keeps the other one",
         .data = kOwn + "#50=IFCPROPERTYSINGLEVALUE('C',$,IFCREAL(1.),$);\n"
                        "#51=IFCPROPERTYSET('s2',$,'Second',$,(#50));\n"
                        "#52=IFCPROPERTYSINGLEVALUE('D',$,IFCREAL(2.),$);\n"
                        "#53=IFCPROPERTYSET('s3',$,'Third',$,(#52));\n"
                        "#54=IFCRELDEFINESBYPROPERTIES('r2',$,$,$,(#10),"
                        "IFCPROPERTYSETDEFINITIONSET((#51,#53)));\n",
         .edits = {.editedSets = {set(u"s2", u"Second", {deleted(u"C")})}},
         .changes = "- #50=IFCPROPERTYSINGLEVALUE('C',$,IFCREAL(1.),$);\n"
                    "- #51=IFCPROPERTYSET('s2',$,'Second',$,(#50));\n"
                    "- #54=IFCRELDEFINESBYPROPERTIES('r2',$,$,$,(#10),"
                    "IFCPROPERTYSETDEFINITIONSET((#51,#53)));\n"
                    "+ #54=IFCRELDEFINESBYPROPERTIES('r2',$,$,$,(#10),"
                    "IFCPROPERTYSETDEFINITIONSET((#53)));\n",
         .reports = {}},
        {.title = "of two walls with a relation of several sets one keeps both",
         .data = kOwn + "#51=IFCPROPERTYSET('s2',$,'Second',$,(#20));\n"
                        "#54=IFCRELDEFINESBYPROPERTIES('r2',$,$,$,(#10,#11),"
                        "IFCPROPERTYSETDEFINITIONSET((#30,#51)));\n",
         .edits = {.deletedSets = {set(u"s2", u"Second")}},
         .changes = "- #54=IFCRELDEFINESBYPROPERTIES('r2',$,$,$,(#10,#11),"
                    "IFCPROPERTYSETDEFINITIONSET((#30,#51)));\n"
                    "+ #54=IFCRELDEFINESBYPROPERTIES('r2',$,$,$,(#11),"
                    "IFCPROPERTYSETDEFINITIONSET((#30,#51)));\n"
                    "+ #55=IFCRELDEFINESBYPROPERTIES(<guid>,$,$,$,(#10),#30);\n",
         .reports = {}},
        {.title = "a new set of single values and quantities becomes two",
         .data = kWalls + "#15=IFCSIUNIT(*,.LENGTHUNIT.,.MILLI.,.METRE.);\n",
         .edits = {.newSets = {set(u"2abcdefghijklmnopqrstu", u"New",
                                   {added(u"T", u"text"), added(u"R", u"0.25", u"IfcReal"),
                                    withUnit(quantity(u"IfcQuantityLength", added(u"L", u"3")),
                                             u"MILLI", u"METRE"),
                                    withUnit(quantity(u"IfcQuantityWeight", added(u"W", u"4.5")),
                                             u"KILO", u"GRAM")})}},
         .changes = "+ #16=IFCRELDEFINESBYPROPERTIES(<guid>,$,$,$,(#10),#17);\n"
                    "+ #17=IFCPROPERTYSET(<guid>,$,'New',$,(#18,#19));\n"
                    "+ #18=IFCPROPERTYSINGLEVALUE('R',$,IFCREAL(0.25),$);\n"
                    "+ #19=IFCPROPERTYSINGLEVALUE('T',$,IFCLABEL('text'),$);\n"
                    "+ #20=IFCRELDEFINESBYPROPERTIES(<guid>,$,$,$,(#10),#21);\n"
                    "+ #21=IFCELEMENTQUANTITY(<guid>,$,'New',$,$,(#22,#23));\n"
                    "+ #22=IFCQUANTITYLENGTH('L',$,#15,3.,$);\n"
                    "+ #23=IFCQUANTITYWEIGHT('W',$,#24,4.5,$);\n"
                    "+ #24=IFCSIUNIT(*,.MASSUNIT.,.KILO.,.GRAM.);\n",
         .reports = {}},
        {.title = "a quantity added to a property set goes beside it",
         .data = kOwn,
         .edits = {.editedSets = {set(u"s1", u"Set",
                                      {quantity(u"IfcQuantityCount", added(u"N", u"7"))})}},
         .changes = "+ #41=IFCRELDEFINESBYPROPERTIES(<guid>,$,$,$,(#10),#42);\n"
                    "+ #42=IFCELEMENTQUANTITY(<guid>,$,'Set',$,$,(#43));\n"
                    "+ #43=IFCQUANTITYCOUNT('N',$,$,7.,$);\n",
         .reports = {}},
        {.title = "quantities change their number; what is none changes nothing",
         .data = kQuantities,
         .edits = {.editedSets = {set(
                       u"q1", u"Q",
                       {withUnit(edited(u"L", u"2"), u"", u"METRE"), edited(u"N", u"many")})}},
         .changes = "- #20=IFCQUANTITYLENGTH('L',$,#15,2000.,$);\n"
                    "+ #20=IFCQUANTITYLENGTH('L',$,#41,2.,$);\n"
                    "+ #41=IFCSIUNIT(*,.LENGTHUNIT.,$,.METRE.);\n",
         .reports = {"Quantity: N. The value is not a number of the quantity: many"}},
        {.title = "an integer count stays an integer",
         .data = kWalls + "#20=IFCQUANTITYCOUNT('N',$,$,4,$);\n"
                          "#30=IFCELEMENTQUANTITY('q1',$,'Q',$,$,(#20));\n"
                          "#40=IFCRELDEFINESBYPROPERTIES('r1',$,$,$,(#10),#30);\n",
         .edits = {.editedSets = {set(u"q1", u"Q", {edited(u"N", u"9007199254740993")})}},
         .changes = "- #20=IFCQUANTITYCOUNT('N',$,$,4,$);\n"
                    "+ #20=IFCQUANTITYCOUNT('N',$,$,9007199254740993,$);\n",
         .reports = {},
         .schema = "IFC4X3"},
        {.title = "two properties change names, and a third takes the kind of a quantity",
         .data = kOwn + "#22=IFCPROPERTYSINGLEVALUE('C',$,IFCREAL(3.),$);\n"
                        "#31=IFCPROPERTYSET('s2',$,'More',$,(#22,#20));\n"
                        "#41=IFCRELDEFINESBYPROPERTIES('r2',$,$,$,(#10),#31);\n",
         .edits = {.editedSets = {set(u"s1", u"Set", {renamed(u"A", u"B"), renamed(u"B", u"A")}),
                                  set(u"s2", u"More",
                                      {quantity(u"IfcQuantityArea", edited(u"C", u"3"))})}},
         .changes = "- #21=IFCPROPERTYSINGLEVALUE('B',$,IFCLENGTHMEASURE(1.5),$);\n"
                    "- #30=IFCPROPERTYSET('s1',$,'Set',$,(#20,#21));\n"
                    "- #22=IFCPROPERTYSINGLEVALUE('C',$,IFCREAL(3.),$);\n"
                    "- #31=IFCPROPERTYSET('s2',$,'More',$,(#22,#20));\n"
                    "+ #21=IFCPROPERTYSINGLEVALUE('A',$,IFCLENGTHMEASURE(1.5),$);\n"
                    "+ #30=IFCPROPERTYSET('s1',$,'Set',$,(#42,#21));\n"
                    "+ #31=IFCPROPERTYSET('s2',$,'More',$,(#20));\n"
                    "+ #42=IFCPROPERTYSINGLEVALUE('B',$,IFCLABEL('x'),$);\n"
                    "+ #43=IFCRELDEFINESBYPROPERTIES(<guid>,$,$,$,(#10),#44);\n"
                    "+ #44=IFCELEMENTQUANTITY(<guid>,$,'More',$,$,(#45));\n"
                    "+ #45=IFCQUANTITYAREA('C',$,$,3.,$);\n",
         .reports = {}},
        {.title = "a value that does not fit its type, and a type that is asked for",
         .data = kOwn,
         .edits = {.editedSets = {set(u"s1", u"Set",
                                      {edited(u"A", u"1.25", u"IfcReal"), edited(u"B", u"long")})}},
         .changes = "- #20=IFCPROPERTYSINGLEVALUE('A',$,IFCLABEL('x'),$);\n"
                    "- #21=IFCPROPERTYSINGLEVALUE('B',$,IFCLENGTHMEASURE(1.5),$);\n"
                    "+ #20=IFCPROPERTYSINGLEVALUE('A',$,IFCREAL(1.25),$);\n"
                    "+ #21=IFCPROPERTYSINGLEVALUE('B',$,IFCLABEL('long'),$);\n",
         .reports = {"Property: A. The value type was changed from IfcLabel to IfcReal",
                     "Property: B. The value does not convert to IfcLengthMeasure, it is stored as "
                     "IfcLabel"}},
        {.title = "what is not in the file is reported",
         .data = kOwn,
         .edits = {.newSets = {set(u"n1", u"Empty")},
                   .editedSets = {set(u"none", u"Set", {edited(u"A", u"y")}),
                                  set(u"s1", u"Set", {deleted(u"Z")})}},
         .changes = "",
         .reports = {"Unable to find property set in GUIDs map. GUID: none",
                     "Property set guid: none not found.",
                     "Unable to delete property: Z. Property not found",
                     "Some of the property sets have no properties. It is necessary for a property "
                     "set to have at least one property. Empty sets will not be saved.\nUnsaved "
                     "empty sets: Empty"}},
        {.title = "a predefined set is left alone",
         .data = kWalls + "#20=IFCDOORLININGPROPERTIES('d1',$,'P',$,1.,$,$,$,$,$,$,$,$,$,$,$,$);\n"
                          "#21=IFCRELDEFINESBYPROPERTIES('r1',$,$,$,(#10),#20);\n",
         .edits = {.deletedSets = {set(u"d1", u"P")}},
         .changes = "",
         .reports = {"Predefined property sets can not be edited: IfcDoorLiningProperties #20",
                     "Property set guid: d1 not found."}},
        {.title = "a number that names another object now",
         .data = kOwn,
         .edits = {.deletedSets = {set(u"s1", u"Set")}, .guid = u"w9"},
         .changes = "",
         .reports = {"Object with IFC number: 10 has another GUID than the edited object: w9"}},
        {.title = "an object and a set by the GUIDs that the file has, though others kept them",
         .data = kWalls + "#20=IFCPROPERTYSINGLEVALUE('A',$,IFCLABEL('x'),$);\n"
                          "#30=IFCPROPERTYSET('s1',$,'Set',$,(#20));\n"
                          "#40=IFCRELDEFINESBYPROPERTIES('s1',$,$,$,(#10),#30);\n"
                          "#13=IFCWALL('w1',$,'Four',$,$,$,$,$,$);\n"
                          "#21=IFCPROPERTYSINGLEVALUE('A',$,IFCLABEL('x'),$);\n"
                          "#31=IFCPROPERTYSET('s1',$,'Set',$,(#21));\n"
                          "#41=IFCRELDEFINESBYPROPERTIES($,$,$,$,(#13),#31);\n",
         .edits = {.editedSets = {set(u"s1", u"Set", {edited(u"A", u"y")})}, .number = 13},
         .changes = "- #21=IFCPROPERTYSINGLEVALUE('A',$,IFCLABEL('x'),$);\n"
                    "+ #21=IFCPROPERTYSINGLEVALUE('A',$,IFCLABEL('y'),$);\n",
         .reports = {}},
        {.title = "a number that another object has now, and a GUID that one has",
         .data = kOwn,
         .edits = {.editedSets = {set(u"s1", u"Set", {edited(u"A", u"y")})}, .number = 12},
         .changes = "- #20=IFCPROPERTYSINGLEVALUE('A',$,IFCLABEL('x'),$);\n"
                    "+ #20=IFCPROPERTYSINGLEVALUE('A',$,IFCLABEL('y'),$);\n",
         .reports = {"Object with IFC number: 12 is another object now. The edits were made on one "
                     "that is found by its GUID, as #10"}},
        {.title = "a number that is gone",
         .data = kOwn,
         .edits = {.deletedSets = {set(u"s1", u"Set")}, .number = 99},
         .changes = "",
         .reports = {"Object with IFC number: 99 not found."}},
        {.title = "an edit keeps what the record had beyond its class",
         .data = kWalls + "#20=IFCPROPERTYSINGLEVALUE('A',17,IFCLABEL('x'),$,.EXTRA.);\n"
                          "#30=IFCPROPERTYSET('s1',$,'Set',$,(#20));\n"
                          "#40=IFCRELDEFINESBYPROPERTIES('r1',$,$,$,(#10),#30);\n",
         .edits = {.editedSets = {set(u"s1", u"Set", {edited(u"A", u"y")})}},
         .changes = "- #20=IFCPROPERTYSINGLEVALUE('A',17,IFCLABEL('x'),$,.EXTRA.);\n"
                    "+ #20=IFCPROPERTYSINGLEVALUE('A',17,IFCLABEL('y'),$,.EXTRA.);\n",
         .reports = {}},
        {.title = "units of a property set in a release of 2003",
         .data = "#5=IFCOWNERHISTORY($,$,$,.NOCHANGE.,$,$,$,0);\n"
                 "#10=IFCWALL('w1',#5,'One',$,$,$,$,$);\n"
                 "#20=IFCPROPERTYSINGLEVALUE('A',$,IFCLENGTHMEASURE(1.),$);\n"
                 "#30=IFCPROPERTYSET('s1',#5,'Set',$,(#20));\n"
                 "#40=IFCRELDEFINESBYPROPERTIES('r1',#5,$,$,(#10),#30);\n",
         .edits = {.newSets = {set(u"2abcdefghijklmnopqrstu", u"New", {added(u"T", u"t")})},
                   .editedSets = {set(u"s1", u"Set",
                                      {withUnit(edited(u"A", u""), u"MICRO", u"METRE")})}},
         .changes = "- #20=IFCPROPERTYSINGLEVALUE('A',$,IFCLENGTHMEASURE(1.),$);\n"
                    "+ #20=IFCPROPERTYSINGLEVALUE('A',$,IFCLENGTHMEASURE(1.),#44);\n"
                    "+ #41=IFCRELDEFINESBYPROPERTIES(<guid>,#5,$,$,(#10),#42);\n"
                    "+ #42=IFCPROPERTYSET(<guid>,#5,'New',$,(#43));\n"
                    "+ #43=IFCPROPERTYSINGLEVALUE('T',$,IFCLABEL('t'),$);\n"
                    "+ #44=IFCSIUNIT(*,.LENGTHUNIT.,.MICRO.,.METRE.);\n",
         .reports = {},
         .schema = "IFC2X2_FINAL"},
    };
    return kCases;
}

TEST(ApplyEdits, ReachTheChosenObjectAndNothingElse) {
    for (const Case& entry : cases()) {
        SCOPED_TRACE(entry.title);
        ReadModel read(stepFile(entry.data, entry.schema));
        ASSERT_TRUE(read.loaded()) << read.reports();
        const std::string before = dataOf(stepOf(read.model()));
        FileEdits edits;
        ObjectEdits& object = edits.objects[entry.edits.number];
        object.objectGuid = entry.edits.guid;
        object.newSets = entry.edits.newSets;
        object.editedSets = entry.edits.editedSets;
        object.deletedSets = entry.edits.deletedSets;
        ErrorLog errors;
        applyEdits(read.model(), edits, errors.callback());
        EXPECT_EQ(changesBetween(before, dataOf(stepOf(read.model()))), entry.changes);
        std::vector<std::string> reports;
        for (const std::string& text : entry.reports)
            reports.push_back("|" + text);
        EXPECT_EQ(errors.entries, reports);
    }
}

/// A hundred walls share a set; each gets another value, and the shared one goes when nobody has it
/// any more.
TEST(ApplyEdits, OneAfterAnotherDissolveASharedSet) {
    constexpr int kWallCount = 100;
    std::string data;
    std::string list;
    for (int wall = 1; wall <= kWallCount; ++wall) {
        const std::string number = std::to_string(wall);
        data += "#" + number + "=IFCWALL('w" + number + "',$,$,$,$,$,$,$,$);\n";
        list += (wall == 1 ? "#" : ",#") + number;
    }
    data +=
        "#900=IFCPROPERTYSINGLEVALUE('A',$,IFCINTEGER(0),$);\n"
        "#901=IFCPROPERTYSET('s1',$,'Set',$,(#900));\n"
        "#902=IFCRELDEFINESBYPROPERTIES('r1',$,$,$,(" +
        list + "),#901);\n";
    ReadModel read(stepFile(data));
    ASSERT_TRUE(read.loaded());
    FileEdits edits;
    for (int wall = 1; wall <= kWallCount; ++wall) {
        const std::string text = std::to_string(wall);
        ObjectEdits& object = edits.objects[wall];
        object.objectGuid = u"w" + std::u16string(text.begin(), text.end());
        object.editedSets = {
            set(u"s1", u"Set", {edited(u"A", std::u16string(text.begin(), text.end()))})};
    }
    ErrorLog errors;
    const ApplyResult result = applyEdits(read.model(), edits, errors.callback());
    EXPECT_EQ(result.applied, static_cast<std::size_t>(kWallCount));
    EXPECT_EQ(errors.entries, std::vector<std::string>());
    const std::string after = dataOf(stepOf(read.model()));
    for (int wall = 1; wall <= kWallCount; ++wall)
        EXPECT_NE(after.find("IFCINTEGER(" + std::to_string(wall) + ")"), std::string::npos);
    EXPECT_EQ(after.find("IFCINTEGER(0)"), std::string::npos);
    EXPECT_EQ(std::count(after.begin(), after.end(), '\n'), kWallCount * 4);
}

}  // namespace
