#include "platform/preferences/PSListItemsController.h"
#include "tests/support/MemoryWorld.h"

#include "platform/uikit/controllers/UINavigationController.h"

namespace prismo {
namespace {

/// Holds the value of the row that opens the list.
class Holder : public NSObject {
  public:
    static const Class& classObject() {
        static const Class objectClass(
            "Holder", &NSObject::classObject(), [] { return std::make_shared<Holder>(); },
            {method<&Holder::value>("value:"), method<&Holder::setValue>("setValue:row:")});
        return objectClass;
    }
    const Class& isa() const override { return classObject(); }

    Value value(const std::shared_ptr<PSSpecifier>& /*row*/) { return held; }
    void setValue(const Value& value, const std::shared_ptr<PSSpecifier>& row) {
        held = value;
        receivedRow = row;
    }

    Value held = 2;
    std::shared_ptr<PSSpecifier> receivedRow;
};

/// Counts how often its rows are built, and records the values it stores.
class RecordingList : public PSListItemsController {
  public:
    std::shared_ptr<PSSpecifierList> specifiers() override {
        ++builds;
        return PSListItemsController::specifiers();
    }
    void setPreferenceValue(const Value& value, const std::shared_ptr<PSSpecifier>& row) override {
        changes.emplace_back(value, row);
        PSListItemsController::setPreferenceValue(value, row);
    }

    int builds = 0;
    std::vector<std::pair<Value, std::shared_ptr<PSSpecifier>>> changes;
};

struct PSListItemsControllerTest : MemoryWorld {
    PSListItemsControllerTest() {
        opener->setTitleDictionary({{1, "One"}, {2, "Two"}, {3, "Three"}});
        list->setSpecifier(opener);
    }
    void show() { navigation->pushViewController(list, false); }
    UITableViewCell& cell(std::size_t row) { return *list->table()->cellForRowAtIndexPath({0, row}); }
    void tap(std::size_t row) { list->tableViewDidSelectRowAtIndexPath(*list->table(), {0, row}); }
    std::vector<std::string> checked() {
        std::vector<std::string> names;
        for (std::size_t row = 0; row < list->rows()->size(); ++row)
            if (cell(row).accessoryType() == UITableViewCellAccessory::checkmark)
                names.push_back(cell(row).textLabel().text());
        return names;
    }

    std::shared_ptr<Holder> holder = std::make_shared<Holder>();
    std::shared_ptr<PSSpecifier> opener = PSSpecifier::preferenceSpecifierNamed(
        "Opener", holder, "setValue:row:", "value:", nullptr, PSCellType::linkList, nullptr);
    std::shared_ptr<RecordingList> list = std::make_shared<RecordingList>();
    std::shared_ptr<UINavigationController> navigation = std::make_shared<UINavigationController>();
};

TEST_F(PSListItemsControllerTest, OffersARowForEachTitleOfItsOpener) {
    show();
    ASSERT_EQ(list->rows()->size(), 3U);
    const auto& row = *list->rows()->at(1);
    EXPECT_EQ(row.name(), "Two");
    EXPECT_EQ(row.values(), (Array{2}));
    EXPECT_EQ(row.cellType(), PSCellType::listItem);
    EXPECT_EQ(row.target(), list);
}

TEST_F(PSListItemsControllerTest, BuildsItsRowsOnce) {
    show();
    checked();
    tap(0);
    checked();
    tap(2);
    checked();
    EXPECT_EQ(list->builds, 1);
}

TEST_F(PSListItemsControllerTest, WithoutAnOpenerItIsEmpty) {
    list->setSpecifier(nullptr);
    show();
    EXPECT_TRUE(list->rows()->empty());
    EXPECT_EQ(list->readPreferenceValue(nullptr), Value());
    list->setPreferenceValue(1, nullptr);
}

TEST_F(PSListItemsControllerTest, CurrentValueIsChecked) {
    show();
    EXPECT_EQ(checked(), (std::vector<std::string>{"Two"}));
}

TEST_F(PSListItemsControllerTest, ValueIsCheckedRegardlessOfItsNumericKind) {
    holder->held = true;
    show();
    EXPECT_EQ(checked(), (std::vector<std::string>{"One"}));
}

TEST_F(PSListItemsControllerTest, CheckmarkFollowsTheOpenersPage) {
    const auto page = std::make_shared<PSListController>();
    list->setParentController(page);
    show();
    EXPECT_EQ(checked(), (std::vector<std::string>{"Two"}));
    holder->held = 3;
    page->reloadSpecifiers();
    EXPECT_EQ(checked(), (std::vector<std::string>{"Three"}));
    EXPECT_EQ(list->builds, 1);
}

TEST_F(PSListItemsControllerTest, NothingIsCheckedWithoutAValue) {
    holder->held = {};
    show();
    EXPECT_TRUE(checked().empty());
}

TEST_F(PSListItemsControllerTest, RowOfAnotherKindIsNeverChecked) {
    show();
    list->rows()->push_back(
        PSSpecifier::preferenceSpecifierNamed("Link", nullptr, "", "", nullptr, PSCellType::link, nullptr));
    list->rows()->back()->setValues({2});
    list->rows()->push_back(PSSpecifier::preferenceSpecifierNamed("Item", nullptr, "", "", nullptr,
                                                                  PSCellType::listItem, nullptr));
    EXPECT_EQ(checked(), (std::vector<std::string>{"Two"}));
    tap(4);
    EXPECT_TRUE(list->changes.empty());
}

TEST_F(PSListItemsControllerTest, TapStoresTheValueOfTheOpener) {
    show();
    tap(2);
    ASSERT_EQ(list->changes.size(), 1U);
    EXPECT_EQ(list->changes[0], (std::pair{Value(3), opener}));
    EXPECT_EQ(holder->held, Value(3));
    EXPECT_EQ(holder->receivedRow, opener);
}

TEST_F(PSListItemsControllerTest, TapMovesTheCheckmark) {
    show();
    checked();
    tap(0);
    EXPECT_EQ(checked(), (std::vector<std::string>{"One"}));
}

TEST_F(PSListItemsControllerTest, TapOnTheCheckedRowStoresAgain) {
    show();
    tap(1);
    EXPECT_EQ(list->changes.size(), 1U);
}

TEST_F(PSListItemsControllerTest, TapOnADisabledRowOrPastTheEndDoesNothing) {
    show();
    list->rows()->at(0)->setProperty(false, "enabled");
    tap(0);
    tap(3);
    EXPECT_TRUE(list->changes.empty());
}

TEST_F(PSListItemsControllerTest, TapStaysOnThePage) {
    show();
    tap(0);
    EXPECT_EQ(navigation->topViewController(), list);
}

} // namespace
} // namespace prismo
