// A function is hidden by taking its address out of the program's export table: to the loader a
// number without an address is one that the table skips.

#include "platform/hidden_export.h"

#include <windows.h>

#include <cstdint>
#include <cstring>

namespace platform {
namespace {

bool writeAddress(DWORD* place, DWORD address) {
    DWORD protection = 0;
    if (!::VirtualProtect(place, sizeof *place, PAGE_READWRITE, &protection))
        return false;
    *place = address;
    ::VirtualProtect(place, sizeof *place, protection, &protection);
    return true;
}

}  // namespace

HiddenExport::HiddenExport(const char* name) {
    auto* const base = reinterpret_cast<std::uint8_t*>(::GetModuleHandleW(nullptr));
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& directory =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    if (directory.VirtualAddress == 0)
        return;
    const auto* const exports =
        reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + directory.VirtualAddress);
    const auto* const names = reinterpret_cast<const DWORD*>(base + exports->AddressOfNames);
    const auto* const numbers =
        reinterpret_cast<const WORD*>(base + exports->AddressOfNameOrdinals);
    auto* const addresses = reinterpret_cast<DWORD*>(base + exports->AddressOfFunctions);
    for (DWORD at = 0; at < exports->NumberOfNames; ++at) {
        if (std::strcmp(reinterpret_cast<const char*>(base + names[at]), name) != 0)
            continue;
        DWORD* const place = addresses + numbers[at];
        stood_ = *place;
        if (stood_ != 0 && writeAddress(place, 0))
            place_ = place;
        return;
    }
}

HiddenExport::~HiddenExport() {
    if (place_)
        writeAddress(static_cast<DWORD*>(place_), stood_);
}

}  // namespace platform
