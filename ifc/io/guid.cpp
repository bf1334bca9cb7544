#include "ifc/io/guid.h"

#include <cstddef>
#include <cstdint>

#include "ifc/io/io_texts.h"
#include "platform/message_box.h"

namespace IFC {
namespace {

constexpr std::size_t kBitsPerDigit = 6;
constexpr std::size_t kUnusedBits = kGuidTextUnits * kBitsPerDigit - 128;  // of the first digit

}  // namespace

std::u16string guidText(const platform::GuidBytes& guid) {
    std::u16string text;
    text.reserve(kGuidTextUnits);
    std::uint32_t bits = 0;  // those that wait for their digit are the lowest `count`
    std::size_t count = kUnusedBits;
    for (const std::uint8_t byte : guid) {
        bits = bits << 8 | byte;
        count += 8;
        while (count >= kBitsPerDigit) {
            count -= kBitsPerDigit;
            text.push_back(kGuidDigits[bits >> count & 0x3F]);
        }
    }
    return text;
}

std::optional<platform::GuidBytes> guidBytes(std::u16string_view text) {
    if (text.size() != kGuidTextUnits ||
        kGuidDigits.find(text[0]) >> (kBitsPerDigit - kUnusedBits) != 0)
        return std::nullopt;
    platform::GuidBytes guid = {};
    std::size_t size = 0;
    std::uint32_t bits = 0;  // those that wait for their byte are the lowest `count`
    std::size_t count = 0;
    for (const char16_t unit : text) {
        const std::size_t digit = kGuidDigits.find(unit);
        if (digit == std::u16string_view::npos)
            return std::nullopt;
        bits = bits << kBitsPerDigit | static_cast<std::uint32_t>(digit);
        count += size == 0 && count == 0 ? kBitsPerDigit - kUnusedBits : kBitsPerDigit;
        if (count >= 8) {
            count -= 8;
            guid[size++] = static_cast<std::uint8_t>(bits >> count & 0xFF);
        }
    }
    return guid;
}

std::u16string newIfcGuid() { return newIfcGuid(platform::newGuid()); }

std::u16string newIfcGuid(const std::optional<platform::GuidBytes>& systemGuid) {
    if (systemGuid)
        return guidText(*systemGuid);
    platform::showMessageBox(texts::kCreateGuidReturnedNull, texts::kUtilsCaption);
    return {};
}

}  // namespace IFC
