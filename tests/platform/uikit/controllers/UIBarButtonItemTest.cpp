#include "platform/uikit/controllers/UIBarButtonItem.h"
#include "platform/uikit/controllers/UIViewController.h"
#include "tests/platform/uikit/Recorder.h"

#include <gtest/gtest.h>

namespace prismo {
namespace {

struct UIBarButtonItemTest : testing::Test {
    UIBarButtonItemTest() { item->initWithImage(nullptr, UIBarButtonItemStyle::done, target, "first:"); }

    std::shared_ptr<Recorder> target = std::make_shared<Recorder>();
    std::shared_ptr<UIBarButtonItem> item = std::make_shared<UIBarButtonItem>();
};

TEST_F(UIBarButtonItemTest, KeepsItsImageAndStyle) {
    const auto image = std::make_shared<UIImage>(CGSize{1, 1}, Data());
    item->initWithImage(image, UIBarButtonItemStyle::done, target, "first:");
    EXPECT_EQ(item->image(), image);
    EXPECT_EQ(item->style(), UIBarButtonItemStyle::done);
    EXPECT_EQ(item->backgroundImage(), nullptr);
}

TEST_F(UIBarButtonItemTest, TapSendsTheActionWithTheItem) {
    item->tap();
    EXPECT_EQ(target->received, (std::vector<Recorder::Received>{{"first", item}}));
}

TEST_F(UIBarButtonItemTest, TargetIsNotKeptAlive) {
    const std::weak_ptr<Recorder> watched = target;
    target = nullptr;
    EXPECT_TRUE(watched.expired());
    item->tap();
}

TEST_F(UIBarButtonItemTest, NavigationItemOwnsItAndReportsItOnce) {
    UIViewController page;
    int changes = 0;
    const auto subscription = page.navigationItem().observe([&] { ++changes; });
    page.navigationItem().setRightBarButtonItem(item);
    page.navigationItem().setRightBarButtonItem(item);
    EXPECT_EQ(changes, 1);
    const std::weak_ptr<UIBarButtonItem> watched = item;
    item = nullptr;
    EXPECT_FALSE(watched.expired());
}

} // namespace
} // namespace prismo
