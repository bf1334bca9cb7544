#include <gtest/gtest.h>

#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressBar>
#include <QToolButton>
#include <QUrl>
#include <cmath>

#include "platform/text.h"
#include "standin/desktop/marks.h"
#include "standin/desktop/progress_window.h"
#include "standin/desktop/widget_finder.h"
#include "tests/standin/desktop_fixture.h"

namespace {

using Events = std::vector<std::string>;
using Names = std::vector<std::u16string>;

void clickRow(QTreeView& tree, const QModelIndex& row,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    tree.scrollTo(row);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, modifiers, tree.visualRect(row).center());
}

QModelIndex rowOf(Desktop& desktop, const std::u16string& name) {
    const standin::Object* const object = desktop.host().objects().findNamed(name);
    return desktop.window().objectPanel().model().indexOf(object->id);
}

/// The row as a user sees it.
QString shown(const QTreeWidgetItem* row) {
    if (!row)
        return QStringLiteral("(none)");
    QStringList texts;
    for (int column = 0; column < row->columnCount(); ++column)
        texts.push_back(row->text(column));
    return texts.join(QLatin1Char('|'));
}

/// Makes a change of the south wall's set as the plug-in does.
void change(Desktop& desktop, HostDisplayAction action, const char16_t* property,
            const HostProperty* record, const char16_t* set = u"Finish",
            const char16_t* newSetName = nullptr) {
    const standin::Object& wall = desktop.playground().southWall();
    const std::string guid = platform::toUtf8(wall.guid);
    HostPropertyRequest request{};
    request.action = action;
    request.objectId = wall.id;
    request.objectGuid = wall.guid.c_str();
    request.instanceNumber = wall.instanceNumber;
    request.setName = set;
    request.newSetName = newSetName;
    request.propertyName = property;
    request.propertyCount = record ? 1 : 0;
    ASSERT_NE(
        desktop.plugin().host.add_del_or_change_property(desktop.plugin().handle, &request, record),
        0U);
    desktop.settle();
}

HostProperty record(const char16_t* name, const char16_t* value, HostPropertyState state) {
    HostProperty property{};
    property.name = property.initialName = name;
    property.value = value;
    property.kind = kHostSingleValue;
    property.state = state;
    return property;
}

TEST(DesktopTree, SelectsByMouseAndKeyboard) {
    Desktop desktop;
    EXPECT_TRUE(desktop.window().windowTitle().startsWith(QLatin1String("Quillet")));
    desktop.openHouse();
    EXPECT_TRUE(desktop.window().windowTitle().contains(toQString(u"Haus am S\u00FCdhang.ifc")));
    clickRow(desktop.tree(), rowOf(desktop, u"South wall"));
    EXPECT_EQ(desktop.selectedNames(), Names{u"South wall"});
    EXPECT_EQ(desktop.plugin().events, Events{"selection"});
    clickRow(desktop.tree(), rowOf(desktop, u"West wall"), Qt::ControlModifier);
    EXPECT_EQ(desktop.selectedNames(), (Names{u"South wall", u"West wall"}));
    clickRow(desktop.tree(), rowOf(desktop, u"Ground floor"));
    QTest::keyClick(&desktop.tree(), Qt::Key_Down);
    EXPECT_EQ(desktop.selectedNames(), Names{u"South wall"});
    QTest::keyClick(&desktop.tree(), Qt::Key_T, Qt::ControlModifier);
    desktop.settle();
    EXPECT_EQ(desktop.selectedNames(), (Names{u"South wall", u"West wall"}));
    EXPECT_EQ(desktop.tree().selectionModel()->selectedRows().size(), 2);
    EXPECT_EQ(desktop.find<QLabel>("objectCount").text(), QLatin1String("8 objects, 2 selected"));
}

TEST(DesktopTree, ShowsWhatThePluginSelects) {
    Desktop desktop;
    desktop.openHouse();
    desktop.plugin().host.select(desktop.plugin().handle, desktop.playground().southWall().id);
    desktop.settle();
    EXPECT_EQ(desktop.tree().currentIndex(), rowOf(desktop, u"South wall"));
    EXPECT_TRUE(desktop.tree().selectionModel()->isSelected(rowOf(desktop, u"South wall")));
    EXPECT_TRUE(desktop.row("Finish", "Colour"));
    EXPECT_EQ(desktop.plugin().events, Events()) << "its own selection is no news to it";
}

TEST(DesktopTree, IsSearched) {
    Desktop desktop;
    desktop.openHouse();
    desktop.select(u"South wall");
    auto& field = desktop.find<QLineEdit>("objectSearch");
    const standin::ObjectModel& model = desktop.window().objectPanel().model();
    const std::pair<const char*, int> cases[] = {
        {"west", 1}, {"WALL", 2}, {"ifcsite", 1}, {"3aP0vaNNWm5LC0gJaDf$li", 1},
        {"#65", 1},  {"  ", 8},   {"#6", 0},      {"no such thing", 0},
    };
    for (const auto& [text, count] : cases) {
        QTest::mouseClick(&field, Qt::LeftButton);
        field.selectAll();
        QTest::keyClicks(&field, QLatin1String(text));
        QTest::keyClick(&field, Qt::Key_Return);
        EXPECT_EQ(model.matchCount(), count) << text;
        const QModelIndex west = rowOf(desktop, u"West wall");
        EXPECT_EQ(west.isValid(), count == 2 || count == 8 || std::string_view(text) == "west");
        EXPECT_TRUE(!west.isValid() || desktop.tree().isExpanded(west.parent()) || count == 8);
    }
    EXPECT_EQ(desktop.selectedNames(), Names{u"South wall"}) << "a search selects nothing";
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_Escape);
    QTRY_COMPARE(model.matchCount(), 8);
    EXPECT_TRUE(desktop.tree().selectionModel()->isSelected(rowOf(desktop, u"South wall")));
    QTest::keyClick(&desktop.window(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(field.hasFocus());
}

TEST(DesktopProperties, RequestsReachThePlugin) {
    struct Case {
        const char* set;
        const char* property;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        const char* event;
    };
    const Case cases[] = {
        {"Finish", "Colour", Qt::Key_F2, Qt::NoModifier, "request 0 Finish Colour"},
        {"Finish", "Colour", Qt::Key_Delete, Qt::NoModifier, "request 1 Finish Colour"},
        {"Finish", "Colour", Qt::Key_Insert, Qt::NoModifier, "request 2 Finish Colour"},
        {"Finish", "Colour", Qt::Key_Insert, Qt::ShiftModifier, "request 2 Finish Colour"},
        {"Finish", "Colour", Qt::Key_F2, Qt::ShiftModifier, "request 4 Finish (null)"},
        {"Finish", "Colour", Qt::Key_Delete, Qt::ShiftModifier, "request 3 Finish (null)"},
        {"Finish", "", Qt::Key_F2, Qt::NoModifier, "request 4 Finish (null)"},
        {"Finish", "", Qt::Key_Delete, Qt::NoModifier, "request 3 Finish (null)"},
        {"Finish", "", Qt::Key_Insert, Qt::NoModifier, "request 2 Finish Supplier"},
    };
    Desktop desktop;
    desktop.openHouse();
    desktop.select(u"South wall");
    desktop.properties().setFocus();
    for (const Case& one : cases) {
        desktop.plugin().events.clear();
        desktop.properties().setCurrentItem(desktop.row(one.set, one.property));
        QTest::keyClick(&desktop.properties(), one.key, one.modifiers);
        EXPECT_EQ(desktop.plugin().events, Events{one.event}) << one.key;
    }
    desktop.plugin().events.clear();
    const QRect place = desktop.properties().visualItemRect(desktop.row("Finish", "Colour"));
    QTest::mouseClick(desktop.properties().viewport(), Qt::LeftButton, {}, place.center());
    QTest::mouseDClick(desktop.properties().viewport(), Qt::LeftButton, {}, place.center());
    EXPECT_EQ(desktop.plugin().events, Events{"request 0 Finish Colour"});
    desktop.host().select(
        desktop.host().objects().children(desktop.playground().southWall().parentId));
    desktop.settle();
    desktop.plugin().events.clear();
    desktop.properties().setCurrentItem(desktop.row("Finish", "Colour"));
    QTest::keyClick(&desktop.properties(), Qt::Key_F2);
    EXPECT_EQ(desktop.plugin().events, Events()) << "only one object can be edited here";
    EXPECT_TRUE(desktop.find<QLabel>("propertyNote").isVisible());
}

TEST(DesktopProperties, ShowValuesAndUnits) {
    Desktop desktop;
    desktop.openHouse();
    desktop.select(u"South wall");
    const std::pair<QTreeWidgetItem*, const char16_t*> cases[] = {
        {desktop.row("Pset_WallCommon", "LoadBearing"), u"LoadBearing|True||"},
        {desktop.row("Finish", "Plaster thickness"), u"Plaster thickness|15|mm (MilliMetre)|"},
        {desktop.row("Finish"), u"Finish|||"},
    };
    for (const auto& [row, text] : cases)
        EXPECT_EQ(shown(row)
                      .leftRef(static_cast<int>(toQString(text).size()))
                      .toString()
                      .remove(QRegularExpression(QStringLiteral("\\|*$"))),
                  toQString(text).remove(QRegularExpression(QStringLiteral("\\|*$"))));
}

TEST(DesktopProperties, PendingEditsAreMarked) {
    Desktop desktop;
    desktop.openHouse();
    desktop.select(u"South wall");
    const HostProperty blue = record(u"Colour", u"<b>blue</b>", kHostEdited);
    const HostProperty inspector = record(u"Inspector", u"A. L.", kHostAdded);
    desktop.properties().setCurrentItem(desktop.row("Finish", "Colour"));
    change(desktop, kHostChange, u"Colour", &blue);
    change(desktop, kHostAddToSet, u"Inspector", &inspector);
    const HostProperty gone = record(u"Note", u"", kHostDeleted);
    change(desktop, kHostRemove, u"Note", &gone);
    change(desktop, kHostRemove, nullptr, nullptr, u"Qto_WallBaseQuantities");
    change(desktop, kHostPutSet, nullptr, nullptr, u"New set");

    const auto mark = [](const QTreeWidgetItem* row) { return row ? row->text(3) : QString(); };
    const QTreeWidgetItem* const colour = desktop.row("Finish", "Colour");
    EXPECT_EQ(desktop.properties().currentItem(), colour) << "the user stays where he was";
    EXPECT_EQ(shown(colour), QLatin1String("Colour|<b>blue</b>||* changed"));
    EXPECT_TRUE(colour->toolTip(1).contains(QLatin1String("changed, was red, 'oxblood'")));
    EXPECT_EQ(mark(desktop.row("Finish", "Inspector")), QLatin1String("+ added"));
    EXPECT_EQ(mark(desktop.row("New set")), QLatin1String("+ added"));
    for (const QTreeWidgetItem* const row :
         {desktop.row("Finish", "Note"), desktop.row("Qto_WallBaseQuantities"),
          desktop.row("Qto_WallBaseQuantities", "Height")}) {
        ASSERT_TRUE(row);
        EXPECT_EQ(mark(row), toQString(u"\u2212 deleted"));
        EXPECT_TRUE(row->font(0).strikeOut());
    }
    EXPECT_EQ(mark(desktop.row("Finish", "Supplier")), QString());
    // What is deleted is not there to be edited.
    desktop.plugin().events.clear();
    for (QTreeWidgetItem* const row :
         {desktop.row("Finish", "Note"), desktop.row("Qto_WallBaseQuantities", "Height")}) {
        desktop.properties().setCurrentItem(row);
        for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Delete})
            QTest::keyClick(&desktop.properties(), key);
    }
    EXPECT_EQ(desktop.plugin().events, Events());
    // And back.
    const HostProperty red = record(u"Colour", u"red, 'oxblood'", kHostUnchanged);
    change(desktop, kHostChange, u"Colour", &red);
    EXPECT_EQ(mark(desktop.row("Finish", "Colour")), QString());
    change(desktop, kHostChange, nullptr, nullptr, u"Finish", u"Surface");
    EXPECT_EQ(mark(desktop.row("Surface")), QLatin1String("* changed"));
    EXPECT_TRUE(desktop.row("Surface")->toolTip(0).contains(QLatin1String("was Finish")));
}

/// Contrast of two colours as the Web Content Accessibility Guidelines 2.1 define it.
double contrast(const QColor& a, const QColor& b) {
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double part) {
            return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const double lighter = std::max(luminance(a), luminance(b));
    const double darker = std::min(luminance(a), luminance(b));
    return (lighter + 0.05) / (darker + 0.05);
}

TEST(DesktopProperties, MarksCanBeReadOnAnyBackground) {
    for (const QColor& base : {QColor(Qt::white), QColor(245, 245, 245), QColor(30, 30, 30)}) {
        QPalette palette;
        palette.setColor(QPalette::Base, base);
        for (const auto mark :
             {standin::Mark::Added, standin::Mark::Changed, standin::Mark::Deleted})
            EXPECT_GE(contrast(standin::colorOf(mark, palette), base), 4.5)
                << static_cast<int>(mark) << base.name().toStdString();
    }
}

TEST(DesktopUndo, ListsWhatCanBeUndone) {
    Desktop desktop;
    desktop.openHouse();
    auto* const undo = desktop.window().findChild<QAction*>(QStringLiteral("undoAction"));
    EXPECT_FALSE(undo->isEnabled());
    for (const char16_t* text : {u"Edit: A", u"Edit: B & C", u"Edit: D"})
        desktop.plugin().host.register_undo_action(desktop.plugin().handle, text);
    desktop.settle();
    EXPECT_TRUE(undo->isEnabled());
    EXPECT_TRUE(undo->toolTip().contains(QLatin1String("Edit: D")));
    QTest::keyClick(&desktop.window(), Qt::Key_Z, Qt::ControlModifier);
    desktop.settle();
    QTest::keyClick(&desktop.window(), Qt::Key_Y, Qt::ControlModifier);
    desktop.settle();
    EXPECT_EQ(desktop.plugin().events, (Events{"undo 0", "undo 1"}));
    desktop.plugin().events.clear();
    const auto menuOf = [&](const char* text) {
        for (const QToolButton* const button : desktop.window().findChildren<QToolButton*>())
            if (standin::textOn(*button) == QLatin1String(text))
                return button->menu();
        return static_cast<QMenu*>(nullptr);
    };
    QMenu* const list = menuOf("Undo");
    emit list->aboutToShow();
    ASSERT_EQ(list->actions().size(), 3);
    EXPECT_EQ(list->actions()[0]->text(), QLatin1String("Edit: D"));
    EXPECT_EQ(list->actions()[1]->text(), QLatin1String("Edit: B && C"));
    list->actions()[1]->trigger();
    EXPECT_EQ(desktop.plugin().events, (Events{"undo 0", "undo 0"}));
    emit menuOf("Redo")->aboutToShow();
    EXPECT_EQ(menuOf("Redo")->actions()[0]->text(), QLatin1String("Edit: B && C"));
}

TEST(DesktopFiles, AskToSaveBeforeTheyGo) {
    struct Case {
        const char* button;
        bool isSaved;
        bool isLeft;
    };
    for (const Case& one :
         {Case{"Save", true, true}, Case{"Discard", false, true}, Case{"Cancel", false, false}}) {
        for (const bool isClosing : {false, true}) {
            Desktop desktop;
            desktop.openHouse();
            const std::u16string project = desktop.playground().folder() / u"house.ahx";
            ASSERT_TRUE(desktop.host().save(project));
            const std::u16string other = desktop.playground().house(u"other.ifc");
            const std::u16string before = desktop.host().objects().files()[0].path;
            desktop.plugin().host.need_save_ahx(desktop.plugin().handle, true);
            desktop.settle();
            EXPECT_TRUE(desktop.window().isWindowModified());
            desktop.plugin().events.clear();
            inDialog(
                [&] {
                    if (isClosing)
                        desktop.window().close();
                    else
                        desktop.window().openFiles({toQString(other)});
                },
                [&](QDialog& dialog) { pressButton(dialog, QLatin1String(one.button)); });
            const Events& events = desktop.plugin().events;
            EXPECT_EQ(std::count(events.begin(), events.end(), "saved"), one.isSaved ? 1 : 0);
            if (isClosing)
                EXPECT_EQ(desktop.window().isVisible(), !one.isLeft) << one.button;
            else
                EXPECT_EQ(desktop.host().objects().files()[0].path, one.isLeft ? other : before);
            EXPECT_EQ(desktop.host().needsSave(), !one.isLeft || (isClosing && !one.isSaved));
        }
    }
}

TEST(DesktopFiles, AModelIsSavedAsAProject) {
    Desktop desktop;
    desktop.openHouse();
    desktop.plugin().host.need_save_ahx(desktop.plugin().handle, true);
    desktop.settle();
    inDialog([&] { QTest::keyClick(&desktop.window(), Qt::Key_S, Qt::ControlModifier); },
             [&](QDialog& dialog) {
                 auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
                 ASSERT_TRUE(name);
                 EXPECT_EQ(name->text(), toQString(u"Haus am S\u00FCdhang.ahx"));
                 name->setText(toQString(desktop.playground().folder() / u"mine"));
                 pressButton(dialog, QStringLiteral("Save"));
             });
    desktop.settle();
    EXPECT_EQ(desktop.host().project().path(), desktop.playground().folder() / u"mine.ahx");
    EXPECT_FALSE(desktop.window().isWindowModified());
    EXPECT_TRUE(desktop.window().windowTitle().startsWith(QLatin1String("mine.ahx")));
}

/// @return whether the window took the drop.
bool drop(Desktop& desktop, const std::vector<std::u16string>& paths) {
    QMimeData data;
    QList<QUrl> urls;
    for (const std::u16string& path : paths)
        urls.push_back(QUrl::fromLocalFile(toQString(path)));
    data.setUrls(urls);
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&desktop.window(), &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent dropped({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&desktop.window(), &dropped);
    return true;
}

TEST(DesktopFiles, AreDropped) {
    Desktop desktop;
    const TempFolder& folder = desktop.playground().folder();
    EXPECT_FALSE(drop(desktop, {folder.write(u"notes.txt", "no model")}));
    EXPECT_TRUE(drop(desktop, {desktop.playground().house(u"a.ifc"), folder / u"notes.txt",
                               desktop.playground().house(u"B.IFC")}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !desktop.host().objects().files().empty(); }));
    ASSERT_EQ(desktop.host().objects().files().size(), 2U);
    desktop.settle();
    EXPECT_TRUE(desktop.window().windowTitle().contains(QLatin1String("a.ifc and 1 more")));
}

TEST(DesktopFiles, BadOnesLeaveWhatIsOpen) {
    Desktop desktop;
    desktop.openHouse();
    desktop.select(u"South wall");
    const TempFolder& folder = desktop.playground().folder();
    for (const std::u16string& path :
         {folder.write(u"bad.ifc", "this is no model"), folder.write(u"bad.ahx", "no archive"),
          folder / u"missing.ifc", folder.write(u"picture.png", "PNG")}) {
        inDialog([&] { desktop.window().openFiles({toQString(path)}); },
                 [&](QDialog& dialog) {
                     const QString text = dynamic_cast<QMessageBox&>(dialog).text();
                     EXPECT_TRUE(text.contains(toQString(standin::fileNameOf(path))))
                         << text.toStdString();
                 });
        EXPECT_EQ(desktop.selectedNames(), Names{u"South wall"});
        EXPECT_TRUE(desktop.row("Finish", "Colour"));
    }
}

TEST(DesktopFiles, WhatReadingReportedIsShownOnClick) {
    Desktop desktop;
    const std::u16string path = desktop.playground().house();
    std::string model = desktop.playground().folder().read(standin::fileNameOf(path));
    model.insert(model.find("ENDSEC;", model.find("DATA;")), "#9000=IFCNOSUCHTHING(1);\n");
    desktop.playground().folder().write(standin::fileNameOf(path), model);
    auto& button = desktop.find<QToolButton>("reportsButton");
    EXPECT_FALSE(button.isVisible());
    desktop.window().openFiles({toQString(path)});
    desktop.settle();
    ASSERT_TRUE(button.isVisible());
    inDialog([&] { QTest::mouseClick(&button, Qt::LeftButton); },
             [&](QDialog& dialog) {
                 auto* const list = dialog.findChild<QListWidget*>();
                 ASSERT_EQ(list->count(), 1);
                 EXPECT_TRUE(list->item(0)->text().contains(QLatin1String("#9000")));
                 pressButton(dialog, QStringLiteral("Copy"));
             });
    EXPECT_TRUE(QApplication::clipboard()->text().contains(QLatin1String("#9000")));
}

TEST(DesktopFiles, TheLastOnesAreRemembered) {
    TempFolder folder;
    const QString file = toQString(folder / u"settings.ini");
    std::u16string house;
    {
        Desktop desktop(file);
        desktop.openHouse();
        house = desktop.host().objects().files()[0].path;
        desktop.window().resize(900, 650);
        desktop.window().close();
    }
    Desktop desktop(file);
    EXPECT_EQ(desktop.window().size(), QSize(900, 650));
    auto* const menu = desktop.window().findChild<QAction*>(QStringLiteral("recentAction"));
    for (QMenu* const one : desktop.window().findChildren<QMenu*>()) {
        emit one->aboutToShow();
        for (QAction* const entry : one->actions()) {
            if (entry->text() != toQString(u"Haus am S\u00FCdhang.ifc"))
                continue;
            // The file went with its folder: it is said, and not offered again.
            inDialog([&] { entry->trigger(); }, [](QDialog&) {});
            emit one->aboutToShow();
            EXPECT_FALSE(one->actions()[0]->isEnabled());
            return;
        }
    }
    FAIL() << "not offered by " << menu->text().toStdString();
}

TEST(DesktopRibbon, FollowsThePlugin) {
    Desktop desktop;
    Recorder& plugin = desktop.plugin();
    static Recorder* clickedIn = nullptr;
    static std::vector<HostButtonId> clicked;
    clickedIn = &plugin;
    clicked.clear();
    const HostEventCallback onClick = [] {
        clicked.push_back(clickedIn->host.clicked_button(clickedIn->handle));
    };
    const auto& functions = plugin.host;
    const HostButtonId group = functions.create_group(plugin.handle, u"R&D");
    const HostButtonId button = functions.create_small_button(
        plugin.handle, group, u"Save & export <all>", u"<i>hint", onClick);
    const HostButtonId list =
        functions.create_sub_button(plugin.handle, group, u"Options", nullptr, onClick);
    const HostButtonId box = functions.create_checkbox(plugin.handle, 0, u"Erase", u"", onClick);
    functions.add_button(plugin.handle, list, box);
    desktop.settle();
    const auto buttonNamed = [&](const char* text) {
        return qobject_cast<QToolButton*>(
            standin::findWidget(desktop.window(), QLatin1String(text)));
    };
    QToolButton* const save = buttonNamed("Save & export <all>");
    ASSERT_TRUE(save);
    EXPECT_TRUE(save->toolTip().contains(QLatin1String("&lt;i&gt;hint")));
    QTest::mouseClick(save, Qt::LeftButton);
    EXPECT_EQ(clicked, std::vector<HostButtonId>{button});
    functions.enable_button(plugin.handle, button, false);
    functions.set_button_text(plugin.handle, button, u"Other", u"");
    functions.set_button_down(plugin.handle, box, true);
    desktop.settle();
    EXPECT_EQ(buttonNamed("Other"), save) << "changed in place";
    EXPECT_FALSE(save->isEnabled());
    QMenu* const menu = buttonNamed("Options")->menu();
    ASSERT_EQ(menu->actions().size(), 1);
    EXPECT_TRUE(menu->actions()[0]->isChecked());
    menu->actions()[0]->trigger();
    EXPECT_EQ(clicked.back(), box);
    desktop.settle();
    EXPECT_TRUE(menu->actions()[0]->isChecked()) << "the plug-in did not take the tick away";
    desktop.host().unloadPlugin();
    desktop.settle();
    EXPECT_FALSE(buttonNamed("Options"));
}

TEST(DesktopDialogs, MessagesOfThePluginAreAnswered) {
    struct Case {
        std::uint32_t flags;
        const char* button;  // nothing: Escape
        std::int32_t answer;
    };
    const Case cases[] = {{64, "OK", 1},   {16, "", 1},     {4 | 32, "Yes", 6}, {4 | 32, "No", 7},
                          {4 | 32, "", 7}, {3, "", 2},      {1, "OK", 1},       {1, "", 2},
                          {5, "Retry", 4}, {2, "Abort", 3}, {2, "", 5}};
    Desktop desktop;
    for (const Case& one : cases) {
        std::int32_t answer = 0;
        inDialog(
            [&] {
                answer = desktop.plugin().host.message_box(desktop.plugin().handle, u"Quillet",
                                                           u"<b>Sure</b> & ready?", one.flags);
            },
            [&](QDialog& dialog) {
                const auto& box = dynamic_cast<QMessageBox&>(dialog);
                EXPECT_EQ(box.textFormat(), Qt::PlainText);
                EXPECT_EQ(box.windowTitle(), QLatin1String("Quillet"));
                if (*one.button)
                    pressButton(dialog, QLatin1String(one.button));
                else
                    QTest::keyClick(&dialog, Qt::Key_Escape);
            });
        EXPECT_EQ(answer, one.answer) << one.flags << one.button;
    }
    EXPECT_EQ(desktop.host().dialogs().messages().size(), std::size(cases));
}

TEST(DesktopDialogs, SavingAsksForANameOrAFolder) {
    Desktop desktop;
    desktop.openHouse();
    const auto& functions = desktop.plugin().host;
    const HostHandle handle = desktop.plugin().handle;
    bool isAnswered = false;
    functions.set_save_dialog_params(handle, u"IFC files", u"Haus_edited", u"ifc");
    functions.set_save_dialog_default_extension(handle, u"ifc");
    inDialog([&] { isAnswered = functions.save_dialog(handle, false); },
             [&](QDialog& dialog) {
                 auto& files = dynamic_cast<QFileDialog&>(dialog);
                 EXPECT_EQ(files.nameFilters(), QStringList{QStringLiteral("IFC files (*.ifc)")});
                 EXPECT_EQ(files.directory(), QDir(toQString(desktop.playground().folder() / u"")));
                 pressButton(dialog, QStringLiteral("Save"));
             });
    EXPECT_TRUE(isAnswered);
    EXPECT_EQ(std::u16string(functions.get_save_dialog_name(handle)),
              desktop.playground().folder() / u"Haus_edited.ifc");
    inDialog([&] { isAnswered = functions.save_dialog(handle, true); },
             [&](QDialog& dialog) {
                 EXPECT_EQ(dynamic_cast<QFileDialog&>(dialog).fileMode(), QFileDialog::Directory);
                 pressButton(dialog, QStringLiteral("Choose"));
             });
    EXPECT_TRUE(isAnswered);
    EXPECT_TRUE(std::filesystem::is_directory(
        std::filesystem::path(std::u16string(functions.get_save_dialog_name(handle)))));
    inDialog([&] { isAnswered = functions.save_dialog(handle, false); },
             [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_FALSE(isAnswered);
}

TEST(DesktopDialogs, ProgressShowsTwoBars) {
    Desktop desktop;
    const auto& functions = desktop.plugin().host;
    const HostHandle handle = desktop.plugin().handle;
    functions.show_progress_bar(handle, true, false, u"Export");
    functions.update_progress_bar(handle, 250, u"Overall & all", 40, u"Saving: a.ifc");
    const QWidget* const window = standin::findWindow(QStringLiteral("Export"));
    ASSERT_TRUE(window);
    EXPECT_TRUE(window->isModal());
    EXPECT_EQ(window->findChild<QProgressBar*>(QStringLiteral("overallBar"))->value(), 100);
    EXPECT_EQ(window->findChild<QProgressBar*>(QStringLiteral("currentBar"))->value(), 40);
    EXPECT_EQ(window->findChild<QLabel*>(QStringLiteral("currentLabel"))->text(),
              QLatin1String("Saving: a.ifc"));
    const_cast<QWidget*>(window)->close();
    EXPECT_TRUE(window->isVisible()) << "it cannot be cancelled";
    functions.show_progress_bar(handle, false, false, u"");
    EXPECT_FALSE(standin::findWindow(QStringLiteral("Export")));
}

TEST(DesktopLanguage, OpensTheProjectAgainWithWhatWasSaved) {
    Desktop desktop;
    desktop.openHouse();
    ASSERT_TRUE(desktop.host().save(desktop.playground().folder() / u"house.ahx"));
    desktop.select(u"West wall");
    auto& box = desktop.find<QComboBox>("languageBox");
    const auto choose = [&](const char16_t* code) {
        desktop.window().changeLanguage(toQString(code));
        desktop.settle();
    };
    const HostObjectId before = desktop.host().objects().selected().front();
    choose(u"de");
    EXPECT_EQ(desktop.host().language(), u"de");
    EXPECT_EQ(box.currentText(), QLatin1String("Deutsch"));
    EXPECT_EQ(desktop.selectedNames(), Names{u"West wall"});
    EXPECT_NE(desktop.host().objects().selected().front(), before) << "opened again";
    const auto& events = desktop.plugin().events;
    EXPECT_EQ(events, (Events{"undo 2", "clear", "unload", "load", "loaded", "selection"}));

    const HostProperty blue = record(u"Colour", u"blue", kHostEdited);
    change(desktop, kHostChange, u"Colour", &blue);
    desktop.plugin().host.need_save_ahx(desktop.plugin().handle, true);
    inDialog([&] { choose(u"fr"); },
             [](QDialog& dialog) { pressButton(dialog, QStringLiteral("Cancel")); });
    EXPECT_EQ(desktop.host().language(), u"de");
    EXPECT_EQ(box.currentText(), QLatin1String("Deutsch"));
    EXPECT_TRUE(desktop.host().needsSave());
    inDialog([&] { choose(u"fr"); },
             [](QDialog& dialog) { pressButton(dialog, QStringLiteral("Save")); });
    EXPECT_EQ(desktop.host().language(), u"fr");
    EXPECT_EQ(desktop.playground().southWall().display.findSet({}, u"Finish")->rows[1].value,
              u"blue");
    // A file that is gone: nothing is lost.
    std::filesystem::remove(std::filesystem::path(desktop.host().project().path()));
    inDialog([&] { choose(u"es"); }, [](QDialog&) {});
    EXPECT_EQ(desktop.host().language(), u"fr");
    EXPECT_EQ(desktop.selectedNames(), Names{u"West wall"});
}

}  // namespace
