#include "platform/preferences/PSListItemsController.h"
#include "tests/support/MemoryWorld.h"

#include "platform/uikit/controllers/UINavigationController.h"

namespace prismo {
namespace {

/// Holds the value that the row which opens the list stands for.
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
        toldBy = row;
    }

    Value held = 2;
    std::shared_ptr<PSSpecifier> toldBy;
};

/// A list of its own rows, which keeps what it was told.
class OwnList : public PSListItemsController {
  public:
    std::shared_ptr<PSSpecifierList> specifiers() override {
        ++asked;
        return PSListItemsController::specifiers();
    }
    void setPreferenceValue(const Value& value, const std::shared_ptr<PSSpecifier>& row) override {
        told.emplace_back(value, row);
        PSListItemsController::setPreferenceValue(value, row);
    }

    int asked = 0;
    std::vector<std::pair<Value, std::shared_ptr<PSSpecifier>>> told;
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
    std::shared_ptr<OwnList> list = std::make_shared<OwnList>();
    std::shared_ptr<UINavigationController> navigation = std::make_shared<UINavigationController>();
};

TEST_F(PSListItemsControllerTest, OffersARowForEachTitleOfTheRowThatOpenedIt) {
    show();
    ASSERT_EQ(list->rows()->size(), 3U);
    const auto& row = *list->rows()->at(1);
    EXPECT_EQ(row.name(), "Two");
    EXPECT_EQ(row.values(), (Array{2}));
    EXPECT_EQ(row.cellType(), PSCellType::listItem);
    EXPECT_EQ(row.target(), list);
}

TEST_F(PSListItemsControllerTest, AsksForItsRowsOncePerPage) {
    show();
    checked();
    tap(0);
    checked();
    tap(2);
    checked();
    EXPECT_EQ(list->asked, 1);
}

TEST_F(PSListItemsControllerTest, WithoutAnOpenerItIsEmpty) {
    list->setSpecifier(nullptr);
    show();
    EXPECT_TRUE(list->rows()->empty());
    EXPECT_EQ(list->readPreferenceValue(nullptr), Value());
    list->setPreferenceValue(1, nullptr);
}

TEST_F(PSListItemsControllerTest, CurrentValueIsMarked) {
    show();
    EXPECT_EQ(checked(), (std::vector<std::string>{"Two"}));
}

TEST_F(PSListItemsControllerTest, ValueIsMarkedWhateverTheKindOfTheNumber) {
    holder->held = true;
    show();
    EXPECT_EQ(checked(), (std::vector<std::string>{"One"}));
}

TEST_F(PSListItemsControllerTest, MarkFollowsThePageOfTheRowThatOpenedIt) {
    const auto page = std::make_shared<PSListController>();
    list->setParentController(page);
    show();
    EXPECT_EQ(checked(), (std::vector<std::string>{"Two"}));
    holder->held = 3;
    page->reloadSpecifiers();
    EXPECT_EQ(checked(), (std::vector<std::string>{"Three"}));
    EXPECT_EQ(list->asked, 1);
}

TEST_F(PSListItemsControllerTest, NothingIsMarkedWithoutAValue) {
    holder->held = {};
    show();
    EXPECT_TRUE(checked().empty());
}

TEST_F(PSListItemsControllerTest, RowOfAnotherKindIsNeverMarked) {
    show();
    list->rows()->push_back(
        PSSpecifier::preferenceSpecifierNamed("Link", nullptr, "", "", nullptr, PSCellType::link, nullptr));
    list->rows()->back()->setValues({2});
    list->rows()->push_back(PSSpecifier::preferenceSpecifierNamed("Item", nullptr, "", "", nullptr,
                                                                  PSCellType::listItem, nullptr));
    EXPECT_EQ(checked(), (std::vector<std::string>{"Two"}));
    tap(4);
    EXPECT_TRUE(list->told.empty());
}

TEST_F(PSListItemsControllerTest, TapHandsOverTheRowThatOpenedThePage) {
    show();
    tap(2);
    ASSERT_EQ(list->told.size(), 1U);
    EXPECT_EQ(list->told[0], (std::pair{Value(3), opener}));
    EXPECT_EQ(holder->held, Value(3));
    EXPECT_EQ(holder->toldBy, opener);
}

TEST_F(PSListItemsControllerTest, TapMovesTheMark) {
    show();
    checked();
    tap(0);
    EXPECT_EQ(checked(), (std::vector<std::string>{"One"}));
}

TEST_F(PSListItemsControllerTest, TapOnTheChosenRowTellsAgain) {
    show();
    tap(1);
    EXPECT_EQ(list->told.size(), 1U);
}

TEST_F(PSListItemsControllerTest, TapOnADisabledRowOrBeyondTheEndDoesNothing) {
    show();
    list->rows()->at(0)->setProperty(false, "enabled");
    tap(0);
    tap(3);
    EXPECT_TRUE(list->told.empty());
}

TEST_F(PSListItemsControllerTest, TapStaysOnThePage) {
    show();
    tap(0);
    EXPECT_EQ(navigation->topViewController(), list);
}

} // namespace
} // namespace prismo
