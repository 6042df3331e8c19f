// Every class and selector named by a row exists.

#include "kit/FBBarButtonItem.h"
#include "screens/colortype/PrismoTypeItemsController.h"
#include "tests/support/World.h"

namespace prismo {
namespace {

struct BundleTest : World {
    /// The rows of the root page in every scope, and of the pages below it.
    PSSpecifierList allRows() {
        PSSpecifierList all;
        const auto add = [&](const std::shared_ptr<PSListController>& shown) {
            const auto rows = shown->specifiers();
            all.insert(all.end(), rows->begin(), rows->end());
        };
        add(page);
        enterAppScope();
        page->reloadSpecifiers();
        add(page);
        chooseApp();
        page->reloadSpecifiers();
        add(page);
        for (const std::shared_ptr<PSListController>& chooser : choosers)
            add(chooser);
        return all;
    }

    std::vector<std::shared_ptr<PSListController>> choosers{
        std::make_shared<PrismoTypeItemsController>(), std::make_shared<PrismoGlobalTypeItemsController>()};
};

TEST_F(BundleTest, EveryTargetRespondsToItsRowsSelectors) {
    std::size_t named = 0;
    for (const auto& row : allRows())
        for (const auto& selector : {row->setter(), row->getter(), row->buttonAction()}) {
            if (selector.empty()) continue;
            ++named;
            const auto target = row->target();
            ASSERT_TRUE(target) << rowText(*row);
            EXPECT_TRUE(target->respondsToSelector(selector)) << target->isa().name() << ' ' << selector;
        }
    EXPECT_GT(named, 50U);
}

TEST_F(BundleTest, EveryDetailPageOfARowCanBeCreated) {
    std::size_t named = 0;
    for (const auto& row : allRows()) {
        const auto* detail = row->detailControllerClass();
        if (!detail) continue;
        ++named;
        EXPECT_TRUE(std::dynamic_pointer_cast<PSViewController>(detail->create())) << detail->name();
    }
    EXPECT_GT(named, 15U);
}

TEST_F(BundleTest, EveryCellClassOfARowCanBeCreated) {
    std::size_t named = 0;
    for (const auto& row : allRows()) {
        const auto* cellClass = row->propertyForKey("cellClass").asClass();
        if (!cellClass) continue;
        ++named;
        EXPECT_TRUE(std::dynamic_pointer_cast<UITableViewCell>(cellClass->create())) << cellClass->name();
    }
    EXPECT_EQ(named, 15U);
}

TEST_F(BundleTest, EveryRowWithASetterPostsTheChange) {
    for (const auto& row : allRows())
        if (row->setter() == "setPreferenceValue:specifier:") {
            EXPECT_EQ(row->propertyForKey("PostNotification"), Value("com.corvane.prismo2.changed"))
                << rowText(*row);
        }
}

TEST_F(BundleTest, PrincipalClassIsTheRootPage) {
    EXPECT_EQ(prismo2PrefsPrincipalClass().name(), "Prismo2PrefsListController");
    const auto made = prismo2PrefsPrincipalClass().create();
    EXPECT_TRUE(std::dynamic_pointer_cast<Prismo2PrefsListController>(made));
    EXPECT_EQ(&made->isa(), &prismo2PrefsPrincipalClass());
}

TEST_F(BundleTest, ClassesAreFoundByName) {
    for (const auto* name :
         {"Prismo2PrefsListController", "Prismo2AppScope", "PrismoColorCell", "PrismoTypeItemsController",
          "PrismoGlobalTypeItemsController", "PXApplicationListDataSource"}) {
        const auto* found = NSClassFromString(name);
        ASSERT_TRUE(found) << name;
        EXPECT_EQ(found->name(), name);
        const auto made = found->create();
        ASSERT_TRUE(made) << name;
        EXPECT_EQ(&made->isa(), found) << name;
    }
}

TEST_F(BundleTest, ClassesHaveTheirSuperclasses) {
    const auto isBelow = [](const Class& objectClass, const char* from) {
        for (const auto* above = objectClass.superclass(); above; above = above->superclass())
            if (above->name() == from) return true;
        return false;
    };
    const auto derives = [&](const char* name, const char* from) {
        return isBelow(*NSClassFromString(name), from);
    };
    EXPECT_TRUE(derives("Prismo2PrefsListController", "PSListController"));
    EXPECT_TRUE(derives("Prismo2AppScope", "PSViewController"));
    EXPECT_TRUE(derives("PrismoColorCell", "SWLiteColorCell"));
    EXPECT_TRUE(derives("PrismoTypeItemsController", "PSListItemsController"));
    EXPECT_TRUE(derives("PrismoGlobalTypeItemsController", "PrismoTypeItemsController"));
    EXPECT_TRUE(derives("PXApplicationListDataSource", "ALApplicationTableDataSource"));
    EXPECT_TRUE(isBelow(FBBarButtonItem::classObject(), "UIBarButtonItem"));
}

} // namespace
} // namespace prismo
