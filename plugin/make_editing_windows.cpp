#include "plugin/make_editing_windows.h"

#include "plugin/answered_windows.h"

std::unique_ptr<IFC::EditingWindows> makeEditingWindows(const HostCalls& host,
                                                        const std::u16string& pluginFolder) {
    if (host.answersWindows())
        return std::make_unique<AnsweredWindows>(host);
    return makeOwnWindows(host, pluginFolder);
}
