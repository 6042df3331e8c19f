#include "kit/FBTwitterShareHandler.h"
#include "tests/support/World.h"

#include "platform/social/SLComposeViewController.h"

namespace prismo {
namespace {

using Lines = std::vector<std::string>;
using namespace std::chrono_literals;

/// The first bytes of a PNG file of 29 × 25 points.
const Data png{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13,
               'I',  'H', 'D', 'R', 0,    0,    0,    29,   0, 0, 0, 25};

struct RootPageLifeTest : World {
    std::shared_ptr<FBBarButtonItem> shareButton() {
        return std::dynamic_pointer_cast<FBBarButtonItem>(page->navigationItem().rightBarButtonItem());
    }
    void postChange() {
        device.postFromOutside("com.corvane.prismo2.changed");
        runFor(1);
    }
    Lines reloads() { return timeline({"reload"}); }
    /// The font of the title in the row's cell.
    UIFont fontOf(const std::shared_ptr<PSSpecifier>& row) {
        const auto rows = page->rows();
        const auto index = static_cast<std::size_t>(std::ranges::find(*rows, row) - rows->begin());
        return page->tableViewCellForRowAtIndexPath(*page->table(), page->indexPathForIndex(index).value())
            ->textLabel()
            .font();
    }
};

TEST_F(RootPageLifeTest, StartsInSystemScope) {
    EXPECT_FALSE(page->isInAppScope());
    EXPECT_EQ(page->scopeId(), std::nullopt);
    EXPECT_EQ(page->statusAlert(), nullptr);
}

TEST_F(RootPageLifeTest, SetsItsTitleEachTimeItAppears) {
    page->viewWillAppear(true);
    EXPECT_EQ(page->title(), "Prismo 2");
    page->setTitle("Row that opened it");
    page->viewWillAppear(false);
    EXPECT_EQ(page->title(), "Prismo 2");
}

TEST_F(RootPageLifeTest, HasItsTitleOnScreen) {
    page->setTitle("Row that opened it");
    show();
    EXPECT_EQ(page->title(), "Prismo 2");
}

TEST_F(RootPageLifeTest, ShareButtonIsAddedBeforeTheViewLoads) {
    std::vector<bool> loaded;
    const auto subscription =
        page->navigationItem().observe([&] { loaded.push_back(page->table() || page->isViewLoaded()); });
    page->loadView();
    EXPECT_EQ(loaded, (std::vector{false}));
    EXPECT_TRUE(page->table());
    EXPECT_TRUE(page->isViewLoaded());
}

TEST_F(RootPageLifeTest, ShareButtonShowsTheBundlesImage) {
    device.setFile("/Library/PreferenceBundles/Prismo2Prefs.bundle/twitter.png", png);
    page->loadView();
    ASSERT_TRUE(shareButton()->image());
    EXPECT_EQ(shareButton()->image()->size(), (CGSize{29, 25}));
    EXPECT_EQ(shareButton()->image()->data(), png);
}

TEST_F(RootPageLifeTest, ShareButtonIsAddedWithoutItsImage) {
    page->loadView();
    ASSERT_TRUE(shareButton());
    EXPECT_EQ(shareButton()->image(), nullptr);
}

TEST_F(RootPageLifeTest, ShareButtonOffersThePagesText) {
    show();
    EXPECT_EQ(shareButton()->container(), page);
    shareButton()->tap();
    EXPECT_EQ(topmostPresented<SLComposeViewController>()->text(),
              "#Prismo2 by @quillmoth customizes color throughout all of my apps and more!");
}

TEST_F(RootPageLifeTest, LoadingTheViewMakesABannerForTheChange) {
    page->view();
    const auto banner = page->statusAlert();
    ASSERT_TRUE(banner);
    EXPECT_EQ(banner->message(), "Prismo 2 \xE2\x80\x93 Tap to Respring?");
    EXPECT_EQ(banner->notification(), "com.corvane.prismo2.changed");
    EXPECT_EQ(banner->action(), "respring:");
    EXPECT_EQ(banner->target(), page);
}

TEST_F(RootPageLifeTest, BannerIsBlueWithWhiteText) {
    page->view();
    const auto& background = page->statusAlert()->backgroundColor();
    EXPECT_EQ(background.red, 0);
    EXPECT_NEAR(background.green, 0.46, 1e-9); // 1 - 6 * (0.59 - 0.5)
    EXPECT_EQ(background.blue, 1);
    EXPECT_EQ(background.alpha, 0.9);
    EXPECT_EQ(page->statusAlert()->textColor(), (UIColor{1, 1, 1, 1}));
}

TEST_F(RootPageLifeTest, SecondViewDidLoadKeepsTheBanner) {
    page->view();
    const auto banner = page->statusAlert();
    banner->setTextColor({1, 0, 0, 1});
    page->viewDidLoad();
    EXPECT_EQ(page->statusAlert(), banner);
    EXPECT_EQ(banner->textColor(), (UIColor{1, 0, 0, 1}));
}

TEST_F(RootPageLifeTest, BannerSetBeforehandIsKept) {
    const auto given = SWStatusBarAlert::initWithMessage("Own", std::nullopt, std::nullopt, nullptr);
    page->setStatusAlert(given);
    page->viewDidLoad();
    EXPECT_EQ(page->statusAlert(), given);
    EXPECT_EQ(given->message(), "Own");
}

TEST_F(RootPageLifeTest, ChangeRebuildsTheRowsAfterThirtyFiveMilliseconds) {
    show();
    postChange();
    EXPECT_EQ(reloads(), (Lines{"35 ms reload Prismo2PrefsListController"}));
}

TEST_F(RootPageLifeTest, EveryChangeRebuildsTheRows) {
    show();
    postChange();
    postChange();
    EXPECT_EQ(reloads().size(), 2U);
}

TEST_F(RootPageLifeTest, RebuiltRowsShowTheNewValues) {
    show();
    EXPECT_FALSE(colorRowOf("keyboard")->isEnabled());
    store({{"keyboard_color_type", 2}});
    EXPECT_FALSE(colorRowOf("keyboard")->isEnabled());
    postChange();
    EXPECT_TRUE(colorRowOf("keyboard")->isEnabled());
}

TEST_F(RootPageLifeTest, OtherNotificationsRebuildNothing) {
    show();
    device.postFromOutside("com.corvane.prismo2");
    runFor(1);
    EXPECT_TRUE(reloads().empty());
}

TEST_F(RootPageLifeTest, UnloadedPageObservesNothing) {
    postChange();
    EXPECT_TRUE(reloads().empty());
}

TEST_F(RootPageLifeTest, SecondViewDidLoadObservesAgain) {
    show();
    page->viewDidLoad();
    postChange();
    EXPECT_EQ(reloads(),
              (Lines{"35 ms reload Prismo2PrefsListController", "70 ms reload Prismo2PrefsListController"}));
}

TEST_F(RootPageLifeTest, OtherEventsAreHandledWhileThePageSettles) {
    show();
    device.postFromOutside("com.corvane.prismo2.changed");
    std::vector<std::pair<std::chrono::nanoseconds, bool>> called;
    device.runLoop().schedule(Seconds(0.01), [&] { called.emplace_back(now(), reloads().empty()); });
    runFor(1);
    EXPECT_EQ(called, (std::vector<std::pair<std::chrono::nanoseconds, bool>>{{10ms, true}}));
    EXPECT_EQ(reloads(), (Lines{"35 ms reload Prismo2PrefsListController"}));
}

TEST_F(RootPageLifeTest, ChangesWhileSuspendedRebuildOnceOnResume) {
    show();
    device.systemCenter().setSuspended(true);
    postChange();
    postChange();
    EXPECT_TRUE(reloads().empty());
    device.systemCenter().setSuspended(false);
    EXPECT_EQ(reloads().size(), 1U);
}

TEST_F(RootPageLifeTest, ObserverThatIsNotAPageIsIgnored) {
    settingsChanged(nullptr);
    settingsChanged(std::make_shared<NSObject>());
    EXPECT_EQ(now(), 0ns);
    EXPECT_TRUE(effects.empty());
}

TEST_F(RootPageLifeTest, ObserverThatIsAPageSettlesAndReloads) {
    settingsChanged(page);
    EXPECT_EQ(now(), 35ms);
    EXPECT_EQ(reloads().size(), 1U);
}

TEST_F(RootPageLifeTest, ChangeShowsTheBannerBeforeRebuildingTheRows) {
    show();
    std::vector<std::string> shown;
    const auto subscription = page->observe([&] {
        const auto& button = page->statusAlert()->actionButton();
        if (button->alpha() == 1) shown.push_back(button->title());
    });
    postChange();
    EXPECT_EQ(shown, (Lines{"Prismo 2 – Tap to Respring?"}));
}

TEST_F(RootPageLifeTest, ChangeMadeOnThePageShowsTheBanner) {
    show();
    rowNamed("Prismo Enabled")->performSetterWithValue(false);
    runFor(0);
    EXPECT_EQ(page->statusAlert()->actionButton()->alpha(), 1);
    EXPECT_EQ(page->statusAlert()->actionButton()->superview(),
              UIApplication::sharedApplication()->keyWindow());
}

TEST_F(RootPageLifeTest, TapOnTheBannerRestartsTheUserInterface) {
    show();
    postChange();
    page->statusAlert()->actionButton()->sendActionsForControlEvents(UIControlEventTouchUpInside);
    ASSERT_EQ(effectsOfKind("spawn").size(), 1U);
    EXPECT_EQ(effectsOfKind("spawn")[0].details.at("argv"), Value(Array{"killall", "-9", "backboardd"}));
}

TEST_F(RootPageLifeTest, TogglingTheScopeReturnsToTheUnscopedValues) {
    store({{"enabled", false}, {"com.example.app_enabled", true}});
    chooseApp();
    EXPECT_EQ(rowNamed("Prismo Enabled")->performGetter(), Value(true));
    page->setSegmentPreferenceValue(false, nullptr);
    page->setSegmentPreferenceValue(true, nullptr);
    EXPECT_EQ(page->scopeId(), std::nullopt);
    EXPECT_EQ(page->readPreferenceValue(switchRow(page, "enabled")), Value(false));
}

TEST_F(RootPageLifeTest, RowOfTheChosenApplicationHasATwentyPointTitle) {
    chooseApp();
    page->loadView();
    EXPECT_EQ(fontOf(page->specifierForID("currentAppCell")), (UIFont{.pointSize = 20, .isBold = false}));
}

TEST_F(RootPageLifeTest, OtherRowsKeepTheirTitleSize) {
    chooseApp();
    page->loadView();
    for (const auto& row : *page->rows())
        if (row->cellType() != PSCellType::group && row->identifier() != "currentAppCell") {
            EXPECT_EQ(fontOf(row), UIFont()) << row->name();
        }
}

TEST_F(RootPageLifeTest, SimilarIdentifiersKeepTheirTitleSize) {
    page->loadView();
    const auto row = rowNamed("Prismo Enabled");
    for (const auto* identifier : {"currentAppCell2", "my.currentAppCell", "CurrentAppCell", "currentApp"}) {
        row->setIdentifier(identifier);
        EXPECT_EQ(fontOf(row), UIFont()) << identifier;
    }
}

TEST_F(RootPageLifeTest, PositionWithoutARowHasNoCell) {
    page->loadView();
    EXPECT_EQ(page->tableViewCellForRowAtIndexPath(*page->table(), {99, 0}), nullptr);
}

TEST_F(RootPageLifeTest, PageIsReleasedAfterItsStackAndItsBannerAreGone) {
    show();
    const std::weak_ptr<Prismo2PrefsListController> watched = page;
    postChange();
    runFor(1);
    page = nullptr;
    navigation = nullptr;
    EXPECT_FALSE(watched.expired()) << "the banner can still be tapped";
    runFor(10);
    EXPECT_TRUE(watched.expired());
}

TEST_F(RootPageLifeTest, ReleasedPageIsNotRebuilt) {
    show();
    navigation = nullptr;
    page = nullptr;
    postChange();
    EXPECT_TRUE(effects.empty());
}

TEST_F(RootPageLifeTest, PageReleasesItsBanner) {
    page->setStatusAlert(SWStatusBarAlert::initWithMessage("Own", std::nullopt, std::nullopt, nullptr));
    const std::weak_ptr<SWStatusBarAlert> watched = page->statusAlert();
    page = nullptr;
    EXPECT_TRUE(watched.expired());
}

TEST_F(RootPageLifeTest, PageAndBannerKeepEachOtherAliveUntilTheLinkIsBroken) {
    page->view();
    const std::weak_ptr<Prismo2PrefsListController> watched = page;
    const auto banner = page->statusAlert();
    page = nullptr;
    EXPECT_FALSE(watched.expired());
    banner->setTarget(nullptr);
    EXPECT_TRUE(watched.expired());
}

} // namespace
} // namespace prismo
