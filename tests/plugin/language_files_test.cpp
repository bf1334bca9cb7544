#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>

#include "platform/text.h"

namespace {

namespace fs = std::filesystem;

using Texts = std::map<std::string, std::string>;

const fs::path kRoot = QUILLET_SOURCE_DIR;

Texts textsOf(const std::string& language) {
    Texts texts;
    std::ifstream file(kRoot / "data/plugins/quillet" / ("lang." + language), std::ios::binary);
    EXPECT_TRUE(file) << language;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#')
            continue;
        const std::size_t equals = line.find('=');
        EXPECT_NE(equals, std::string::npos) << line;
        if (equals == std::string::npos)
            continue;
        EXPECT_TRUE(texts.emplace(line.substr(0, equals), line.substr(equals + 1)).second) << line;
        EXPECT_EQ(platform::fromUtf8(line).find(u'\uFFFD'), std::u16string::npos) << line;
        EXPECT_NE(line.back(), '\r') << line;
    }
    return texts;
}

/// What a text must have as often as its translations: places for other texts, line ends.
std::multiset<std::string> marksOf(const std::string& text) {
    static const std::regex kMark(R"(%\d|%[a-z]|\{\w*\}|\\.)");
    std::multiset<std::string> marks;
    for (auto mark = std::sregex_iterator(text.begin(), text.end(), kMark);
         mark != std::sregex_iterator(); ++mark)
        marks.insert(mark->str());
    return marks;
}

TEST(LanguageFiles, HaveTheSameKeysAndMarks) {
    const Texts english = textsOf("en");
    EXPECT_GT(english.size(), 90u);
    for (const std::string language : {"de", "es", "fr", "it", "pl", "pt"}) {
        const Texts translated = textsOf(language);
        EXPECT_EQ(translated.size(), english.size()) << language;
        for (const auto& [key, text] : english) {
            const auto found = translated.find(key);
            ASSERT_NE(found, translated.end()) << language << " lacks " << key;
            EXPECT_FALSE(found->second.empty()) << language << " " << key;
            EXPECT_EQ(marksOf(found->second), marksOf(text)) << language << " " << key;
        }
    }
}

/// Keys stand in the *_texts.h of each folder, as constants whose names end in "Key".
TEST(LanguageFiles, HaveEveryKeyOfTheCode) {
    const Texts english = textsOf("en");
    const std::regex kKey(R"(Key\s*=\s*"([^"]+)\")");
    std::size_t count = 0;
    for (const std::string folder : {"plugin", "edits", "ifc/io", "ifc/model"}) {
        for (const auto& entry : fs::directory_iterator(kRoot / folder)) {
            if (!entry.path().filename().string().ends_with("_texts.h"))
                continue;
            std::ifstream file(entry.path());
            const std::string code{std::istreambuf_iterator<char>(file), {}};
            for (auto key = std::sregex_iterator(code.begin(), code.end(), kKey);
                 key != std::sregex_iterator(); ++key, ++count)
                EXPECT_TRUE(english.contains((*key)[1]))
                    << (*key)[1] << " of " << entry.path().filename();
        }
    }
    EXPECT_GT(count, 60u);
}

}  // namespace
