#include "platform/DefaultsObservers.h"

#include "fake/FakeDefaults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DefaultsObserversTest : public testing::Test {
protected:
    DefaultsObserver add(const std::string& keyPath, const std::string& name, std::function<void()> then = nullptr) {
        return observers.add(keyPath, [this, name, then](const std::string& told) {
            called.push_back(name + " " + told);
            if (then)
                then();
        });
    }

    DefaultsObservers observers;
    std::vector<std::string> called;
};

TEST_F(DefaultsObserversTest, AreToldOfTheirOwnKeyAloneInTheOrderOfAdding) {
    add("values.A", "first");
    add("values.B", "other");
    add("values.A", "second");
    EXPECT_THAT(observers.keyPaths(), ElementsAre("values.A", "values.B", "values.A"));
    observers.tell("values.A");
    EXPECT_THAT(called, ElementsAre("first values.A", "second values.A"));
}

TEST_F(DefaultsObserversTest, AreNotToldOnceTheyAreRemoved) {
    const DefaultsObserver first = add("values.A", "first");
    const DefaultsObserver second = add("values.A", "second");
    EXPECT_NE(first, 0u);
    EXPECT_NE(first, second);
    observers.remove(first);
    observers.remove(first);
    observers.remove(0);
    observers.tell("values.A");
    EXPECT_THAT(called, ElementsAre("second values.A"));
    EXPECT_THAT(observers.keyPaths(), ElementsAre("values.A"));
    EXPECT_NE(add("values.A", "third"), first);
}

TEST_F(DefaultsObserversTest, AreNotToldWhenAnEarlierOneHasRemovedThem) {
    DefaultsObserver second = 0;
    add("values.A", "first", [&] { observers.remove(second); });
    second = add("values.A", "second");
    add("values.A", "third");
    observers.tell("values.A");
    EXPECT_THAT(called, ElementsAre("first values.A", "third values.A"));
}

TEST_F(DefaultsObserversTest, MayRemoveThemselvesWhileTheyAreTold) {
    DefaultsObserver name = 0;
    auto owned = std::make_shared<int>(5);
    std::weak_ptr<int> watch = owned;
    name = observers.add("values.A", [&, owned](const std::string& told) {
        observers.remove(name);
        called.push_back(told + " " + std::to_string(*owned)); // what the observer keeps is still there
    });
    owned.reset();
    observers.tell("values.A");
    observers.tell("values.A");
    EXPECT_THAT(called, ElementsAre("values.A 5"));
    EXPECT_TRUE(watch.expired());
}

TEST_F(DefaultsObserversTest, AreNotToldOfTheChangeInWhichTheyWereAdded) {
    add("values.A", "first", [this] { add("values.A", "late"); });
    observers.tell("values.A");
    EXPECT_THAT(called, ElementsAre("first values.A"));
}

TEST_F(DefaultsObserversTest, MayBeToldOfAnotherChangeMeanwhile) {
    add("values.A", "first", [this] { observers.tell("values.B"); });
    add("values.A", "second");
    add("values.B", "other");
    observers.tell("values.A");
    EXPECT_THAT(called, ElementsAre("first values.A", "other values.B", "second values.A"));
}

TEST(FakeDefaults, TellsNoObserverThatWasRemoved) {
    FakeDefaults defaults;
    int count = 0;
    const DefaultsObserver observer = defaults.addObserver("values.A", [&](const std::string&) { ++count; });
    (void)defaults.setValue("A", true);
    defaults.removeObserver(observer);
    (void)defaults.setValue("A", false);
    EXPECT_EQ(count, 1);
    EXPECT_THAT(defaults.observedKeyPaths(), IsEmpty());
}

} // namespace
} // namespace tarragon
