#include "gui/qt_windows.h"
#include "plugin/make_editing_windows.h"

std::unique_ptr<IFC::EditingWindows> makeOwnWindows(const HostCalls& host,
                                                    const std::u16string& pluginFolder) {
    return std::make_unique<QtWindows>(host, pluginFolder);
}
