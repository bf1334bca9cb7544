#include "plugin/answered_windows.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/plugin/fake_host.h"

namespace {

using IFC::ApplyManyEdits;
using IFC::ManyEdit;
using IFC::ManyEdits;
using platform::MessageAnswer;
using platform::MessageButtons;

class AnsweredWindowsTest : public testing::Test {
protected:
    HostCalls& calls() {
        calls_.setHandle(FakeHost::kHandle);
        return calls_;
    }

    FakeHost host;

private:
    HostCalls calls_{host.api};
};

TEST_F(AnsweredWindowsTest, GiveTheEditsOfManyObjectsInTheirOrder) {
    host.answer(WindowFields{{"policy", u"2"},
                             {"edit", u"add-set"},
                             {"set", u"Pset_New"},
                             {"edit", u"add-property"},
                             {"set", u"Pset_New"},
                             {"name", u"Length"},
                             {"value", u"2"},
                             {"value-type", u"real"},
                             {"quantity-type", u"IfcQuantityLength"},
                             {"entity", u"IfcQuantityLength"},
                             {"prefix", u"MILLI"},
                             {"unit", u"METRE"},
                             {"edit", u"edit-property"},
                             {"set", u"Pset_A"},
                             {"name", u"Old"},
                             {"new-name", u"New"},
                             {"edit", u"rename-set"},
                             {"set", u"Pset_A"},
                             {"new-set", u"Pset_B"}});
    AnsweredWindows windows(calls());
    std::optional<ManyEdits> many;
    windows.editMany({11, 12}, [&](ManyEdits edits, const auto&) { many = std::move(edits); });
    ASSERT_TRUE(many);
    EXPECT_EQ(host.windows, std::vector<std::string>{"edit-many object=11 object=12"});
    EXPECT_EQ(many->addingPolicy, 2);
    ASSERT_EQ(many->edits.size(), 4u);
    EXPECT_EQ(many->edits[0].kind, ManyEdit::Kind::AddSet);
    const IfcProperty added{.initialName = u"Length",
                            .name = u"Length",
                            .value = u"2",
                            .valueType = kRealValue,
                            .quantityType = u"IfcQuantityLength",
                            .entityName = u"IfcQuantityLength",
                            .prefix = u"MILLI",
                            .unit = u"METRE"};
    EXPECT_EQ(many->edits[1].property, added);
    EXPECT_EQ(many->edits[2].property.initialName, u"Old");
    EXPECT_EQ(many->edits[2].property.name, u"New");
    EXPECT_EQ(many->edits[3].setName, u"Pset_A");
    EXPECT_EQ(many->edits[3].newSetName, u"Pset_B");
}

TEST_F(AnsweredWindowsTest, TakeNoAnswerThatTheyDoNotUnderstand) {
    const WindowFields kAnswers[] = {{{"policy", u"4"}},
                                     {{"edit", u"drop-set"}},
                                     {{"set", u"Pset_A"}},  // of no edit
                                     {{"edit", u"add-property"}, {"valeu", u"1"}},
                                     {{"edit", u"add-property"}, {"value-type", u"2"}}};
    const ApplyManyEdits refuse = [](const ManyEdits&, const auto&) { ADD_FAILURE(); };
    AnsweredWindows windows(calls());
    for (const WindowFields& answer : kAnswers) {
        host.answer(answer);
        host.messages.clear();
        windows.editMany({11}, refuse);
        EXPECT_EQ(host.messages.size(), 1u) << answer.back().first;
    }
    host.answer(std::nullopt);
    host.messages.clear();
    windows.editMany({11}, refuse);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(AnsweredWindowsTest, KeepWhatWasShownAndNotAnswered) {
    IFC::PropertyWindowInput input;
    input.mode = IFC::PropertyWindowMode::EditProperty;
    input.isTruthValue = input.truthValue = true;
    input.setName = u"Pset_A";
    input.propertyName = u"LoadBearing";
    host.answer(WindowFields{{"name", u"IsExternal"}});
    const auto result = AnsweredWindows(calls()).askProperty(input);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->setName, u"Pset_A");
    EXPECT_EQ(result->property.name, u"IsExternal");
    EXPECT_EQ(result->property.value, u"1");
    EXPECT_EQ(result->property.valueType, kTruthValue);
}

TEST_F(AnsweredWindowsTest, PressOnlyButtonsThatThereAre) {
    const struct {
        MessageButtons buttons;
        std::optional<WindowFields> answer;
        MessageAnswer pressed;
    } kCases[] = {{MessageButtons::YesNo, WindowFields{{"button", u"yes"}}, MessageAnswer::Yes},
                  {MessageButtons::YesNo, WindowFields{{"button", u"ok"}}, MessageAnswer::No},
                  {MessageButtons::YesNo, WindowFields{{"button", u"maybe"}}, MessageAnswer::No},
                  {MessageButtons::YesNoCancel, WindowFields{}, MessageAnswer::Cancel},
                  {MessageButtons::OkCancel, WindowFields{{"button", u"ok"}}, MessageAnswer::Ok},
                  {MessageButtons::OkCancel, std::nullopt, MessageAnswer::Cancel}};
    const AnsweredWindows windows(calls());
    for (const auto& [buttons, answer, pressed] : kCases) {
        host.answer(answer);
        EXPECT_EQ(platform::showMessageBox(u"text", u"caption", buttons), pressed);
    }
}

}  // namespace
