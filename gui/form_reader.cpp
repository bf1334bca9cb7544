// What is read of a form file, the XML that Qt's form editor writes:
//   ui version="4.0":      class, one widget, resources and connections without content
//   widget class name:     property..., then one layout, or widgets
//   layout class name:     property..., item...
//   item:                  one widget, layout or spacer; in a grid with row and column, and with
//                          rowspan and colspan when it takes more than one
//   spacer name:           its properties are orientation, sizeType and sizeHint
//   property name stdset:  one bool, number, string, enum, rect, size or sizepolicy

#include "gui/form_reader.h"

#include <tinyxml2.h>

#include <QBoxLayout>
#include <QComboBox>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QMetaEnum>
#include <QMetaProperty>
#include <QPushButton>
#include <QScrollArea>
#include <algorithm>
#include <initializer_list>
#include <utility>

#include "gui/form_texts.h"
#include "gui/qt_text.h"

namespace {

using Element = tinyxml2::XMLElement;

/// Why a form is refused; never leaves this file.
struct FormFault {
    int line = 0;
    QString reason;
};

[[noreturn]] void refuse(const Element& where, const char* reason, const QString& what) {
    throw FormFault{where.GetLineNum(), QString::fromLatin1(reason) + what};
}

bool is(const Element& element, const char* name) { return qstrcmp(element.Name(), name) == 0; }

[[noreturn]] void refuseElement(const Element& element) {
    refuse(element, texts::form::kUnknownElement, QString::fromUtf8(element.Name()));
}

template <class Visit>
void forEachChild(const Element& element, const Visit& visit) {
    for (const Element* child = element.FirstChildElement(); child;
         child = child->NextSiblingElement())
        visit(*child);
}

void checkAttributes(const Element& element, std::initializer_list<const char*> known) {
    for (const auto* each = element.FirstAttribute(); each; each = each->Next()) {
        const auto isIt = [each](const char* name) { return qstrcmp(each->Name(), name) == 0; };
        if (std::none_of(known.begin(), known.end(), isIt))
            refuse(element, texts::form::kUnknownAttribute, QString::fromUtf8(each->Name()));
    }
}

QByteArray attribute(const Element& element, const char* name) {
    const char* const value = element.Attribute(name);
    if (!value)
        refuse(element, texts::form::kMissingAttribute, QString::fromLatin1(name));
    return value;
}

/// The only child element.
const Element& onlyChild(const Element& element, const char* expected) {
    const Element* const child = element.FirstChildElement();
    if (!child)
        refuse(element, texts::form::kMissingElement, QString::fromLatin1(expected));
    if (const Element* const second = child->NextSiblingElement())
        refuse(*second, texts::form::kSecondContent, QString::fromUtf8(child->Name()));
    return *child;
}

QString textOf(const Element& element) {
    QByteArray text;
    for (const auto* node = element.FirstChild(); node; node = node->NextSibling()) {
        if (const Element* const child = node->ToElement())
            refuseElement(*child);
        if (node->ToText())
            text += node->Value();
    }
    const QString decoded = QString::fromUtf8(text);
    if (decoded.contains(QChar::ReplacementCharacter))  // the file has another encoding
        refuse(element, texts::form::kWrongValue, decoded);
    return decoded;
}

int numberOf(const Element& element, const QString& text) {
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (!isNumber)
        refuse(element, texts::form::kWrongValue, text);
    return number;
}

/// The number in the child `name`.
int numberIn(const Element& element, const char* name) {
    const Element* const child = element.FirstChildElement(name);
    if (!child)
        refuse(element, texts::form::kMissingElement, QString::fromLatin1(name));
    return numberOf(*child, textOf(*child));
}

void checkChildren(const Element& element, std::initializer_list<const char*> known) {
    forEachChild(element, [&](const Element& child) {
        const auto isIt = [&child](const char* name) { return is(child, name); };
        if (std::none_of(known.begin(), known.end(), isIt))
            refuseElement(child);
        if (element.FirstChildElement(child.Name()) != &child)
            refuse(child, texts::form::kSecondContent, QString::fromUtf8(child.Name()));
    });
}

QSize sizeOf(const Element& size) {
    checkChildren(size, {"width", "height"});
    return {numberIn(size, "width"), numberIn(size, "height")};
}

QRect rectangleOf(const Element& rectangle) {
    checkChildren(rectangle, {"x", "y", "width", "height"});
    return {numberIn(rectangle, "x"), numberIn(rectangle, "y"), numberIn(rectangle, "width"),
            numberIn(rectangle, "height")};
}

int enumerationOf(const Element& where, const QMetaEnum& values, const QByteArray& key) {
    bool isKey = false;
    const int value = values.keyToValue(key.constData(), &isKey);
    if (!isKey)
        refuse(where, texts::form::kWrongValue, QString::fromUtf8(key));
    return value;
}

template <class Enumeration>
Enumeration enumerationOf(const Element& where, const QByteArray& key) {
    return static_cast<Enumeration>(enumerationOf(where, QMetaEnum::fromType<Enumeration>(), key));
}

QSizePolicy sizePolicyOf(const Element& policy) {
    checkAttributes(policy, {"hsizetype", "vsizetype"});
    checkChildren(policy, {"horstretch", "verstretch"});
    QSizePolicy result(enumerationOf<QSizePolicy::Policy>(policy, attribute(policy, "hsizetype")),
                       enumerationOf<QSizePolicy::Policy>(policy, attribute(policy, "vsizetype")));
    result.setHorizontalStretch(numberIn(policy, "horstretch"));
    result.setVerticalStretch(numberIn(policy, "verstretch"));
    return result;
}

QVariant valueOf(const Element& value, const QMetaProperty& property) {
    if (is(value, "sizepolicy"))
        return QVariant::fromValue(sizePolicyOf(value));
    checkAttributes(value, {});
    if (is(value, "rect"))
        return rectangleOf(value);
    if (is(value, "size"))
        return sizeOf(value);
    const QString text = textOf(value);
    if (is(value, "string"))
        return text;
    if (is(value, "number"))
        return numberOf(value, text);
    if (is(value, "enum") && property.isEnumType())
        return enumerationOf(value, property.enumerator(), text.toUtf8());
    if (!is(value, "bool"))
        refuseElement(value);
    if (text != QLatin1String("true") && text != QLatin1String("false"))
        refuse(value, texts::form::kWrongValue, text);
    return text == QLatin1String("true");
}

QByteArray nameOf(const Element& property) {
    checkAttributes(property, {"name", "stdset"});
    return attribute(property, "name");
}

void setProperty(QObject& object, const Element& element) {
    const QByteArray name = nameOf(element);
    const int index = object.metaObject()->indexOfProperty(name.constData());
    if (index < 0)
        refuse(element, texts::form::kUnknownProperty, QString::fromUtf8(name));
    const QMetaProperty property = object.metaObject()->property(index);
    const Element& value = onlyChild(element, "string");
    if (!property.write(&object, valueOf(value, property)))
        refuse(value, texts::form::kWrongValue, QString::fromUtf8(name));
}

void setLayoutProperty(QLayout& layout, const Element& element) {
    constexpr std::pair<const char*, void (QMargins::*)(int)> kSides[] = {
        {"leftMargin", &QMargins::setLeft},
        {"topMargin", &QMargins::setTop},
        {"rightMargin", &QMargins::setRight},
        {"bottomMargin", &QMargins::setBottom}};
    const QByteArray name = nameOf(element);
    for (const auto& [side, set] : kSides) {
        if (name != side)
            continue;
        const Element& value = onlyChild(element, "number");
        if (!is(value, "number"))
            refuseElement(value);
        QMargins margins = layout.contentsMargins();
        (margins.*set)(numberOf(value, textOf(value)));
        layout.setContentsMargins(margins);
        return;
    }
    setProperty(layout, element);
}

void setWidgetProperty(QWidget& widget, const Element& element) {
    if (widget.parentWidget() || nameOf(element) != "geometry")
        return setProperty(widget, element);
    const Element& value = onlyChild(element, "rect");
    if (!is(value, "rect"))
        refuseElement(value);
    widget.resize(rectangleOf(value).size());  // where the form goes is the system's affair
}

/// parent: owns the widget; null for the form itself.
QWidget* newWidget(const Element& element, QWidget* parent) {
    const QByteArray name = attribute(element, "class");
    if (name == "QWidget")
        return new QWidget(parent);
    if (name == "QFrame")
        return new QFrame(parent);
    if (name == "QLabel")
        return new QLabel(parent);
    if (name == "QPushButton")
        return new QPushButton(parent);
    if (name == "QComboBox")
        return new QComboBox(parent);
    if (name == "QScrollArea")
        return new QScrollArea(parent);
    refuse(element, texts::form::kUnknownWidget, QString::fromUtf8(name));
}

/// The caller gives it an owner at once.
QLayout* newLayout(const Element& element) {
    const QByteArray name = attribute(element, "class");
    if (name == "QVBoxLayout")
        return new QVBoxLayout;
    if (name == "QHBoxLayout")
        return new QHBoxLayout;
    if (name == "QGridLayout")
        return new QGridLayout;
    refuse(element, texts::form::kUnknownLayout, QString::fromUtf8(name));
}

std::unique_ptr<QSpacerItem> readSpacer(const Element& element) {
    checkAttributes(element, {"name"});
    QSize size(0, 0);
    auto policy = QSizePolicy::Expanding;
    auto orientation = Qt::Horizontal;
    forEachChild(element, [&](const Element& property) {
        if (!is(property, "property"))
            refuseElement(property);
        const QByteArray name = nameOf(property);
        const Element& value = onlyChild(property, "enum");
        checkAttributes(value, {});
        if (name == "sizeHint" && is(value, "size"))
            size = sizeOf(value);
        else if (name == "sizeType" && is(value, "enum"))
            policy = enumerationOf<QSizePolicy::Policy>(value, textOf(value).toUtf8());
        else if (name == "orientation" && is(value, "enum"))
            orientation = enumerationOf<Qt::Orientation>(value, textOf(value).toUtf8());
        else
            refuse(property, texts::form::kUnknownProperty, QString::fromUtf8(name));
    });
    const bool isVertical = orientation == Qt::Vertical;
    return std::make_unique<QSpacerItem>(size.width(), size.height(),
                                         isVertical ? QSizePolicy::Minimum : policy,
                                         isVertical ? policy : QSizePolicy::Minimum);
}

/// Where an item of a grid lies.
struct Cell {
    int row = 0;
    int column = 0;
    int rowSpan = 1;
    int columnSpan = 1;
};

Cell cellOf(const Element& item) {
    constexpr int kMostCells = 10000;  // a grid keeps a record for each row and column
    checkAttributes(item, {"row", "column", "rowspan", "colspan"});
    const auto number = [&item](const char* name, int least) {
        const QString text = QString::fromUtf8(attribute(item, name));
        const int value = numberOf(item, text);
        if (value < least || value > kMostCells)
            refuse(item, texts::form::kWrongValue, text);
        return value;
    };
    return {.row = number("row", 0),
            .column = number("column", 0),
            .rowSpan = item.Attribute("rowspan") ? number("rowspan", 1) : 1,
            .columnSpan = item.Attribute("colspan") ? number("colspan", 1) : 1};
}

QWidget* readWidget(const Element& element, QWidget* parent);
void readLayout(const Element& element, QLayout& layout, QWidget& owner);

/// owner: the widget that the layout arranges, and to which the widgets in it belong.
void readItem(const Element& item, QLayout& layout, QWidget& owner) {
    const Element& content = onlyChild(item, "widget");
    auto* const grid = qobject_cast<QGridLayout*>(&layout);
    auto* const box = qobject_cast<QBoxLayout*>(&layout);
    const Cell cell = grid ? cellOf(item) : Cell();
    if (box)
        checkAttributes(item, {});
    if (is(content, "widget")) {
        QWidget* const widget = readWidget(content, &owner);
        grid ? grid->addWidget(widget, cell.row, cell.column, cell.rowSpan, cell.columnSpan)
             : box->addWidget(widget);
    } else if (is(content, "layout")) {
        QLayout* const inner = newLayout(content);
        grid ? grid->addLayout(inner, cell.row, cell.column, cell.rowSpan, cell.columnSpan)
             : box->addLayout(inner);
        readLayout(content, *inner, owner);
    } else if (is(content, "spacer")) {
        QSpacerItem* const spacer = readSpacer(content).release();
        grid ? grid->addItem(spacer, cell.row, cell.column, cell.rowSpan, cell.columnSpan)
             : box->addItem(spacer);
    } else {
        refuseElement(content);
    }
}

void readLayout(const Element& element, QLayout& layout, QWidget& owner) {
    checkAttributes(element, {"class", "name"});
    layout.setObjectName(QString::fromUtf8(attribute(element, "name")));
    forEachChild(element, [&](const Element& child) {
        if (is(child, "property"))
            setLayoutProperty(layout, child);
        else if (is(child, "item"))
            readItem(child, layout, owner);
        else
            refuseElement(child);
    });
}

void readWidgetContent(const Element& element, QWidget& widget) {
    checkAttributes(element, {"class", "name"});
    widget.setObjectName(QString::fromUtf8(attribute(element, "name")));
    auto* const area = qobject_cast<QScrollArea*>(&widget);
    forEachChild(element, [&](const Element& child) {
        if (is(child, "property")) {
            setWidgetProperty(widget, child);
        } else if (is(child, "layout")) {
            if (widget.layout() || element.FirstChildElement("widget"))
                refuse(child, texts::form::kSecondContent, QString::fromUtf8(child.Name()));
            QLayout* const layout = newLayout(child);
            widget.setLayout(layout);
            readLayout(child, *layout, widget);
        } else if (is(child, "widget")) {
            if (area && area->widget())
                refuse(child, texts::form::kSecondContent, QString::fromUtf8(child.Name()));
            QWidget* const inner = readWidget(child, &widget);
            if (area)
                area->setWidget(inner);
        } else {
            refuseElement(child);
        }
    });
}

QWidget* readWidget(const Element& element, QWidget* parent) {
    QWidget* const widget = newWidget(element, parent);
    readWidgetContent(element, *widget);
    return widget;
}

std::unique_ptr<QWidget> readDocument(const Element& ui) {
    if (!is(ui, "ui"))
        refuseElement(ui);
    checkAttributes(ui, {"version"});
    if (attribute(ui, "version") != "4.0")
        refuse(ui, texts::form::kUnknownVersion, QString::fromUtf8(attribute(ui, "version")));
    checkChildren(ui, {"class", "widget", "resources", "connections"});
    for (const char* const unused : {"resources", "connections"}) {
        const Element* const element = ui.FirstChildElement(unused);
        if (element && element->FirstChildElement())
            refuseElement(*element->FirstChildElement());
    }
    const Element* const top = ui.FirstChildElement("widget");
    if (!top)
        refuse(ui, texts::form::kMissingElement, QStringLiteral("widget"));
    std::unique_ptr<QWidget> form(newWidget(*top, nullptr));
    readWidgetContent(*top, *form);
    return form;
}

}  // namespace

std::unique_ptr<QWidget> readForm(const std::u16string& path, QString& error) {
    const QString name = toQString(path);
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        error = name + QStringLiteral(": ") + file.errorString();
        return nullptr;
    }
    const QByteArray bytes = file.readAll();
    tinyxml2::XMLDocument document;
    document.Parse(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    try {
        if (document.Error())
            throw FormFault{document.ErrorLineNum(),
                            QString::fromLatin1(texts::form::kNotWellFormed) +
                                QString::fromLatin1(document.ErrorName())};
        if (!document.RootElement())
            throw FormFault{
                1, QString::fromLatin1(texts::form::kMissingElement) + QStringLiteral("ui")};
        return readDocument(*document.RootElement());
    } catch (const FormFault& fault) {
        error = QStringLiteral("%1:%2: %3").arg(name, QString::number(fault.line), fault.reason);
        return nullptr;
    }
}
