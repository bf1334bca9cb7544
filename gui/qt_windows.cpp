#include "gui/qt_windows.h"

#include <QApplication>
#include <utility>

#include "gui/application_scope.h"
#include "gui/edit_many.h"
#include "gui/property_dialog.h"

namespace {

TextLookup textsOf(const HostCalls& host) {
    return [&host](const char* key) { return host.text(key); };
}

}  // namespace

QtWindows::QtWindows(const HostCalls& host, std::u16string pluginFolder)
    : host_(host), pluginFolder_(std::move(pluginFolder)), messageBoxes_(textsOf(host)) {}

std::optional<IFC::PropertyWindowResult> QtWindows::askProperty(
    const IFC::PropertyWindowInput& input) {
    const ApplicationScope application(textsOf(host_));
    if (!application.isReady())
        return std::nullopt;
    return askInPropertyDialog(input, textsOf(host_), pluginFolder_, QApplication::activeWindow());
}

void QtWindows::editMany(const std::vector<std::uint64_t>& objects,
                         const IFC::ApplyManyEdits& apply) {
    std::int32_t policy = AddPropertyOperation::kPolicyNotSpecified;
    EditMany(host_, pluginFolder_).run(objects, apply, policy);
}
