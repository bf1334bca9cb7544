#include "gui/property_dialog.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <vector>

#include "gui/qt_text.h"
#include "tests/gui/window_test_tools.h"

namespace {

using IFC::PropertyWindowInput;
using IFC::PropertyWindowMode;

PropertyWindowInput inputFor(PropertyWindowMode mode, const std::string& language = "en") {
    const TextLookup text = textsOfLanguage(language);
    PropertyWindowInput input;
    input.mode = mode;
    input.setName = u"Pset_WallCommon";
    input.title = text("propertyWindowName");
    input.setLabel = text("setLabel");
    input.setNameMessage = text("propertySetNameMessage");
    input.propertyNameMessage = text("propertyNameMessage");
    input.propertyData = text("propertyData");
    input.quantityTypeLabel = text("quantityTypeLabel");
    input.yes = text("yes");
    input.no = text("no");
    input.ok = text("btnOkName");
    input.cancel = text("btnCancelName");
    return input;
}

PropertyWindowInput quantityInput(const char16_t* type, const char16_t* prefix,
                                  const char16_t* unit) {
    PropertyWindowInput input = inputFor(PropertyWindowMode::EditProperty);
    input.isQuantity = true;
    input.propertyName = u"Size";
    input.value = u"1.5";
    input.quantityType = type;
    input.prefix = prefix;
    input.unit = unit;
    return input;
}

/// The dialog on the screen, with its fields.
class Dialog {
public:
    explicit Dialog(const PropertyWindowInput& input, const std::string& language = "en")
        : dialog(input, textsOfLanguage(language)) {
        dialog.show();
    }

    template <class Widget>
    Widget* find(const char* name) const {
        return dialog.findChild<Widget*>(QString::fromLatin1(name));
    }
    bool has(const char* name) const { return find<QWidget>(name) != nullptr; }
    QLineEdit& line(const char* name) const { return *find<QLineEdit>(name); }
    QPlainTextEdit& value() const { return *find<QPlainTextEdit>("Value"); }
    QComboBox& unit() const { return *find<QComboBox>("Unit"); }
    QComboBox& quantityType() const { return *find<QComboBox>("QuantityType"); }

    /// As a user: replaces the text of the field.
    static void type(QWidget& field, const QString& text) {
        field.setFocus();
        QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, text);
    }
    void pressOk() const { QTest::mouseClick(find<QPushButton>("OkButton"), Qt::LeftButton); }

    PropertyDialog dialog;
};

TEST(PropertyDialogModes, ShowWhatTheyNeed) {
    struct Case {
        PropertyWindowMode mode;
        bool isQuantity;
        bool setName;  // can be edited
        bool property;
        bool quantityType;
    };
    const Case cases[] = {
        {PropertyWindowMode::AddProperty, false, false, true, false},
        {PropertyWindowMode::AddProperty, true, false, true, true},
        {PropertyWindowMode::EditProperty, false, false, true, false},
        {PropertyWindowMode::EditProperty, true, false, true, true},
        {PropertyWindowMode::AddSet, true, true, true, false},
        {PropertyWindowMode::RenameSet, true, true, false, false},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(static_cast<int>(each.mode));
        PropertyWindowInput input = inputFor(each.mode);
        input.isQuantity = each.isQuantity;
        const Dialog shown(input);
        EXPECT_EQ(shown.line("SetName").isEnabled(), each.setName);
        EXPECT_EQ(shown.line("SetName").text(), "Pset_WallCommon");
        EXPECT_EQ(shown.has("PropertyName"), each.property);
        EXPECT_EQ(shown.has("Value"), each.property);
        EXPECT_EQ(shown.has("Unit"), each.property);
        EXPECT_EQ(shown.has("QuantityType"), each.quantityType);
    }
}

TEST(PropertyDialogUnits, OpenWithTheUnitOfTheProperty) {
    PropertyWindowInput newQuantity = inputFor(PropertyWindowMode::AddProperty);
    newQuantity.isQuantity = true;
    struct Case {
        PropertyWindowInput input;
        int count;
        QString chosen;
    };
    const Case cases[] = {
        {newQuantity, 464, "m2 (SquareMetre)"},
        {inputFor(PropertyWindowMode::AddProperty), 464, ""},
        {quantityInput(u"IfcQuantityLength", u"MILLI", u"METRE"), 464, "mm (MilliMetre)"},
        {quantityInput(u"IfcQuantityLength", u"", u""), 464, ""},
        // Not offered for choice, but not lost either.
        {quantityInput(u"IfcQuantityLength", u"ATTO", u"METRE"), 465, "ATTO METRE"},
        {quantityInput(u"IfcQuantityLength", u"", u"WEBER"), 465, "WEBER"},
    };
    for (const Case& each : cases) {
        const Dialog shown(each.input);
        EXPECT_EQ(shown.unit().count(), each.count);
        EXPECT_EQ(shown.unit().currentText(), each.chosen);
        EXPECT_EQ(shown.unit().maxVisibleItems(), 15);
    }
}

TEST(PropertyDialogUnits, FollowTheQuantityType) {
    const std::pair<QString, QString> cases[] = {
        {"IfcQuantityArea", "m2 (SquareMetre)"},  {"IfcQuantityCount", ""},
        {"IfcQuantityLength", "m (Metre)"},       {"IfcQuantityTime", ""},
        {"IfcQuantityVolume", "m3 (CubicMetre)"}, {"IfcQuantityWeight", ""}};
    for (const auto& [type, unit] : cases) {
        // Beginning with one that has a unit of its own and is none of the six's.
        const Dialog shown(quantityInput(u"IfcQuantityNumber", u"KILO", u"GRAM"));
        EXPECT_EQ(shown.quantityType().currentText(), "IfcQuantityNumber");
        shown.quantityType().setFocus();
        QTest::keyClicks(&shown.quantityType(), type);
        EXPECT_EQ(shown.quantityType().currentText(), type);
        EXPECT_EQ(shown.unit().currentText(), unit) << type.toStdString();
    }
}

TEST(PropertyDialogUnits, AreFoundByTyping) {
    const std::pair<QString, QString> cases[] = {
        {"k", "kA (KiloAmpere)"}, {"kg", "kg (KiloGram)"},
        {"m", "m (Metre)"},       {"mm2", "mm2 (MilliSquareMetre)"},
        {"KG", "kg (KiloGram)"},  {"kg ", "kg (KiloGram)"},
        {"mo", "mo (Mole)"}};
    for (const auto& [typed, chosen] : cases) {
        const Dialog shown(inputFor(PropertyWindowMode::AddProperty));
        // While the list is open, it gets the keys.
        for (const QChar sign : typed) {
            QWidget* const receiver = shown.unit().view()->isVisible()
                                          ? static_cast<QWidget*>(shown.unit().view())
                                          : &shown.unit();
            QTest::keyClicks(receiver, sign);
            EXPECT_TRUE(shown.unit().view()->isVisible());
        }
        EXPECT_EQ(shown.unit().currentText(), chosen);
        QTest::keyClick(shown.unit().view(), Qt::Key_Return);
        EXPECT_FALSE(shown.unit().view()->isVisible());
        EXPECT_EQ(shown.unit().currentText(), chosen);
        EXPECT_TRUE(shown.dialog.isVisible()) << "Return closed the list only";
    }
    // The name of a unit only marks the entry; Tab takes it.
    const Dialog shown(inputFor(PropertyWindowMode::AddProperty));
    QTest::keyClicks(&shown.unit(), "squ");
    EXPECT_EQ(shown.unit().lineEdit()->text(), "squ");
    QTest::keyClick(shown.unit().view(), Qt::Key_Tab);
    EXPECT_EQ(shown.unit().currentText(), "m2 (SquareMetre)");
    // Backspace takes away what was added, then what was typed.
    shown.unit().lineEdit()->clear();
    QTest::keyClicks(&shown.unit(), "kg");
    QTest::keyClick(shown.unit().view(), Qt::Key_Backspace);
    EXPECT_EQ(shown.unit().currentText(), "kg");
    QTest::keyClick(shown.unit().view(), Qt::Key_Backspace);
    EXPECT_EQ(shown.unit().currentText(), "k");
}

TEST(PropertyDialogUnits, DropDownWithAClickIntoTheField) {
    const Dialog shown(inputFor(PropertyWindowMode::AddProperty));
    QTest::mousePress(shown.unit().lineEdit(), Qt::LeftButton);
    EXPECT_TRUE(shown.unit().view()->isVisible());
    QTest::mouseRelease(shown.unit().view()->window(), Qt::LeftButton, {}, {-5, -5});
    EXPECT_TRUE(shown.unit().view()->isVisible());
}

TEST(PropertyDialogResult, IsWhatWasEntered) {
    const Dialog shown(inputFor(PropertyWindowMode::AddProperty));
    Dialog::type(shown.line("PropertyName"), "Width");
    Dialog::type(shown.value(), "12.5");
    QTest::keyClicks(&shown.unit(), "cm");
    QTest::keyClick(shown.unit().view(), Qt::Key_Return);
    shown.pressOk();
    ASSERT_TRUE(shown.dialog.entered());
    const IfcProperty& property = shown.dialog.entered()->property;
    EXPECT_EQ(property.name, u"Width");
    EXPECT_EQ(property.value, u"12.5");
    EXPECT_EQ(property.prefix, u"CENTI");
    EXPECT_EQ(property.unit, u"METRE");
    EXPECT_EQ(property.valueType, kRealValue);
}

TEST(PropertyDialogResult, KeepsWhatWasNotTouched) {
    const std::u16string odd = u" a\u00A0b\r\nc\u2028\xD800 ";
    const std::u16string longName(40000, u'x');
    for (const auto& [prefix, unit] : {std::pair{u"ATTO", u"METRE"}, {u"", u"WEBER"}}) {
        PropertyWindowInput input = quantityInput(u"IfcQuantityNumber", prefix, unit);
        input.setName = odd;
        input.propertyName = longName;
        input.value = odd;  // no number; but it was there
        const Dialog shown(input);
        shown.pressOk();
        ASSERT_TRUE(shown.dialog.entered());
        const IFC::PropertyWindowResult& result = *shown.dialog.entered();
        EXPECT_EQ(result.setName, odd);
        EXPECT_EQ(result.property.name, longName);
        EXPECT_EQ(result.property.value, odd);
        EXPECT_EQ(result.property.prefix, prefix);
        EXPECT_EQ(result.property.unit, unit);
        EXPECT_EQ(result.property.quantityType, u"IfcQuantityNumber");
    }
    PropertyWindowInput input = inputFor(PropertyWindowMode::EditProperty);
    input.propertyName = u"Note";
    input.value = u"a\u00A0b";
    const Dialog shown(input);
    QTest::keyClicks(&shown.value(), "c");  // behind the caret, which stands at the end
    shown.pressOk();
    ASSERT_TRUE(shown.dialog.entered());
    EXPECT_EQ(shown.dialog.entered()->property.value, u"a\u00A0bc");
}

TEST(PropertyDialogTruthValue, IsChosenFromTwo) {
    for (const bool before : {false, true}) {
        PropertyWindowInput input = inputFor(PropertyWindowMode::EditProperty);
        input.isTruthValue = true;
        input.truthValue = before;
        input.propertyName = u"IsExternal";
        input.unit = u"METRE";  // odd, but not to be lost
        const Dialog shown(input);
        auto& list = *shown.find<QComboBox>("TruthValue");
        EXPECT_FALSE(shown.has("Value"));
        EXPECT_FALSE(shown.unit().isEnabled());
        ASSERT_EQ(list.count(), 2);
        EXPECT_EQ(list.currentText(), before ? "Yes" : "No");
        QTest::keyClick(&list, before ? Qt::Key_Up : Qt::Key_Down);
        QTest::keyClick(&list, Qt::Key_Return);
        ASSERT_TRUE(shown.dialog.entered());
        EXPECT_EQ(shown.dialog.entered()->property.value, before ? u"0" : u"1");
        EXPECT_EQ(shown.dialog.entered()->property.valueType, kTruthValue);
        EXPECT_EQ(shown.dialog.entered()->property.unit, u"METRE");
    }
}

TEST(PropertyDialogKeys, ReturnIsOkWhereverTheFocusIs) {
    for (const char* const name :
         {"PropertyName", "Value", "Unit", "QuantityType", "OkButton", "CancelButton"}) {
        const Dialog shown(quantityInput(u"IfcQuantityArea", u"", u"SQUARE_METRE"));
        auto* const field = shown.find<QWidget>(name);
        field->setFocus();
        QTest::keyClick(field, Qt::Key_Return);
        EXPECT_TRUE(shown.dialog.entered()) << name;
        EXPECT_FALSE(shown.dialog.isVisible()) << name;
    }
    for (const auto modifier : {Qt::ShiftModifier, Qt::ControlModifier}) {
        PropertyWindowInput input = inputFor(PropertyWindowMode::AddProperty);
        const Dialog shown(input);
        Dialog::type(shown.line("PropertyName"), "Note");
        QTest::keyClicks(&shown.value(), "a");
        QTest::keyClick(&shown.value(), Qt::Key_Return, modifier);
        QTest::keyClicks(&shown.value(), "b");
        QTest::keyClick(&shown.value(), Qt::Key_Enter, Qt::KeypadModifier);
        ASSERT_TRUE(shown.dialog.entered());
        EXPECT_EQ(shown.dialog.entered()->property.value, u"a\nb");
    }
    const Dialog shown(quantityInput(u"IfcQuantityArea", u"", u""));
    QTest::keyClick(&shown.value(), Qt::Key_Escape);
    EXPECT_FALSE(shown.dialog.isVisible());
    EXPECT_FALSE(shown.dialog.entered());
}

TEST(PropertyDialogMouse, FirstClickSelectsTheText) {
    PropertyWindowInput input = inputFor(PropertyWindowMode::AddSet);
    input.propertyName = u"Name";
    input.value = u"Value";
    const Dialog shown(input);
    for (const char* const name : {"SetName", "PropertyName"}) {
        QLineEdit& line = shown.line(name);
        EXPECT_FALSE(line.hasSelectedText()) << name;
        EXPECT_EQ(line.cursorPosition(), line.text().size()) << name;
        QTest::mouseClick(&line, Qt::LeftButton);
        EXPECT_EQ(line.selectedText(), line.text()) << name;
        QTest::mouseClick(&line, Qt::LeftButton);
        EXPECT_FALSE(line.hasSelectedText()) << name;
    }
    EXPECT_TRUE(shown.value().textCursor().atEnd());
    QTest::mouseClick(shown.value().viewport(), Qt::LeftButton);
    EXPECT_EQ(shown.value().textCursor().selectedText(), "Value");
    QTest::mouseClick(shown.value().viewport(), Qt::LeftButton);
    EXPECT_FALSE(shown.value().textCursor().hasSelection());
}

struct RefusalCase {
    PropertyWindowInput input;
    std::vector<std::pair<const char*, QString>> typed;  // field and text
    const char* textKey;                                 // null: taken
    const char* focus;
};

void checkRefusal(const RefusalCase& each) {
    Dialog shown(each.input);
    for (const auto& [name, text] : each.typed) {
        auto* const list = shown.find<QComboBox>(name);
        if (list && list->isEditable())
            list->setEditText(text);
        else if (list)
            list->setCurrentText(text);
        else
            Dialog::type(*shown.find<QWidget>(name), text);
    }
    const MessageAnswerer answerer([&](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(box.windowTitle(), "Error!");
        EXPECT_FALSE(box.text().isEmpty());
        EXPECT_EQ(fromQString(box.text()),
                  each.textKey ? textsOfLanguage("en")(each.textKey) : u"");
    });
    shown.dialog.activateWindow();
    shown.pressOk();
    EXPECT_EQ(answerer.count(), each.textKey ? 1 : 0);
    EXPECT_EQ(shown.dialog.isVisible(), each.textKey != nullptr);
    EXPECT_EQ(shown.dialog.entered().has_value(), each.textKey == nullptr);
    if (each.textKey) {
        EXPECT_EQ(shown.dialog.focusWidget(), shown.find<QWidget>(each.focus));
    }
}

TEST(PropertyDialogRefusals, SayWhatIsWrongAndLeadToTheField) {
    const PropertyWindowInput add = inputFor(PropertyWindowMode::AddProperty);
    PropertyWindowInput addQuantity = add;
    addQuantity.isQuantity = true;
    PropertyWindowInput edit = inputFor(PropertyWindowMode::EditProperty);
    edit.propertyName = u"Width";
    edit.value = u"3";
    edit.unit = u"METRE";
    const PropertyWindowInput addSet = inputFor(PropertyWindowMode::AddSet);
    const PropertyWindowInput length = quantityInput(u"IfcQuantityLength", u"MILLI", u"METRE");
    const RefusalCase cases[] = {
        {add, {}, "property_name_missing", "PropertyName"},
        {add, {{"PropertyName", " \u00A0"}}, "property_name_missing", "PropertyName"},
        {add, {{"PropertyName", "A"}}, nullptr, nullptr},
        {add, {{"PropertyName", "A"}, {"Unit", "furlong"}}, "unknown_unit", "Unit"},
        {add,
         {{"PropertyName", "A"}, {"Value", "x"}, {"Unit", "m (Metre)"}},
         "value_is_no_number",
         "Value"},
        {addQuantity, {{"PropertyName", "A"}, {"Value", "1,5"}}, "value_is_no_number", "Value"},
        {addQuantity, {{"PropertyName", "A"}, {"Value", "1.5"}}, nullptr, nullptr},
        {edit, {{"PropertyName", ""}}, "property_name_missing", "PropertyName"},
        {edit, {{"Value", ""}}, "value_missing", "Value"},
        {edit, {{"Unit", ""}}, "unit_missing", "Unit"},
        {edit, {{"Unit", "V (Volt)"}}, nullptr, nullptr},
        {addSet, {{"SetName", " "}}, "set_name_missing", "SetName"},
        {addSet, {{"SetName", "S"}}, nullptr, nullptr},
        {addSet, {{"SetName", "S"}, {"Value", "1"}}, "property_name_missing", "PropertyName"},
        {addSet, {{"SetName", "S"}, {"PropertyName", "A"}}, nullptr, nullptr},
        {inputFor(PropertyWindowMode::RenameSet), {{"SetName", ""}}, "set_name_missing", "SetName"},
        // A unit with any prefix, of what the quantity measures.
        {length, {{"Unit", "km (KiloMetre)"}}, nullptr, nullptr},
        {length, {{"Unit", "m2 (SquareMetre)"}}, "unit_not_of_quantity", "Unit"},
        {length, {{"QuantityType", "IfcQuantityArea"}}, nullptr, nullptr},
        {length,
         {{"QuantityType", "IfcQuantityArea"}, {"Unit", "m (Metre)"}},
         "unit_not_of_quantity",
         "Unit"},
        {length,
         {{"QuantityType", "IfcQuantityVolume"}, {"Unit", "mm3 (MilliCubicMetre)"}},
         nullptr,
         nullptr},
        {length,
         {{"QuantityType", "IfcQuantityWeight"}, {"Unit", "kg (KiloGram)"}},
         nullptr,
         nullptr},
        {length,
         {{"QuantityType", "IfcQuantityTime"}, {"Unit", "ms (MilliSecond)"}},
         nullptr,
         nullptr},
        {length, {{"QuantityType", "IfcQuantityCount"}}, nullptr, nullptr},
        {length,
         {{"QuantityType", "IfcQuantityCount"}, {"Unit", "s (Second)"}},
         "unit_not_of_quantity",
         "Unit"},
        {length, {{"Value", "1e400"}}, "value_is_no_number", "Value"},
        // What does not fit, but was there before.
        {quantityInput(u"IfcQuantityLength", u"", u"GRAM"), {{"Value", "2"}}, nullptr, nullptr},
        {quantityInput(u"IfcQuantityNumber", u"", u""),
         {{"Value", "2"}},
         "unknown_quantity_type",
         "QuantityType"},
    };
    int number = 0;
    for (const RefusalCase& each : cases) {
        SCOPED_TRACE(testing::Message() << "case " << number++);
        checkRefusal(each);
    }
}

TEST(PropertyDialogLayout, CutsNoCaptionInAnyLanguage) {
    const QFont before = QApplication::font();
    for (const int pointSize : {9, 18}) {
        QFont font = before;
        font.setPointSize(pointSize);
        QApplication::setFont(font);
        for (const char* const language : {"de", "en", "es", "fr", "it", "pl", "pt"}) {
            PropertyWindowInput input = inputFor(PropertyWindowMode::AddProperty, language);
            input.isQuantity = true;
            const Dialog shown(input, language);
            for (QWidget* const each : shown.dialog.findChildren<QWidget*>()) {
                if (!qobject_cast<QLabel*>(each) && !qobject_cast<QPushButton*>(each))
                    continue;
                EXPECT_GE(each->width(), each->sizeHint().width()) << language;
                EXPECT_GE(each->height(), each->sizeHint().height()) << language;
            }
        }
    }
    QApplication::setFont(before);
}

TEST(PropertyDialogTitle, IsTakenLiterally) {
    PropertyWindowInput input = inputFor(PropertyWindowMode::AddProperty);
    input.title = u"Storey [*] <b>";
    const Dialog shown(input);
    EXPECT_EQ(shown.dialog.windowTitle(), "Storey [*][*] <b>");
}

}  // namespace
