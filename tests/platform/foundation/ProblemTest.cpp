#include "platform/foundation/ProblemList.h"
#include "platform/foundation/Result.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace prismo {
namespace {

using Kind = Problem::Kind;

const Problem unwritable{Kind::unwritable, "/a/file", "No space left on device"};

TEST(Problem, TextIsThePathAndTheCause) {
    EXPECT_EQ(unwritable.text(), "/a/file: No space left on device");
    EXPECT_EQ((Problem{Kind::missing, "", "no device root"}).text(), "no device root");
}

TEST(Problem, OtherKindKeepsPathAndCause) {
    EXPECT_EQ(unwritable.as(Kind::notPosted),
              (Problem{Kind::notPosted, "/a/file", "No space left on device"}));
}

TEST(Result, HasAValueOrAProblem) {
    const Result<std::string> value = std::string("text");
    ASSERT_TRUE(value);
    EXPECT_EQ(value.value(), "text");
    const Result<std::string> problem = unwritable;
    ASSERT_FALSE(problem);
    EXPECT_EQ(problem.problem(), unwritable);
}

TEST(Result, ValueCanBeMovedOut) {
    Result<std::unique_ptr<int>> result = std::make_unique<int>(7);
    EXPECT_EQ(*std::move(result).value(), 7);
}

TEST(Result, WithoutAValueIsDoneOrAProblem) {
    EXPECT_TRUE(Result<>(Done{}));
    EXPECT_FALSE(Result<>(unwritable));
}

TEST(Result, ProblemCanBeThrown) {
    EXPECT_EQ(valueOrThrow(Result<int>(7)), 7);
    try {
        valueOrThrow(Result<int>(unwritable));
        FAIL() << "nothing was thrown";
    } catch (const ProblemError& error) {
        EXPECT_STREQ(error.what(), "/a/file: No space left on device");
    }
}

struct ProblemListTest : testing::Test {
    ProblemList list;
    const Problem malformed{Kind::malformed, "/a/file", "No property-list dictionary"};
    const Problem replaced{Kind::replaced, "/a/file", "Was not a property list and is replaced"};
    const Problem notPosted{Kind::notPosted, "/run/notify", "No space left on device"};
};

TEST_F(ProblemListTest, KeepsEachProblemOnceInTheirOrder) {
    EXPECT_TRUE(list.add(unwritable));
    EXPECT_TRUE(list.add(malformed));
    EXPECT_FALSE(list.add(unwritable));
    EXPECT_EQ(std::vector<Problem>(list.begin(), list.end()), (std::vector{unwritable, malformed}));
}

TEST_F(ProblemListTest, ProblemsThatDifferInKindPathOrCauseAreDifferent) {
    EXPECT_TRUE(list.add(unwritable));
    EXPECT_TRUE(list.add(unwritable.as(Kind::unreadable)));
    EXPECT_TRUE(list.add({Kind::unwritable, "/other", unwritable.cause}));
    EXPECT_TRUE(list.add({Kind::unwritable, unwritable.path, "Is a directory"}));
}

TEST_F(ProblemListTest, RemovedProblemCanBeAddedAgain) {
    list.add(unwritable);
    list.remove(unwritable);
    EXPECT_TRUE(list.add(unwritable));
}

TEST_F(ProblemListTest, OutcomeOfTheWriteExplainsAMalformedFile) {
    list.add(malformed);
    EXPECT_FALSE(list.explains(malformed));
    for (const auto& outcome : {replaced, unwritable}) {
        list.add(outcome);
        EXPECT_TRUE(list.explains(malformed)) << outcome.text();
        EXPECT_FALSE(list.explains(outcome)) << outcome.text();
        list.remove(outcome);
    }
}

TEST_F(ProblemListTest, OutcomeForAnotherFileDoesNotExplainAMalformedOne) {
    list.add({Kind::unwritable, "/other", unwritable.cause});
    EXPECT_FALSE(list.explains(malformed));
}

TEST_F(ProblemListTest, WriteThatFailedForTheSameCauseExplainsAPost) {
    list.add({Kind::unwritable, "/a/file", "Is a directory"});
    EXPECT_FALSE(list.explains(notPosted));
    list.add(unwritable);
    EXPECT_TRUE(list.explains(notPosted));
}

TEST_F(ProblemListTest, WriteThatFailedExplainsNothingElse) {
    list.add(unwritable);
    for (const auto kind : {Kind::missing, Kind::unreadable, Kind::unwritable, Kind::unsynced, Kind::replaced,
                            Kind::notObserved, Kind::notPrivate, Kind::missingService, Kind::notStarted})
        EXPECT_FALSE(list.explains(unwritable.as(kind))) << static_cast<int>(kind);
}

} // namespace
} // namespace prismo
