#include "standin/desktop/marks.h"

#include "standin/desktop/desktop_texts.h"
#include "standin/desktop/qt_text.h"

namespace standin {
namespace {

constexpr int kGreenHue = 130;
constexpr int kBlueHue = 212;
constexpr int kRedHue = 2;
constexpr int kSaturation = 200;
constexpr int kOnDark = 170;
constexpr int kOnLight = 70;

}  // namespace

QString captionOf(Mark mark) {
    switch (mark) {
        case Mark::None: break;
        case Mark::Added: return toQString(texts::kAddedCaption);
        case Mark::Changed: return toQString(texts::kChangedCaption);
        case Mark::Deleted: return toQString(texts::kDeletedCaption);
    }
    return {};
}

QString toolTipOf(Mark mark, const QString& was) {
    switch (mark) {
        case Mark::None: break;
        case Mark::Added: return toQString(texts::kAddedToolTip);
        case Mark::Changed:
            return was.isEmpty() ? toQString(texts::kChangedToolTip)
                                 : toQString(texts::kChangedFromToolTip).arg(was);
        case Mark::Deleted: return toQString(texts::kDeletedToolTip);
    }
    return {};
}

QColor colorOf(Mark mark, const QPalette& palette) {
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    const int hue = mark == Mark::Added ? kGreenHue : mark == Mark::Changed ? kBlueHue : kRedHue;
    return mark == Mark::None ? palette.color(QPalette::Text)
                              : QColor::fromHsl(hue, kSaturation, isDark ? kOnDark : kOnLight);
}

}  // namespace standin
