#include "platform/foundation/Observable.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace prismo {
namespace {

class Lamp : public Observable {
  public:
    int level() const { return level_; }
    void setLevel(int level) { assign(level_, level); }

  private:
    int level_ = 0;
};

struct ObservableTest : testing::Test {
    Subscription note(const char* name) {
        return lamp.observe([this, name] { calls += name; });
    }
    Lamp lamp;
    std::string calls;
};

TEST_F(ObservableTest, ObserverIsCalledAfterTheChange) {
    int seen = -1;
    const auto subscription = lamp.observe([&] { seen = lamp.level(); });
    EXPECT_EQ(seen, -1);
    lamp.setLevel(3);
    EXPECT_EQ(seen, 3);
}

TEST_F(ObservableTest, SameValueIsNoChange) {
    const auto subscription = note("a");
    lamp.setLevel(0);
    EXPECT_EQ(calls, "");
    lamp.setLevel(1);
    lamp.setLevel(1);
    EXPECT_EQ(calls, "a");
}

TEST_F(ObservableTest, ObserversAreCalledInTheOrderOfTheirSubscriptions) {
    const auto first = note("a");
    const auto second = note("b");
    lamp.setLevel(1);
    EXPECT_EQ(calls, "ab");
}

TEST_F(ObservableTest, EndedSubscriptionIsNotCalled) {
    auto first = std::optional(note("a"));
    const auto second = note("b");
    first.reset();
    lamp.setLevel(1);
    EXPECT_EQ(calls, "b");
}

TEST_F(ObservableTest, EmptySubscriptionIsHarmless) {
    Subscription subscription;
    subscription = note("a");
    subscription = Subscription();
    lamp.setLevel(1);
    EXPECT_EQ(calls, "");
}

TEST_F(ObservableTest, SubscriptionOutlivesWhatItObserved) {
    auto other = std::make_unique<Lamp>();
    const auto subscription = other->observe([] {});
    other = nullptr;
    SUCCEED();
}

TEST_F(ObservableTest, ObserverMayEndItsOwnSubscription) {
    std::optional<Subscription> own;
    own = lamp.observe([&] {
        calls += "a";
        own.reset();
    });
    lamp.setLevel(1);
    lamp.setLevel(2);
    EXPECT_EQ(calls, "a");
}

TEST_F(ObservableTest, ObserverMayEndTheSubscriptionOfTheNext) {
    std::optional<Subscription> second;
    const auto first = lamp.observe([&] { second.reset(); });
    second = note("b");
    lamp.setLevel(1);
    EXPECT_EQ(calls, "");
}

TEST_F(ObservableTest, ObserverMaySubscribeAnotherWhichHearsTheNextChange) {
    std::vector<Subscription> others;
    const auto first = lamp.observe([&] {
        if (others.empty()) others.push_back(note("b"));
    });
    lamp.setLevel(1);
    EXPECT_EQ(calls, "");
    lamp.setLevel(2);
    EXPECT_EQ(calls, "b");
}

} // namespace
} // namespace prismo
