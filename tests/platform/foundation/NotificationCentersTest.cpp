#include "platform/foundation/CFNotificationCenter.h"
#include "platform/foundation/NSNotificationCenter.h"
#include "platform/foundation/NSTimer.h"
#include "tests/platform/foundation/TinyDevice.h"

#include <gtest/gtest.h>

namespace prismo {
namespace {

/// Writes its letter into a text for every message that it gets.
class Witness : public NSObject {
  public:
    Witness(std::string& heard, char letter) : heard_(heard), letter_(letter) {}

    static const Class& classObject() {
        static const Class objectClass(
            "Witness", &NSObject::classObject(), {},
            {method<&Witness::hear>("hear"), method<&Witness::hearSender>("hearSender:")});
        return objectClass;
    }
    const Class& isa() const override { return classObject(); }

    void hear() {
        heard_ += letter_;
        if (then) then();
    }
    void hearSender(const Value& sender) {
        sender_ = sender;
        hear();
    }
    static void heard(const std::shared_ptr<NSObject>& observer) {
        std::dynamic_pointer_cast<Witness>(observer)->hear();
    }

    std::function<void()> then;
    Value sender_;

  private:
    std::string& heard_;
    char letter_;
};

struct CentersTest : testing::Test {
    TinyDevice device;
    Device::Current current{device};
    std::string heard;
    std::shared_ptr<Witness> a = std::make_shared<Witness>(heard, 'a');
    std::shared_ptr<Witness> b = std::make_shared<Witness>(heard, 'b');

    static void turn(Device& of) { of.runLoop().callDue(); }
};

struct CFNotificationCenterTest : CentersTest {
    CFNotificationCenter& center = CFNotificationCenterGetDarwinNotifyCenter();

    void observe(const std::shared_ptr<Witness>& witness, const std::string& name,
                 SuspensionBehavior behavior = SuspensionBehavior::coalesce) {
        center.addObserver(witness, &Witness::heard, name, behavior);
    }
    void post(const std::string& name) {
        center.postNotification(name);
        turn(device);
    }
};

TEST_F(CFNotificationCenterTest, PostReachesObserversInTheOrderOfRegistration) {
    observe(b, "changed");
    observe(a, "changed");
    post("changed");
    EXPECT_EQ(heard, "ba");
}

TEST_F(CFNotificationCenterTest, PostReturnsBeforeItsObserversRun) {
    observe(a, "changed");
    center.postNotification("changed");
    EXPECT_EQ(heard, "");
}

TEST_F(CFNotificationCenterTest, PostOfAnotherNameReachesNobody) {
    observe(a, "changed");
    post("other");
    EXPECT_EQ(heard, "");
}

TEST_F(CFNotificationCenterTest, EachRegistrationCounts) {
    observe(a, "changed");
    observe(a, "changed");
    post("changed");
    EXPECT_EQ(heard, "aa");
}

TEST_F(CFNotificationCenterTest, ReleasedObserverIsNeverCalled) {
    observe(a, "changed");
    observe(b, "changed");
    a.reset();
    post("changed");
    EXPECT_EQ(heard, "b");
}

TEST_F(CFNotificationCenterTest, ObserverReleasedByAnEarlierOneIsNotCalled) {
    observe(a, "changed");
    observe(b, "changed");
    a->then = [&] { b.reset(); };
    post("changed");
    EXPECT_EQ(heard, "a");
}

TEST_F(CFNotificationCenterTest, ObserverIsNotKeptAlive) {
    observe(a, "changed");
    EXPECT_EQ(a.use_count(), 1);
}

TEST_F(CFNotificationCenterTest, ObserverAddedDuringADeliveryHearsTheNextPost) {
    observe(a, "changed");
    a->then = [&] {
        a->then = {};
        observe(b, "changed");
    };
    post("changed");
    EXPECT_EQ(heard, "a");
    post("changed");
    EXPECT_EQ(heard, "aab");
}

TEST_F(CFNotificationCenterTest, PostOfAnObserverReachesTheNestedRun) {
    observe(a, "changed");
    observe(b, "other");
    a->then = [&] {
        center.postNotification("other");
        device.runLoop().run(Seconds(0.035));
        heard += '.';
    };
    post("changed");
    EXPECT_EQ(heard, "ab.");
}

TEST_F(CFNotificationCenterTest, NamesThatAreNoFileNamesReachNobody) {
    for (const auto& name : {std::string(), std::string("a/b"), std::string("a\0b", 3)}) {
        observe(a, name);
        post(name);
    }
    EXPECT_EQ(heard, "");
    EXPECT_TRUE(device.posts.empty());
}

TEST_F(CFNotificationCenterTest, ObjectOfAPostIsSeenInTheEffects) {
    std::vector<Effect> effects;
    device.setEffectObserver([&](const Effect& effect) { effects.push_back(effect); });
    center.postNotification("changed", "com.example");
    EXPECT_EQ(effects, (std::vector<Effect>{{"post", {{"name", "changed"}, {"object", "com.example"}}}}));
}

std::string heardOf(CFNotificationCenterTest& test, SuspensionBehavior behavior) {
    test.observe(test.a, "changed", behavior);
    test.center.setSuspended(true);
    for (int i = 0; i < 3; ++i)
        test.post("changed");
    test.heard += '|';
    test.center.setSuspended(false);
    return test.heard;
}

TEST_F(CFNotificationCenterTest, SuspendedCenterDropsForWhoWantsThat) {
    EXPECT_EQ(heardOf(*this, SuspensionBehavior::drop), "|");
}

TEST_F(CFNotificationCenterTest, SuspendedCenterDeliversOnceAfterwardsWhenCoalescing) {
    EXPECT_EQ(heardOf(*this, SuspensionBehavior::coalesce), "|a");
}

TEST_F(CFNotificationCenterTest, SuspendedCenterDeliversEveryHeldOneAfterwards) {
    EXPECT_EQ(heardOf(*this, SuspensionBehavior::hold), "|aaa");
}

TEST_F(CFNotificationCenterTest, SuspendedCenterDeliversAtOnceToWhoWantsThat) {
    EXPECT_EQ(heardOf(*this, SuspensionBehavior::deliverImmediately), "aaa|");
}

TEST_F(CFNotificationCenterTest, WhatWasKeptIsDeliveredOnce) {
    heardOf(*this, SuspensionBehavior::coalesce);
    center.setSuspended(true);
    center.setSuspended(false);
    EXPECT_EQ(heard, "|a");
}

TEST_F(CFNotificationCenterTest, ObserverReleasedWhileSuspendedIsNeverCalled) {
    observe(a, "changed");
    center.setSuspended(true);
    post("changed");
    a.reset();
    center.setSuspended(false);
    EXPECT_EQ(heard, "");
}

struct NSNotificationCenterTest : CentersTest {
    NSNotificationCenter& center = device.notificationCenter();
    std::shared_ptr<NSObject> sender = std::make_shared<NSObject>();
};

TEST_F(NSNotificationCenterTest, PostIsDeliveredAtOnceInTheOrderOfRegistration) {
    center.addObserver(b, "hear", "rotated");
    center.addObserver(a, "hear", "rotated");
    center.postNotification("rotated");
    EXPECT_EQ(heard, "ba");
}

TEST_F(NSNotificationCenterTest, SenderIsTheArgument) {
    center.addObserver(a, "hearSender:", "rotated");
    center.postNotification("rotated", sender);
    EXPECT_EQ(a->sender_.object(), sender);
}

TEST_F(NSNotificationCenterTest, ObserverOfOneObjectHearsThatOneOnly) {
    center.addObserver(a, "hear", "rotated", sender);
    center.postNotification("rotated");
    center.postNotification("rotated", b);
    EXPECT_EQ(heard, "");
    center.postNotification("rotated", sender);
    EXPECT_EQ(heard, "a");
}

TEST_F(NSNotificationCenterTest, ObserverOfAnObjectThatHasGoneHearsNothing) {
    center.addObserver(a, "hear", "rotated", sender);
    sender.reset();
    center.postNotification("rotated");
    EXPECT_EQ(heard, "");
}

TEST_F(NSNotificationCenterTest, ReleasedObserverIsNeverCalled) {
    center.addObserver(a, "hear", "rotated");
    a.reset();
    center.postNotification("rotated");
    EXPECT_EQ(heard, "");
}

TEST_F(NSNotificationCenterTest, ObserverAddedDuringADeliveryHearsTheNextPost) {
    center.addObserver(a, "hear", "rotated");
    a->then = [&] {
        a->then = {};
        center.addObserver(b, "hear", "rotated");
    };
    center.postNotification("rotated");
    center.postNotification("rotated");
    EXPECT_EQ(heard, "aab");
}

TEST_F(CentersTest, TimerKeepsItsTargetUntilItHasFired) {
    const std::weak_ptr<Witness> watched = a;
    scheduleTimer(Seconds(5.5), std::move(a), "hear");
    device.runLoop().run(Seconds(5.4));
    EXPECT_FALSE(watched.expired());
    device.runLoop().run(Seconds(0.1));
    EXPECT_EQ(heard, "a");
    EXPECT_TRUE(watched.expired());
}

TEST_F(CentersTest, CurrentDevicesNest) {
    TinyDevice inner;
    {
        const Device::Current innerCurrent(inner);
        EXPECT_EQ(&Device::current(), &inner);
    }
    EXPECT_EQ(&Device::current(), &device);
}

TEST(Device, WithoutACurrentOneThereIsAnError) { EXPECT_THROW(Device::current(), std::logic_error); }

} // namespace
} // namespace prismo
