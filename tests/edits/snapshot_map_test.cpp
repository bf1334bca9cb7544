#include "edits/snapshot_map.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

using Map = IFC::SnapshotMap<std::string>;
using Model = std::map<std::int32_t, std::string>;

void expectSame(const Map& map, const Model& model) {
    ASSERT_EQ(map.size(), model.size());
    ASSERT_TRUE(std::equal(map.begin(), map.end(), model.begin(), model.end()));
}

TEST(SnapshotMap, BehavesAsAMapAndSoDoItsSnapshots) {
    for (unsigned seed = 1; seed <= 50; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const auto number = [&] {
            const std::int32_t kinds[] = {
                static_cast<std::int32_t>(random() % 200), static_cast<std::int32_t>(random()),
                std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max(),
                -static_cast<std::int32_t>(random() % 70)};
            return kinds[random() % 5];
        };
        Map map;
        Model model;
        std::vector<std::pair<Map, Model>> snapshots;
        for (int step = 0; step < 300; ++step) {
            const std::int32_t chosen = number();
            switch (random() % 8) {
                case 0: snapshots.emplace_back(map, model); break;
                case 1:
                    if (!snapshots.empty())
                        std::tie(map, model) = snapshots[random() % snapshots.size()];
                    break;
                case 2: {
                    std::string* const value = map.findForWriting(chosen);
                    ASSERT_EQ(value != nullptr, model.contains(chosen));
                    if (value)
                        *value = model[chosen] = "w" + std::to_string(step);
                    break;
                }
                default: map[chosen] = model[chosen] = std::to_string(step);
            }
            ASSERT_EQ(map.find(chosen) != nullptr, model.contains(chosen));
        }
        expectSame(map, model);
        for (const auto& [snapshot, content] : snapshots) {
            expectSame(snapshot, content);
            EXPECT_EQ(snapshot == map, content == model);
        }
    }
}

struct Counted {
    Counted() = default;
    Counted(const Counted&) { ++copies; }
    Counted& operator=(const Counted&) = delete;
    bool operator==(const Counted&) const { return true; }
    static inline int copies = 0;
};

TEST(SnapshotMap, CopiesOnlyWhatIsWrittenWhileItIsShared) {
    IFC::SnapshotMap<Counted> map;
    for (std::int32_t number = 0; number < 10000; ++number)
        map[number];
    const auto before = map;
    Counted::copies = 0;
    map[77];
    map[77];
    EXPECT_EQ(Counted::copies, 1);
    EXPECT_NE(before.find(77), map.find(77));
    EXPECT_EQ(before.find(78), map.find(78));
    EXPECT_TRUE(before == map);
}

}  // namespace
