// The edit-many window with real widgets on a host that is none.

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QToolTip>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "gui/edit_many.h"
#include "gui/edit_many_gui.h"
#include "gui/edit_many_state.h"
#include "gui/line_text_edit.h"
#include "gui/qt_text.h"
#include "ifc/io/log_file.h"
#include "platform/message_box.h"
#include "platform/text.h"
#include "tests/gui/rows_host.h"
#include "tests/support/temp_folder.h"
#include "tests/windows/pilot.h"

namespace {

const std::u16string kFolder = platform::fromUtf8(QUILLET_SOURCE_DIR "/data/plugins/quillet");
constexpr std::int32_t kUntouched = 77;

EditManyGui* window() {
    for (QWidget* const each : QApplication::topLevelWidgets())
        if (auto* const found = qobject_cast<EditManyGui*>(each))
            return found;
    return nullptr;
}

/// Those the user can see, from top to bottom.
template <class Widget>
QList<Widget*> shown(const char* name) {
    QList<Widget*> found;
    for (Widget* const each : window()->findChildren<Widget*>(QString::fromLatin1(name)))
        if (each->isVisible())
            found.push_back(each);
    std::sort(found.begin(), found.end(), [](const QWidget* left, const QWidget* right) {
        return left->mapToGlobal({}).y() < right->mapToGlobal({}).y();
    });
    return found;
}

ExistingPropertyGui& property(std::size_t set = 0, std::size_t place = 0) {
    return *window()->rows().sets.at(set)->properties().at(place);
}

void type(QWidget& field, const QString& text) {
    for (const QChar& sign : text)
        QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, sign, Qt::NoModifier);
}

class EditManyWindow : public testing::Test {
protected:
    EditManyWindow() {
        before_ = platform::setMessageBoxHandler(
            [this](std::u16string_view text, std::u16string_view caption, platform::MessageButtons,
                   platform::MessageIcon icon) {
                boxes.push_back(std::to_string(static_cast<int>(icon)) + " " +
                                platform::toUtf8(caption) + ": " + platform::toUtf8(text));
                return platform::MessageAnswer::Ok;
            });
    }
    ~EditManyWindow() override {
        platform::setMessageBoxHandler(before_);
        LogFile::instance().close();
    }

    bool open() { return open(host.ids(), kFolder); }
    bool open(const std::vector<HostObjectId>& ids, const std::u16string& pluginFolder) {
        policy = kUntouched;
        EditMany editMany(host.calls, pluginFolder);
        const bool isOpened = editMany.run(
            ids,
            [this](IFC::ManyEdits edits, const IFC::ObjectProgress& progress) {
                applied.push_back(std::move(edits));
                progress(1, 1);
                if (whileApplying)
                    whileApplying();
            },
            policy);
        EXPECT_TRUE(pilot.isDone());
        EXPECT_EQ(window(), nullptr);
        EXPECT_FALSE(editManyState().isWindowOpen);
        return isOpened;
    }

    /// Waits until the rows of that grouping are there and can be used.
    void ready(GroupingType type = GroupingType::NamesAndIfcEntity) {
        pilot.then("wait for the rows", [type] {
            return window() && editManyState().groupingType == type &&
                   !window()->rows().sets.empty() && window()->rows().sets.back()->hasWidgets() &&
                   uppermostWindow() == window();
        });
    }
    void group(int type) {
        pilot.then("group", [type] {
            window()->findChild<QComboBox*>("GroupingTypeQCB")->setCurrentIndex(type);
            return true;
        });
        ready(static_cast<GroupingType>(type));
    }
    void step(const std::function<void()>& body) {
        pilot.then("step", [body] {
            body();
            return true;
        });
    }
    void expand() { pilot.press("PropertyExpandButton"); }
    void close() {
        step([] { window()->close(); });
        pilot.answerBox("<exit_question>", "<yes>");
    }
    /// Writes the window's log.
    void log() { ASSERT_TRUE(LogFile::instance().open(folder / u"model.ifc")); }
    /// How often a line is in the log, which ends here.
    std::ptrdiff_t logged(const std::string& wanted) {
        LogFile::instance().close();
        const std::u16string path = LogFile::instance().path();
        std::istringstream lines(folder.read(path.substr(path.rfind(u'/') + 1)));
        std::ptrdiff_t count = 0;
        for (std::string line; std::getline(lines, line);)
            count += line == wanted;
        return count;
    }

    TempFolder folder;
    RowsHost host;
    Pilot pilot;
    std::vector<std::string> boxes;
    std::vector<IFC::ManyEdits> applied;
    std::function<void()> whileApplying;
    std::int32_t policy = kUntouched;

private:
    platform::MessageBoxHandler before_;
};

/// How the rows are put together, and what the log says of those that must wait.
class ManyValues : public EditManyWindow, public testing::WithParamInterface<int> {};

TEST_P(ManyValues, GetWidgetsWhenTheyAreNear) {
    for (HostObjectId id = 1; id <= 150; ++id) {
        host.addObject(id);
        host.add(id, u"S", u"P", u"v" + platform::fromUtf8(std::to_string(1000 + id)));
    }
    log();
    ready();
    if (GetParam() != 0)
        group(GetParam());
    expand();
    step([] {
        const std::vector<int>& live = property().liveRows();
        ASSERT_EQ(live.size(), 101u);
        EXPECT_EQ(live.front(), 0);
        EXPECT_EQ(live.back(), 100);
    });
    const auto scrollTo = [this](bool isEnd) {
        pilot.then("scroll", [isEnd] {
            QScrollBar& bar =
                *window()->findChild<QScrollArea*>("AreaEditPropertySets")->verticalScrollBar();
            const std::vector<int>& live = property().liveRows();
            if (isEnd ? live.back() == 149 : live.front() == 0)
                return true;
            bar.setValue(isEnd ? bar.maximum() : bar.minimum());
            return false;
        });
    };
    scrollTo(true);
    scrollTo(false);
    step([] {
        const std::vector<int>& live = property().liveRows();
        EXPECT_EQ(live.back() - live.front() + 1, static_cast<int>(live.size()));
        EXPECT_EQ(window()->liveRowCount(), static_cast<int>(live.size()));
        const CreationWindow& rows = window()->creationWindow();
        EXPECT_EQ(rows.createdTo - rows.createdFrom, window()->liveRowCount() + 2);
    });
    close();
    EXPECT_TRUE(open());
    const bool isGrouped = GetParam() != 2;
    EXPECT_EQ(logged(isGrouped ? "           GroupingMaxIter > 100. Cancelling gui creation"
                               : "           Value index > 100. Cancelling gui creation"),
              49);
    EXPECT_EQ(logged(isGrouped ? "        Creating valuse group GUI: v1101 (group size: 1)"
                               : "        Creating value GUI: v1101 (100)"),
              1);
    EXPECT_EQ(logged("______Load Content Function______"), 1);
    EXPECT_EQ(logged("Loaded: 149 of 150"), 1);
    EXPECT_TRUE(boxes.empty());
}

INSTANTIATE_TEST_SUITE_P(Groupings, ManyValues, testing::Range(0, 3));

TEST_F(EditManyWindow, LabelsSayWhatTheRowsStandFor) {
    const char16_t* const objects[][2] = {
        {u"IfcWall", u"a"}, {u"IfcWall", u"a"}, {u"IfcDoor", u"a"}, {u"IfcWall", u"b"}};
    for (const auto& [entity, value] : objects) {
        const HostObjectId id = host.objects.size() + 1;
        host.addObject(id, entity);
        host.add(id, u"S", u"P", value);
    }
    const auto look = [this](const QStringList& labels, const QStringList& values) {
        step([=] {
            QStringList found;
            for (const auto* label : shown<QLineEdit>("GroupLabel"))
                found.push_back(label->text());
            EXPECT_EQ(found, labels) << found.join('|').toStdString();
            found.clear();
            for (const auto* editor : shown<LineTextEdit>("ValueEdit"))
                found.push_back(editor->line());
            EXPECT_EQ(found, values) << found.join('|').toStdString();
        });
    };
    ready();
    expand();
    look({"IfcDoor", "IfcWall (x2)", "IfcWall"}, {"a", "a", "b"});
    group(1);
    look({"(x3)", "(x1)"}, {"a", "b"});
    group(2);
    look({}, {"a", "a", "a", "b"});
    // Asking for a row again gives it nothing twice.
    step([] {
        const auto count = editManyState().createdGuiCount;
        property().createRow(0);
        property().createRow(3);
        property().rows()[3]->buildWidgets(true);
        EXPECT_EQ(editManyState().createdGuiCount, count);
        EXPECT_EQ(shown<QWidget>("ValueEdit").size(), 4);
        EXPECT_EQ(property().liveRows(), (std::vector<int>{0, 1, 2, 3}));
    });
    close();
    EXPECT_TRUE(open());
}

TEST_F(EditManyWindow, RegroupingDuringABuildIsDropped) {
    host.addObject(1);
    host.add(1, u"S", u"P", u"v");
    log();
    int finished = 0;
    bool isFirst = true;
    pilot.then("watch the build", [&] {
        if (!window())
            return false;
        QObject::connect(window(), &EditManyGui::CreatingGuiFinished, window(),
                         [&] { ++finished; });
        QObject::connect(window(), &EditManyGui::ShowLoadingDialogSignal, window(), [&](bool show) {
            if (!show || !std::exchange(isFirst, false))
                return;
            window()->findChild<QComboBox*>("GroupingTypeQCB")->setCurrentIndex(1);
            bool isOver = false;  // after what the window itself waits for
            QTimer::singleShot(500, window(), [&] { isOver = true; });
            EXPECT_TRUE(QTest::qWaitFor([&] { return isOver; }, 20'000));
            EXPECT_EQ(finished, 0);
        });
        return true;
    });
    ready();
    close();
    EXPECT_TRUE(open());
    EXPECT_EQ(finished, 1);
    EXPECT_EQ(editManyState().groupingType, GroupingType::NamesAndIfcEntity);
    EXPECT_EQ(logged("Canceling CreateGuiForward call because LoadingInProgress"), 1);
    EXPECT_EQ(logged("Grouping changed to: 1"), 1);
}

TEST_F(EditManyWindow, NumbersAndUnitsAreTyped) {
    host.addObject(1);
    host.add(1, u"S", u"P", u"2", kHostReal);
    ready();
    expand();
    step([] {
        LineTextEdit& editor = *shown<LineTextEdit>("ValueEdit").at(0);
        editor.selectAll();
        QTest::keyClick(&editor, Qt::Key_1);
        EXPECT_EQ(QToolTip::text(), "");
        QTest::keyClick(&editor, Qt::Key_A);
        EXPECT_EQ(editor.line(), "1");
        EXPECT_EQ(QToolTip::text(), "<number_allowed>");
        QToolTip::hideText();
        EXPECT_TRUE(property().isSelected());

        QComboBox& box = *shown<QComboBox>("UnitComboBox").at(0);
        QTest::mouseClick(&box, Qt::LeftButton);
        const auto& list = *qobject_cast<QListView*>(box.view());
        QTest::keyClicks(&box, "me");
        // None begins so: those that contain it, in whatever case.
        int shownRows = 0;
        for (int row = 0; row < box.count(); ++row) {
            const bool isMeant = box.itemText(row).contains("me", Qt::CaseInsensitive);
            EXPECT_EQ(list.isRowHidden(row), !isMeant) << box.itemText(row).toStdString();
            shownRows += isMeant;
        }
        EXPECT_GT(shownRows, 0);
        EXPECT_LT(shownRows, box.count());
        box.hidePopup();
    });
    close();
    EXPECT_TRUE(open());
}

TEST_F(EditManyWindow, NamesThatAreTakenArePutBack) {
    host.addObject(1);
    for (const char16_t* const set : {u"S1", u"S2"})
        for (const char16_t* const name : {u"P1", u"P2"})
            host.add(1, set, name, u"v");
    ready();
    pilot.press("BtnAddNewSet").press("BtnAddNewSet").press("AddPropertyButton");
    pilot.press("AddPropertyButton").then("see both new properties", [] {
        return shown<LineTextEdit>("NewPropertyNameEdit").size() == 2;
    });
    step([] {
        type(*shown<LineTextEdit>("NewSetNameEdit").at(0), "N2");
        type(*shown<LineTextEdit>("NewSetNameEdit").at(1), "N1");
        type(*shown<LineTextEdit>("NewPropertyNameEdit").at(0), "Q2");
        type(*shown<LineTextEdit>("NewPropertyNameEdit").at(1), "Q1");
    });
    struct Case {
        const char* field;
        int place;
        const char* begin;
        const char* message;
    };
    const Case cases[] = {{"SetNameEdit", 0, "S", "Set S2"},
                          {"PropertyNameEdit", 0, "P", "Property P2"},
                          {"NewSetNameEdit", 1, "N", "Set N2"},
                          {"NewPropertyNameEdit", 1, "Q", "Property Q2"}};
    for (const Case& each : cases) {
        step([this, each] {
            boxes.clear();
            LineTextEdit& field = *shown<LineTextEdit>(each.field).at(each.place);
            field.moveCursor(QTextCursor::End);
            QTest::keyClick(&field, Qt::Key_Backspace);
            EXPECT_TRUE(boxes.empty());
            QTest::keyClick(&field, Qt::Key_2);
            const std::string told =
                std::string(each.message) + " already exists. Please change name.";
            EXPECT_EQ(boxes, (std::vector{"48 Quillet: " + told}));
            EXPECT_EQ(field.line(), each.begin);
            EXPECT_EQ(field.textCursor().position(), 1);
            QTest::keyClick(&field, Qt::Key_3);
            EXPECT_EQ(field.line(), each.begin + QString("3"));
            EXPECT_EQ(boxes.size(), 1u);
        });
    }
    close();
    EXPECT_TRUE(open());
}

TEST_F(EditManyWindow, OpensOnceAndAsksBeforeItCloses) {
    host.addObject(1);
    host.add(1, u"S", u"P", u"v");
    ready();
    step([this] {
        EditMany second(host.calls, kFolder);
        std::int32_t other = kUntouched;
        EXPECT_FALSE(second.run(host.ids(), {}, other));
        EXPECT_EQ(other, kUntouched);
        EXPECT_EQ(boxes, (std::vector<std::string>{"64 Quillet: <window_already_open>"}));
        EXPECT_TRUE(editManyState().isWindowOpen);
    });
    pilot.press("<skip_existing_property>");
    pilot.press("CancelButton").answerBox("<exit_question>", "<no>");
    step([] { EXPECT_TRUE(window()->isVisible()); });
    pilot.press("CancelButton").answerBox("<exit_question>", "<yes>");
    EXPECT_TRUE(open());
    EXPECT_EQ(policy, 2);
    EXPECT_TRUE(applied.empty());
}

TEST_F(EditManyWindow, WithoutAPolicyTheRunReturnsFour) {
    host.addObject(1);
    host.add(1, u"S", u"P", u"v");
    ready();
    step([] {
        for (auto* button : window()->findChildren<QRadioButton*>()) {
            button->setAutoExclusive(false);
            button->setChecked(false);
        }
    });
    pilot.press("BtnAddNewSet");
    step([] { type(*shown<LineTextEdit>("NewSetNameEdit").at(0), "New"); });
    pilot.press("OkButton").press("SummaryAccept");
    EXPECT_TRUE(open());
    EXPECT_EQ(policy, 4);
    EXPECT_EQ(boxes, (std::vector<std::string>{"16 Quillet Error: AddingPolicy not specified"}));
    EXPECT_TRUE(applied.empty()) << "no new set without a policy";
}

TEST_F(EditManyWindow, BearsAHostThatTellsLittle) {
    host.addObject(1);
    host.objects[1].guid.clear();
    host.objects[1].number = 0;
    host.add(1, u"S", u"P", u"v");
    ready();
    step([this] {
        const ObjectRecord& object = window()->rows().objectInfo.at(1);
        EXPECT_EQ(object.guid, "NO GUID FOUND IN Arvenhold");
        EXPECT_EQ(window()->rows().objectInfo.size(), 1u);
        EXPECT_EQ(property().rows().size(), 1u) << "named twice, loaded once";
        EXPECT_EQ(boxes, (std::vector<std::string>{"48 Quillet: GetIfcNumber returned 0"}));
    });
    close();
    EXPECT_TRUE(open({0, 1, 1, 0}, kFolder));

    struct Case {
        const char* what;
        bool hasFunction;
        std::vector<HostObjectId> ids;
    };
    const Case cases[] = {{"no objects", true, {}},
                          {"null ids only", true, {0, 0}},
                          {"no such function", false, {1}}};
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        if (!each.hasFunction)
            host.api.get_object_properties2 = nullptr;
        log();
        pilot.then("wait until it is empty",
                   [] { return window() && uppermostWindow() == window(); });
        close();
        EXPECT_TRUE(open(each.ids, kFolder));
        EXPECT_EQ(policy, 0);
        EXPECT_EQ(logged("Nothing to load in CreateGuiForward. Exiting. Created GUI count: 0"), 1);
    }
}

/// What a field that shows a text as it stands gives back.
QString asShown(QString text) { return text.replace(QChar::Nbsp, u' '); }

TEST_F(EditManyWindow, OddTextsStayAsTheyAre) {
    const std::u16string texts[] = {u"<b>bold</b> & &amp; \"q\"",
                                    std::u16string(10'000, u'x'),
                                    u"\u05E9\u05DC\u05D5\u05DD \u202E abc",
                                    u"\U0001F3E0 astral \U0001D7D8",
                                    u"  two  blanks\u00A0kept ",
                                    u"tab\there",
                                    u"two\nlines",
                                    u"%1 %n \\ 'quote'"};
    const std::size_t count = std::size(texts);
    for (std::size_t each = 0; each < count; ++each) {
        host.addObject(each + 1);
        host.add(each + 1, u"Set " + texts[each], u"Property " + texts[each], texts[each]);
    }
    ready();
    step([&] {
        for (std::size_t each = 0; each < count; ++each) {
            property(each).ShowChildBtnPressed();
            const ExistingSetGui& set = *window()->rows().sets[each];
            const QString text = toQString(texts[each]);
            EXPECT_EQ(set.nameField()->line(), "Set " + text);
            EXPECT_EQ(set.nameField()->toPlainText(), asShown("Set " + text)) << each;
            EXPECT_EQ(property(each).nameField()->line(), "Property " + text);
        }
        for (const LineTextEdit* editor : shown<LineTextEdit>("ValueEdit")) {
            const auto found =
                std::find(std::begin(texts), std::end(texts), fromQString(editor->line()));
            ASSERT_NE(found, std::end(texts)) << editor->line().left(80).toStdString();
            EXPECT_EQ(editor->toPlainText(), asShown(toQString(*found))) << "not as markup";
        }
    });
    pilot.press("SelectAllQBtn").press("OkButton").press("SummaryAccept");
    EXPECT_TRUE(open());
    EXPECT_TRUE(applied.empty()) << "nothing was changed";

    ready();
    step([&] {
        for (std::size_t each = 0; each < count; ++each)
            property(each).ShowChildBtnPressed();
        for (LineTextEdit* editor : shown<LineTextEdit>("ValueEdit")) {
            editor->moveCursor(QTextCursor::End);
            QTest::keyClick(editor, Qt::Key_Z);
        }
    });
    pilot.press("OkButton").press("SummaryAccept");
    EXPECT_TRUE(open());
    ASSERT_EQ(applied.size(), 1u);
    ASSERT_EQ(applied[0].edits.size(), count);
    for (std::size_t each = 0; each < count; ++each) {
        EXPECT_EQ(applied[0].edits[each].setName, u"Set " + texts[each]);
        EXPECT_EQ(applied[0].edits[each].property.name, u"Property " + texts[each]);
        EXPECT_EQ(applied[0].edits[each].property.value, texts[each] + u"z");
    }
    EXPECT_TRUE(boxes.empty());
}

TEST_F(EditManyWindow, AFormThatDoesNotFitIsToldOf) {
    host.addObject(1);
    host.add(1, u"S", u"P", u"v");
    EXPECT_FALSE(open(host.ids(), folder / u"none"));
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].rfind("16 Quillet Error: EditManyWindow.ui cannot be read: ", 0), 0u);
    EXPECT_EQ(policy, kUntouched);

    TempFolder own;
    std::ifstream file(std::filesystem::path(kFolder) / "EditManyWindow.ui");
    const std::string form{std::istreambuf_iterator<char>(file), {}};
    const auto write = [&](const std::string& text) { own.write(u"EditManyWindow.ui", text); };
    const std::u16string ownFolder = (own / u"x").substr(0, (own / u"x").size() - 2);
    for (const char* bytes : {"", "no form", "<ui version=\"4.0\"><widget class=\"QWidg"}) {
        boxes.clear();
        write(bytes);
        EXPECT_FALSE(open(host.ids(), ownFolder)) << bytes;
        EXPECT_EQ(boxes.size(), 1u) << bytes;
    }
    for (const char* name : {"BtnAddNewSet", "MainWindow", "EditPropertySetsWidget",
                             "NewSetsWidget", "OkButton", "CancelButton", "FrameOptions",
                             "AreaEditPropertySets", "GroupingTypeQCB", "SelectAllQBtn"}) {
        SCOPED_TRACE(name);
        boxes.clear();
        const std::string wanted = std::string("name=\"") + name + "\"";
        std::string other = form;
        const std::size_t place = other.find(wanted);
        ASSERT_NE(place, std::string::npos);
        write(other.replace(place, wanted.size(), "name=\"Other\""));
        EXPECT_FALSE(open(host.ids(), ownFolder));
        ASSERT_EQ(boxes.size(), 1u);
        const bool isButton = name == std::string("BtnAddNewSet");
        EXPECT_NE(boxes[0].find(isButton ? "QObject::connect fail" : name), std::string::npos)
            << boxes[0];
        EXPECT_EQ(policy, kUntouched);
    }
    // Labels are not needed; and nothing was left behind by what failed.
    boxes.clear();
    std::string other = form;
    for (const char* name : {"\"AddPropertiesLabel\"", "\"ExistingSetsLabel\""})
        other.replace(other.find(name), std::string(name).size(), "\"Other\"");
    write(other);
    ready();
    close();
    EXPECT_TRUE(open(host.ids(), ownFolder));
    EXPECT_TRUE(boxes.empty());
}

/// When somebody closes the window.
enum class When { BeforeLoading, Loading, RegroupPending, Summary, Applying, ApplyFails };

class Closing : public EditManyWindow, public testing::WithParamInterface<When> {};

TEST_P(Closing, EndsTheRunWhatever) {
    for (HostObjectId id = 1; id <= 30; ++id) {
        host.addObject(id);
        host.add(id, u"S", u"P", u"v");
    }
    const auto editAndAccept = [this] {
        ready();
        expand();
        step([] { type(*shown<LineTextEdit>("ValueEdit").at(0), "w"); });
        pilot.press("OkButton");
        pilot.press("SummaryAccept");
    };
    switch (GetParam()) {
        case When::BeforeLoading:
            pilot.then("wait for the window", [] { return window() && window()->isVisible(); });
            close();
            break;
        case When::Loading:
            host.api.get_object_info = [](HostHandle, HostObjectId id, HostObjectInfo* info) {
                if (id == 1)
                    QTimer::singleShot(0, window(), &QWidget::close);
                *info = {};
                info->id = id;
                return true;
            };
            pilot.answerBox("<exit_question>", "<yes>");
            break;
        case When::RegroupPending:
            ready();
            step([] { window()->GroupingTypeChanged(1); });
            close();
            break;
        case When::Summary:
            ready();
            pilot.press("OkButton");
            pilot.then("close behind the summary", [] {
                if (!findWidget("SummaryCancel"))
                    return false;
                EXPECT_FALSE(window()->close());
                EXPECT_NE(findWidget("SummaryCancel"), nullptr) << "is still there";
                return true;
            });
            pilot.press("SummaryCancel").answerBox("<exit_question>", "<no>");
            pilot.press("CancelButton").answerBox("<exit_question>", "<yes>");
            break;
        case When::Applying:
            editAndAccept();
            whileApplying = [] { EXPECT_FALSE(window()->close()); };
            break;
        case When::ApplyFails:
            editAndAccept();
            whileApplying = [] { throw std::runtime_error("The host is gone."); };
            break;
    }
    EXPECT_TRUE(open());
    EXPECT_EQ(policy, 0);
    EXPECT_EQ(applied.size(), GetParam() >= When::Applying ? 1u : 0u);
    const bool isFault = GetParam() == When::ApplyFails;
    EXPECT_EQ(std::count(boxes.begin(), boxes.end(), "16 Quillet Error: The host is gone."),
              isFault);
    // And once more, as if nothing had been.
    host.api.get_object_info = nullptr;
    whileApplying = nullptr;
    editAndAccept();
    EXPECT_TRUE(open());
    ASSERT_FALSE(applied.empty());
    ASSERT_EQ(applied.back().edits.size(), 1u);
    EXPECT_EQ(applied.back().edits[0].places.size(), 30u);
    EXPECT_EQ(applied.back().edits[0].property.value, u"wv");
}

INSTANTIATE_TEST_SUITE_P(States, Closing,
                         testing::Values(When::BeforeLoading, When::Loading, When::RegroupPending,
                                         When::Summary, When::Applying, When::ApplyFails));

}  // namespace
