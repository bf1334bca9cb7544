// What the user does in the real windows, from the first property to the exported file.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QTextEdit>
#include <algorithm>

#include "platform/text.h"
#include "tests/flows/flow_host.h"
#include "tests/windows/pilot.h"

namespace {

const std::u16string kSample = platform::fromUtf8(QUILLET_SOURCE_DIR "/samples/sample_house.ifc");

/// The property's value; nothing when the object has no such set or property.
std::optional<std::u16string> valueOf(const standin::Object& object, const std::u16string& set,
                                      const std::u16string& property) {
    for (const auto& [guid, seen] : seenSetsOf(object)) {
        const auto found = seen.properties.find(property);
        if (seen.name == set && found != seen.properties.end())
            return found->second.value;
    }
    return std::nullopt;
}

bool hasSet(const standin::Object& object, const std::u16string& name) {
    const SeenSets sets = seenSetsOf(object);
    return std::any_of(sets.begin(), sets.end(),
                       [&](const auto& set) { return set.second.name == name; });
}

QString textOf(const QWidget& field) {
    const auto* const edit = qobject_cast<const QTextEdit*>(&field);
    return edit ? edit->toPlainText() : QString();
}

int middleOf(const QWidget& widget) {
    return widget.mapTo(widget.window(), widget.rect().center()).y();
}

QList<QWidget*> visible(const QString& name) {
    QList<QWidget*> found;
    if (const QWidget* const window = uppermostWindow())
        for (QWidget* const widget : window->findChildren<QWidget*>(name))
            if (widget->isVisibleTo(window))
                found.push_back(widget);
    return found;
}

/// The widget of that name in the line of `field`.
QWidget* inLineOf(const QWidget& field, const QString& name) {
    for (QWidget* const widget : visible(name))
        if (std::abs(middleOf(*widget) - middleOf(field)) < field.height() / 2 + 1)
            return widget;
    return nullptr;
}

QWidget* fieldWithText(const QString& name, const QString& text) {
    for (QWidget* const field : visible(name))
        if (textOf(*field) == text)
            return field;
    return nullptr;
}

class WindowsStory : public testing::Test {
protected:
    WindowsStory() { start({kSample}); }
    void start(const std::vector<std::u16string>& paths) { EXPECT_TRUE(flow.start(paths)); }

    const standin::Object& object(const char16_t* name) {
        return *flow.host().objects().findNamed(name);
    }
    const standin::Object& south() { return object(u"South wall"); }
    const standin::Object& west() { return object(u"West wall"); }
    const standin::Object& door() { return object(u"Front door"); }

    /// What the panel asks for; the prepared steps answer the window.
    void request(HostChangeAction action, const standin::Object& of, const std::u16string& set,
                 const std::u16string& property, bool isQuantity = false) {
        flow.host().select({of.id});
        const standin::DisplayedSet* const found = of.display.findSet({}, set);
        ASSERT_NE(found, nullptr);
        flow.host().requestChange(action, set, found->guid, property, isQuantity);
        EXPECT_TRUE(pilot.isDone());
    }

    void editMany(std::vector<const standin::Object*> objects) {
        std::vector<HostObjectId> ids;
        for (const standin::Object* each : objects)
            ids.push_back(each->id);
        flow.host().select(std::move(ids));
        EXPECT_TRUE(flow.click(FlowHost::Item::EditMany));
        EXPECT_TRUE(pilot.isDone());
    }

    // ---- in the edit-many window ----

    /// Waits until the objects are loaded.
    void waitForRows() {
        pilot.then("wait for the rows", [] {
            return uppermostWindow() && !visible(QStringLiteral("PropertyNameEdit")).isEmpty();
        });
    }
    void pressInLine(const QString& field, const QString& text, const QString& button) {
        pilot.then("press " + button.toStdString() + " beside " + text.toStdString(), [=] {
            const QWidget* const found = fieldWithText(field, text);
            QWidget* const pressed = found ? inLineOf(*found, button) : nullptr;
            if (!pressed || !pressed->isEnabled())
                return false;
            clickOn(*pressed);
            return true;
        });
    }
    void expand(const QString& property) {
        pressInLine(QStringLiteral("PropertyNameEdit"), property,
                    QStringLiteral("PropertyExpandButton"));
    }
    void retype(const QString& field, const QString& from, const QString& to) {
        pilot.then("type " + to.toStdString() + " over " + from.toStdString(), [=] {
            QWidget* const found = fieldWithText(field, from);
            if (found)
                typeInto(*found, to);
            return found != nullptr;
        });
    }
    void addSet(const QString& name, std::vector<std::pair<QString, QString>> properties) {
        pilot.press(QStringLiteral("BtnAddNewSet"));
        typeIntoLast(QStringLiteral("NewSetNameEdit"), name);
        for (const auto& [property, value] : properties) {
            pilot.press(QStringLiteral("AddPropertyButton"));
            typeIntoLast(QStringLiteral("NewPropertyNameEdit"), property);
            typeIntoLast(QStringLiteral("NewPropertyValueEdit"), value);
        }
    }
    void typeIntoLast(const QString& field, const QString& text) {
        pilot.then("type into the last " + field.toStdString(), [=] {
            const QList<QWidget*> fields = visible(field);
            if (fields.isEmpty())
                return false;
            typeInto(*fields.back(), text);
            return true;
        });
    }
    void acceptSummary() {
        pilot.press(QStringLiteral("OkButton"));
        pilot.press(QStringLiteral("SummaryAccept"));
    }

    FlowHost flow{u"en", false, FlowHost::Windows::Real};
    Pilot pilot;
};

const char* const kFireRating = "FireRating";
const std::u16string kCommon = u"Pset_WallCommon";

TEST_F(WindowsStory, OneObject) {
    flow.host().select({south().id});
    pilot
        .type("SetName", QString::fromUtf8("Pr\xC3\xBC"
                                           "fung <b>"))
        .press("OkButton");
    flow.click(FlowHost::Item::AddSet);
    const std::u16string set = u"Prüfung <b>";
    ASSERT_TRUE(hasSet(south(), set));

    pilot.type("PropertyName", "Zustand").type("Value", "neu & 'gut'").press("OkButton");
    request(kHostAskAddProperty, south(), set, {});
    EXPECT_EQ(valueOf(south(), set, u"Zustand"), u"neu & 'gut'");

    // Refused, and the window stays: no name, a name that is taken by nothing else.
    pilot.type("PropertyName", "").press("OkButton").answerBox("name", "OK");
    pilot.type("PropertyName", "Status").press("OkButton");
    request(kHostAskEditProperty, south(), set, u"Zustand");
    EXPECT_EQ(valueOf(south(), set, u"Status"), u"neu & 'gut'");

    // A quantity brings its unit along; a truth value is chosen.
    pilot.type("PropertyName", "Width").type("Value", "2,5").press("OkButton");
    pilot.answerBox("number", "OK").type("Value", "2.5");
    pilot.choose("QuantityType", "IfcQuantityLength").press("OkButton");
    request(kHostAskAddProperty, south(), u"Qto_WallBaseQuantities", u"Length", true);
    for (const auto& [guid, seen] : seenSetsOf(south())) {
        if (seen.name != u"Qto_WallBaseQuantities")
            continue;
        const auto width = seen.properties.find(u"Width");
        ASSERT_NE(width, seen.properties.end());
        EXPECT_EQ(width->second.unit, u"METRE");
        EXPECT_EQ(width->second.quantityType, u"IfcQuantityLength");
    }
    pilot.choose("TruthValue", "No").press("OkButton");
    request(kHostAskEditProperty, south(), kCommon, u"LoadBearing");
    EXPECT_EQ(valueOf(south(), kCommon, u"LoadBearing"), u"0");
    EXPECT_EQ(valueOf(west(), kCommon, u"LoadBearing"), u"1")
        << "the set is shared, the edit is not";

    request(kHostAskDeleteProperty, south(), kCommon, u"Reference");
    EXPECT_EQ(valueOf(south(), kCommon, u"Reference"), std::nullopt);
    pilot.type("SetName", "Surface").press("OkButton");
    request(kHostAskRenameSet, south(), u"Finish", {});
    EXPECT_TRUE(hasSet(south(), u"Surface"));

    const std::size_t edits = flow.host().undoList().doneCount();
    EXPECT_EQ(edits, 7u);
    pilot.press("CancelButton");
    request(kHostAskEditProperty, south(), kCommon, u"IsExternal");
    EXPECT_EQ(flow.host().undoList().doneCount(), edits) << "cancelled";
    const SeenObjects after = flow.seen();
    while (flow.host().undo()) {
    }
    EXPECT_FALSE(hasSet(south(), set));
    while (flow.host().redo()) {
    }
    EXPECT_EQ(difference(after, flow.seen()), "");
    EXPECT_EQ(flow.complaints(), "");
}

/// Adding policy and grouping.
class EditManyStory : public WindowsStory,
                      public testing::WithParamInterface<std::tuple<int, int>> {};

TEST_P(EditManyStory, ChangesWhatWasCheckedAndAddsByThePolicy) {
    const auto [policy, grouping] = GetParam();
    static const QString kPolicies[] = {"Skip existing sets", "Replace existing sets",
                                        "Skip existing properties", "Replace existing properties"};
    static const QString kGroupings[] = {"Group by names and IFC entity", "Group by names",
                                         "Do not group"};
    const SeenObjects before = flow.seen();
    waitForRows();
    if (grouping != 0) {
        pilot.choose("GroupingTypeQCB", kGroupings[grouping]);
        pilot.then("wait until it is loading", [] {
            return uppermostWindow() && uppermostWindow()->objectName() == "LoadingDialog";
        });
        waitForRows();
    }
    expand(kFireRating);
    retype("ValueEdit", "F 90", "F 120");
    addSet("Finish", {{"Colour", "green"}, {"Checked", "yes"}});
    pilot.press(kPolicies[policy]);
    acceptSummary();
    editMany({&south(), &west(), &door()});

    // Ungrouped, a row is one object.
    EXPECT_EQ(valueOf(south(), kCommon, u"FireRating"), u"F 120");
    EXPECT_EQ(valueOf(west(), kCommon, u"FireRating"), grouping == 2 ? u"F 90" : u"F 120");
    for (const standin::Object* other : {&west(), &door()}) {
        EXPECT_EQ(valueOf(*other, u"Finish", u"Colour"), u"green");
        EXPECT_EQ(valueOf(*other, u"Finish", u"Checked"), u"yes");
    }
    using Value = std::optional<std::u16string>;
    const Value colour = policy == 1 || policy == 3 ? Value(u"green") : Value(u"red, 'oxblood'");
    EXPECT_EQ(valueOf(south(), u"Finish", u"Colour"), colour);
    EXPECT_EQ(valueOf(south(), u"Finish", u"Checked"), policy == 0 ? Value() : Value(u"yes"));
    EXPECT_EQ(valueOf(south(), u"Finish", u"Supplier").has_value(), policy != 1);

    ASSERT_EQ(flow.host().undoList().texts().size(), 1u);
    const SeenObjects after = flow.seen();
    EXPECT_TRUE(flow.host().undo());
    EXPECT_EQ(difference(before, flow.seen()), "");
    EXPECT_TRUE(flow.host().redo());
    EXPECT_EQ(difference(after, flow.seen()), "");
    EXPECT_EQ(flow.complaints(), "");
}

INSTANTIATE_TEST_SUITE_P(PoliciesAndGroupings, EditManyStory,
                         testing::Combine(testing::Range(0, 4), testing::Range(0, 3)));

TEST_F(WindowsStory, TheSummaryCanBeCancelledAndTheWindowKept) {
    waitForRows();
    expand(kFireRating);
    retype("ValueEdit", "F 90", "F 120");
    pilot.press("OkButton").press("SummaryCancel");
    pilot.answerBox("Close the window", "No");
    pilot.press("OkButton").press("SummaryCancel");
    pilot.answerBox("Close the window", "Yes");
    editMany({&south(), &west()});
    EXPECT_EQ(valueOf(south(), kCommon, u"FireRating"), u"F 90");
    EXPECT_FALSE(flow.host().undoList().canUndo());
    // And once more, to the end: what is opened again shows the model as it is.
    waitForRows();
    expand(kFireRating);
    retype("ValueEdit", "F 90", "F 30");
    acceptSummary();
    editMany({&south(), &west()});
    EXPECT_EQ(valueOf(west(), kCommon, u"FireRating"), u"F 30");
}

struct SharedCase {
    const char* name;
    bool isRename;
    int policy;
    const char* question;
};

class SharedSets : public WindowsStory,
                   public testing::WithParamInterface<std::tuple<SharedCase, bool>> {};

TEST_P(SharedSets, AreChangedForAllOnlyWhenTheUserAgrees) {
    const auto& [shared, isAgreed] = GetParam();
    static const QString kPolicies[] = {"Skip existing sets", "Replace existing sets",
                                        "Skip existing properties", "Replace existing properties"};
    waitForRows();
    if (shared.isRename)
        retype("SetNameEdit", "Pset_WallCommon", "Renamed");
    else
        addSet("Pset_WallCommon", {{"FireRating", "F 0"}, {"New", "1"}});
    pilot.press(kPolicies[shared.policy]);
    pilot.press("OkButton").answerBox(shared.question, isAgreed ? "Yes" : "No");
    pilot.press("SummaryAccept");
    editMany({&south(), &west()});
    for (const standin::Object* wall : {&south(), &west()}) {
        EXPECT_EQ(hasSet(*wall, u"Renamed"), shared.isRename && isAgreed);
        const std::u16string set = shared.isRename && isAgreed ? u"Renamed" : kCommon;
        EXPECT_EQ(valueOf(*wall, set, u"New").has_value(), !shared.isRename && isAgreed);
        const bool isReplaced = !shared.isRename && isAgreed && shared.policy != 2;
        EXPECT_EQ(valueOf(*wall, set, u"FireRating"), isReplaced ? u"F 0" : u"F 90");
        EXPECT_EQ(valueOf(*wall, set, u"LoadBearing").has_value(), shared.policy != 1 || !isAgreed);
    }
    EXPECT_EQ(flow.complaints(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Questions, SharedSets,
    testing::Combine(testing::Values(SharedCase{"Rename", true, 0, "Change it for all"},
                                     SharedCase{"ReplaceSet", false, 1, "Delete it for all"},
                                     SharedCase{"AddMissing", false, 2, "Add to it for all"},
                                     SharedCase{"ReplaceProperty", false, 3, "Add to it for all"}),
                     testing::Bool()),
    [](const auto& each) {
        return std::string(std::get<0>(each.param).name) +
               (std::get<1>(each.param) ? "Agreed" : "Refused");
    });

TEST_F(WindowsStory, EditsOfManyObjectsReachTheExportedFile) {
    waitForRows();
    expand(kFireRating);
    retype("ValueEdit", "F 90", "F 180");
    retype("PropertyNameEdit", "IsExternal", "Outside");
    expand("Height");
    retype("ValueEdit", "2600", "2750.5");
    // One value for all: chosen in the row of the wall that has it.
    expand("Length");
    pressInLine("PropertyNameEdit", "Length", "PropertyModeButton");
    pressInLine("ValueEdit", "4000", "SelectButton");
    addSet("Handover", {{"By", "A. Lindqvist"}});
    acceptSummary();
    editMany({&south(), &west()});
    const auto check = [&] {
        for (const standin::Object* wall : {&south(), &west()}) {
            EXPECT_EQ(valueOf(*wall, kCommon, u"FireRating"), u"F 180");
            EXPECT_EQ(valueOf(*wall, kCommon, u"Outside"), u"1");
            EXPECT_EQ(valueOf(*wall, kCommon, u"IsExternal"), std::nullopt);
            EXPECT_EQ(valueOf(*wall, u"Qto_WallBaseQuantities", u"Height"), u"2750.5");
            EXPECT_EQ(valueOf(*wall, u"Qto_WallBaseQuantities", u"Length"), u"4000");
            EXPECT_EQ(valueOf(*wall, u"Handover", u"By"), u"A. Lindqvist");
        }
        EXPECT_EQ(valueOf(door(), u"Door schedule", u"IsExternal"), u"1");
    };
    check();
    EXPECT_EQ(flow.host().undoList().doneCount(), 1u);
    const std::u16string project = flow.folder() / u"house.ahx";
    ASSERT_TRUE(flow.host().save(project)) << flow.host().error();
    flow.host().close();
    ASSERT_TRUE(flow.reopen({project})) << flow.host().error();
    check();
    const std::u16string target = flow.folder() / u"house_edited.ifc";
    ASSERT_TRUE(flow.exportTo(target));
    EXPECT_EQ(flow.complaints(), "");
    flow.host().close();
    ASSERT_TRUE(flow.reopen({target})) << flow.host().error();
    check();
}

}  // namespace
