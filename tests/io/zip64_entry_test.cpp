#include <gtest/gtest.h>
#include <zlib.h>

#include <string>

#include "ifc/io/input_zip_stream.h"
#include "platform/text.h"
#include "tests/support/reports.h"
#include "tests/support/temp_folder.h"

namespace {

/// `value` in `bytes` bytes, least significant first.
std::string number(std::uint64_t value, int bytes) {
    std::string text;
    for (; bytes > 0; --bytes, value >>= 8)
        text.push_back(static_cast<char>(value & 0xFF));
    return text;
}

/// An archive of one stored entry whose sizes stand in the extra field, as some programs write
/// entries of any size.
std::string zip64Archive(const std::string& content, std::uint64_t crc) {
    const std::string name = "model.ifc";
    const std::string sizes = number(0xFFFFFFFF, 4) + number(0xFFFFFFFF, 4);
    const std::string extra =
        number(1, 2) + number(16, 2) + number(content.size(), 8) + number(content.size(), 8);
    // Version, flags, method, time and date; then CRC, sizes, lengths of name and extra field.
    const std::string common = number(45, 2) + number(0, 2) + number(0, 2) + number(0, 4) +
                               number(crc, 4) + sizes + number(name.size(), 2) +
                               number(extra.size(), 2);
    const std::string entry = "PK\x03\x04" + common + name + extra + content;
    const std::string directory =
        "PK\x01\x02" + number(45, 2) + common + number(0, 14) + name + extra;
    return entry + directory + "PK\x05\x06" + number(0, 4) + number(1, 2) + number(1, 2) +
           number(directory.size(), 4) + number(entry.size(), 4) + number(0, 2);
}

TEST(InputZipFileStream, FindsSizesInTheExtraField) {
    const TempFolder folder;
    const std::string content(5000, 'x');
    const auto crc =
        crc32(0, reinterpret_cast<const Bytef*>(content.data()), static_cast<uInt>(content.size()));
    constexpr std::size_t kBufferSizes[] = {7, 1000, 5000, 0x10000};
    for (const std::size_t bufferBytes : kBufferSizes) {
        for (const bool damaged : {false, true}) {
            ErrorLog log;
            const std::u16string path =
                folder.write(u"model.ifczip", zip64Archive(content, damaged ? crc ^ 1 : crc));
            FileStream::InputZipFileStream stream(path, log.callback(), bufferBytes);
            ASSERT_TRUE(stream.isOpen());
            EXPECT_EQ(stream.size(), content.size());
            std::string read(content.size() + 1, ' ');
            stream.read(read.data(), read.size());
            EXPECT_EQ(read, content + "\xFF");
            std::vector<std::string> reports;
            if (damaged)
                reports = {"|Could not read from zip archive: " + platform::toUtf8(path)};
            EXPECT_EQ(log.entries, reports);
        }
    }
}

}  // namespace
