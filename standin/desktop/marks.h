#pragma once

#include <QColor>
#include <QPalette>
#include <QString>

#include "standin/desktop/shown_properties.h"

namespace standin {

/// "+ added"; empty for none.
QString captionOf(Mark mark);
/// was: what it was before; may be empty.
QString toolTipOf(Mark mark, const QString& was);
/// Can be read on the background of lists, light or dark.
QColor colorOf(Mark mark, const QPalette& palette);

}  // namespace standin
