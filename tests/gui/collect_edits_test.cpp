#include "gui/collect_edits.h"

#include <gtest/gtest.h>

#include <QVBoxLayout>
#include <algorithm>
#include <numeric>
#include <set>

#include "edits/edit_many.h"
#include "gui/edit_many_state.h"
#include "gui/line_text_edit.h"
#include "gui/qt_text.h"
#include "gui/value_grouping.h"
#include "platform/text.h"
#include "tests/gui/rows_host.h"

namespace {

using IFC::ManyEdit;

std::string utf8(std::u16string_view text) { return platform::toUtf8(text); }

/// "set/property[=value][ prefix unit] at object:set GUID ..." and the like.
std::string textOf(const ManyEdit& edit) {
    std::string text;
    switch (edit.kind) {
        case ManyEdit::Kind::AddSet: text = "add set "; break;
        case ManyEdit::Kind::AddProperty: text = "add "; break;
        case ManyEdit::Kind::EditProperty: text = "edit "; break;
        case ManyEdit::Kind::RenameSet: text = "rename "; break;
        default: text = "delete "; break;
    }
    text += utf8(edit.setName);
    const IfcProperty& property = edit.property;
    if (!property.initialName.empty())
        text += "/" + utf8(property.initialName);
    if (property.name != property.initialName)
        text += "->" + utf8(property.name);
    if (!edit.newSetName.empty())
        text += "->" + utf8(edit.newSetName);
    if (!property.value.empty())
        text += "=" + utf8(property.value);
    if (!property.unit.empty())
        text += " " + utf8(property.prefix) + " " + utf8(property.unit);
    if (property.valueType == kRealValue)
        text += " real";
    std::string places;
    for (const IFC::ManyEditPlace& place : edit.places)
        places += " " + std::to_string(place.object) +
                  (place.setGuid.empty() ? "" : ":" + utf8(place.setGuid));
    return text + (places.empty() ? "" : " at" + places);
}

std::string textOf(const SummaryRecord& record) {
    std::string text = record.node.toStdString() + ": " + record.oldText.toStdString() + " -> " +
                       record.newText.toStdString() + " of";
    for (const std::uint64_t object : record.objects)
        text += " " + std::to_string(object);
    return text;
}

std::string label(std::u16string_view prefix, std::u16string_view unit) {
    return unitLabelAt(unitIndexOf(prefix, unit)).toStdString();
}

template <class Items>
std::vector<std::string> textsOf(const Items& items) {
    std::vector<std::string> texts;
    for (const auto& item : items)
        texts.push_back(textOf(item));
    return texts;
}

using Texts = std::vector<std::string>;

/// Two walls and a door with a set A, of which the walls have the same one, and what they show.
class CollectedRows : public testing::Test {
protected:
    CollectedRows() {
        editManyState().groupingType = GroupingType::NamesAndIfcEntity;
        editManyState().captions.yes = "Yes";
        editManyState().captions.no = "No";
        host.addObject(1);
        host.addObject(2);
        host.addObject(3, u"IfcDoor");
        for (const HostObjectId id : host.ids()) {
            host.add(id, u"A", u"Text", id == 3 ? u"door" : u"wall");
            host.add(id, u"A", u"Real", u"1.5", kHostReal);
            host.add(id, u"A", u"Whole", u"2", kHostInteger);
            host.add(id, u"A", u"Truth", u"1", kHostTruth);
            host.add(id, u"B", u"Other", u"b");
            DisplayedProperty& length = host.add(id, u"Q", u"Length", u"4000", kHostReal);
            length.setEntityName = u"IfcElementQuantity";
            length.kind = kHostQuantity;
            length.prefix = u"MILLI";
            length.unit = u"METRE";
            host.add(id, u"Lining", u"Depth", u"70", kHostReal).setEntityName =
                u"IfcDoorLiningProperties";
        }
        host.objects[3].rows[0].setGuid = u"A-door-guid";
    }

    void load() {
        for (const HostObjectId id : host.ids())
            EXPECT_TRUE(rows.load(id));
        rows.finish();
    }
    ExistingPropertyGui& property(const char* set, const char* name) {
        return *rows.findSet(set)->findProperty(name);
    }
    /// Of the property's rows those at `places`, or all, as if the user had typed into them.
    void change(const char* set, const char* name, const QString& value,
                std::vector<std::size_t> places = {}, bool isChecked = true) {
        const auto& all = property(set, name).rows();
        if (places.empty()) {
            places.resize(all.size());
            std::iota(places.begin(), places.end(), 0u);
        }
        for (const std::size_t place : places) {
            all[place]->setValue(value);
            all[place]->setSelected(isChecked);
        }
    }
    bool renameProperty(const char* set, const char* from, const char* to) {
        ExistingSetGui& row = *rows.findSet(set);
        return row.renameProperty(*row.findProperty(from), to);
    }
    void renameSet(const char* initialName, const QString& to) {
        ExistingSetGui& set = *rows.findSet(initialName);
        set.setExpanded(false);
        set.createGui(layout);
        const_cast<LineTextEdit*>(set.nameField())->setPlainText(to);
        EXPECT_EQ(set.name(), to);
    }
    CollectedEdits collected() {
        CollectedEdits result;
        collectExisting(rows, result);
        return result;
    }
    CollectedEdits collectedNew(const NewSetData& set, std::int32_t policy, bool isAny = true,
                                const std::vector<const ObjectRecord*>& excluded = {}) {
        CollectedEdits result;
        EXPECT_EQ(collectNewSet(set, rows, host.ids(), policy, excluded, result), isAny);
        return result;
    }

    RowsHost host;
    LoadedRows rows{host.calls};
    QWidget area;
    QVBoxLayout layout{&area};
};

TEST_F(CollectedRows, AreCheckedChangedAndEditable) {
    load();
    EXPECT_EQ(rows.sets.size(), 4u);
    EXPECT_TRUE(collected().edits.empty());
    for (const auto& set : rows.sets)
        set->selectAllRows(true);
    EXPECT_TRUE(collected().edits.empty()) << "checked, but as they were";
    for (const auto& set : rows.sets)
        set->selectAllRows(false);
    change("A", "Text", "new", {}, false);
    EXPECT_TRUE(collected().edits.empty()) << "changed, but unchecked again";
    change("Lining", "Depth", "80");
    EXPECT_TRUE(collected().edits.empty()) << "read-only";

    // One edit for each new value and unit, with all its places; the summary by old and new.
    change("A", "Text", "new");
    change("A", "Whole", "3", {0, 2});
    change("A", "Whole", "4", {1});
    change("A", "Truth", "0", {2});
    const int metre = unitIndexOf({}, u"METRE");
    ASSERT_GE(metre, 0);
    const int centi = unitIndexOf(u"CENTI", u"METRE");
    change("Q", "Length", "4000");
    for (const std::size_t place : {0u, 1u, 2u})
        property("Q", "Length").rows()[place]->setUnitIndex(place == 1 ? centi : metre);
    const std::string length = "Q / Length: 4000 " + label(u"MILLI", u"METRE") + " -> 4000 ";
    const CollectedEdits result = collected();
    EXPECT_EQ(textsOf(result.edits),
              (Texts{"edit A/Text=new at 1:A-guid 2:A-guid 3:A-door-guid",
                     "edit A/Whole=3 at 1:A-guid 3:A-guid", "edit A/Whole=4 at 2:A-guid",
                     "edit A/Truth=0 at 3:A-guid", "edit Q/Length  METRE at 1:Q-guid 3:Q-guid",
                     "edit Q/Length CENTI METRE at 2:Q-guid"}));
    EXPECT_EQ(textsOf(result.changed),
              (Texts{"A / Text: wall -> new of 1 2", "A / Text: door -> new of 3",
                     "A / Whole: 2 -> 3 of 1 3", "A / Whole: 2 -> 4 of 2",
                     "A / Truth: Yes -> No of 3", length + label({}, u"METRE") + " of 1 3",
                     length + label(u"CENTI", u"METRE") + " of 2"}));
    EXPECT_TRUE(result.added.empty());
}

TEST_F(CollectedRows, NewNamesComeAfterTheValues) {
    load();
    change("A", "Text", "new", {0});
    // A chain: the second can only be given once the first is free.
    EXPECT_FALSE(renameProperty("A", "Text", "Real")) << "is taken";
    EXPECT_TRUE(renameProperty("A", "Real", "Number"));
    EXPECT_TRUE(renameProperty("A", "Text", "Real"));
    renameSet("B", "C");
    renameSet("A", "B");
    EXPECT_FALSE(problemOf(rows).has_value());
    const CollectedEdits result = collected();
    EXPECT_EQ(
        textsOf(result.edits),
        (Texts{"edit A/Text=new at 1:A-guid", "edit A/Real->Number at 1:A-guid 2:A-guid 3:A-guid",
               "edit A/Text->Real at 1:A-guid 2:A-guid 3:A-door-guid",
               "rename B->C at 1:B-guid 2:B-guid 3:B-guid",
               // Each set that an object has of the name.
               "rename A->B at 1:A-guid 2:A-guid 3:A-door-guid 3:A-guid"}));
    EXPECT_EQ(carriersAfterRenames(rows, "A"), nullptr);
    EXPECT_EQ(carriersAfterRenames(rows, "B"), &rows.findSet("A")->carriers());
}

TEST_F(CollectedRows, NamesThatChangePlacesAreRefused) {
    load();
    EXPECT_TRUE(renameProperty("A", "Real", "x"));
    EXPECT_TRUE(renameProperty("A", "Text", "Real"));
    EXPECT_TRUE(renameProperty("A", "x", "Text"));
    const auto problem = problemOf(rows);
    ASSERT_TRUE(problem.has_value());
    EXPECT_EQ(problem->set, rows.findSet("A"));
    ASSERT_NE(problem->property, nullptr);
    EXPECT_EQ(problem->text, u"Property " + fromQString(problem->property->name()) +
                                 u" already exists. Please change name.");
    EXPECT_TRUE(renameProperty("A", "Text", "y"));
    EXPECT_FALSE(problemOf(rows).has_value()) << "no ring any more";

    renameSet("A", "B");
    renameSet("B", "A");
    const auto ofSets = problemOf(rows);
    ASSERT_TRUE(ofSets.has_value());
    ASSERT_NE(ofSets->set, nullptr);
    EXPECT_EQ(ofSets->text,
              u"Set " + fromQString(ofSets->set->name()) + u" already exists. Please change name.");
}

TEST(RenameOrder, NeverGivesANameThatIsTaken) {
    using Names = std::vector<std::pair<QString, QString>>;
    struct Case {
        Names renames;
        bool hasRing;
    };
    const Case cases[] = {
        {{}, false},
        {{{"a", "b"}}, false},
        {{{"a", "b"}, {"b", "c"}, {"c", "d"}}, false},
        {{{"c", "d"}, {"b", "c"}, {"a", "b"}}, false},
        {{{"b", "c"}, {"d", "e"}, {"a", "b"}, {"c", "d"}}, false},
        {{{"a", "b"}, {"b", "a"}}, true},
        {{{"a", "b"}, {"b", "c"}, {"c", "a"}, {"x", "y"}}, true},
    };
    for (const Case& each : cases) {
        const RenameOrder result = renameOrder(each.renames);
        EXPECT_EQ(result.inRing.has_value(), each.hasRing);
        EXPECT_EQ(std::set(result.order.begin(), result.order.end()).size(), each.renames.size());
        std::set<QString> taken;
        for (const auto& [from, to] : each.renames)
            taken.insert(from);
        for (const std::size_t place : result.order) {
            const auto& [from, to] = each.renames[place];
            taken.erase(from);
            EXPECT_TRUE(taken.insert(to).second || each.hasRing) << to.toStdString();
        }
    }
}

TEST_F(CollectedRows, TellWhatIsWrong) {
    load();
    struct Case {
        const char* property;
        QString value;
        const char* key;  // null: right
    };
    const Case cases[] = {
        {"Real", "text", "value_is_no_number"},
        {"Real", "1.2.3", "value_is_no_number"},
        {"Real", "-2.5e3", nullptr},
        {"Whole", "1.5", "value_is_no_integer"},
        {"Whole", "-7", nullptr},
        {"Truth", "2", "value_is_no_truth_value"},
        {"Truth", "0", nullptr},
        {"Text", "", "value_missing"},
        {"Text", "any", nullptr},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.property + (" " + each.value).toStdString());
        const QString before = property("A", each.property).rows()[1]->initialValue();
        change("A", each.property, each.value, {1});
        const auto problem = problemOf(rows);
        EXPECT_EQ(problem.has_value(), each.key != nullptr);
        if (problem) {
            EXPECT_STREQ(problem->key, each.key);
            EXPECT_EQ(problem->where, QString("A / ") + each.property);
            EXPECT_EQ(problem->row, property("A", each.property).rows()[1].get());
        }
        property("A", each.property).rows()[1]->setSelected(false);
        EXPECT_FALSE(problemOf(rows).has_value()) << "unchecked, it is not looked at";
        change("A", each.property, before, {1}, false);
    }
    change("Q", "Length", "long");
    EXPECT_STREQ(problemOf(rows)->key, "value_is_no_number");
    change("Q", "Length", "4000");
    EXPECT_TRUE(renameProperty("A", "Text", " \t"));
    EXPECT_STREQ(problemOf(rows)->key, "property_name_missing");
    EXPECT_TRUE(renameProperty("A", " \t", "Text"));
    renameSet("A", " ");
    EXPECT_STREQ(problemOf(rows)->key, "set_name_missing");
}

TEST(NewSets, TellWhatIsWrong) {
    const int metre = unitIndexOf({}, u"METRE");
    const NewPropertyData good{"Name", "any", -1};
    struct Case {
        NewSetData set;
        const char* key;
        std::size_t property;
        bool isValue;
    };
    const Case cases[] = {
        {{"S", {good, {"Length", "2.5", metre}}}, nullptr, 0, false},
        {{"S", {}}, nullptr, 0, false},
        {{"S", {{"Empty", "", -1}}}, nullptr, 0, false},
        {{" ", {good}}, "set_name_missing", 1, false},
        {{"S", {good, {"", "v", -1}}}, "property_name_missing", 1, false},
        {{"S", {good, {"Length", "long", metre}}}, "value_is_no_number", 1, true},
    };
    for (const Case& each : cases) {
        const auto problem = problemOf({NewSetData{"First", {good}}, each.set});
        EXPECT_EQ(problem.has_value(), each.key != nullptr);
        if (!problem || !each.key)
            continue;
        EXPECT_STREQ(problem->key, each.key);
        EXPECT_EQ(problem->newSet, 1u);
        EXPECT_EQ(problem->newProperty, each.property);
        EXPECT_EQ(problem->isValue, each.isValue);
    }
}

TEST_F(CollectedRows, NewSetsGoWhereThePolicyLetsThem) {
    host.objects[2].rows.clear();
    host.addObject(4, u"IfcSite");
    load();
    const NewSetData set{"A",
                         {{"Text", "t", -1}, {"Width", "2.5", unitIndexOf(u"MILLI", u"METRE")}}};
    const Texts properties = {"add A/Text=t", "add A/Width=2.5 MILLI METRE real"};
    const auto edits = [&](const char* first) {
        Texts texts = properties;
        texts.insert(texts.begin(), first);
        return texts;
    };
    const std::string width = "A / Width:  -> 2.5 " + label(u"MILLI", u"METRE");

    CollectedEdits result = collectedNew(set, IFC::kSkipExistingSet);
    EXPECT_EQ(textsOf(result.edits), edits("add set A at 2"));
    EXPECT_EQ(textsOf(result.added), (Texts{"A / Text:  -> t of 2", width + " of 2"}));
    EXPECT_TRUE(result.changed.empty());

    result = collectedNew(set, IFC::kOverrideExistingSet);
    EXPECT_EQ(textsOf(result.edits), edits("add set A at 1 2 3"));
    EXPECT_EQ(textsOf(result.changed), (Texts{"A: A ->  of 1 3"}));

    result = collectedNew(set, IFC::kSkipExistingProperty);
    EXPECT_EQ(textsOf(result.added), (Texts{"A / Text:  -> t of 2", width + " of 1 2 3"}));
    EXPECT_TRUE(result.changed.empty());

    result = collectedNew(set, IFC::kOverrideExistingProperty, true,
                          {&rows.objectInfo.at(3), &rows.objectInfo.at(2)});
    EXPECT_EQ(textsOf(result.edits), edits("add set A at 1"));
    EXPECT_EQ(textsOf(result.changed), (Texts{"A / Text: wall -> t of 1"}));

    // Nobody whom it would change.
    EXPECT_TRUE(collectedNew({"A", {}}, IFC::kSkipExistingProperty, true).changed.empty());
    collectedNew({"A", {{"Text", "t", -1}}}, IFC::kSkipExistingProperty, false,
                 {&rows.objectInfo.at(2)});
    EXPECT_EQ(textsOf(collectedNew({"Empty", {}}, IFC::kSkipExistingSet).edits),
              (Texts{"add set Empty at 1 2 3"}));
}

TEST(ValueGrouping, KeysAndLabels) {
    using enum GroupingType;
    EXPECT_EQ(groupingKey(NamesAndIfcEntity, "IfcWall", "v"), "IfcWall|v");
    EXPECT_EQ(groupingKey(Names, "IfcWall", "v"), "v");
    struct Case {
        GroupingType type;
        int size;
        QString label;
    };
    const Case cases[] = {{NamesAndIfcEntity, 1, "IfcWall"},
                          {NamesAndIfcEntity, 2, "IfcWall (x2)"},
                          {Names, 1, "(x1)"},
                          {Names, 12, "(x12)"},
                          {DoNotGroup, 1, ""}};
    for (const Case& each : cases)
        EXPECT_EQ(groupLabel(each.type, "IfcWall", each.size), each.label);
}

TEST(NumericKeys, AreDigitsThePointAndWhatTypesNothing) {
    struct Case {
        int key;
        QString text;
        bool isAllowed;
    };
    const Case cases[] = {{Qt::Key_0, "0", true},
                          {Qt::Key_9, "9", true},
                          {Qt::Key_Period, ".", true},
                          {Qt::Key_Tab, "\t", true},
                          {Qt::Key_Backspace, "\b", true},
                          {Qt::Key_Delete, "\x7f", true},
                          {Qt::Key_Left, "", true},
                          {Qt::Key_Right, "", true},
                          {Qt::Key_Home, "", true},
                          {Qt::Key_Return, "\r", true},
                          {Qt::Key_Escape, "\x1b", true},
                          {Qt::Key_A, "a", false},
                          {Qt::Key_E, "e", false},
                          {Qt::Key_Comma, ",", false},
                          {Qt::Key_Space, " ", false},
                          {Qt::Key_4, QString(QChar(0x664)), false},  // Arabic-Indic four
                          {0, QString::fromUtf8("\xF0\x9D\x9F\x98"), false}};
    for (const Case& each : cases)
        EXPECT_EQ(isNumericKey(each.key, each.text), each.isAllowed) << each.key;
}

TEST(UnitIndex, IsOfTheLabelAndBack) {
    EXPECT_EQ(unitIndexOf({}, {}), -1);
    EXPECT_EQ(unitIndexOf({}, u"FURLONG"), -1);
    EXPECT_EQ(unitIndexOf(u"MANY", u"METRE"), -1);
    EXPECT_EQ(unitLabelAt(unitIndexOf({}, u"SQUARE_METRE")), "m2 (SquareMetre)");
    EXPECT_EQ(unitIndexOf({}, u"SQUARE_METRE"), 24);
    EXPECT_EQ(unitLabelAt(-1), "");
    EXPECT_EQ(unitLabelAt(100'000), "");
}

}  // namespace
