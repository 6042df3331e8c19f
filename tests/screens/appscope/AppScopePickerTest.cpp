#include "screens/appscope/Prismo2AppScope.h"
#include "screens/appscope/PXApplicationListDataSource.h"
#include "tests/support/World.h"

#include "platform/applist/ALApplicationTableDataSource.h"

namespace prismo {
namespace {

using Lines = std::vector<std::string>;

struct AppScopePickerTest : World {
    AppScopePickerTest() {
        device.setApplications({userApp("com.example.zeta", "Zeta"), systemApp("com.example.phone", "Phone"),
                                userApp("com.example.alpha", "Alpha")});
    }
    ~AppScopePickerTest() override {
        // A picker that was never on a stack does not leave one either.
        if (picker) picker->setPDataSource(nullptr);
    }

    void open(CGSize size = {320, 480}) {
        enterAppScope();
        show();
        pushPicker(size);
    }
    void pushPicker(CGSize size = {320, 480}) {
        picker = std::make_shared<Prismo2AppScope>();
        ASSERT_TRUE(picker->initForContentSize(size));
        picker->setParentController(page);
        navigation->pushViewController(picker, true);
    }
    PXApplicationListDataSource& dataSource() {
        return dynamic_cast<PXApplicationListDataSource&>(*picker->table()->dataSource());
    }
    void tapApp(NSIndexPath position) {
        picker->table()->delegate()->tableViewDidSelectRowAtIndexPath(*picker->table(), position);
    }

    std::shared_ptr<Prismo2AppScope> picker;
};

TEST_F(AppScopePickerTest, IsFoundByName) {
    EXPECT_EQ(NSClassFromString("Prismo2AppScope"), &Prismo2AppScope::classObject());
    EXPECT_TRUE(std::dynamic_pointer_cast<Prismo2AppScope>(NSClassFromString("Prismo2AppScope")->create()));
    EXPECT_TRUE(Prismo2AppScope::classObject().isSubclassOf(PSViewController::classObject()));
}

TEST_F(AppScopePickerTest, TableFillsTheGivenSize) {
    open({375, 667});
    EXPECT_EQ(picker->table()->frame(), (CGRect{{0, 0}, {375, 667}}));
    EXPECT_EQ(picker->contentSize(), (CGSize{375, 667}));
}

TEST_F(AppScopePickerTest, IsBuiltEvenIfSystemPagesLackTheInitializer) {
    setMethodsLackingOnThisSystem({"initForContentSize:"});
    open({375, 667});
    setMethodsLackingOnThisSystem({});
    EXPECT_EQ(picker->table()->frame(), (CGRect{{0, 0}, {375, 667}}));
    EXPECT_EQ(dataSource().sections().size(), 2U);
}

TEST_F(AppScopePickerTest, ContentSizeIsTheTablesSize) {
    open();
    picker->table()->setFrame({{1, 2}, {30, 40}});
    EXPECT_EQ(picker->contentSize(), (CGSize{30, 40}));
}

TEST_F(AppScopePickerTest, ContentSizeWithoutATableIsZero) {
    EXPECT_EQ(std::make_shared<Prismo2AppScope>()->contentSize(), (CGSize{0, 0}));
}

TEST_F(AppScopePickerTest, TableIsGroupedWithRoomForTheBars) {
    open();
    EXPECT_EQ(static_cast<int>(picker->table()->style()), 1);
    EXPECT_EQ(picker->table()->contentInset(), (UIEdgeInsets{.top = 64, .left = 0, .bottom = 0, .right = 0}));
}

TEST_F(AppScopePickerTest, TableResizesWithThePage) {
    open();
    EXPECT_EQ(picker->table()->autoresizingMask(), 26U);
}

TEST_F(AppScopePickerTest, TableIsTheView) {
    open();
    EXPECT_EQ(picker->view(), picker->table());
}

TEST_F(AppScopePickerTest, PickerIsTheTablesDelegate) {
    open();
    EXPECT_EQ(picker->table()->delegate(), picker);
}

TEST_F(AppScopePickerTest, DataSourceKnowsItsPicker) {
    open();
    EXPECT_EQ(dataSource().rootController(), picker);
}

TEST_F(AppScopePickerTest, TitleIsAlwaysSelectApp) {
    open();
    EXPECT_EQ(picker->title(), "Select App");
    picker->setTitle("No App Selected");
    EXPECT_EQ(picker->title(), "Select App");
    page->setScopeId("com.example.zeta");
    EXPECT_EQ(picker->title(), "Select App");
}

TEST_F(AppScopePickerTest, HasTheStandardSections) {
    open();
    const auto& descriptors = dataSource().sectionDescriptors();
    ASSERT_EQ(descriptors.size(), 2U);
    EXPECT_EQ(descriptors[0].title, "System Applications");
    EXPECT_EQ(descriptors[1].title, "User Applications");
    EXPECT_EQ(dataSource().displayIdentifierForIndexPath({0, 0}), "com.example.phone");
    EXPECT_EQ(dataSource().displayIdentifierForIndexPath({1, 0}), "com.example.alpha");
    EXPECT_EQ(dataSource().displayIdentifierForIndexPath({1, 1}), "com.example.zeta");
}

TEST_F(AppScopePickerTest, TapSelectsTheApplicationAndGoesBack) {
    open();
    effects.clear();
    tapApp({1, 1});
    EXPECT_EQ(page->scopeId(), "com.example.zeta");
    EXPECT_EQ(navigation->topViewController(), page);
    EXPECT_EQ(timeline({"reload"}).size(), 1U);
    EXPECT_TRUE(hasRowNamed("Custom Zeta Settings Enabled"));
}

TEST_F(AppScopePickerTest, TapGoesBackAtOnce) {
    open();
    const auto before = now();
    tapApp({0, 0});
    EXPECT_EQ(now(), before);
    EXPECT_EQ(page->scopeId(), "com.example.phone");
}

TEST_F(AppScopePickerTest, TapStoresAndPostsNothing) {
    open();
    tapApp({1, 0});
    EXPECT_TRUE(timeline({"write", "post"}).empty());
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(AppScopePickerTest, TapKeepsTheScopeSwitch) {
    open();
    tapApp({1, 0});
    EXPECT_TRUE(page->isInAppScope());
    page->setIsInAppScope(false);
    pushPicker();
    tapApp({1, 1});
    EXPECT_FALSE(page->isInAppScope());
}

TEST_F(AppScopePickerTest, TapAfterThePickerIsGoneDoesNothing) {
    open();
    tapApp({1, 0});
    tapApp({1, 1});
    EXPECT_EQ(page->scopeId(), "com.example.alpha");
}

TEST_F(AppScopePickerTest, RowWithoutAnIdentifierClearsTheApplication) {
    open();
    page->setScopeId("com.example.zeta");
    tapApp({7, 0});
    EXPECT_EQ(page->scopeId(), std::nullopt);
    EXPECT_TRUE(hasRowNamed("No App Selected"));
    EXPECT_EQ(navigation->topViewController(), page);
}

TEST_F(AppScopePickerTest, GoesBackOverPagesInBetween) {
    open();
    navigation->pushViewController(std::make_shared<PSViewController>(), false);
    tapApp({1, 0});
    EXPECT_EQ(navigation->viewControllers().size(), 1U);
}

TEST_F(AppScopePickerTest, DataSourceIgnoresValueChangesOfItsCells) {
    open();
    const auto cell = std::dynamic_pointer_cast<ALValueCell>(picker->table()->cellForRowAtIndexPath({1, 0}));
    ASSERT_TRUE(cell);
    EXPECT_EQ(cell->textLabel().text(), "Alpha");
    EXPECT_EQ(cell->delegate().get(), &dataSource());
    effects.clear();
    cell->changeToValue(true);
    picker->cellAtIndexPathDidChangeToValue({1, 0}, true);
    EXPECT_TRUE(effects.empty());
    EXPECT_EQ(page->scopeId(), std::nullopt);
}

TEST_F(AppScopePickerTest, GoesBackAnimated) {
    class WatchedPage : public Prismo2PrefsListController {
      public:
        void viewWillAppear(bool animated) override { lastAnimated = animated; }
        bool lastAnimated = false;
    };
    const auto watched = std::make_shared<WatchedPage>();
    page = watched;
    open();
    EXPECT_FALSE(watched->lastAnimated);
    tapApp({1, 0});
    EXPECT_TRUE(watched->lastAnimated);
}

TEST_F(AppScopePickerTest, RowPastTheEndHasNoCell) {
    open();
    EXPECT_EQ(picker->table()->cellForRowAtIndexPath({1, 2}), nullptr);
}

TEST_F(AppScopePickerTest, PickerAndDataSourceKeepEachOtherAliveUntilTheLinkIsBroken) {
    open();
    const std::weak_ptr<Prismo2AppScope> watched = picker;
    const auto source = std::dynamic_pointer_cast<PXApplicationListDataSource>(picker->table()->dataSource());
    navigation->popViewController(false);
    picker = nullptr;
    EXPECT_FALSE(watched.expired());
    source->setRootController(nullptr);
    EXPECT_TRUE(watched.expired());
}

} // namespace
} // namespace prismo
