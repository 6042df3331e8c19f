#include "platform/uikit/controllers/UISplitViewController.h"
#include "platform/uikit/controllers/UINavigationController.h"

#include <gtest/gtest.h>

namespace prismo {
namespace {

struct UISplitViewControllerTest : testing::Test {
    std::shared_ptr<UISplitViewController> split = std::make_shared<UISplitViewController>();
    std::shared_ptr<UINavigationController> master = std::make_shared<UINavigationController>();
    std::shared_ptr<UINavigationController> detail = std::make_shared<UINavigationController>();
};

TEST_F(UISplitViewControllerTest, HasItsControllersInOrder) {
    split->setViewControllers({master, detail});
    EXPECT_EQ(split->viewControllers(), (std::vector<std::shared_ptr<UIViewController>>{master, detail}));
}

TEST_F(UISplitViewControllerTest, ControllersAndThePagesInThemFindIt) {
    const auto page = std::make_shared<UIViewController>();
    detail->pushViewController(page, false);
    EXPECT_EQ(page->splitViewController(), nullptr);
    split->setViewControllers({master, detail});
    EXPECT_EQ(master->splitViewController(), split);
    EXPECT_EQ(detail->splitViewController(), split);
    EXPECT_EQ(page->splitViewController(), split);
}

TEST_F(UISplitViewControllerTest, PageThatIsItsChildFindsIt) {
    const auto page = std::make_shared<UIViewController>();
    split->setViewControllers({page});
    EXPECT_EQ(page->splitViewController(), split);
}

TEST_F(UISplitViewControllerTest, PageOutsideFindsNoSplit) {
    EXPECT_EQ(std::make_shared<UIViewController>()->splitViewController(), nullptr);
}

TEST_F(UISplitViewControllerTest, RemovedControllerNoLongerFindsIt) {
    split->setViewControllers({master, detail});
    split->setViewControllers({detail});
    EXPECT_EQ(master->splitViewController(), nullptr);
    EXPECT_EQ(detail->splitViewController(), split);
}

TEST_F(UISplitViewControllerTest, IsNotKeptAliveByItsControllers) {
    const std::weak_ptr<UISplitViewController> watched = split;
    split->setViewControllers({master, detail});
    split = nullptr;
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(detail->splitViewController(), nullptr);
}

TEST_F(UISplitViewControllerTest, NewControllersNotifyObservers) {
    int changes = 0;
    const auto subscription = split->observe([&] { ++changes; });
    split->setViewControllers({master});
    EXPECT_EQ(changes, 1);
}

TEST_F(UISplitViewControllerTest, EdgesHaveThePlatformsValues) {
    EXPECT_EQ(UIRectEdgeNone, 0U);
    EXPECT_EQ(UIRectEdgeTop, 1U);
    EXPECT_EQ(UIRectEdgeBottom, 4U);
    EXPECT_EQ(UIRectEdgeAll, 15U);
    EXPECT_EQ(master->edgesForExtendedLayout(), 15U);
}

} // namespace
} // namespace prismo
