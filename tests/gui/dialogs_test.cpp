#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QScrollArea>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <numeric>

#include "gui/application_scope.h"
#include "gui/custom_q_check_box.h"
#include "gui/form_loader.h"
#include "gui/loading_dialog.h"
#include "gui/message_boxes.h"
#include "gui/summary_window.h"
#include "gui/unit_combo_box.h"
#include "platform/text.h"
#include "tests/gui/window_test_tools.h"

namespace {

SummaryTexts summaryTexts() {
    return {.title = "Summary",
            .node = "Element",
            .oldName = "Before",
            .newName = "After",
            .applyChanges = "Apply",
            .cancel = "Cancel",
            .totalModifications = "Total",
            .newObjects = "New",
            .changedObjects = "Changed"};
}

std::vector<std::uint64_t> objectsFrom1To(std::size_t count) {
    std::vector<std::uint64_t> objects(count);
    std::iota(objects.begin(), objects.end(), 1);
    return objects;
}

/// A summary, and how often it asked for a name.
struct Summary {
    QTableWidget& details() { return *window.findChild<QTableWidget*>("SummaryDetails"); }
    QPushButton& button(const char* name) { return *window.findChild<QPushButton*>(name); }
    QTableWidget& showCounts() {
        QTableWidget* const table = window.buildCountTable();
        static_cast<QVBoxLayout*>(window.layout())->insertWidget(1, table);
        window.show();
        return *table;
    }

    int namesAsked = 0;
    SummaryWindow window{summaryTexts(), [this](std::uint64_t object) {
                             ++namesAsked;
                             return QString("Wall %1").arg(object);
                         }};
};

TEST(SummaryCounts, AreThoseOfTheObjects) {
    struct Case {
        std::vector<std::size_t> changed;
        std::vector<std::size_t> added;
        QStringList shown;  // in all, changed, new
    };
    const Case cases[] = {
        {{}, {}, {"0", "0", "0"}}, {{2, 3}, {4}, {"9", "5", "4"}}, {{}, {1}, {"1", "0", "1"}}};
    Summary summary;
    for (const Case& each : cases) {
        summary.window.clear();
        for (const std::size_t count : each.changed)
            summary.window.addChanged({"Set / Name", "a", "b", objectsFrom1To(count)});
        for (const std::size_t count : each.added)
            summary.window.addNew({"Set / Name", "", "b", objectsFrom1To(count)});
        const QTableWidget& counts = summary.showCounts();
        const QStringList captions{"Total", "Changed", "New"};
        for (int row = 0; row < 3; ++row) {
            EXPECT_EQ(counts.item(row, 0)->text(), captions[row]);
            EXPECT_EQ(counts.item(row, 1)->text(), each.shown[row]);
        }
        EXPECT_TRUE(counts.item(0, 0)->font().bold());
    }
    EXPECT_EQ(summary.window.findChildren<QTableWidget*>("SummaryCounts").size(), 1);
}

TEST(SummaryCounts, UnfoldWithAClickOnTheFirstHeader) {
    Summary summary;
    QTableWidget& counts = summary.showCounts();
    const auto click = [&](int row) {
        QHeaderView& header = *counts.verticalHeader();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          {5, header.sectionViewportPosition(row) + 10});
    };
    const auto expectFolded = [&](bool isFolded) {
        EXPECT_EQ(counts.height(), isFolded ? 24 : 72);
        EXPECT_EQ(counts.isRowHidden(1), isFolded);
        EXPECT_EQ(counts.isRowHidden(2), isFolded);
    };
    QCoreApplication::processEvents();
    expectFolded(true);
    const QString folded = counts.verticalHeaderItem(0)->text();
    click(0);
    QCoreApplication::processEvents();
    expectFolded(false);
    EXPECT_NE(counts.verticalHeaderItem(0)->text(), folded);
    click(2);
    expectFolded(false);
    click(0);
    QCoreApplication::processEvents();
    expectFolded(true);
    EXPECT_EQ(counts.verticalHeaderItem(0)->text(), folded);
}

TEST(SummaryDetails, ShowARowForEachRecordAndItsObjectsOnDemand) {
    Summary summary;
    summary.window.addChanged({"Set / <b>A</b>", "1\n2", "3", objectsFrom1To(50000)});
    summary.window.addNew({"New / B", "", "x", {7}});
    summary.window.showDetails();
    summary.window.show();
    QTableWidget& details = summary.details();
    ASSERT_EQ(details.rowCount(), 2);
    EXPECT_EQ(details.item(0, 0)->text(), "Set / <b>A</b> (x50000)");
    EXPECT_EQ(details.item(0, 1)->text(), "1\n2");
    EXPECT_EQ(details.item(0, 2)->text(), "3");
    EXPECT_EQ(details.item(1, 0)->text(), "New / B");
    EXPECT_EQ(details.horizontalHeaderItem(0)->text(), "ELEMENT");
    EXPECT_TRUE(details.horizontalHeaderItem(0)->font().bold());
    EXPECT_EQ(details.columnCount(), 4);
    EXPECT_TRUE(details.isColumnHidden(3));
    const int width = details.viewport()->width() + 1;
    EXPECT_EQ(details.columnWidth(0), width / 2);
    EXPECT_EQ(details.columnWidth(1), width / 4);

    // By the header, by the cell, by the keyboard; below each other, in any order.
    const auto clickHeader = [&](int row) {
        QHeaderView& header = *details.verticalHeader();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          {5, header.sectionViewportPosition(row) + 10});
    };
    clickHeader(1);
    ASSERT_EQ(details.rowCount(), 3);
    EXPECT_EQ(details.item(2, 0)->text().trimmed(), "Wall 7");
    summary.window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&summary.window));
    details.setFocus();
    details.setCurrentCell(0, 0);
    QTest::keyClick(&details, Qt::Key_Space);
    EXPECT_LT(details.rowCount(), 1000) << "bounded";
    EXPECT_EQ(details.item(1, 0)->text().trimmed(), "Wall 1");
    EXPECT_EQ(summary.namesAsked, details.rowCount() - 2 - 1)
        << "one row says how many there are besides";
    summary.window.CellClicked(50, 0);  // an object's row belongs to its record
    ASSERT_EQ(details.rowCount(), 3);
    EXPECT_EQ(details.item(1, 0)->text(), "New / B");
    EXPECT_EQ(details.item(2, 0)->text().trimmed(), "Wall 7");
    clickHeader(1);
    EXPECT_EQ(details.rowCount(), 2);
    for (const int row : {-1, 2})
        summary.window.ShowRowObjectsInfo(row);
    EXPECT_EQ(details.rowCount(), 2);
    summary.window.clear();
    EXPECT_EQ(details.rowCount(), 0);
}

TEST(SummaryWindowButtons, AcceptAndCancelByMouseAndKeyboard) {
    struct Case {
        const char* button;  // to be pressed with the mouse, or null for the key
        Qt::Key key;
        bool isAccepted;
    };
    const Case cases[] = {{"SummaryAccept", {}, true},      {nullptr, Qt::Key_Return, true},
                          {nullptr, Qt::Key_Escape, false}, {nullptr, Qt::Key_Space, true},
                          {"SummaryCancel", {}, false},     {"SummaryAccept", {}, true},
                          {"SummaryCancel", {}, false},     {nullptr, Qt::Key_Escape, false}};
    Summary summary;  // the same for all: it is used again and again
    for (const Case& each : cases) {
        summary.window.clear();
        EXPECT_FALSE(summary.window.isAccepted());
        summary.window.show();
        if (each.button)
            QTest::mousePress(&summary.button(each.button), Qt::LeftButton);
        else
            QTest::keyClick(summary.window.focusWidget(), each.key);
        EXPECT_FALSE(summary.window.isVisible());
        EXPECT_EQ(summary.window.isAccepted(), each.isAccepted);
        EXPECT_EQ(summary.window.result(), each.isAccepted ? QDialog::Accepted : QDialog::Rejected);
        EXPECT_FALSE(summary.button("SummaryAccept").isDown());
        EXPECT_FALSE(summary.button("SummaryCancel").isDown());
    }
}

TEST(LoadingDialogTest, StaysUntilItIsClosedByTheProgram) {
    LoadingDialog loading("Loading ...");
    loading.show();
    QDialog& dialog = loading.dialog();
    EXPECT_EQ(dialog.windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(dialog.minimumSize(), QSize(200, 100));
    EXPECT_EQ(dialog.maximumSize(), QSize(200, 100));
    EXPECT_FALSE(dialog.windowFlags() & Qt::WindowCloseButtonHint);
    EXPECT_EQ(dialog.windowFlags() & Qt::WindowType_Mask, Qt::Tool);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    dialog.close();
    EXPECT_TRUE(dialog.isVisible());
    const auto& label = *dialog.findChild<QLabel*>("LoadingLabel");
    EXPECT_EQ(label.text(), "Loading ...");
    loading.setProgress(7, 20);
    EXPECT_EQ(label.text(), "Loading ...\n35 %");
    loading.setProgress(20, 20);
    EXPECT_EQ(label.text(), "Loading ...\n100 %");
    loading.close();
    EXPECT_FALSE(dialog.isVisible());
}

TEST(LoadingDialogTest, LetsEventsButNoInputBeProcessed) {
    LoadingDialog loading("Loading ...");
    loading.show();
    bool isDone = false;
    QTimer::singleShot(0, [&] { isDone = true; });
    for (std::size_t done = 0; done < 1000; ++done)
        loading.setProgress(done, 1000);
    EXPECT_TRUE(isDone);
}

/// A list of units in something that counts the wheel events that reach it.
class WheelCounter : public QWidget {
public:
    int wheels = 0;

protected:
    void wheelEvent(QWheelEvent* event) override {
        ++wheels;
        event->accept();
    }
};

class UnitTypeAheadTest : public testing::Test {
protected:
    UnitTypeAheadTest() {
        setUpUnitComboBox(box_, 15);
        new UnitTypeAhead(box_, [this] { return nowMs_; });
        parent_.show();
    }

    void type(const QString& text) {
        for (const QChar sign : text)
            QTest::keyClicks(list_->isVisible() ? static_cast<QWidget*>(list_) : &box_, sign);
    }
    QStringList shown() const {
        QStringList labels;
        for (int row = 0; row < box_.count(); ++row)
            if (!list_->isRowHidden(row))
                labels.append(box_.itemText(row));
        return labels;
    }

    std::int64_t nowMs_ = 1000000;
    WheelCounter parent_;
    QComboBox& box_ = *new QComboBox(&parent_);
    QListView* list_ = nullptr;

    void SetUp() override {
        list_ = qobject_cast<QListView*>(box_.view());
        ASSERT_TRUE(list_);
    }
};

TEST_F(UnitTypeAheadTest, ShowsWhatBeginsWithTheSigns) {
    struct Case {
        QString typed;
        int count;
        QString first;
    };
    // 29 units a prefix. Of "k" there are no unit symbols; "m" also begins the units of milli, and
    // metre, cubic and square metre and mole.
    const Case cases[] = {{"k", 29, "kA (KiloAmpere)"},
                          {"kg", 1, "kg (KiloGram)"},
                          {"m", 4 + 29, "m3 (CubicMetre)"},
                          {"mm", 4, "mm3 (MilliCubicMetre)"}};
    for (const Case& each : cases) {
        nowMs_ += 5000;
        type(each.typed);
        EXPECT_TRUE(list_->isVisible());
        EXPECT_EQ(shown().size(), each.count) << each.typed.toStdString();
        EXPECT_EQ(shown().value(0), each.first);
        EXPECT_EQ(box_.currentIndex(), 15) << "chosen by Return only";
    }
    QTest::keyClick(list_, Qt::Key_Return);
    EXPECT_EQ(box_.currentText(), "mm3 (MilliCubicMetre)");
}

TEST_F(UnitTypeAheadTest, ShowsWhatContainsTheSignsWhenNothingBeginsWithThem) {
    type("me");
    // Cubic, plain and square metres, siemens and lumen, each in 16 groups; all 29 units of mega.
    EXPECT_EQ(shown().size(), 5 * 16 + 29 - 5);
    EXPECT_TRUE(shown().contains("MA (MegaAmpere)"));
    nowMs_ += UnitTypeAhead::kPauseMs;
    type("t");  // not longer than the pause: goes on
    EXPECT_EQ(shown().size(), 3 * 16);
    nowMs_ += UnitTypeAhead::kPauseMs + 1;
    type("k");
    EXPECT_EQ(shown().size(), 29);
    type("\b");
    nowMs_ += 10;
    type("xyz");
    EXPECT_TRUE(shown().isEmpty());
    QTest::keyClick(list_, Qt::Key_Return);
    EXPECT_EQ(box_.currentIndex(), 15);
}

TEST_F(UnitTypeAheadTest, AClickShowsAllRowsAgain) {
    type("kg");
    QTest::keyClick(list_, Qt::Key_Escape);
    ASSERT_FALSE(list_->isVisible());
    QTest::mousePress(box_.lineEdit(), Qt::LeftButton);
    EXPECT_TRUE(list_->isVisible());
    QTest::mouseRelease(list_->window(), Qt::LeftButton, {}, {-5, -5});
    EXPECT_TRUE(list_->isVisible());
    EXPECT_EQ(shown().size(), 464);
}

TEST_F(UnitTypeAheadTest, TheWheelScrollsWhatIsAround) {
    QWidget* const places[] = {&box_, box_.lineEdit()};
    for (QWidget* const under : places) {
        parent_.wheels = 0;
        QWheelEvent wheel({5, 5}, under->mapToGlobal(QPoint(5, 5)), {}, {0, -120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&wheel);  // others do not go to parents
        qApp->notify(under, &wheel);
        EXPECT_EQ(box_.currentIndex(), 15);
        EXPECT_EQ(parent_.wheels, 1);
    }
}

TEST(CustomQCheckBoxTest, KnowsWhetherItWasPressed) {
    CustomQCheckBox box;
    box.show();
    box.setChecked(true);
    EXPECT_FALSE(box.wasPressed());
    QTest::mouseClick(&box, Qt::LeftButton, {}, {8, box.height() / 2});
    EXPECT_TRUE(box.wasPressed());
    EXPECT_FALSE(box.isChecked());
}

TEST(ApplicationScopeTest, LeavesTheApplicationOfTheProcessAlone) {
    const QFont font = QApplication::font();
    QApplication* const application = qApp;
    QApplication::setQuitOnLastWindowClosed(true);
    {
        const ApplicationScope scope;
        EXPECT_TRUE(scope.isReady());
        EXPECT_FALSE(scope.isOwner());
    }
    EXPECT_EQ(qApp, application);
    EXPECT_EQ(QApplication::font(), font);
    EXPECT_TRUE(QApplication::quitOnLastWindowClosed());
    QApplication::setQuitOnLastWindowClosed(false);
}

TEST(MessageBoxes, GiveTheAnswerOfTheButton) {
    using platform::MessageAnswer;
    using platform::MessageButtons;
    struct Case {
        MessageButtons buttons;
        QString pressed;  // caption; empty for Escape
        MessageAnswer answer;
    };
    const Case cases[] = {{MessageButtons::Ok, "OK", MessageAnswer::Ok},
                          {MessageButtons::Ok, "", MessageAnswer::Ok},
                          {MessageButtons::OkCancel, "OK", MessageAnswer::Ok},
                          {MessageButtons::OkCancel, "Abbrechen", MessageAnswer::Cancel},
                          {MessageButtons::OkCancel, "", MessageAnswer::Cancel},
                          {MessageButtons::YesNo, "Ja", MessageAnswer::Yes},
                          {MessageButtons::YesNo, "Nein", MessageAnswer::No},
                          {MessageButtons::YesNo, "", MessageAnswer::No},
                          {MessageButtons::YesNoCancel, "Nein", MessageAnswer::No},
                          {MessageButtons::YesNoCancel, "", MessageAnswer::Cancel}};
    const QtMessageBoxes boxes(textsOfLanguage("de"));
    for (const Case& each : cases) {
        const MessageAnswerer answerer([&](QMessageBox& box) {
            EXPECT_EQ(box.text(), "<b>A & B</b>");
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.windowTitle(), "Caption");
            EXPECT_EQ(box.icon(), QMessageBox::Question);
            if (each.pressed.isEmpty())
                QTest::keyClick(&box, Qt::Key_Escape);
            for (QAbstractButton* const button : box.buttons()) {
                if (button->text() == each.pressed)
                    button->click();
            }
        });
        EXPECT_EQ(platform::showMessageBox(u"<b>A & B</b>", u"Caption", each.buttons,
                                           platform::MessageIcon::Question),
                  each.answer);
        EXPECT_EQ(answerer.count(), 1);
    }
}

TEST(EditManyForm, HasTheWidgetsThatTheWindowLooksFor) {
    QString error;
    const std::unique_ptr<QWidget> form = loadForm(
        platform::fromUtf8(QUILLET_SOURCE_DIR "/data/plugins/quillet/EditManyWindow.ui"), error);
    ASSERT_TRUE(form) << error.toStdString();
    EXPECT_EQ(form->objectName(), "MainWindow");
    EXPECT_TRUE(form->layout());
    const std::pair<const char*, const char*> widgets[] = {{"BtnShowInitialValues", "QPushButton"},
                                                           {"AddPropertiesLabel", "QLabel"},
                                                           {"ExistingSetsLabel", "QLabel"},
                                                           {"EditPropertySetsWidget", "QWidget"},
                                                           {"NewSetsWidget", "QWidget"},
                                                           {"OkButton", "QPushButton"},
                                                           {"CancelButton", "QPushButton"},
                                                           {"BtnAddNewSet", "QPushButton"},
                                                           {"FrameOptions", "QFrame"},
                                                           {"AreaEditPropertySets", "QScrollArea"},
                                                           {"GroupingTypeQCB", "QComboBox"},
                                                           {"SelectAllQBtn", "QPushButton"}};
    for (const auto& [name, type] : widgets) {
        const auto* const widget = form->findChild<QWidget*>(QString::fromLatin1(name));
        ASSERT_TRUE(widget) << name;
        EXPECT_STREQ(widget->metaObject()->className(), type) << name;
    }
    const auto layoutOf = [&](const char* name) {
        return form->findChild<QWidget*>(QString::fromLatin1(name))->layout();
    };
    EXPECT_TRUE(qobject_cast<QBoxLayout*>(layoutOf("EditPropertySetsWidget")));
    EXPECT_TRUE(qobject_cast<QBoxLayout*>(layoutOf("NewSetsWidget")));
    EXPECT_TRUE(qobject_cast<QGridLayout*>(layoutOf("FrameOptions")));
    const auto& area = *form->findChild<QScrollArea*>("AreaEditPropertySets");
    EXPECT_TRUE(area.widgetResizable());
    EXPECT_EQ(area.widget()->objectName(), "EditPropertySetsWidget");
    form->resize(600, 400);
    EXPECT_LE(form->minimumSizeHint().width(), 600);
    EXPECT_LE(form->minimumSizeHint().height(), 400);
}

TEST(EditManyForm, ThatIsMissingOrBrokenSaysWhy) {
    QString error;
    EXPECT_FALSE(loadForm(u"/nowhere/EditManyWindow.ui", error));
    EXPECT_FALSE(error.isEmpty());
    error.clear();
    EXPECT_FALSE(
        loadForm(platform::fromUtf8(QUILLET_SOURCE_DIR "/data/plugins/quillet/lang.en"), error));
    EXPECT_FALSE(error.isEmpty());
}

}  // namespace
