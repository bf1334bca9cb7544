#include "gui/value_grouping.h"

#include <algorithm>
#include <exception>

#include "gui/edit_many_texts.h"
#include "gui/qt_text.h"
#include "ifc/model/units.h"

QString groupingKey(GroupingType type, const QString& entityName, const QString& value) {
    return type == GroupingType::NamesAndIfcEntity
               ? entityName + toQString(texts::many::kKeySeparator) + value
               : value;
}

QString groupLabel(GroupingType type, const QString& entityName, int size) {
    const QString count = QStringLiteral("(x%1)").arg(size);
    switch (type) {
        case GroupingType::NamesAndIfcEntity:
            return size >= 2 ? entityName + u' ' + count : entityName;
        case GroupingType::Names: return count;
        case GroupingType::DoNotGroup: break;
    }
    return {};
}

bool isNumericKey(int key, const QString& text) {
    switch (key) {
        case Qt::Key_Tab:
        case Qt::Key_Backspace:
        case Qt::Key_Delete:
        case Qt::Key_Left:
        case Qt::Key_Right: return true;
        default: break;
    }
    const auto isHarmless = [](QChar sign) {
        return (sign >= u'0' && sign <= u'9') || sign == u'.' || !sign.isPrint();
    };
    // Halves of a character beyond the first plane are not printable by themselves.
    return std::all_of(text.begin(), text.end(), isHarmless) &&
           std::none_of(text.begin(), text.end(), [](QChar sign) { return sign.isSurrogate(); });
}

int unitIndexOf(std::u16string_view prefix, std::u16string_view unit) {
    if (unit.empty())
        return -1;
    try {
        IFC::SIUnit si;
        if (!prefix.empty())
            si.prefix = IFC::GetIfcSIPrefixFromWstring(prefix);
        si.name = IFC::GetIfcSIUnitNameFromWstring(unit);
        const std::u16string_view label = IFC::siUnitLabel(si);
        const auto labels = IFC::siUnitLabels();
        const auto found = std::find(labels.begin(), labels.end(), label);
        return found != labels.end() ? static_cast<int>(found - labels.begin()) : -1;
    } catch (const std::exception&) {
        return -1;  // none of the SI
    }
}

QString unitLabelAt(int index) {
    const auto labels = IFC::siUnitLabels();
    const auto place = static_cast<std::size_t>(index);
    return index >= 0 && place < labels.size() ? toQString(labels[place]) : QString();
}
