// Opens the property window for whoever sits at the display:
//   show_property_window LANGUAGE text|quantity|truth|new-set|rename
// writes "ID X Y WIDTH HEIGHT" of each control and "ready" when it is open, then what was entered.
//   show_property_window --picture FILE.bmp
// takes a picture of the screen.
#include <windows.h>

#include <cstdio>
#include <string>

#include "gui/win32/native_property_dialog.h"
#include "platform/text.h"
#include "tests/native/native_user.h"
#include "tests/native/property_inputs.h"
#include "tests/support/language_texts.h"

namespace {

IFC::PropertyWindowInput inputOf(const std::string& kind, const std::string& language) {
    using enum IFC::PropertyWindowMode;
    if (kind == "new-set")
        return inputFor(AddSet, language);
    if (kind == "rename")
        return inputFor(RenameSet, language);
    IFC::PropertyWindowInput input = inputFor(EditProperty, language);
    input.propertyName = u"T\u00FCr & Fenster \u05D3\u05DC\u05EA";
    input.value = u"First line\nsecond line & more\n\u05E9\u05DC\u05D5\u05DD, \u65E5\u672C";
    input.isTruthValue = kind == "truth";
    if (kind == "quantity") {
        input.isQuantity = true;
        input.value = u"1.5";
        input.quantityType = u"IfcQuantityLength";
        input.prefix = u"MILLI";
        input.unit = u"METRE";
    }
    return input;
}

void tellPlaces(HWND window) {
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        RECT place{};
        GetWindowRect(child, &place);
        std::printf("%d %ld %ld %ld %ld\n", GetDlgCtrlID(child), place.left, place.top,
                    place.right - place.left, place.bottom - place.top);
    }
    std::puts("ready");
    std::fflush(stdout);
}

void tell(const char* name, const std::u16string& text) {
    std::string line = platform::toUtf8(text);
    for (std::size_t at = 0; (at = line.find('\n', at)) != std::string::npos; at += 2)
        line.replace(at, 1, "\\n");
    std::printf("%s=%s\n", name, line.c_str());
}

}  // namespace

int main(int argc, char** argv) {
    SetProcessDPIAware();
    if (argc != 3)
        return 2;
    const std::string first = argv[1];
    if (first == "--picture")
        return NativeUser::savePicture(GetDesktopWindow(), argv[2]) ? 0 : 1;
    std::optional<IFC::PropertyWindowResult> result;
    {
        const NativeUser watcher(
            [](NativeUser& self) { tellPlaces(self.waitForWindow(L"IfcPropertyWindowClass")); });
        result = askInNativePropertyDialog(
            inputOf(argv[2], first), textsOfLanguage(first),
            platform::fromUtf8(QUILLET_SOURCE_DIR "/data/plugins/quillet"));
    }
    if (!result) {
        std::puts("cancelled");
        return 0;
    }
    tell("set", result->setName);
    tell("name", result->property.name);
    tell("value", result->property.value);
    tell("prefix", result->property.prefix);
    tell("unit", result->property.unit);
    tell("type", result->property.quantityType);
    return 0;
}
