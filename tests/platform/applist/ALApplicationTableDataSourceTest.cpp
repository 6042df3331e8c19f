#include "platform/applist/ALApplicationTableDataSource.h"
#include "tests/support/MemoryWorld.h"

namespace prismo {
namespace {

using Lines = std::vector<std::string>;

struct ALApplicationTableDataSourceTest : MemoryWorld {
    ALApplicationTableDataSourceTest() {
        device.setFile("/icon.png", {7});
        device.setApplications({userApp("u10", "App 10", "/icon.png"), systemApp("s1", "phone"),
                                userApp("u2", "App 2"), userApp("ub", "beta"), systemApp("s2", "Mail"),
                                userApp("ua", "Alpha")});
    }
    void useStandardSections() {
        source->setSectionDescriptors(ALApplicationTableDataSource::standardSectionDescriptors());
    }
    Lines identifiers(std::size_t section) {
        Lines found;
        for (std::size_t row = 0; row < source->tableViewNumberOfRowsInSection(*table, section); ++row)
            found.push_back(source->displayIdentifierForIndexPath({section, row}).value());
        return found;
    }

    std::shared_ptr<ALApplicationTableDataSource> source = std::make_shared<ALApplicationTableDataSource>();
    std::shared_ptr<UITableView> table = std::make_shared<UITableView>(CGRect{}, UITableViewStyle::grouped);
};

TEST_F(ALApplicationTableDataSourceTest, StandardSectionsAreSystemThenUser) {
    useStandardSections();
    ASSERT_EQ(source->numberOfSectionsInTableView(*table), 2U);
    EXPECT_EQ(source->tableViewTitleForHeaderInSection(*table, 0), "System Applications");
    EXPECT_EQ(source->tableViewTitleForHeaderInSection(*table, 1), "User Applications");
    EXPECT_EQ(source->sectionDescriptors().size(), 2U);
    EXPECT_EQ(source->sections()[1].iconSize, 29);
}

TEST_F(ALApplicationTableDataSourceTest, ApplicationsAreSortedByName) {
    useStandardSections();
    EXPECT_EQ(identifiers(0), (Lines{"s2", "s1"}));
    EXPECT_EQ(identifiers(1), (Lines{"ua", "u2", "u10", "ub"}));
}

TEST_F(ALApplicationTableDataSourceTest, EqualNamesKeepTheDevicesOrder) {
    std::vector<InstalledApplication> applications;
    Lines expected;
    for (int i = 50; i > 0; --i) { // enough that an unstable sort would not keep the order by chance
        expected.push_back(std::to_string(i));
        applications.push_back(userApp(expected.back(), "Same"));
    }
    device.setApplications(applications);
    useStandardSections();
    EXPECT_EQ(identifiers(0), expected);
}

TEST_F(ALApplicationTableDataSourceTest, SectionWithoutApplicationsIsLeftOut) {
    device.setApplications({userApp("a", "A")});
    useStandardSections();
    ASSERT_EQ(source->numberOfSectionsInTableView(*table), 1U);
    EXPECT_EQ(source->tableViewTitleForHeaderInSection(*table, 0), "User Applications");
}

TEST_F(ALApplicationTableDataSourceTest, WithoutDescriptorsItIsEmpty) {
    EXPECT_EQ(source->numberOfSectionsInTableView(*table), 0U);
    EXPECT_EQ(source->displayIdentifierForIndexPath({0, 0}), std::nullopt);
}

TEST_F(ALApplicationTableDataSourceTest, PositionsPastTheEndAreEmpty) {
    useStandardSections();
    EXPECT_EQ(source->tableViewNumberOfRowsInSection(*table, 2), 0U);
    EXPECT_EQ(source->tableViewTitleForHeaderInSection(*table, 2), "");
    EXPECT_EQ(source->displayIdentifierForIndexPath({2, 0}), std::nullopt);
    EXPECT_EQ(source->displayIdentifierForIndexPath({0, 2}), std::nullopt);
    EXPECT_EQ(source->tableViewCellForRowAtIndexPath(*table, {0, 2}), nullptr);
}

TEST_F(ALApplicationTableDataSourceTest, NewDescriptorsListTheApplicationsAgain) {
    useStandardSections();
    class Growing : public MemoryDevice {
      public:
        std::vector<InstalledApplication> listApplications() override {
            ++listings;
            return {userApp("a", "A")};
        }
        int listings = 0;
    } growing;
    const Device::Current nested(growing);
    useStandardSections();
    useStandardSections();
    EXPECT_EQ(growing.listings, 2);
    EXPECT_EQ(identifiers(0), (Lines{"a"}));
}

TEST_F(ALApplicationTableDataSourceTest, CustomDescriptorsDefineTheSections) {
    source->setSectionDescriptors(
        {{"A", [](const auto& application) { return application.displayName.front() == 'A'; }, 59},
         {"All", [](const auto&) { return true; }}});
    EXPECT_EQ(identifiers(0), (Lines{"ua", "u2", "u10"}));
    EXPECT_EQ(identifiers(1).size(), 6U);
    EXPECT_EQ(source->tableViewCellForRowAtIndexPath(*table, {0, 2})->image()->size(), (CGSize{59, 59}));
}

TEST_F(ALApplicationTableDataSourceTest, CellShowsNameAndIcon) {
    useStandardSections();
    const auto cell = source->tableViewCellForRowAtIndexPath(*table, {1, 2});
    EXPECT_TRUE(std::dynamic_pointer_cast<ALValueCell>(cell));
    EXPECT_EQ(cell->textLabel().text(), "App 10");
    ASSERT_TRUE(cell->image());
    EXPECT_EQ(cell->image()->size(), (CGSize{29, 29}));
    EXPECT_EQ(source->tableViewCellForRowAtIndexPath(*table, {1, 0})->image(), nullptr);
}

TEST_F(ALApplicationTableDataSourceTest, CellNotifiesItsDelegateWithoutKeepingItAlive) {
    class Delegate : public ALValueCellDelegate {
      public:
        void valueCellDidChangeToValue(ALValueCell& /*cell*/, const Value& value) override {
            received = value;
        }
        Value received;
    };
    const auto cell = std::make_shared<ALValueCell>();
    cell->changeToValue(1);
    auto delegate = std::make_shared<Delegate>();
    cell->setDelegate(delegate);
    cell->changeToValue(2);
    EXPECT_EQ(delegate->received, Value(2));
    delegate = nullptr;
    EXPECT_EQ(cell->delegate(), nullptr);
    cell->changeToValue(3);
}

} // namespace
} // namespace prismo
