#include "platform/text.h"

#include <gtest/gtest.h>

#include <random>

namespace {

struct Utf8Case {
    std::u16string_view text;
    std::string_view bytes;
    bool back = true;  // whether the bytes give the text back
};

TEST(Text, IsUtf8AtTheEdges) {
    constexpr std::u16string_view kHalfPairs = u"a\xD83D\xD83D\xDE00\xDE00z";
    const Utf8Case cases[] = {
        {u"", ""},
        {u"W\u00E4nde \u20AC", "W\xC3\xA4nde \xE2\x82\xAC"},
        {u"\U0001F600", "\xF0\x9F\x98\x80"},
        {kHalfPairs, "a\xEF\xBF\xBD\xF0\x9F\x98\x80\xEF\xBF\xBDz", false},
    };
    for (const auto& [text, bytes, back] : cases) {
        EXPECT_EQ(platform::toUtf8(text), bytes);
        if (back) {
            EXPECT_EQ(platform::fromUtf8(bytes), text) << bytes;
        }
    }
    EXPECT_EQ(platform::fromUtf8("a\xC3(\xFF"), u"a\uFFFD(\uFFFD");
}

TEST(PathText, KeepsNamesThatAreNotUtf8) {
    EXPECT_EQ(platform::fromPathBytes("/tmp/W\xE4nde\xC3\xA4.ifc"), u"/tmp/W\xDCE4nde\u00E4.ifc");
    std::mt19937 random(20240531);
    for (int round = 0; round < 2000; ++round) {
        std::string name;
        for (std::size_t length = random() % 12; name.size() < length;)
            name.push_back(
                static_cast<char>(random() % 3 ? 0x80 + random() % 0x80 : random() % 0x80));
        EXPECT_EQ(platform::toPathBytes(platform::fromPathBytes(name)), name);
    }
}

}  // namespace
