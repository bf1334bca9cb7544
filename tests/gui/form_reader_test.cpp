#include "gui/form_reader.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "gui/qt_text.h"
#include "tests/support/temp_folder.h"

namespace {

/// A form with `content` in its widget, on line 3.
std::string formWith(const std::string& content) {
    return "<ui version=\"4.0\">\n<widget class=\"QWidget\" name=\"Top\">\n" + content +
           "\n</widget>\n</ui>\n";
}

TEST(FormReader, RefusesWhatItDoesNotKnowAndSaysWhere) {
    struct Case {
        std::string form;
        const char* fault;  // behind the name of the file
    };
    const std::string layout = "<layout class=\"QVBoxLayout\" name=\"L\">\n";
    const std::string grid = "<layout class=\"QGridLayout\" name=\"G\">\n";
    const std::string label = "<widget class=\"QLabel\" name=\"T\"/>";
    const auto property = [](const std::string& name, const std::string& value) {
        return formWith("<property name=\"" + name + "\">\n" + value + "</property>");
    };
    const Case cases[] = {
        {"", ":0: not well-formed XML: XML_ERROR_EMPTY_DOCUMENT"},
        {"<!-- -->", ":1: element missing: ui"},
        {"<form/>", ":1: element not known here: form"},
        {"<ui>\n</ui>", ":1: attribute missing: version"},
        {"<ui version=\"3.2\"/>", ":1: version of forms not known: 3.2"},
        {"<ui version=\"4.0\" language=\"x\"/>", ":1: attribute not known here: language"},
        {"<ui version=\"4.0\">\n<tabstops/></ui>", ":2: element not known here: tabstops"},
        {"<ui version=\"4.0\">\n<class>A</class></ui>", ":1: element missing: widget"},
        {"<ui version=\"4.0\"><connections>\n<connection/></connections></ui>",
         ":2: element not known here: connection"},
        {formWith("</label>"), ":2: not well-formed XML: XML_ERROR_MISMATCHED_ELEMENT"},
        {formWith("<widget class=\"QTableView\" name=\"T\"/>"),
         ":3: widget class not known: QTableView"},
        {formWith("<widget class=\"QLabel\"/>"), ":3: attribute missing: name"},
        {formWith("\n<action/>"), ":4: element not known here: action"},
        {formWith(label + "\n" + layout + "</layout>"),
         ":4: not possible beside what is there: layout"},
        {formWith(layout + "</layout>\n" + layout + "</layout>"),
         ":5: not possible beside what is there: layout"},
        {formWith("<widget class=\"QScrollArea\" name=\"S\">" + label + "\n" + label + "</widget>"),
         ":4: not possible beside what is there: widget"},
        {formWith("<layout class=\"QFormLayout\" name=\"F\"/>"),
         ":3: layout class not known: QFormLayout"},
        {formWith(layout + "<item/></layout>"), ":4: element missing: widget"},
        {formWith(layout + "<item row=\"1\">" + label + "</item></layout>"),
         ":4: attribute not known here: row"},
        {formWith(layout + "<item>" + label + "\n" + label + "</item></layout>"),
         ":5: not possible beside what is there: widget"},
        {formWith(layout + "<item>\n<line/></item></layout>"), ":5: element not known here: line"},
        {formWith(layout + "<property name=\"leftMargin\"><bool>true</bool></property></layout>"),
         ":4: element not known here: bool"},
        {formWith(layout + "<item><spacer name=\"S\">\n<property name=\"width\"><number>1</number>"
                           "</property></spacer></item></layout>"),
         ":5: property not known: width"},
        {formWith(grid + "<item row=\"0\">" + label + "</item></layout>"),
         ":4: attribute missing: column"},
        {formWith(grid + "<item row=\"0\" column=\"-1\">" + label + "</item></layout>"),
         ":4: value not possible: -1"},
        {formWith(grid + "<item row=\"0\" column=\"2000000000\">" + label + "</item></layout>"),
         ":4: value not possible: 2000000000"},
        {formWith(grid + "<item row=\"0\" column=\"0\" rowspan=\"0\">" + label +
                  "</item></layout>"),
         ":4: value not possible: 0"},
        {property("colour", "<string>red</string>"), ":3: property not known: colour"},
        {property("windowTitle", ""), ":3: element missing: string"},
        {property("windowTitle", "<cstring>a</cstring>"), ":4: element not known here: cstring"},
        {property("windowTitle", "<string notr=\"true\">a</string>"),
         ":4: attribute not known here: notr"},
        {property("windowTitle", "<string>a<b/></string>"), ":4: element not known here: b"},
        {property("windowTitle", "<string>B\xE4r</string>"),  // not UTF-8
         ":4: value not possible: B\xEF\xBF\xBDr"},
        {property("width", "<number>1</number>"), ":4: value not possible: width"},  // is read only
        {property("enabled", "<bool>yes</bool>"), ":4: value not possible: yes"},
        {property("enabled", "<enum>Qt::LeftToRight</enum>"), ":4: element not known here: enum"},
        {property("layoutDirection", "<enum>Qt::UpToDown</enum>"),
         ":4: value not possible: Qt::UpToDown"},
        {property("geometry", "<size/>"), ":4: element not known here: size"},
        {property("geometry", "<rect><x>1</x></rect>"), ":4: element missing: y"},
        {property("minimumSize", "<size><width>1</width>\n<depth>2</depth></size>"),
         ":5: element not known here: depth"},
        {property("minimumSize", "<size><width>1</width>\n<width>2</width></size>"),
         ":5: not possible beside what is there: width"},
        {property("minimumSize", "<size><width>wide</width><height>2</height></size>"),
         ":4: value not possible: wide"},
        {property("sizePolicy", "<sizepolicy hsizetype=\"Wide\" vsizetype=\"Fixed\"/>"),
         ":4: value not possible: Wide"},
    };
    const TempFolder folder;
    for (const auto& [form, fault] : cases) {
        const std::u16string path = folder.write(u"f\u00F6rm %1.ui", form);
        QString error;
        EXPECT_FALSE(readForm(path, error)) << form;
        EXPECT_EQ(error.toStdString(), (toQString(path) + QString::fromUtf8(fault)).toStdString())
            << form;
    }
}

TEST(FormReader, NamesTheFileThatIsNotThere) {
    QString error;
    EXPECT_FALSE(readForm(u"/nowhere/window.ui", error));
    EXPECT_TRUE(error.startsWith("/nowhere/window.ui: ")) << error.toStdString();
}

/// Cut anywhere, the form is refused; nothing is built halfway.
TEST(FormReader, RefusesACutForm) {
    std::ifstream file(QUILLET_SOURCE_DIR "/data/plugins/quillet/EditManyWindow.ui");
    std::stringstream whole;
    whole << file.rdbuf();
    const std::string form = whole.str();
    const std::size_t end = form.rfind("</ui>");
    ASSERT_NE(end, form.npos);
    const TempFolder folder;
    QString error;
    EXPECT_TRUE(readForm(folder.write(u"whole.ui", form), error)) << error.toStdString();
    for (std::size_t length = 0; length < end; length += 97) {
        error.clear();
        EXPECT_FALSE(readForm(folder.write(u"cut.ui", form.substr(0, length)), error)) << length;
        EXPECT_FALSE(error.isEmpty()) << length;
    }
}

}  // namespace
