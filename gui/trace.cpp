#include "gui/trace.h"

#include "ifc/io/log_file.h"

bool isTracing() { return LogFile::instance().isOpen(); }

void trace(std::u16string_view text) {
    if (isTracing())
        LogFile::instance().write(text);
}
