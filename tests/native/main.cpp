#include <windows.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

int main(int argc, char** argv) {
    // As today's hosts are: what is drawn is not stretched by the system.
    SetProcessDPIAware();
    // Other tests run at the same time. Without a screen there can be a desktop for each, where
    // nobody else takes the focus.
    if (!std::getenv("DISPLAY")) {
        const std::wstring name = L"QuilletTest" + std::to_wstring(GetCurrentProcessId());
        SetThreadDesktop(CreateDesktopW(name.c_str(), nullptr, nullptr, 0, GENERIC_ALL, nullptr));
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
