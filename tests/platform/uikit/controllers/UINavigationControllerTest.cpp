#include "platform/uikit/controllers/UINavigationController.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace prismo {
namespace {

using Lines = std::vector<std::string>;

class Page : public UIViewController {
  public:
    Page(std::string name, Lines& calls) : name_(std::move(name)), calls_(calls) {}

    void loadView() override {
        record("loadView");
        UIViewController::loadView();
    }
    void viewDidLoad() override { record("viewDidLoad"); }
    void viewWillAppear(bool animated) override { record(animated ? "willAppear animated" : "willAppear"); }
    void viewDidAppear(bool animated) override { record(animated ? "didAppear animated" : "didAppear"); }
    void viewWillDisappear(bool animated) override {
        record(animated ? "willDisappear animated" : "willDisappear");
    }
    void viewDidDisappear(bool animated) override {
        record(animated ? "didDisappear animated" : "didDisappear");
    }

  private:
    void record(const char* what) { calls_.push_back(name_ + ' ' + what); }
    std::string name_;
    Lines& calls_;
};

struct UINavigationControllerTest : testing::Test {
    std::shared_ptr<Page> page(const char* name) { return std::make_shared<Page>(name, calls); }
    void push(const std::shared_ptr<Page>& pushed) { navigation->pushViewController(pushed, false); }

    Lines calls;
    std::shared_ptr<UINavigationController> navigation = std::make_shared<UINavigationController>();
    std::shared_ptr<Page> a = page("a");
    std::shared_ptr<Page> b = page("b");
    std::shared_ptr<Page> c = page("c");
};

TEST_F(UINavigationControllerTest, EmptyStackShowsNoPage) {
    EXPECT_EQ(navigation->topViewController(), nullptr);
    EXPECT_EQ(navigation->visibleViewController(), nullptr);
    navigation->popViewController(false);
}

TEST_F(UINavigationControllerTest, FirstPageIsLoadedThenAppears) {
    push(a);
    EXPECT_EQ(calls, (Lines{"a loadView", "a viewDidLoad", "a willAppear", "a didAppear"}));
    EXPECT_EQ(navigation->topViewController(), a);
    EXPECT_EQ(a->navigationController(), navigation);
}

TEST_F(UINavigationControllerTest, PushedPageIsLoadedBeforeTheCoveredOneDisappears) {
    push(a);
    calls.clear();
    navigation->pushViewController(b, true);
    EXPECT_EQ(calls, (Lines{"b loadView", "b viewDidLoad", "a willDisappear animated",
                            "b willAppear animated", "a didDisappear animated", "b didAppear animated"}));
    EXPECT_EQ(navigation->visibleViewController(), b);
}

TEST_F(UINavigationControllerTest, PageKnowsItsControllerWhileItLoads) {
    class CheckingPage : public UIViewController {
      public:
        void loadView() override {
            known = navigationController() != nullptr;
            UIViewController::loadView();
        }
        bool known = false;
    };
    const auto checking = std::make_shared<CheckingPage>();
    navigation->pushViewController(checking, false);
    EXPECT_TRUE(checking->known);
}

TEST_F(UINavigationControllerTest, PopGoesBackToTheCoveredPage) {
    push(a);
    push(b);
    calls.clear();
    navigation->popViewController(true);
    EXPECT_EQ(calls, (Lines{"b willDisappear animated", "a willAppear animated", "b didDisappear animated",
                            "a didAppear animated"}));
    EXPECT_EQ(navigation->topViewController(), a);
    EXPECT_EQ(b->navigationController(), nullptr);
}

/// Counts how often it was notified that it has left for good.
class Leaver : public UIViewController {
  public:
    explicit Leaver(int& farewells) : farewells_(farewells) {}
    void didMoveToParentViewController(const std::shared_ptr<UIViewController>& parent) override {
        if (!parent) ++farewells_;
        isInside = parent && parent == navigationController();
    }
    bool isInside = false;

  private:
    int& farewells_;
};

TEST_F(UINavigationControllerTest, PageIsNotifiedWhenItEntersAndWhenItLeavesForGood) {
    int farewells = 0;
    const auto leaver = std::make_shared<Leaver>(farewells);
    push(a);
    navigation->pushViewController(leaver, false);
    EXPECT_TRUE(leaver->isInside);
    push(b);
    EXPECT_EQ(farewells, 0) << "it is only covered and will come back";
    navigation->popToViewController(a, false);
    EXPECT_EQ(farewells, 1);
    EXPECT_FALSE(leaver->isInside);
}

TEST_F(UINavigationControllerTest, PagesLeaveWhenTheStackIsDestroyed) {
    int farewells = 0;
    navigation->pushViewController(std::make_shared<Leaver>(farewells), false);
    navigation->pushViewController(std::make_shared<Leaver>(farewells), false);
    navigation.reset();
    EXPECT_EQ(farewells, 2);
}

TEST_F(UINavigationControllerTest, RootPageIsNotPopped) {
    push(a);
    calls.clear();
    navigation->popViewController(false);
    EXPECT_EQ(navigation->topViewController(), a);
    EXPECT_TRUE(calls.empty());
}

TEST_F(UINavigationControllerTest, PopToAPageRemovesAllAboveIt) {
    push(a);
    push(b);
    push(c);
    calls.clear();
    navigation->popToViewController(a, false);
    EXPECT_EQ(navigation->viewControllers(), (std::vector<std::shared_ptr<UIViewController>>{a}));
    EXPECT_EQ(calls, (Lines{"c willDisappear", "a willAppear", "c didDisappear", "a didAppear"}));
    EXPECT_EQ(b->navigationController(), nullptr);
    EXPECT_EQ(c->navigationController(), nullptr);
    EXPECT_EQ(a->navigationController(), navigation);
}

TEST_F(UINavigationControllerTest, PopToTheTopPageOrToAPageNotOnTheStackDoesNothing) {
    push(a);
    push(b);
    calls.clear();
    navigation->popToViewController(b, false);
    navigation->popToViewController(c, false);
    EXPECT_EQ(navigation->viewControllers().size(), 2U);
    EXPECT_TRUE(calls.empty());
}

TEST_F(UINavigationControllerTest, PageThatGoesFurtherBackWhileDisappearingWins) {
    class PoppingPage : public Page {
      public:
        using Page::Page;
        void viewWillDisappear(bool animated) override {
            Page::viewWillDisappear(animated);
            if (const auto to = std::exchange(target, nullptr))
                navigationController()->popToViewController(to, animated);
        }
        std::shared_ptr<UIViewController> target;
    };
    const auto popping = std::make_shared<PoppingPage>("popping", calls);
    push(a);
    push(b);
    push(c);
    push(popping);
    popping->target = a;
    calls.clear();
    navigation->popViewController(false);
    EXPECT_EQ(navigation->viewControllers(), (std::vector<std::shared_ptr<UIViewController>>{a}));
    EXPECT_EQ(calls, (Lines{"popping willDisappear", "popping willDisappear", "a willAppear",
                            "popping didDisappear", "a didAppear"}));
}

TEST_F(UINavigationControllerTest, PageThatPushesWhileDisappearingWins) {
    class PushingPage : public Page {
      public:
        using Page::Page;
        void viewWillDisappear(bool animated) override {
            if (const auto next = std::exchange(pushed, nullptr))
                navigationController()->pushViewController(next, animated);
        }
        std::shared_ptr<UIViewController> pushed;
    };
    const auto pushing = std::make_shared<PushingPage>("pushing", calls);
    push(a);
    push(pushing);
    pushing->pushed = c;
    navigation->popViewController(false);
    EXPECT_EQ(navigation->viewControllers(), (std::vector<std::shared_ptr<UIViewController>>{a, pushing, c}));
    EXPECT_EQ(calls.back(), "c didAppear");
}

TEST_F(UINavigationControllerTest, PopAcceptsAReferenceIntoTheStack) {
    push(a);
    push(b);
    navigation->popToViewController(navigation->viewControllers()[0], false);
    EXPECT_EQ(navigation->topViewController(), a);
}

TEST_F(UINavigationControllerTest, PoppedPageIsReleased) {
    push(a);
    push(b);
    const std::weak_ptr<Page> watched = b;
    b = nullptr;
    EXPECT_FALSE(watched.expired());
    navigation->popViewController(false);
    EXPECT_TRUE(watched.expired());
}

TEST_F(UINavigationControllerTest, ObserversSeeTheNewTopPage) {
    std::vector<std::shared_ptr<UIViewController>> seen;
    const auto subscription = navigation->observe([&] { seen.push_back(navigation->topViewController()); });
    push(a);
    push(b);
    navigation->popViewController(false);
    EXPECT_EQ(seen, (std::vector<std::shared_ptr<UIViewController>>{a, b, a}));
}

TEST_F(UINavigationControllerTest, ViewIsLoadedOnce) {
    EXPECT_FALSE(a->isViewLoaded());
    const auto view = a->view();
    EXPECT_TRUE(a->isViewLoaded());
    EXPECT_EQ(a->view(), view);
    EXPECT_EQ(calls, (Lines{"a loadView", "a viewDidLoad"}));
}

} // namespace
} // namespace prismo
