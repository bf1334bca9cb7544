#include "ifc/io/guid.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "ifc/io/io_texts.h"
#include "platform/message_box.h"

namespace IFC {
namespace {

constexpr std::size_t kBitsPerDigit = 6;
constexpr std::size_t kUnusedBits = kGuidTextUnits * kBitsPerDigit - 128;  // of the first digit

/// FNV-1a of 128 bits. Its prime is 2^88 + 0x13B, so that the product is two sums of words.
class NameHash {
public:
    void add(std::uint8_t byte) {
        words_[0] ^= byte;
        const std::array<std::uint32_t, 4> shifted = {0, 0, words_[0] << 24,
                                                      words_[1] << 24 | words_[0] >> 8};
        std::uint64_t carry = 0;
        for (std::size_t at = 0; at < words_.size(); ++at) {
            carry += std::uint64_t{words_[at]} * 0x13B + shifted[at];
            words_[at] = static_cast<std::uint32_t>(carry);
            carry >>= 32;
        }
    }

    /// The most significant byte first.
    platform::GuidBytes bytes() const {
        platform::GuidBytes bytes = {};
        for (std::size_t at = 0; at < bytes.size(); ++at) {
            const std::size_t weight = bytes.size() - 1 - at;
            bytes[at] = static_cast<std::uint8_t>(words_[weight / 4] >> (weight % 4 * 8));
        }
        return bytes;
    }

private:
    /// The offset basis, the least significant word first.
    std::array<std::uint32_t, 4> words_ = {0x6295C58D, 0x62B82175, 0x07BB0142, 0x6C62272E};
};

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

std::u16string namedIfcGuid(std::u16string_view name) {
    NameHash hash;
    for (const char16_t unit : name) {
        hash.add(static_cast<std::uint8_t>(unit & 0xFF));
        hash.add(static_cast<std::uint8_t>(unit >> 8));
    }
    platform::GuidBytes guid = hash.bytes();
    // Version 8 of RFC 9562, a form of one's own, which no generator of GUIDs gives.
    guid[6] = static_cast<std::uint8_t>((guid[6] & 0x0F) | 0x80);
    guid[8] = static_cast<std::uint8_t>((guid[8] & 0x3F) | 0x80);
    return guidText(guid);
}

std::u16string newIfcGuid() { return newIfcGuid(platform::newGuid()); }

std::u16string newIfcGuid(const std::optional<platform::GuidBytes>& systemGuid) {
    if (systemGuid)
        return guidText(*systemGuid);
    platform::showMessageBox(texts::kCreateGuidReturnedNull, texts::kUtilsCaption);
    return {};
}

}  // namespace IFC
