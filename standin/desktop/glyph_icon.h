#pragma once

#include <QIcon>

namespace standin {

enum class Glyph { Open, Recent, Save, SaveAs, Undo, Redo };

/// Drawn in any size, in the colours of the palette that the program has at that time.
QIcon glyphIcon(Glyph glyph);

}  // namespace standin
