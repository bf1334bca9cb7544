#include "ifc/model/guid_index.h"

#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <random>
#include <string>

namespace {

using IFC::IfcEntity;

/// Stands for an entity; never looked into.
IfcEntity* entityOf(std::size_t number) { return reinterpret_cast<IfcEntity*>((number + 1) * 16); }

TEST(GuidIndex, KeepsTheFirstOfEachGuidWhateverItsLength) {
    std::mt19937 random(20);
    std::deque<std::u16string> texts;  // whose units stay where they are
    std::map<std::u16string, IfcEntity*> expected;
    IFC::GuidIndex index;
    EXPECT_EQ(index.find(u"0"), nullptr);
    for (std::size_t number = 0; number < 20000; ++number) {
        // Few different ones, with the long common begin that one program's GUIDs have.
        std::u16string& guid = texts.emplace_back(random() % 24, u'0');
        guid.push_back(static_cast<char16_t>(u'A' + random() % 26));
        EXPECT_EQ(index.insert(guid, entityOf(number)),
                  expected.emplace(guid, entityOf(number)).second);
        if (number == 100)
            index.reserve(1000);
    }
    ASSERT_GT(expected.size(), 500u);
    for (const auto& [guid, entity] : expected) {
        EXPECT_EQ(index.find(guid), entity);
        EXPECT_EQ(index.find(guid + u"?"), nullptr);
    }
}

}  // namespace
