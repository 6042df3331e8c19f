#include "kit/FBPrefsTint.h"
#include "tests/support/MemoryWorld.h"

#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UISplitViewController.h"

namespace prismo {
namespace {

using Lines = std::vector<std::string>;

constexpr UIColor tint{0.1, 0.2, 0.3, 0.9};
constexpr UIColor former{0.9, 0.8, 0.7, 1};

struct TintedPage : PSListController {
    static const Class& classObject() {
        static const Class objectClass("TintedPage", &PSListController::classObject(), nullptr);
        return objectClass;
    }
    const Class& isa() const override { return classObject(); }
};

struct NavigationBarTintTest : MemoryWorld {
    NavigationBarTintTest() { detail->pushViewController(page, false); }
    ~NavigationBarTintTest() override { setMethodsLackingOnThisSystem({}); }

    void enterSplit() { split->setViewControllers({master, detail}); }
    UINavigationBar& bar() { return *detail->navigationBar(); }
    static UIAppearance appearance() {
        return UIApplication::sharedApplication()->appearanceWhenContainedIn(TintedPage::classObject());
    }
    static UIAppearance allTinted() { return {tint, tint, tint}; }
    static UITextAttributes onlyForeground(UIColor color) { return {{"NSColor", color}}; }
    /// Gives the page a look of its own, with every field set, before any tint.
    void setOriginalLook() {
        bar().setTitleTextAttributes({{"NSColor", former}, {"NSShadow", former}});
        bar().setTintColor(former);
        bar().setBarTintColor(former);
        page->view()->setTintColor(former);
    }

    std::shared_ptr<UISplitViewController> split = std::make_shared<UISplitViewController>();
    std::shared_ptr<UINavigationController> master = std::make_shared<UINavigationController>();
    std::shared_ptr<UINavigationController> detail = std::make_shared<UINavigationController>();
    std::shared_ptr<TintedPage> page = std::make_shared<TintedPage>();
};

TEST_F(NavigationBarTintTest, TitleGetsTheTintAndNoOtherAttribute) {
    enterSplit();
    setOriginalLook();
    FBSetPrefsTint(page, tint);
    EXPECT_EQ(bar().titleTextAttributes(), onlyForeground(tint));
}

TEST_F(NavigationBarTintTest, ButtonsGetTheTintAndTheBarKeepsItsBackground) {
    enterSplit();
    setOriginalLook();
    FBSetPrefsTint(page, tint);
    EXPECT_EQ(bar().tintColor(), tint);
    EXPECT_EQ(bar().barTintColor(), former);
}

TEST_F(NavigationBarTintTest, VisibleViewGetsTheTintAndResizesItsSubviews) {
    enterSplit();
    page->view()->setAutoresizesSubviews(false);
    FBSetPrefsTint(page, tint);
    EXPECT_EQ(page->view()->tintColor(), tint);
    EXPECT_TRUE(page->view()->autoresizesSubviews());
}

TEST_F(NavigationBarTintTest, PageExtendsOnlyUnderTheBottomBar) {
    enterSplit();
    FBSetPrefsTint(page, tint);
    EXPECT_EQ(page->edgesForExtendedLayout(), 4U);
}

TEST_F(NavigationBarTintTest, EdgesStayOnASystemWithoutThem) {
    setMethodsLackingOnThisSystem({"edgesForExtendedLayout"});
    enterSplit();
    FBSetPrefsTint(page, tint);
    EXPECT_EQ(page->edgesForExtendedLayout(), 15U);
    EXPECT_EQ(appearance(), allTinted());
}

TEST_F(NavigationBarTintTest, ControlsInPagesOfTheClassGetTheTint) {
    enterSplit();
    FBSetPrefsTint(page, tint);
    EXPECT_EQ(appearance().segmentedControlTintColor, tint);
    EXPECT_EQ(appearance().sliderMaximumTrackTintColor, tint);
    EXPECT_EQ(appearance().switchOnTintColor, tint);
}

TEST_F(NavigationBarTintTest, ControlsInPagesOfOtherClassesStay) {
    enterSplit();
    FBSetPrefsTint(page, tint);
    const auto& application = UIApplication::sharedApplication();
    EXPECT_EQ(application->appearanceWhenContainedIn(PSListController::classObject()), UIAppearance());
    EXPECT_EQ(application->appearanceWhenContainedIn(UINavigationController::classObject()), UIAppearance());
}

TEST_F(NavigationBarTintTest, MasterSideStays) {
    const auto list = std::make_shared<UIViewController>();
    master->pushViewController(list, false);
    enterSplit();
    FBSetPrefsTint(page, tint);
    EXPECT_EQ(master->navigationBar()->tintColor(), std::nullopt);
    EXPECT_TRUE(master->navigationBar()->titleTextAttributes().empty());
    EXPECT_EQ(list->view()->tintColor(), std::nullopt);
}

TEST_F(NavigationBarTintTest, PageOnTheMasterSideTintsTheDetailSide) {
    const auto inMaster = std::make_shared<TintedPage>();
    master->pushViewController(inMaster, false);
    enterSplit();
    FBSetPrefsTint(inMaster, tint);
    EXPECT_EQ(bar().tintColor(), tint);
    EXPECT_EQ(page->view()->tintColor(), tint);
    EXPECT_EQ(inMaster->view()->tintColor(), std::nullopt);
    EXPECT_EQ(inMaster->edgesForExtendedLayout(), 4U);
    EXPECT_EQ(page->edgesForExtendedLayout(), 15U);
}

TEST_F(NavigationBarTintTest, VisibleSubPageGetsTheTintInsteadOfTheRootPage) {
    const auto subPage = std::make_shared<UIViewController>();
    enterSplit();
    detail->pushViewController(subPage, false);
    FBSetPrefsTint(page, tint);
    EXPECT_EQ(subPage->view()->tintColor(), tint);
    EXPECT_EQ(page->view()->tintColor(), std::nullopt);
    EXPECT_EQ(page->edgesForExtendedLayout(), 4U);
    EXPECT_EQ(subPage->edgesForExtendedLayout(), 15U);
}

TEST_F(NavigationBarTintTest, OutsideASplitOnlyEdgesAndControlsChange) {
    FBSetPrefsTint(page, tint);
    EXPECT_EQ(bar().tintColor(), std::nullopt);
    EXPECT_TRUE(bar().titleTextAttributes().empty());
    EXPECT_EQ(page->view()->tintColor(), std::nullopt);
    EXPECT_EQ(page->edgesForExtendedLayout(), 4U);
    EXPECT_EQ(appearance(), allTinted());
}

TEST_F(NavigationBarTintTest, DetailSideThatIsNotANavigationControllerIsSkipped) {
    split->setViewControllers({detail, std::make_shared<UIViewController>()});
    FBSetPrefsTint(page, tint);
    EXPECT_EQ(bar().tintColor(), std::nullopt);
    EXPECT_EQ(page->view()->tintColor(), std::nullopt);
    EXPECT_EQ(page->edgesForExtendedLayout(), 4U);
    EXPECT_EQ(appearance(), allTinted());
}

TEST_F(NavigationBarTintTest, DetailSideWithoutAPageGetsATintedBar) {
    const auto empty = std::make_shared<UINavigationController>();
    split->setViewControllers({detail, empty});
    FBSetPrefsTint(page, tint);
    EXPECT_EQ(empty->navigationBar()->tintColor(), tint);
    FBResetPrefsTint(page);
    EXPECT_EQ(empty->navigationBar()->tintColor(), std::nullopt);
}

TEST_F(NavigationBarTintTest, TintIsSetInOrder) {
    enterSplit();
    page->view()->setAutoresizesSubviews(false);
    Lines order;
    const auto ofBar = bar().observe([&] { order.push_back(bar().tintColor() ? "bar" : "title"); });
    const auto ofView = page->view()->observe(
        [&] { order.push_back(page->view()->autoresizesSubviews() ? "resizing" : "view"); });
    const auto ofPage = page->observe([&] { order.push_back("edges"); });
    const auto ofControls = UIApplication::sharedApplication()->observe([&] { order.push_back("controls"); });
    FBSetPrefsTint(page, tint);
    EXPECT_EQ(order, (Lines{"title", "bar", "view", "resizing", "edges", "controls"}));
}

TEST_F(NavigationBarTintTest, SecondTintReplacesTheFirst) {
    enterSplit();
    FBSetPrefsTint(page, former);
    FBSetPrefsTint(page, tint);
    EXPECT_EQ(bar().titleTextAttributes(), onlyForeground(tint));
    EXPECT_EQ(bar().tintColor(), tint);
    EXPECT_EQ(appearance(), allTinted());
}

TEST_F(NavigationBarTintTest, MissingColorRestoresTheSystemColors) {
    enterSplit();
    setOriginalLook();
    FBSetPrefsTint(page, std::nullopt);
    EXPECT_TRUE(bar().titleTextAttributes().empty());
    EXPECT_EQ(bar().tintColor(), std::nullopt);
    EXPECT_EQ(page->view()->tintColor(), std::nullopt);
    EXPECT_EQ(appearance(), UIAppearance());
}

TEST_F(NavigationBarTintTest, ResetMakesTheTitleBlack) {
    enterSplit();
    setOriginalLook();
    FBResetPrefsTint(page);
    EXPECT_EQ(bar().titleTextAttributes(), onlyForeground({0, 0, 0, 1}));
}

TEST_F(NavigationBarTintTest, ResetRestoresEveryBarColorEvenIfNeverTinted) {
    enterSplit();
    setOriginalLook();
    FBResetPrefsTint(page);
    EXPECT_EQ(bar().barTintColor(), std::nullopt);
    EXPECT_EQ(bar().tintColor(), std::nullopt);
}

TEST_F(NavigationBarTintTest, ResetRemovesTintAndResizingFromTheVisibleView) {
    enterSplit();
    FBSetPrefsTint(page, tint);
    FBResetPrefsTint(page);
    EXPECT_EQ(page->view()->tintColor(), std::nullopt);
    EXPECT_FALSE(page->view()->autoresizesSubviews());
}

TEST_F(NavigationBarTintTest, ResetKeepsTheTintsEdgesAndControls) {
    enterSplit();
    FBSetPrefsTint(page, tint);
    FBResetPrefsTint(page);
    EXPECT_EQ(page->edgesForExtendedLayout(), 4U);
    EXPECT_EQ(appearance(), allTinted());
}

TEST_F(NavigationBarTintTest, ResetWithoutATintChangesNeitherEdgesNorControls) {
    enterSplit();
    FBResetPrefsTint(page);
    EXPECT_EQ(page->edgesForExtendedLayout(), 15U);
    EXPECT_EQ(appearance(), UIAppearance());
}

TEST_F(NavigationBarTintTest, ResetOutsideASplitDoesNothing) {
    setOriginalLook();
    FBResetPrefsTint(page);
    EXPECT_EQ(bar().tintColor(), former);
    EXPECT_EQ(bar().titleTextAttributes().size(), 2U);
    EXPECT_EQ(page->view()->tintColor(), former);
    EXPECT_TRUE(page->view()->autoresizesSubviews());
}

TEST_F(NavigationBarTintTest, ResetHappensInOrder) {
    enterSplit();
    setOriginalLook();
    Lines order;
    const auto ofBar = bar().observe([&] {
        order.push_back(bar().tintColor()                         ? "background"
                        : bar().titleTextAttributes().size() == 2 ? "buttons"
                                                                  : "title");
    });
    const auto ofView = page->view()->observe(
        [&] { order.push_back(page->view()->autoresizesSubviews() ? "view" : "resizing"); });
    FBResetPrefsTint(page);
    EXPECT_EQ(order, (Lines{"background", "buttons", "title", "view", "resizing"}));
}

} // namespace
} // namespace prismo
