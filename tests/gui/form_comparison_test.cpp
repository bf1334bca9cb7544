// The product's own reader of forms builds the same as Qt's.

#include <gtest/gtest.h>

#include <QApplication>
#include <QDebug>
#include <QFile>
#include <QGridLayout>
#include <QMetaProperty>
#include <QTest>
#include <QUiLoader>
#include <QWidget>
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "gui/form_reader.h"
#include "gui/qt_text.h"
#include "tests/support/temp_folder.h"

namespace {

/// One line for each thing that can be asked of a form, in the order of its tree.
class Description {
public:
    explicit Description(QWidget& form) {
        describeWidget(form, form.objectName());
        for (const QWidget* next = form.nextInFocusChain(); next != &form;
             next = next->nextInFocusChain())
            add("tab order", next->objectName());
    }

    std::vector<std::string> lines;

private:
    template <class Value>
    void add(const QString& what, const Value& value) {
        QString shown;
        QDebug(&shown) << value;
        lines.push_back((what + ": " + shown).toStdString());
    }

    void describeProperties(const QObject& object, const QString& path) {
        add(path + " is a", QString::fromLatin1(object.metaObject()->className()));
        for (int index = 0; index < object.metaObject()->propertyCount(); ++index) {
            const QMetaProperty property = object.metaObject()->property(index);
            const QString name = QString::fromLatin1(property.name());
            // One window of several is active, and has the focus.
            if (name != "isActiveWindow" && name != "focus")
                add(path + "." + name, property.read(&object));
        }
    }

    void describeWidget(QWidget& widget, const QString& path) {
        describeProperties(widget, path);
        if (widget.layout())
            describeLayout(*widget.layout(), path + "/" + widget.layout()->objectName());
        for (QObject* const child : widget.children())
            if (child->isWidgetType())
                describeWidget(*static_cast<QWidget*>(child), path + "/" + child->objectName());
    }

    void describeLayout(QLayout& layout, const QString& path) {
        describeProperties(layout, path);
        add(path + " margins", layout.contentsMargins());
        auto* const box = qobject_cast<QBoxLayout*>(&layout);
        auto* const grid = qobject_cast<QGridLayout*>(&layout);
        for (int index = 0; index < layout.count(); ++index) {
            const QString place = path + "[" + QString::number(index) + "]";
            describeItem(*layout.itemAt(index), place);
            if (box)
                add(place + " stretch", box->stretch(index));
            int row = 0, column = 0, rowSpan = 0, columnSpan = 0;
            if (grid)
                grid->getItemPosition(index, &row, &column, &rowSpan, &columnSpan);
            add(place + " cell", QRect(column, row, columnSpan, rowSpan));
        }
    }

    void describeItem(QLayoutItem& item, const QString& place) {
        add(place + " alignment", static_cast<int>(item.alignment()));
        add(place + " geometry", item.geometry());
        add(place + " size hint", item.sizeHint());
        add(place + " least size", item.minimumSize());
        add(place + " largest size", item.maximumSize());
        add(place + " expands", static_cast<int>(item.expandingDirections()));
        if (item.widget())
            add(place + " widget", item.widget()->objectName());
        if (item.layout())
            describeLayout(*item.layout(), place + "/" + item.layout()->objectName());
        if (item.spacerItem())
            add(place + " spacer", item.spacerItem()->sizePolicy());
    }
};

std::unique_ptr<QWidget> formOfQt(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return std::unique_ptr<QWidget>(QUiLoader().load(&file));
}

/// Both have hundreds of lines: tells of the first that differs.
void expectSame(QWidget& form, QWidget& expected) {
    const std::vector<std::string> lines = Description(form).lines;
    const std::vector<std::string> expectedLines = Description(expected).lines;
    const auto [own, other] =
        std::mismatch(lines.begin(), lines.end(), expectedLines.begin(), expectedLines.end());
    EXPECT_EQ(own == lines.end() ? "no more" : *own,
              other == expectedLines.end() ? "no more" : *other);
}

void checkSame(const std::u16string& path) {
    QString error;
    const std::unique_ptr<QWidget> expected = formOfQt(toQString(path));
    const std::unique_ptr<QWidget> form = readForm(path, error);
    ASSERT_TRUE(expected);
    ASSERT_TRUE(form) << error.toStdString();
    expectSame(*form, *expected);
    for (QWidget* const shown : {expected.get(), form.get()}) {
        shown->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(shown));
        shown->move(0, 0);  // a window manager places each elsewhere
        QCoreApplication::processEvents();
    }
    expectSame(*form, *expected);
}

TEST(FormReader, BuildsTheEditManyWindowAsQtDoes) {
    checkSame(fromQString(QUILLET_SOURCE_DIR "/data/plugins/quillet/EditManyWindow.ui"));
}

TEST(FormReader, BuildsWhateverItKnowsAsQtDoes) {
    const TempFolder folder;
    checkSame(folder.write(u"m\u00F6glich.ui", R"(<?xml version="1.0" encoding="UTF-8"?>
<ui version="4.0"><class>Top</class>
 <widget class="QFrame" name="Top">
  <property name="geometry"><rect><x>40</x><y>-30</y><width>321</width><height>234</height></rect></property>
  <property name="windowTitle"><string>  &lt;T&#246;p&gt; &amp; "B&#228;r" <!-- none --> 世界 </string></property>
  <property name="layoutDirection"><enum>Qt::RightToLeft</enum></property>
  <layout class="QGridLayout" name="Grid">
   <property name="topMargin"><number>13</number></property>
   <property name="rightMargin"><number>2</number></property>
   <property name="spacing"><number>21</number></property>
   <property name="sizeConstraint"><enum>QLayout::SetMinimumSize</enum></property>
   <item row="1" column="2" rowspan="2" colspan="3">
    <widget class="QLabel" name="Label">
     <property name="text"><string/></property>
     <property name="margin"><number>-3</number></property>
     <property name="sizePolicy">
      <sizepolicy hsizetype="MinimumExpanding" vsizetype="Ignored">
       <horstretch>7</horstretch><verstretch>0</verstretch></sizepolicy>
     </property>
    </widget>
   </item>
   <item row="0" column="0">
    <layout class="QHBoxLayout" name="Inner">
     <property name="spacing"><number>5</number></property>
     <item><spacer name="Plain"/></item>
     <item>
      <spacer name="Fixed">
       <property name="orientation"><enum>Qt::Horizontal</enum></property>
       <property name="sizeType"><enum>QSizePolicy::Fixed</enum></property>
       <property name="sizeHint" stdset="0"><size><width>31</width><height>7</height></size></property>
      </spacer>
     </item>
     <item><layout class="QGridLayout" name="Innermost"/></item>
    </layout>
   </item>
   <item row="2" column="1">
    <spacer name="InGrid">
     <property name="sizeType"><enum>QSizePolicy::Minimum</enum></property>
     <property name="sizeHint"><size><width>3</width><height>9</height></size></property>
    </spacer>
   </item>
   <item row="3" column="0" colspan="2">
    <widget class="QFrame" name="Free">
     <property name="frameShape"><enum>QFrame::Box</enum></property>
     <widget class="QPushButton" name="Placed">
      <property name="geometry"><rect><x>5</x><y>6</y><width>70</width><height>8</height></rect></property>
      <property name="enabled"><bool>false</bool></property>
      <property name="checkable"><bool>true</bool></property>
     </widget>
     <widget class="QComboBox" name="Hidden"><property name="visible"><bool>false</bool></property></widget>
     <widget class="QScrollArea" name="Area">
      <property name="verticalScrollBarPolicy"><enum>Qt::ScrollBarAlwaysOn</enum></property>
      <widget class="QLabel" name="Scrolled"/>
     </widget>
    </widget>
   </item>
  </layout>
 </widget>
 <resources/><connections/>
</ui>)"));
}

}  // namespace
