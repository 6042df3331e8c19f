#include "platform/preferences/PSListController.h"
#include "platform/preferences/PSTableCell.h"
#include "tests/support/MemoryWorld.h"

#include "platform/uikit/controllers/UINavigationController.h"

namespace prismo {
namespace {

/// Counts how often its rows are built, and records its actions.
class ListPage : public PSListController {
  public:
    static const Class& classObject() {
        static const Class objectClass("ListPage", &PSListController::classObject(),
                                       [] { return std::make_shared<ListPage>(); },
                                       {method<&ListPage::act>("act:")});
        return objectClass;
    }
    const Class& isa() const override { return classObject(); }

    std::shared_ptr<PSSpecifierList> specifiers() override {
        ++builds;
        specifiers_ = std::make_shared<PSSpecifierList>(content);
        return specifiers_;
    }
    void act(const std::shared_ptr<PSSpecifier>& row) { acted.push_back(row->name()); }

    std::shared_ptr<PSSpecifier> row(const std::string& name) {
        return PSSpecifier::preferenceSpecifierNamed(name, sharedSelf<ListPage>(), "", "", nullptr,
                                                     PSCellType::button, nullptr);
    }

    PSSpecifierList content;
    int builds = 0;
    std::vector<std::string> acted;
};

class SmallPage : public PSViewController {
  public:
    static const Class& classObject() {
        static const Class objectClass("SmallPage", &PSViewController::classObject(),
                                       [] { return std::make_shared<SmallPage>(); });
        return objectClass;
    }
    const Class& isa() const override { return classObject(); }
    bool initForContentSize(CGSize size) override {
        ++initializations;
        given = size;
        return size.width > 0;
    }
    void viewDidAppear(bool animated) override { appearedAnimated = animated; }
    static inline int initializations = 0;
    CGSize given;
    bool appearedAnimated = false;
};

struct PSListControllerTest : MemoryWorld {
    PSListControllerTest() {
        page->content = {page->row("a"),
                         PSSpecifier::groupSpecifierWithName("First"),
                         page->row("b"),
                         page->row("c"),
                         PSSpecifier::groupSpecifierWithName("Empty"),
                         PSSpecifier::groupSpecifierWithName("Last"),
                         page->row("d")};
    }
    void show() { navigation->pushViewController(page, false); }
    UITableView& table() { return *page->table(); }
    void tap(NSIndexPath position) { page->tableViewDidSelectRowAtIndexPath(table(), position); }

    std::shared_ptr<ListPage> page = std::make_shared<ListPage>();
    std::shared_ptr<UINavigationController> navigation = std::make_shared<UINavigationController>();
};

TEST_F(PSListControllerTest, RowsBeforeTheFirstGroupFormASection) {
    show();
    EXPECT_EQ(page->numberOfSectionsInTableView(table()), 4U);
    std::vector<std::string> titles;
    std::vector<std::size_t> counts;
    for (std::size_t section = 0; section < 4; ++section) {
        titles.push_back(page->tableViewTitleForHeaderInSection(table(), section));
        counts.push_back(page->tableViewNumberOfRowsInSection(table(), section));
    }
    EXPECT_EQ(titles, (std::vector<std::string>{"", "First", "Empty", "Last"}));
    EXPECT_EQ(counts, (std::vector<std::size_t>{1, 2, 0, 1}));
    EXPECT_EQ(page->groupAtSection(0), nullptr);
    EXPECT_EQ(page->groupAtSection(2), page->rows()->at(4));
}

TEST_F(PSListControllerTest, PositionsPastTheEndAreEmpty) {
    show();
    EXPECT_EQ(page->tableViewNumberOfRowsInSection(table(), 4), 0U);
    EXPECT_EQ(page->tableViewTitleForHeaderInSection(table(), 4), "");
    EXPECT_EQ(page->groupAtSection(4), nullptr);
    EXPECT_EQ(page->specifierAtIndexPath({4, 0}), nullptr);
    EXPECT_EQ(page->specifierAtIndexPath({1, 2}), nullptr);
    EXPECT_EQ(page->tableViewCellForRowAtIndexPath(table(), {2, 0}), nullptr);
    EXPECT_EQ(page->indexPathForIndex(7), std::nullopt);
    tap({9, 9});
}

TEST_F(PSListControllerTest, PositionsAndRowsMatch) {
    EXPECT_EQ(page->indexPathForIndex(0), (NSIndexPath{0, 0}));
    EXPECT_EQ(page->indexPathForIndex(1), std::nullopt);
    EXPECT_EQ(page->indexPathForIndex(3), (NSIndexPath{1, 1}));
    EXPECT_EQ(page->indexPathForIndex(4), std::nullopt);
    EXPECT_EQ(page->indexPathForIndex(6), (NSIndexPath{3, 0}));
    EXPECT_EQ(page->specifierAtIndexPath({1, 1})->name(), "c");
}

TEST_F(PSListControllerTest, PageWithoutRowsHasNoSections) {
    const auto empty = std::make_shared<PSListController>();
    navigation->pushViewController(empty, false);
    EXPECT_EQ(empty->numberOfSectionsInTableView(*empty->table()), 0U);
    EXPECT_TRUE(empty->rows()->empty());
    EXPECT_EQ(empty->specifiers(), empty->specifiers());
}

TEST_F(PSListControllerTest, RowsAreBuiltOncePerReload) {
    show();
    for (const NSIndexPath position : {NSIndexPath{0, 0}, {1, 0}, {1, 1}, {3, 0}})
        table().cellForRowAtIndexPath(position);
    page->specifierForID("x");
    EXPECT_EQ(page->builds, 1);
    page->reloadSpecifiers();
    EXPECT_EQ(page->builds, 2);
    EXPECT_EQ(page->rows()->size(), 7U);
    EXPECT_EQ(page->builds, 2);
}

TEST_F(PSListControllerTest, ReloadBuildsAtOnceAndRecordsAnEffect) {
    EXPECT_EQ(page->builds, 0);
    page->reloadSpecifiers();
    EXPECT_EQ(page->builds, 1);
    EXPECT_EQ(timeline(), (std::vector<std::string>{"0 ms reload ListPage"}));
}

TEST_F(PSListControllerTest, ReloadDiscardsTheCellsAndNotifiesObservers) {
    show();
    const auto cell = table().cellForRowAtIndexPath({0, 0});
    EXPECT_EQ(table().cellForRowAtIndexPath({0, 0}), cell);
    int pageChanges = 0;
    int tableChanges = 0;
    const auto ofPage = page->observe([&] { ++pageChanges; });
    const auto ofTable = table().observe([&] { ++tableChanges; });
    page->reloadSpecifiers();
    EXPECT_NE(table().cellForRowAtIndexPath({0, 0}), cell);
    EXPECT_EQ(pageChanges, 1);
    EXPECT_EQ(tableChanges, 1);
}

TEST_F(PSListControllerTest, ReloadShowsTheNewRows) {
    show();
    EXPECT_EQ(table().cellForRowAtIndexPath({0, 0})->textLabel().text(), "a");
    page->content = {page->row("only")};
    page->reloadSpecifiers();
    EXPECT_EQ(table().cellForRowAtIndexPath({0, 0})->textLabel().text(), "only");
}

TEST_F(PSListControllerTest, RowIsFoundByItsIdentifier) {
    page->content[2]->setIdentifier("x");
    page->content[3]->setIdentifier("x");
    EXPECT_EQ(page->specifierForID("x")->name(), "b");
    EXPECT_EQ(page->specifierForID("y"), nullptr);
}

TEST_F(PSListControllerTest, TableIsGroupedAndUsesThePage) {
    show();
    EXPECT_EQ(page->view(), page->table());
    EXPECT_EQ(table().style(), UITableViewStyle::grouped);
    EXPECT_EQ(table().dataSource(), page);
    EXPECT_EQ(table().delegate(), page);
    EXPECT_EQ(table().frame(), UIScreen::mainScreen()->bounds());
}

TEST_F(PSListControllerTest, CellHasTheClassNamedByTheRow) {
    class OwnCell : public PSTableCell {
      public:
        static const Class& classObject() {
            static const Class objectClass("OwnCell", &PSTableCell::classObject(),
                                           [] { return std::make_shared<OwnCell>(); });
            return objectClass;
        }
    };
    page->content[0]->setProperty(OwnCell::classObject(), "cellClass");
    page->content[2]->setProperty(NSObject::classObject(), "cellClass");
    show();
    EXPECT_TRUE(std::dynamic_pointer_cast<OwnCell>(table().cellForRowAtIndexPath({0, 0})));
    EXPECT_TRUE(std::dynamic_pointer_cast<PSTableCell>(table().cellForRowAtIndexPath({1, 0})));
}

TEST_F(PSListControllerTest, TapSendsTheRowsAction) {
    page->content[3]->setButtonAction("act:");
    show();
    tap({1, 1});
    EXPECT_EQ(page->acted, (std::vector<std::string>{"c"}));
}

TEST_F(PSListControllerTest, TapOnADisabledRowDoesNothing) {
    page->content[3]->setButtonAction("act:");
    page->content[3]->setProperty(false, "enabled");
    page->content[2]->setDetailControllerClass(&SmallPage::classObject());
    page->content[2]->setProperty(false, "enabled");
    show();
    tap({1, 1});
    tap({1, 0});
    EXPECT_TRUE(page->acted.empty());
    EXPECT_EQ(navigation->topViewController(), page);
}

TEST_F(PSListControllerTest, TapOpensTheRowsDetailPage) {
    page->content[0]->setDetailControllerClass(&SmallPage::classObject());
    show();
    tap({0, 0});
    const auto detail = std::dynamic_pointer_cast<SmallPage>(navigation->topViewController());
    ASSERT_TRUE(detail);
    EXPECT_EQ(detail->parentController(), page);
    EXPECT_EQ(detail->specifier(), page->content[0]);
    EXPECT_EQ(detail->title(), "a");
    EXPECT_EQ(detail->given, table().frame().size);
    EXPECT_TRUE(detail->appearedAnimated);
}

TEST_F(PSListControllerTest, ActionTakesPrecedenceOverTheDetailPage) {
    page->content[0]->setDetailControllerClass(&SmallPage::classObject());
    page->content[0]->setButtonAction("act:");
    show();
    tap({0, 0});
    EXPECT_EQ(page->acted.size(), 1U);
    EXPECT_EQ(navigation->topViewController(), page);
}

TEST_F(PSListControllerTest, DetailPageThatCannotBeBuiltIsNotPushed) {
    page->content[0]->setDetailControllerClass(&SmallPage::classObject());
    page->content[2]->setDetailControllerClass(&NSObject::classObject());
    show();
    table().setFrame({});
    tap({0, 0});
    tap({1, 0});
    EXPECT_EQ(navigation->topViewController(), page);
}

TEST_F(PSListControllerTest, WithoutNavigationNoDetailPageIsBuilt) {
    page->content[0]->setDetailControllerClass(&SmallPage::classObject());
    page->view();
    const int before = SmallPage::initializations;
    tap({0, 0});
    EXPECT_EQ(SmallPage::initializations, before);
}

TEST_F(PSListControllerTest, PlainPageReadsTheDefaultAndStoresNothing) {
    const auto row = page->row("x");
    row->setProperty(4, "default");
    EXPECT_EQ(page->readPreferenceValue(row), Value(4));
    page->setPreferenceValue(5, row);
    EXPECT_EQ(page->readPreferenceValue(row), Value(4));
    EXPECT_EQ(page->readPreferenceValue(nullptr), Value());
    EXPECT_TRUE(effects.empty());
}

} // namespace
} // namespace prismo
