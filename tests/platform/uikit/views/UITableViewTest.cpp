#include "platform/uikit/views/UITableView.h"

#include <gtest/gtest.h>

namespace prismo {
namespace {

class Source : public UITableViewDataSource {
  public:
    std::size_t numberOfSectionsInTableView(UITableView& /*table*/) override { return 1; }
    std::size_t tableViewNumberOfRowsInSection(UITableView& /*table*/, std::size_t /*section*/) override {
        return 2;
    }
    std::string tableViewTitleForHeaderInSection(UITableView& /*table*/, std::size_t /*section*/) override {
        return "";
    }
    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& /*table*/,
                                                                    NSIndexPath /*indexPath*/) override {
        ++made;
        return std::make_shared<UITableViewCell>();
    }
    int made = 0;
};

struct UITableViewTest : testing::Test {
    std::shared_ptr<UITableView> table =
        std::make_shared<UITableView>(CGRect{{0, 0}, {320, 480}}, UITableViewStyle::plain);
    std::shared_ptr<Source> source = std::make_shared<Source>();
};

TEST_F(UITableViewTest, CellIsCachedUntilTheReload) {
    table->setDataSource(source);
    const auto cell = table->cellForRowAtIndexPath({0, 0});
    EXPECT_EQ(table->cellForRowAtIndexPath({0, 0}), cell);
    EXPECT_NE(table->cellForRowAtIndexPath({0, 1}), cell);
    EXPECT_EQ(source->made, 2);
    table->reloadData();
    EXPECT_NE(table->cellForRowAtIndexPath({0, 0}), cell);
}

TEST_F(UITableViewTest, WithoutADataSourceThereAreNoCells) {
    EXPECT_EQ(table->cellForRowAtIndexPath({0, 0}), nullptr);
    table->setDataSource(source);
    EXPECT_NE(table->cellForRowAtIndexPath({0, 0}), nullptr);
}

TEST_F(UITableViewTest, NewDataSourceReplacesTheCells) {
    table->setDataSource(source);
    const auto cell = table->cellForRowAtIndexPath({0, 0});
    const auto other = std::make_shared<Source>();
    table->setDataSource(other);
    EXPECT_NE(table->cellForRowAtIndexPath({0, 0}), cell);
    EXPECT_EQ(other->made, 1);
}

TEST_F(UITableViewTest, DataSourceIsNotKeptAlive) {
    table->setDataSource(source);
    source = nullptr;
    EXPECT_EQ(table->dataSource(), nullptr);
    EXPECT_EQ(table->cellForRowAtIndexPath({0, 0}), nullptr);
}

TEST_F(UITableViewTest, ReloadNotifiesObservers) {
    int changes = 0;
    const auto subscription = table->observe([&] { ++changes; });
    table->reloadData();
    EXPECT_EQ(changes, 1);
}

TEST_F(UITableViewTest, StylesHaveThePlatformsValues) {
    EXPECT_EQ(static_cast<int>(UITableViewStyle::plain), 0);
    EXPECT_EQ(static_cast<int>(UITableViewStyle::grouped), 1);
}

} // namespace
} // namespace prismo
