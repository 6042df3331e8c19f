#include "tests/platform/linux/notifications/NotifyWorld.h"

#include "platform/local/descriptors/PollDriver.h"

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <sys/resource.h>

namespace prismo {
namespace {

using Names = std::vector<std::string>;

using NotifyDirectoryTest = NotifyWorld;

TEST_F(NotifyDirectoryTest, PostIsDelivered) {
    observer.observe("changed");
    poster.post("changed");
    EXPECT_EQ(delivered(), Names{"changed"});
}

TEST_F(NotifyDirectoryTest, PostReachesThePosterToo) {
    observer.observe("changed");
    observer.post("changed");
    EXPECT_EQ(delivered(), Names{"changed"});
}

TEST_F(NotifyDirectoryTest, PostIsDeliveredOnce) {
    observer.observe("changed");
    poster.post("changed");
    delivered();
    EXPECT_EQ(delivered(), Names{});
}

TEST_F(NotifyDirectoryTest, SecondPostIsDeliveredToo) {
    observer.observe("changed");
    poster.post("changed");
    delivered();
    poster.post("changed");
    EXPECT_EQ(delivered(), Names{"changed"});
}

TEST_F(NotifyDirectoryTest, PostBeforeTheObservationIsNotDelivered) {
    poster.post("changed");
    observer.observe("changed");
    EXPECT_EQ(delivered(), Names{});
}

TEST_F(NotifyDirectoryTest, PostOfAnotherNameIsNotDelivered) {
    observer.observe("changed");
    poster.post("other");
    EXPECT_EQ(delivered(), Names{});
}

TEST_F(NotifyDirectoryTest, RepeatedPostsAreDeliveredOnceInTheOrderOfTheFirst) {
    for (const auto* name : {"a", "b", "c"})
        observer.observe(name);
    for (const auto* name : {"b", "a", "b", "a", "c", "b"})
        poster.post(name);
    EXPECT_EQ(delivered(), (Names{"b", "a", "c"}));
}

TEST_F(NotifyDirectoryTest, ObservationAskedAgainDeliversOnce) {
    observer.observe("changed");
    observer.observe("changed");
    poster.post("changed");
    EXPECT_EQ(delivered(), Names{"changed"});
}

TEST_F(NotifyDirectoryTest, DescriptorSaysThatThereIsSomethingToRead) {
    PollDriver driver;
    observer.observe("changed");
    Names names;
    driver.watch(observer.descriptor(), [&] { names = delivered(); });
    driver.wait(driver.now());
    EXPECT_EQ(names, Names{});
    poster.post("changed");
    driver.wait(driver.now());
    EXPECT_EQ(names, Names{"changed"});
}

TEST_F(NotifyDirectoryTest, NestedReadGoesOnInOrderAndTheOuterOneRepeatsNothing) {
    for (const auto* name : {"a", "b", "c", "d"})
        observer.observe(name);
    for (const auto* name : {"a", "b", "c"})
        poster.post(name);
    Names names;
    const NotifyDirectory::Deliver take = [&](const std::string& name) { names.push_back(name); };
    observer.read([&](const std::string& name) {
        take(name);
        poster.post("b");
        poster.post("d");
        EXPECT_TRUE(observer.hasMore());
        observer.read(take);
        EXPECT_FALSE(observer.hasMore());
    });
    EXPECT_EQ(names, (Names{"a", "b", "c", "d"}));
}

TEST_F(NotifyDirectoryTest, RunNestedInADeliveryDeliversWhatIsLeft) {
    PollDriver driver;
    RunLoop loop(driver);
    for (const auto* name : {"a", "b", "c"})
        observer.observe(name);
    std::string calls;
    std::function<void()> read = [&] {
        observer.read([&](const std::string& name) {
            if (observer.hasMore()) loop.perform(read);
            calls += name;
            if (name != "a") return;
            loop.run(Seconds(0.002));
            calls += '.';
        });
    };
    driver.watch(observer.descriptor(), read);
    for (const auto* name : {"a", "b", "c"})
        poster.post(name);
    loop.run(Seconds(0));
    EXPECT_EQ(calls, "abc.");
}

TEST_F(NotifyDirectoryTest, NamePostedAgainDuringItsDeliveryIsDeliveredAgain) {
    observer.observe("changed");
    poster.post("changed");
    observer.read([&](const std::string& name) { poster.post(name); });
    EXPECT_EQ(delivered(), Names{"changed"});
}

TEST_F(NotifyDirectoryTest, DeliveryThatThrowsLosesNoOtherName) {
    for (const auto* name : {"a", "b"})
        observer.observe(name);
    for (const auto* name : {"a", "b"})
        poster.post(name);
    EXPECT_THROW(observer.read([](const std::string&) { throw std::runtime_error("a"); }),
                 std::runtime_error);
    EXPECT_EQ(delivered(), Names{"b"});
}

TEST_F(NotifyDirectoryTest, DirectoryThatCannotBeMadeIsAProblem) {
    const auto missing = temporary.path() / "missing" / "notify";
    NotifyDirectory nowhere(missing, opener(missing));
    const auto posted = nowhere.post("changed");
    ASSERT_FALSE(posted);
    EXPECT_EQ(posted.problem(), (Problem{Problem::Kind::notPosted, missing, std::strerror(ENOENT)}));
    const auto observed = nowhere.observe("changed");
    ASSERT_FALSE(observed);
    EXPECT_EQ(observed.problem(), posted.problem().as(Problem::Kind::notObserved));
}

TEST_F(NotifyDirectoryTest, ObservationWithoutDescriptorsFailsAndCanBeRepeated) {
    rlimit before{};
    ::getrlimit(RLIMIT_NOFILE, &before);
    const rlimit none{0, before.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &none);
    const auto failed = observer.observe("changed");
    ::setrlimit(RLIMIT_NOFILE, &before);
    ASSERT_FALSE(failed);
    EXPECT_EQ(failed.problem(), (Problem{Problem::Kind::notObserved, path, std::strerror(EMFILE)}));
    EXPECT_TRUE(observer.observe("changed"));
    poster.post("changed");
    EXPECT_EQ(delivered(), Names{"changed"});
}

} // namespace
} // namespace prismo
