#include "platform/applist/ALApplicationList.h"
#include "tests/support/MemoryWorld.h"

namespace prismo {
namespace {

struct ALApplicationListTest : MemoryWorld {
    ALApplicationListTest() {
        device.setFile("/a.png", {1, 2});
        device.setApplications({userApp("com.example.a", "A", "/a.png"), systemApp("com.example.b", "B"),
                                userApp("com.example.c", "C", "/missing.png")});
    }
    ALApplicationList& list = ALApplicationList::sharedApplicationList();
};

TEST_F(ALApplicationListTest, SharedListIsUnique) {
    EXPECT_EQ(&list, &ALApplicationList::sharedApplicationList());
}

TEST_F(ALApplicationListTest, ReportsNameAndOrigin) {
    EXPECT_EQ(list.valueForKey("displayName", "com.example.b"), Value("B"));
    EXPECT_EQ(list.valueForKey("isSystemApplication", "com.example.a"), Value(false));
    EXPECT_EQ(list.valueForKey("isSystemApplication", "com.example.b"), Value(true));
}

TEST_F(ALApplicationListTest, UnknownKeyOrApplicationReadsAsNothing) {
    EXPECT_EQ(list.valueForKey("path", "com.example.a"), Value());
    EXPECT_EQ(list.valueForKey("displayName", "com.example.x"), Value());
    EXPECT_EQ(list.valueForKey("displayName", "COM.example.a"), Value());
    EXPECT_EQ(list.iconOfSize(29, "com.example.x"), nullptr);
}

TEST_F(ALApplicationListTest, IconIsTheFileAsASquareOfTheGivenSize) {
    const auto icon = list.iconOfSize(59, "com.example.a");
    ASSERT_TRUE(icon);
    EXPECT_EQ(icon->size(), (CGSize{59, 59}));
    EXPECT_EQ(icon->data(), (Data{1, 2}));
}

TEST_F(ALApplicationListTest, ApplicationWithoutAnIconFileHasNone) {
    EXPECT_EQ(list.iconOfSize(59, "com.example.b"), nullptr);
    EXPECT_EQ(list.iconOfSize(59, "com.example.c"), nullptr);
}

TEST_F(ALApplicationListTest, ListsTheCurrentDevice) {
    MemoryDevice other;
    other.setApplications({userApp("com.example.a", "Other")});
    const Device::Current nested(other);
    EXPECT_EQ(list.valueForKey("displayName", "com.example.a"), Value("Other"));
}

} // namespace
} // namespace prismo
