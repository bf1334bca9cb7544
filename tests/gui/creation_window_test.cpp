#include "gui/creation_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <set>
#include <vector>

namespace {

constexpr int kRowsAtOnce = 101;  // when a property is expanded
constexpr int kAll = 1'000'000;

/// Rows that note which of them have widgets.
struct FakeRows final : CreatableRows {
    int rowCount() const override { return isShown && isExpanded ? count : 0; }
    void createRow(int row) override {
        EXPECT_TRUE(row >= 0 && row < rowCount() && live.insert(row).second) << "row " << row;
        seen.insert(row);
    }
    void destroyRow(int row) override { EXPECT_EQ(live.erase(row), 1u) << "row " << row; }

    void setShown(bool shown, bool expanded) {
        isShown = shown;
        isExpanded = expanded;
        live.clear();
        firstCreated = endCreated = 0;
        for (; endCreated < std::min(rowCount(), kRowsAtOnce); ++endCreated)
            createRow(endCreated);
    }

    int count = 0;
    bool isShown = true;  // its set is expanded
    bool isExpanded = false;
    std::set<int> live;
    std::set<int> seen;
};

class FakeSets final : public CreatableSets {
public:
    struct Set {
        std::vector<std::unique_ptr<FakeRows>> properties;
        bool isExpanded = true;
        mutable Cursors cursors;
    };

    int setCount() const override { return static_cast<int>(sets.size()); }
    int propertyCount(int set) const override {
        return at(set).isExpanded ? static_cast<int>(at(set).properties.size()) : 0;
    }
    FakeRows& rowsOf(int set, int property) const override {
        return *at(set).properties[static_cast<std::size_t>(property)];
    }
    Cursors& cursorsOf(int set) const override { return at(set).cursors; }
    int headerCount() const override {
        int count = setCount();
        for (int set = 0; set < setCount(); ++set)
            count += propertyCount(set);
        return count;
    }

    const Set& at(int set) const { return sets[static_cast<std::size_t>(set)]; }
    /// Of all expanded properties, in display order.
    std::vector<FakeRows*> shown() const {
        std::vector<FakeRows*> result;
        for (const Set& set : sets)
            for (const auto& property : set.properties)
                if (property->rowCount() > 0)
                    result.push_back(property.get());
        return result;
    }
    int liveCount() const {
        int count = 0;
        for (const FakeRows* rows : shown())
            count += static_cast<int>(rows->live.size());
        return count;
    }

    std::vector<Set> sets;
};

/// A window over sets of random sizes, and a script of what users do to it.
class Script {
public:
    explicit Script(unsigned seed) : random_(seed) {
        for (int set = below(4) + 1; set > 0; --set) {
            FakeSets::Set& each = sets.sets.emplace_back();
            for (int property = below(5); property > 0; --property) {
                FakeRows& rows = *each.properties.emplace_back(std::make_unique<FakeRows>());
                rows.count = below(3) == 0 ? below(400) + 1 : below(12) + 1;
                rows.setShown(true, below(2) == 0);
            }
        }
        window.update();
    }

    void step() {
        const int before = sets.liveCount();
        const int limit = below(60);
        switch (below(8)) {
            case 0: return expandOrCollapseSet();
            case 1: return expandOrCollapseProperty();
            case 2: return extendAny(limit);
            case 3: return created(before, limit, window.createAtEnd(limit));
            case 4: return created(before, limit, window.createAtBeginning(limit));
            case 5:
                return deleted(before, limit, window.deleteAtBeginning(limit, keptFrom(before)));
            case 6: return deleted(before, limit, window.deleteAtEnd(limit, keptFrom(before)));
            default: return scroll();
        }
    }

    void check() const {
        int before = 0;
        for (const FakeRows* rows : sets.shown()) {
            ASSERT_TRUE(0 <= rows->firstCreated && rows->firstCreated <= rows->endCreated &&
                        rows->endCreated <= rows->rowCount());
            ASSERT_TRUE(!rows->live.empty() || rows->firstCreated == 0 ||
                        rows->firstCreated == rows->rowCount())
                << "nothing is at neither end";
            before += rows->firstCreated;
            ASSERT_EQ(static_cast<int>(rows->live.size()), rows->endCreated - rows->firstCreated);
            if (!rows->live.empty()) {
                ASSERT_EQ(*rows->live.begin(), rows->firstCreated);
                ASSERT_EQ(*rows->live.rbegin(), rows->endCreated - 1) << "without a gap";
            }
        }
        ASSERT_EQ(window.createdFrom, before);
        ASSERT_EQ(window.createdTo - window.createdFrom, sets.liveCount() + sets.headerCount());
        ASSERT_LE(window.firstCreatedSet, window.lastCreatedSet);
        ASSERT_GE(window.lastCreatedSet, 0);
        ASSERT_LT(window.lastCreatedSet, sets.setCount());
        for (int set = 0; set < sets.setCount(); ++set) {
            const auto [first, last] = sets.cursorsOf(set);
            bool isAnyLive = false;
            for (int property = 0; property < sets.propertyCount(set); ++property) {
                if (sets.rowsOf(set, property).live.empty())
                    continue;
                isAnyLive = true;
                ASSERT_TRUE(first <= property && property <= last) << "set " << set;
            }
            ASSERT_LE(first, last);
            ASSERT_TRUE(!isAnyLive ||
                        (window.firstCreatedSet <= set && set <= window.lastCreatedSet));
        }
    }

    /// Moves in one direction until no more come; the view always holds some rows.
    void travel(bool isDown) {
        for (int left = kAll; left > 0; --left) {
            const int count = isDown ? window.createAtEnd(kPace) : window.createAtBeginning(kPace);
            ASSERT_LE(count, kPace);
            const int filled = fillGaps();
            const int surplus = sets.liveCount() - kInView;
            const auto mayDestroy = keptFrom(sets.liveCount());
            if (surplus > 0)
                isDown ? window.deleteAtBeginning(surplus, mayDestroy)
                       : window.deleteAtEnd(surplus, mayDestroy);
            check();
            if (count == 0 && filled == 0)
                return;
        }
        FAIL() << "no end is reached";
    }

    void forgetSeen() {
        for (FakeRows* rows : sets.shown())
            rows->seen = rows->live;
    }
    void expectAllSeen() const {
        for (const FakeRows* rows : sets.shown())
            EXPECT_EQ(static_cast<int>(rows->seen.size()), rows->rowCount());
    }

    FakeSets sets;
    CreationWindow window{sets};

private:
    static constexpr int kPace = 37;
    static constexpr int kInView = 150;

    int below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }

    /// Keeps what is in the view, which is never nothing.
    CreationWindow::MayDestroy keptFrom(int live) {
        return [left = live](CreatableRows&, int) mutable { return --left >= 10; };
    }
    void created(int before, int limit, int count) {
        EXPECT_TRUE(count >= 0 && count <= limit);
        EXPECT_EQ(sets.liveCount(), before + count);
    }
    void deleted(int before, int limit, int count) {
        EXPECT_TRUE(count >= 0 && count <= limit);
        EXPECT_EQ(sets.liveCount(), before - count);
        EXPECT_GE(sets.liveCount(), std::min(before, 10)) << "what is kept stays";
    }
    FakeRows* any() {
        const auto properties = sets.shown();
        return properties.empty() ? nullptr
                                  : properties[static_cast<std::size_t>(
                                        below(static_cast<int>(properties.size())))];
    }
    void extendAny(int limit) {
        FakeRows* const rows = any();
        if (!rows)
            return;
        const int before = sets.liveCount();
        const Direction direction = below(2) == 0 ? Direction::Down : Direction::Up;
        created(before, limit, window.extend(*rows, direction, limit));
        window.update();
    }
    void expandOrCollapseSet() {
        FakeSets::Set& set = sets.sets[static_cast<std::size_t>(below(sets.setCount()))];
        set.isExpanded = !set.isExpanded;
        for (const auto& rows : set.properties)
            rows->setShown(set.isExpanded, rows->isExpanded);
        window.update();
    }
    void expandOrCollapseProperty() {
        const int set = below(sets.setCount());
        if (sets.propertyCount(set) == 0)
            return;
        FakeRows& rows = sets.rowsOf(set, below(sets.propertyCount(set)));
        rows.setShown(true, !rows.isExpanded);
        window.update();
    }
    void scroll() {
        const int maximum = below(20'000);
        const int value = below(maximum + 1);
        const int size = window.createdTo - window.createdFrom;
        const ScrollStep step = scrollStep(value, maximum, lastPercent_, size, net_);
        lastPercent_ = maximum > 0 ? value * 100 / maximum : 0;
        EXPECT_TRUE(step.create >= 0 && step.destroy >= 0 && step.destroy <= std::max(size, 20));
        if (!step.isMove)
            return;
        const bool isDown = step.direction == Direction::Down;
        int before = sets.liveCount();
        int count =
            isDown ? window.createAtEnd(step.create) : window.createAtBeginning(step.create);
        created(before, step.create, count);
        net_ += count;
        before = sets.liveCount();
        count = isDown ? window.deleteAtBeginning(step.destroy, keptFrom(before))
                       : window.deleteAtEnd(step.destroy, keptFrom(before));
        deleted(before, step.destroy, count);
        net_ -= count;
    }
    /// Of properties between the ends, as the window does when they come into view.
    int fillGaps() {
        const std::vector<FakeRows*> properties = sets.shown();
        const auto isLive = [](const FakeRows* rows) { return !rows->live.empty(); };
        const auto first = std::find_if(properties.begin(), properties.end(), isLive);
        const auto last = std::find_if(properties.rbegin(), properties.rend(), isLive).base();
        int count = 0;
        for (auto each = first; each < last; ++each) {
            if (each != last - 1)
                count += window.extend(**each, Direction::Down, kAll);
            if (each != first)
                count += window.extend(**each, Direction::Up, kAll);
        }
        window.update();
        return count;
    }

    std::mt19937 random_;
    int lastPercent_ = 0;
    double net_ = 0;
};

TEST(CreationWindow, StaysWholeWhateverIsDoneToIt) {
    for (unsigned seed = 1; seed <= 300; ++seed) {
        SCOPED_TRACE(seed);
        Script script(seed);
        for (int step = 0; step < 60; ++step) {
            SCOPED_TRACE(step);
            script.step();
            script.check();
            ASSERT_FALSE(testing::Test::HasFailure());
        }
        // From wherever that led, all rows can be reached, downwards and upwards.
        script.travel(false);
        script.forgetSeen();
        script.travel(true);
        script.expectAllSeen();
        script.forgetSeen();
        script.travel(false);
        script.expectAllSeen();
        ASSERT_FALSE(testing::Test::HasFailure());
    }
}

TEST(CreationWindow, BeginsWithNothingAndEndsAtALimit) {
    FakeSets sets;
    CreationWindow window(sets);
    EXPECT_EQ(window.firstCreatedSet, -1);
    EXPECT_EQ(window.lastCreatedSet, 0);
    window.update();
    EXPECT_EQ(window.createAtEnd(5), 0);
    EXPECT_EQ(window.createAtBeginning(5), 0);
    EXPECT_EQ(window.createdTo, 0);

    FakeRows& rows =
        *sets.sets.emplace_back().properties.emplace_back(std::make_unique<FakeRows>());
    rows.count = 150;
    rows.setShown(true, true);
    window.update();
    EXPECT_EQ(window.createdTo, 103) << "101 rows and two headers";
    EXPECT_EQ(window.createAtEnd(30), 30);
    EXPECT_EQ(window.createAtEnd(30), 19) << "there are no more";
    EXPECT_EQ(window.deleteAtBeginning(40, [](CreatableRows&, int row) { return row < 25; }), 25);
    EXPECT_EQ(window.createdFrom, 25);
    EXPECT_EQ(window.createdTo, 152);
    EXPECT_EQ(window.createAtBeginning(10), 10);
    EXPECT_EQ(window.createdFrom, 15);
}

struct StepCase {
    const char* what;
    int value;
    int maximum;
    int lastPercent;
    int windowSize;
    double net;
    bool isMove;
    Direction direction;
    int create;
    int destroy;
};

// create: ceiling(-net / 10) + step, where step = |last - value / maximum * 100| / 100 * size,
// without its fraction; destroy: step, from 1000 pixels off the other end on.
const StepCase kSteps[] = {
    {"near the top", 100, 1000, 0, 200, 0, true, Direction::Down, 20, 0},
    {"step has a fraction", 2000, 4000, 40, 101, 0, true, Direction::Down, 10, 10},
    {"surplus of 95", 2000, 4000, 40, 101, 95, true, Direction::Down, 1, 10},
    {"surplus of 5", 2000, 4000, 40, 101, 5, true, Direction::Down, 10, 10},
    {"surplus of 200", 2000, 4000, 40, 101, 200, true, Direction::Down, 0, 10},
    {"25 too few", 2000, 4000, 40, 101, -25, true, Direction::Down, 13, 10},
    {"1000 is not beyond 1000", 1000, 4000, 15, 101, 0, true, Direction::Down, 10, 0},
    {"1040 is", 1040, 4000, 16, 101, 0, true, Direction::Down, 10, 10},
    {"less than a row", 41, 1000, 4, 101, -30, true, Direction::Down, 3, 0},
    {"up", 1000, 4000, 35, 101, 0, true, Direction::Up, 10, 10},
    {"up, 1000 from the end", 3000, 4000, 85, 101, 0, true, Direction::Up, 10, 0},
    {"up, 1040 from the end", 2960, 4000, 84, 101, 0, true, Direction::Up, 10, 10},
    {"up, surplus of 11", 1000, 4000, 35, 101, 11, true, Direction::Up, 9, 10},
    {"no movement", 400, 1000, 40, 200, -500, false, Direction::Down, -1, -1},
    {"nothing to scroll", 0, 0, 0, 200, 0, false, Direction::Down, -1, -1},
    // At either end rows come all the same, for there may be many behind it.
    {"at the end", 4000, 4000, 99, 101, 300, true, Direction::Down, 20, -1},
    {"at the beginning", 0, 4000, 1, 101, 300, true, Direction::Up, 20, -1},
    {"at the end, far", 4000, 4000, 50, 101, 0, true, Direction::Down, 50, -1},
};

TEST(ScrollSteps, FollowTheMovementAndTheSurplus) {
    for (const StepCase& each : kSteps) {
        SCOPED_TRACE(each.what);
        const ScrollStep step =
            scrollStep(each.value, each.maximum, each.lastPercent, each.windowSize, each.net);
        EXPECT_EQ(step.isMove, each.isMove);
        if (!each.isMove)
            continue;
        EXPECT_EQ(step.direction, each.direction);
        EXPECT_EQ(step.create, each.create);
        EXPECT_TRUE(each.destroy < 0 || step.destroy == each.destroy) << step.destroy;
    }
}

}  // namespace
