// A user who does anything in any order: after every step the display, the store and the edit log
// say the same. QUILLET_WALK_STEPS, QUILLET_WALK_SEEDS and
// QUILLET_WALK_FIRST_SEED make it a longer or another one.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <random>

#include "platform/text.h"
#include "tests/flows/flow_host.h"
#include "tests/flows/log_view.h"

namespace {

std::size_t numberFrom(const char* variable, std::size_t otherwise) {
    const char* text = std::getenv(variable);
    return text ? static_cast<std::size_t>(std::strtoul(text, nullptr, 10)) : otherwise;
}

/// Goes through edits at random, with what must be seen beside it.
class Walk {
public:
    Walk(FlowHost& flow, unsigned seed) : flow_(flow), random_(seed) {
        std::vector<const standin::Object*> objects = flow.editableObjects();
        std::shuffle(objects.begin(), objects.end(), random_);
        objects.resize(std::min<std::size_t>(objects.size(), 8));
        for (const standin::Object* object : objects)
            guids_.push_back(object->guid);
        model_ = expected_ = flow.seen(guids_);
    }

    void step() {
        const std::size_t kind = random_() % 100;
        if (kind < 12)
            undo();
        else if (kind < 22)
            redo();
        else if (kind < 24)
            saveAndReopen();
        else if (kind < 30)
            editMany();
        else
            edit();
    }

    /// The display, and the log laid over the model, against what must be seen.
    void check() {
        ++checks_;
        ASSERT_EQ(difference(expected_, flow_.seen(guids_)), "") << last_;
        const std::string log = flow_.savedLog();
        SeenObjects logged = withLog(model_, log);
        ASSERT_EQ(difference(expected_, logged), "") << last_ << "\n" << log;
        ASSERT_EQ(flow_.complaints(), "") << last_;
    }

    std::size_t checks() const { return checks_; }
    const SeenObjects& expected() const { return expected_; }
    const std::string& last() const { return last_; }

private:
    template <class Container>
    auto anyOf(const Container& container) {
        auto element = container.begin();
        std::advance(element, random_() % container.size());
        return element;
    }
    std::u16string anyName() {
        return std::u16string(u"Nämé ") + static_cast<char16_t>(u'a' + random_() % 6);
    }
    std::u16string anyValue() {
        return u"value " + platform::fromUtf8(std::to_string(random_() % 1000));
    }

    void record(const std::string& what, bool recorded, bool mustBe, const SeenObjects& after) {
        last_ = what;
        ASSERT_EQ(recorded, mustBe) << what << "\n" << flow_.complaints();
        if (!recorded) {
            flow_.host().dialogs().forgetShown();  // the user was told why not
            return;
        }
        done_.resize(at_);
        done_.push_back(expected_);
        ++at_;
        if (done_.size() > forgotten_ + kHistory)
            ++forgotten_;
        expected_ = after;
    }

    void edit() {
        const std::u16string guid = *anyOf(guids_);
        const standin::Object& object = *flow_.byGuid(guid);
        SeenObjects after = expected_;
        SeenSets& sets = after[guid];
        if (sets.empty() || random_() % 8 == 0) {
            const std::u16string name = u"Set " + anyName();
            const bool isFree = std::none_of(
                sets.begin(), sets.end(), [&](const auto& set) { return set.second.name == name; });
            const bool recorded = flow_.addSet(object, name);
            if (recorded)  // with a GUID that only the plug-in knows
                for (const auto& [setGuid, set] : seenSetsOf(object))
                    if (set.name == name)
                        sets[setGuid] = SeenSet{name, {}};
            return record("add set", recorded, isFree, after);
        }
        const auto chosen = anyOf(sets);
        const std::u16string setGuid = chosen->first;
        SeenSet& set = sets[setGuid];
        const bool isQuantities =
            object.display.findSet(setGuid, {})->entityName == u"IfcElementQuantity";
        const std::size_t kind = random_() % 10;
        if (kind < 3 || set.properties.empty()) {
            Entered entered{.name = anyName(), .value = isQuantities ? u"3.5" : anyValue()};
            if (isQuantities)
                entered.quantityType = u"IfcQuantityLength";
            const bool isFree = !set.properties.contains(entered.name);
            // A taken name asks whether to replace, which is answered with no.
            if (!isFree)
                flow_.host().dialogs().answerWindow("message",
                                                    standin::WindowFields{{"button", u"no"}});
            set.properties[entered.name] = {entered.value, entered.quantityType, {}, {}};
            return record("add property", flow_.addProperty(object, setGuid, entered, isQuantities),
                          isFree, after);
        }
        if (kind == 9) {
            sets.erase(setGuid);
            return record("delete set", flow_.deleteSet(object, setGuid), true, after);
        }
        if (kind == 8) {
            const std::u16string name = u"Set " + anyName();
            const bool isFree = std::none_of(sets.begin(), sets.end(), [&](const auto& each) {
                return each.second.name == name;
            });
            set.name = name;
            return record("rename set", flow_.renameSet(object, setGuid, name), isFree, after);
        }
        const auto property = *anyOf(set.properties);
        if (kind == 7) {
            set.properties.erase(property.first);
            return record("delete property", flow_.deleteProperty(object, setGuid, property.first),
                          true, after);
        }
        Entered entered;
        const bool renames = kind == 6;
        SeenProperty next = property.second;
        if (renames) {
            entered.name = anyName();
        } else {
            const bool isTruth = property.second.value == u"0" || property.second.value == u"1";
            const bool isNumber =
                property.second.value.find_first_not_of(u"0123456789.-eE") == std::u16string::npos;
            entered.value = isTruth    ? (property.second.value == u"0" ? u"1" : u"0")
                            : isNumber ? u"42.5"
                                       : anyValue();
            next.value = entered.value;
        }
        const std::u16string name = renames ? entered.name : property.first;
        const bool isSame = name == property.first && next == property.second;
        const bool isFree = name == property.first || !set.properties.contains(name);
        set.properties.erase(property.first);
        set.properties[name] = next;
        record(renames ? "rename property" : "edit property",
               flow_.editProperty(object, setGuid, property.first, entered), isFree && !isSame,
               after);
    }

    void editMany() {
        std::vector<const standin::Object*> objects;
        for (const std::u16string& guid : guids_)
            if (random_() % 2 == 0)
                objects.push_back(flow_.byGuid(guid));
        if (objects.empty())
            return;
        const std::u16string setName = u"Set " + anyName();
        const std::u16string name = anyName();
        const std::u16string value = anyValue();
        SeenObjects after = expected_;
        bool any = false;
        bool isRefused = false;
        for (const standin::Object* object : objects) {
            for (auto& [setGuid, set] : after[object->guid]) {
                const auto property = set.properties.find(name);
                if (set.name != setName || property == set.properties.end())
                    continue;
                const auto& rows = object->display.findSet(setGuid, {})->rows;
                const auto row = std::find_if(rows.begin(), rows.end(),
                                              [&](const auto& each) { return each.name == name; });
                if (row->valueType != kHostText || row->kind == kHostQuantity) {
                    isRefused = true;  // the value is a text
                } else if (property->second.value != value) {
                    property->second.value = value;
                    any = true;
                }
            }
        }
        const bool recorded = flow_.editMany(
            objects,
            {{"edit", u"edit-property"}, {"set", setName}, {"name", name}, {"value", value}});
        if (isRefused)
            flow_.host().dialogs().forgetShown();
        record("edit many", recorded, any, after);
    }

    void undo() {
        last_ = "undo";
        if (at_ == forgotten_)
            return;
        ASSERT_TRUE(flow_.host().undo());
        --at_;
        std::swap(expected_, done_[at_]);
    }

    void redo() {
        last_ = "redo";
        if (!flow_.host().undoList().canRedo())
            return;
        ASSERT_TRUE(flow_.host().redo());
        std::swap(expected_, done_[at_]);
        ++at_;
    }

    void saveAndReopen() {
        last_ = "reopen";
        flow_.savedLog();
        const std::u16string path = flow_.host().project().path();
        flow_.host().close();
        ASSERT_TRUE(flow_.reopen({path})) << flow_.host().error();
        done_.clear();
        at_ = forgotten_ = 0;
    }

    static constexpr std::size_t kHistory = 100;  // steps that the plug-in remembers

    FlowHost& flow_;
    std::mt19937 random_;
    std::vector<std::u16string> guids_;
    SeenObjects model_;              // without any edits
    SeenObjects expected_;           // with those made so far
    std::vector<SeenObjects> done_;  // before each step; behind at_, after each undone step
    std::size_t at_ = 0;
    std::size_t forgotten_ = 0;  // of the oldest steps
    std::size_t checks_ = 0;
    std::string last_;
};

class RandomWalk : public testing::TestWithParam<std::u16string> {};

TEST_P(RandomWalk, KeepsDisplayStoreAndLogInStep) {
    if (!std::filesystem::exists(GetParam()))
        GTEST_SKIP() << "no " << platform::toUtf8(GetParam());
    const std::size_t steps = numberFrom("QUILLET_WALK_STEPS", 150);
    const std::size_t seeds = numberFrom("QUILLET_WALK_SEEDS", 2);
    std::size_t checks = 0;
    const auto first = static_cast<unsigned>(numberFrom("QUILLET_WALK_FIRST_SEED", 1));
    for (unsigned seed = first; seed < first + seeds; ++seed) {
        FlowHost flow;
        ASSERT_TRUE(flow.start({GetParam()}));
        Walk walk(flow, seed);
        for (std::size_t step = 0; step < steps && !HasFatalFailure(); ++step) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step));
            walk.step();
            if (!HasFatalFailure())
                walk.check();
        }
        if (HasFatalFailure())
            return;
        checks += walk.checks();
        const std::u16string target = flow.folder() / u"walked_edited.ifc";
        flow.exportTo(target);
        // An export tells of new sets that are left out because they are empty.
        flow.host().dialogs().forgetShown();
        flow.host().close();
        ASSERT_TRUE(flow.reopen({target})) << flow.host().error();
        std::vector<std::u16string> guids;
        for (const auto& [guid, sets] : walk.expected())
            guids.push_back(guid);
        EXPECT_EQ(withoutGuids(flow.seen(guids)), withoutGuids(walk.expected())) << "seed " << seed;
    }
    std::printf("%zu checks\n", checks);
}

INSTANTIATE_TEST_SUITE_P(
    Models, RandomWalk,
    testing::Values(platform::fromUtf8(QUILLET_SOURCE_DIR "/samples/sample_house.ifc"),
                    platform::fromUtf8(QUILLET_SHARED_DIR "/models/ifc2x3/revit_quantities.ifc")));

}  // namespace
