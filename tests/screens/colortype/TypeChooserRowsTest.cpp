// What the two color type choosers offer.

#include "screens/colortype/PrismoTypeItemsController.h"
#include "tests/support/World.h"

namespace prismo {
namespace {

using Lines = std::vector<std::string>;

const std::string posts = " PostNotification=\"com.corvane.prismo2.changed\"";

struct TypeChooserRowsTest : World {
    std::shared_ptr<PrismoTypeItemsController> chooser = std::make_shared<PrismoTypeItemsController>();
    std::shared_ptr<PrismoTypeItemsController> globalChooser =
        std::make_shared<PrismoGlobalTypeItemsController>();
};

TEST_F(TypeChooserRowsTest, OffersThreeTypesEachInItsOwnGroup) {
    EXPECT_EQ(rowTexts(*chooser->specifiers()),
              (Lines{"group \"\" footerText=\"Fallback to the global color.\"",
                     "listItem \"Global\" values=0" + posts, "group \"\" footerText=\"Disable coloring.\"",
                     "listItem \"Disabled\" values=1" + posts,
                     "group \"\" footerText=\"Use the custom color that is set.\"",
                     "listItem \"Custom\" values=2" + posts}));
}

TEST_F(TypeChooserRowsTest, GlobalVariantOffersTwoTypes) {
    const std::string footer = "\"Use the average color of the current app's icon.\"";
    EXPECT_EQ(rowTexts(*globalChooser->specifiers()),
              (Lines{"group \"\" footerText=\"Fallback to the global color.\"",
                     "listItem \"Global\" values=0" + posts,
                     "group \"\" ACUIFooterText=" + footer + " footerText=" + footer,
                     "listItem \"Icon Color\" values=1" + posts}));
}

TEST_F(TypeChooserRowsTest, ChoicesTargetTheirPage) {
    for (const auto& shown : {chooser, globalChooser})
        for (const auto& row : *shown->specifiers())
            EXPECT_EQ(row->target(), row->cellType() == PSCellType::group ? nullptr : shown) << rowText(*row);
}

TEST_F(TypeChooserRowsTest, ChoicesAreListItems) {
    EXPECT_EQ(static_cast<int>(chooser->specifiers()->at(1)->cellType()), 3);
}

TEST_F(TypeChooserRowsTest, RowsAreBuiltOnce) {
    const auto rows = chooser->specifiers();
    EXPECT_EQ(chooser->specifiers(), rows);
    EXPECT_EQ(rows->size(), 6U);
}

TEST_F(TypeChooserRowsTest, GlobalVariantEditsTheCachedList) {
    const auto rows = globalChooser->specifiers();
    EXPECT_EQ(globalChooser->specifiers(), rows);
}

TEST_F(TypeChooserRowsTest, SecondCallToTheGlobalVariantLeavesOnlyTheGlobalChoice) {
    globalChooser->specifiers();
    const auto rows = globalChooser->specifiers();
    ASSERT_EQ(rows->size(), 2U);
    EXPECT_EQ(rows->at(1)->name(), "Global");
}

TEST_F(TypeChooserRowsTest, GlobalVariantDoesNotAffectOtherPages) {
    globalChooser->specifiers();
    EXPECT_EQ(chooser->specifiers()->at(3)->name(), "Disabled");
    EXPECT_EQ(std::make_shared<PrismoGlobalTypeItemsController>()->specifiers()->size(), 4U);
}

TEST_F(TypeChooserRowsTest, PageOnScreenKeepsBothGlobalTypes) {
    show();
    tap(*page, *rowNamed("Global Enabled"));
    const auto shown =
        std::dynamic_pointer_cast<PrismoGlobalTypeItemsController>(navigation->topViewController());
    ASSERT_TRUE(shown);
    for (std::size_t section = 0; section < shown->numberOfSectionsInTableView(*shown->table()); ++section)
        shown->table()->cellForRowAtIndexPath({section, 0});
    tap(*shown, *shown->rows()->at(3));
    ASSERT_EQ(shown->rows()->size(), 4U);
    EXPECT_EQ(shown->rows()->at(3)->name(), "Icon Color");
    EXPECT_EQ(stored(), (Dictionary{{"global_color_type", 1}}));
}

TEST_F(TypeChooserRowsTest, EveryOtherElementOpensTheThreeTypes) {
    show();
    for (const auto* title : {"Keyboard", "StatusBar", "SMS", "NC", "CC", "Volume", "Folder"}) {
        tap(*page, *rowNamed(std::string(title) + " Enabled"));
        EXPECT_EQ(navigation->topViewController()->isa().name(), "PrismoTypeItemsController");
        EXPECT_EQ(navigation->topViewController()->title(), std::string(title) + " Enabled");
        navigation->popViewController(false);
    }
}

} // namespace
} // namespace prismo
