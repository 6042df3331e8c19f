#include "kit/FBBarButtonItem.h"
#include "tests/support/Setter.h"
#include "tests/support/World.h"

namespace prismo {
namespace {

struct ModuleSettersTest : World {};

TEST_F(ModuleSettersTest, PagesReportEachChangeOnce) {
    const auto picker = std::make_shared<Prismo2AppScope>();
    expectEachToReportOnce({
        setter("application scope", page, [](auto& it) { it.setIsInAppScope(true); }),
        setter("application", page, [](auto& it) { it.setScopeId(exampleApp); }),
        setter("banner", page,
               [banner = std::make_shared<SWStatusBarAlert>()](auto& it) { it.setStatusAlert(banner); }),
        setter("table", picker,
               [table = std::make_shared<UITableView>(CGRect{}, UITableViewStyle::grouped)](auto& it) {
                   it.setPTableView(table);
               }),
        setter("data source", picker,
               [source = std::make_shared<ALApplicationTableDataSource>()](auto& it) {
                   it.setPDataSource(source);
               }),
    });
}

TEST_F(ModuleSettersTest, ShareButtonReportsEachChangeOnce) {
    expectEachToReportOnce({
        setter<FBBarButtonItem>("text", [](auto& it) { it.setShareText("a"); }),
        setter<FBBarButtonItem>("page", [&](auto& it) { it.setContainer(page); }),
    });
}

TEST_F(ModuleSettersTest, ScopeSwitchReportsTheScopeBeforeRebuildingTheRows) {
    chooseApp();
    std::vector<bool> scopes;
    const auto subscription = page->observe([&] { scopes.push_back(page->scopeId().has_value()); });
    page->setSegmentPreferenceValue(false, nullptr);
    // In order: the scope, its application, the rows.
    EXPECT_EQ(scopes, (std::vector<bool>{true, false, false}));
}

} // namespace
} // namespace prismo
