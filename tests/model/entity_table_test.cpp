#include "ifc/model/entity_table.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <vector>

#include "ifc/model/memory_pool.h"

namespace {

using IFC::EntityTable;
using IFC::IfcEntity;

/// Stands for the entity of that number; never looked into.
IfcEntity* entityOf(std::int32_t number) {
    return reinterpret_cast<IfcEntity*>(static_cast<std::uintptr_t>(number) * 16);
}

TEST(EntityTable, FindsWhatWasEnteredAndNothingElse) {
    // Dense, with gaps, far apart, from the end: what comes early decides where the rest is kept.
    std::vector<std::vector<std::int32_t>> orders(4);
    for (int number = 1; number <= 5000; ++number) {
        orders[0].push_back(number);
        orders[1].push_back(number * 1500);
        orders[2].push_back(2'147'483'647 - (number - 1) * 400'000);
    }
    std::mt19937 random(20240101);
    for (int count = 0; count < 200'000; ++count)
        orders[3].push_back(1 + static_cast<std::int32_t>(random() >> (2 + count % 20)));
    for (const std::vector<std::int32_t>& order : orders) {
        IFC::MemoryPool pool;
        EntityTable table(pool);
        std::map<std::int32_t, IfcEntity*> expected;
        for (const std::int32_t number : order) {
            EXPECT_EQ(table.insert(number, entityOf(number)),
                      expected.emplace(number, entityOf(number)).second);
        }
        EXPECT_EQ(table.size(), expected.size());
        EXPECT_EQ(table.largestNumber(), expected.rbegin()->first);
        for (const auto& [number, entity] : expected) {
            ASSERT_EQ(table.find(number), entity) << number;
            const std::int32_t below = number - 1;
            EXPECT_EQ(table.find(below), expected.contains(below) ? entityOf(below) : nullptr);
        }
    }
}

TEST(EntityTable, KeepsTheFirstOfOneNumber) {
    IFC::MemoryPool pool;
    EntityTable table(pool);
    EXPECT_TRUE(table.insert(7, entityOf(1)));
    EXPECT_FALSE(table.insert(7, entityOf(2)));
    EXPECT_EQ(table.find(7), entityOf(1));
    EXPECT_EQ(table.size(), 1U);
}

TEST(EntityTable, HasNothingBelowOne) {
    IFC::MemoryPool pool;
    EntityTable table(pool);
    table.insert(1, entityOf(1));
    for (const std::int32_t number : {0, -1, -9, -2'147'483'647 - 1})
        EXPECT_EQ(table.find(number), nullptr);
}

TEST(EntityTable, ReservesNumbersUnlessTooFewWouldBeLeft) {
    IFC::MemoryPool pool;
    EntityTable table(pool);
    table.insert(5, entityOf(5));
    for (const auto& [reserved, largest] : std::vector<std::pair<std::int64_t, std::int32_t>>{
             {3, 5}, {8, 8}, {2'147'483'647, 8}, {std::int64_t{1} << 40, 8}, {-1, 8}}) {
        table.reserve(reserved);
        EXPECT_EQ(table.largestNumber(), largest);
        EXPECT_EQ(table.find(8), nullptr);
    }
}

}  // namespace
