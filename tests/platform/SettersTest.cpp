#include "platform/applist/ALApplicationTableDataSource.h"
#include "platform/preferences/PSListController.h"
#include "platform/preferences/PSTableCell.h"
#include "platform/swatchkit/SWColorAlert.h"
#include "platform/uikit/controllers/UIBarButtonItem.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UISplitViewController.h"
#include "platform/uikit/views/UIAlertView.h"
#include "platform/uikit/views/UIButton.h"
#include "tests/support/MemoryWorld.h"
#include "tests/support/Setter.h"

namespace prismo {
namespace {

struct SettersTest : MemoryWorld {
    static constexpr CGRect somewhere{{1, 2}, {3, 4}};
    static constexpr CGSize landscape{400, 300};
    static constexpr UIEdgeInsets insets{1, 2, 3, 4};
    static constexpr UIColor red{1, 0, 0, 1};
    static constexpr UIColor::HSB darkCyan{0.5, 0.5, 0.5};
    const std::shared_ptr<UIImage> image = std::make_shared<UIImage>(CGSize{1, 1}, Data());
    const std::shared_ptr<UIView> view = std::make_shared<UIView>();
    const std::shared_ptr<PSListController> page = std::make_shared<PSListController>();
    const std::shared_ptr<PSSpecifier> row = PSSpecifier::groupSpecifierWithName("Row");
};

struct LoadablePage : UIViewController {
    using UIViewController::setView;
};

struct ValueDelegate : ALValueCellDelegate {
    void valueCellDidChangeToValue(ALValueCell& /*cell*/, const Value& /*value*/) override {}
};

TEST_F(SettersTest, ViewsReportEachChangeOnce) {
    const UITextAttributes redTitle{{NSForegroundColorAttributeName, red}};
    expectEachToReportOnce({
        setter<UIView>("frame", [](auto& it) { it.setFrame(somewhere); }),
        setter<UIView>("alpha", [](auto& it) { it.setAlpha(0.5); }),
        setter<UIView>("hidden", [](auto& it) { it.setHidden(true); }),
        setter<UIView>("background color", [](auto& it) { it.setBackgroundColor(red); }),
        setter<UIView>("tint color", [](auto& it) { it.setTintColor(red); }),
        setter<UIView>("autoresizing",
                       [](auto& it) { it.setAutoresizingMask(UIViewAutoresizingFlexibleWidth); }),
        setter<UIView>("autoresizes subviews", [](auto& it) { it.setAutoresizesSubviews(false); }),
        setter<UIView>("subview", [&](auto& it) { it.addSubview(view); }),
        setter<UIWindow>("window level", [](auto& it) { it.setWindowLevel(UIWindowLevelAlert); }),
        setter<UILabel>("text", [](auto& it) { it.setText("a"); }),
        setter<UILabel>("font", [](auto& it) { it.setFont(UIFont::boldSystemFontOfSize(12)); }),
        setter<UIButton>("button title", [](auto& it) { it.setTitle("a"); }),
        setter<UIButton>("button title color", [](auto& it) { it.setTitleColor(red); }),
        setter<UIButton>("button font",
                         [](auto& it) { it.titleLabel()->setFont(UIFont::systemFontOfSize(9)); }),
        setter<UINavigationBar>("bar tint color", [](auto& it) { it.setBarTintColor(red); }),
        setter<UINavigationBar>("title attributes", [&](auto& it) { it.setTitleTextAttributes(redTitle); }),
    });
}

TEST_F(SettersTest, TablesAndCellsReportEachChangeOnce) {
    const auto table = std::make_shared<UITableView>(somewhere, UITableViewStyle::grouped);
    expectEachToReportOnce({
        setter("content inset", table, [](auto& it) { it.setContentInset(insets); }),
        setter("delegate", table, [&](auto& it) { it.setDelegate(page); }),
        setter<UITableViewCell>("image", [&](auto& it) { it.setImage(image); }),
        setter<UITableViewCell>("text", [](auto& it) { it.textLabel().setText("a"); }),
        setter<UITableViewCell>("detail text", [](auto& it) { it.detailTextLabel().setText("a"); }),
        setter<UITableViewCell>("accessory",
                                [](auto& it) { it.setAccessoryType(UITableViewCellAccessory::checkmark); }),
        setter<UITableViewCell>("enabled", [](auto& it) { it.setEnabled(false); }),
        setter<ALValueCell>("value cell's delegate", [delegate = std::make_shared<ValueDelegate>()](
                                                         auto& it) { it.setDelegate(delegate); }),
    });
}

TEST_F(SettersTest, PagesReportEachChangeOnce) {
    expectEachToReportOnce({
        setter<UINavigationItem>("title", [](auto& it) { it.setTitle("a"); }),
        setter<UINavigationItem>("right item", [item = std::make_shared<UIBarButtonItem>()](
                                                   auto& it) { it.setRightBarButtonItem(item); }),
        setter<UIViewController>("page title", [](auto& it) { it.setTitle("a"); }),
        setter<UIViewController>("edges", [](auto& it) { it.setEdgesForExtendedLayout(UIRectEdgeNone); }),
        setter<LoadablePage>("view", [&](auto& it) { it.setView(view); }),
        setter<PSViewController>("row", [&](auto& it) { it.setSpecifier(row); }),
        setter<PSViewController>("parent", [&](auto& it) { it.setParentController(page); }),
        setter<UISplitViewController>("controllers", [&](auto& it) { it.setViewControllers({page}); }),
        setter<UIBarButtonItem>("item's background", [&](auto& it) { it.setBackgroundImage(image); }),
    });
}

TEST_F(SettersTest, RowsReportEachChangeOnce) {
    const PSTitles titles{{1, "One"}};
    expectEachToReportOnce({
        setter<PSSpecifier>("name", [](auto& it) { it.setName("a"); }),
        setter<PSSpecifier>("detail page",
                            [](auto& it) { it.setDetailControllerClass(&NSObject::classObject()); }),
        setter<PSSpecifier>("identifier", [](auto& it) { it.setIdentifier("a"); }),
        setter<PSSpecifier>("action", [](auto& it) { it.setButtonAction("a"); }),
        setter<PSSpecifier>("property", [](auto& it) { it.setProperty(1, "a"); }),
        setter<PSSpecifier>("values", [](auto& it) { it.setValues({1}, {"One"}); }),
        setter<PSSpecifier>("titles", [&](auto& it) { it.setTitleDictionary(titles); }),
        setter<PSSpecifier>("short titles", [&](auto& it) { it.setShortTitleDictionary(titles); }),
    });
    row->setProperty("x", "footerText");
    expectEachToReportOnce(
        {setter("property's removal", row, [](auto& it) { it.setProperty({}, "footerText"); })});
}

TEST_F(SettersTest, ApplicationReportsEachChangeOnce) {
    const auto& application = UIApplication::sharedApplication();
    const UIAppearance redSwitches{{}, {}, red};
    expectEachToReportOnce({
        setter("window", application,
               [window = std::make_shared<UIWindow>()](auto& it) { it.setKeyWindow(window); }),
        setter("screen", application, [](auto& it) { it.setMainScreen(UIScreen(somewhere)); }),
        setter("no screen", application, [](auto& it) { it.setMainScreen(std::nullopt); }),
        setter("screen size", application, [](auto& it) { it.setScreenSize(landscape); }),
        setter("appearance", application,
               [&](auto& it) { it.setAppearanceWhenContainedIn(NSObject::classObject(), redSwitches); }),
    });
}

TEST_F(SettersTest, OverlaysReportEachChangeOnce) {
    const auto alert = std::make_shared<UIAlertView>("T", "M", nullptr, "OK");
    const auto picker = SWColorAlert::colorAlertWithStartColor(UIColor::blackColor(), true);
    expectEachToReportOnce({
        setter("tag", alert, [](auto& it) { it.setTag(2); }),
        setter("color", picker, [](auto& it) { it.setColor(red); }),
        setter("hue, saturation and brightness", picker, [](auto& it) { it.setHSB(darkCyan); }),
        setter("alpha", picker, [](auto& it) { it.setAlpha(0.25); }),
        setter("color text", picker, [](auto& it) { it.setHexText("#102030"); }),
    });
}

TEST_F(SettersTest, EveryAdditionAndReplacementIsReported) {
    const auto alert = std::make_shared<UIAlertView>("T", "M", nullptr, "OK");
    const auto table = std::make_shared<UITableView>(somewhere, UITableViewStyle::grouped);
    expectEachCallToReport({
        setter("alert's button", alert, [](auto& it) { it.addButtonWithTitle("a"); }),
        setter<UIControl>("target", [&](auto& it) { it.addTarget(page, "a", UIControlEventTouchUpInside); }),
        setter<UIBarButtonItem>(
            "bar button", [&](auto& it) { it.initWithImage(image, UIBarButtonItemStyle::plain, page, "a"); }),
        setter("data source", table, [&](auto& it) { it.setDataSource(page); }),
        setter<ALApplicationTableDataSource>("sections", [](auto& it) { it.setSectionDescriptors({}); }),
    });
}

TEST_F(SettersTest, PageReportsChangesOfItsContainers) {
    const auto navigation = std::make_shared<UINavigationController>();
    const auto split = std::make_shared<UISplitViewController>();
    const auto pushed = std::make_shared<UIViewController>();
    const std::vector<std::shared_ptr<UIViewController>> both{pushed, page};
    pushed->view();
    navigation->pushViewController(page, false);
    expectEachToReportOnce({
        setter("is pushed", pushed,
               [&](auto& it) {
                   if (!it.navigationController()) navigation->pushViewController(pushed, false);
               }),
        setter("is popped", pushed, [&](auto&) { navigation->popViewController(false); }),
        setter("enters a split view", pushed, [&](auto&) { split->setViewControllers({pushed}); }),
        setter("joins it", page, [&](auto&) { split->setViewControllers(both); }),
        setter("leaves it", pushed, [&](auto&) { split->setViewControllers({page}); }),
        setter("is presented", pushed, [&](auto&) { page->presentViewController(pushed, false); }),
        setter("is dismissed", pushed, [&](auto& it) { it.dismissViewController(false); }),
    });
}

TEST_F(SettersTest, ViewReportsEveryChangeOfSuperviewOnce) {
    const auto first = std::make_shared<UIView>();
    const auto second = std::make_shared<UIView>();
    expectEachToReportOnce({
        setter("is added", view, [&](auto&) { first->addSubview(view); }),
        setter("changes its superview", view, [&](auto&) { second->addSubview(view); }),
        setter("leaves it", view, [&](auto& it) { it.removeFromSuperview(); }),
    });
}

TEST_F(SettersTest, FadeToTheCurrentAlphaIsReported) {
    const auto show = [&] { view->setAlpha(1); };
    const auto ignore = [](bool /*finished*/) {};
    const auto fade = setter("fade", view, [&](auto&) {
        runFor(1);
        UIView::animateWithDuration(Seconds(1), show, ignore);
    });
    expectEachCallToReport({fade});
    expectEachToReportOnce({setter("end of a fade", view, [](auto& it) { it.setAlpha(1); })});
}

} // namespace
} // namespace prismo
