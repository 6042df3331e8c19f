#include "platform/preferences/PSTableCell.h"

#include <gtest/gtest.h>

namespace prismo {
namespace {

class Source : public NSObject {
  public:
    static const Class& classObject() {
        static const Class objectClass("Source", &NSObject::classObject(),
                                       [] { return std::make_shared<Source>(); },
                                       {method<&Source::value>("value:")});
        return objectClass;
    }
    const Class& isa() const override { return classObject(); }
    Value value(const std::shared_ptr<PSSpecifier>& /*row*/) { return 1; }
};

struct PSTableCellTest : testing::Test {
    std::shared_ptr<PSSpecifier> row(PSCellType type, const Class* detail = nullptr) {
        auto made =
            PSSpecifier::preferenceSpecifierNamed("Name", source, "", "value:", detail, type, nullptr);
        made->setTitleDictionary({{1, "Long"}});
        made->setShortTitleDictionary({{1, "Short"}});
        return made;
    }
    PSTableCell& show(const std::shared_ptr<PSSpecifier>& shown) {
        cell->setSpecifier(shown);
        return *cell;
    }
    std::shared_ptr<Source> source = std::make_shared<Source>();
    std::shared_ptr<PSTableCell> cell = std::make_shared<PSTableCell>();
};

TEST_F(PSTableCellTest, ShowsTheNameOfItsRow) {
    const auto shown = row(PSCellType::button);
    EXPECT_EQ(show(shown).textLabel().text(), "Name");
    EXPECT_EQ(cell->specifier(), shown);
}

TEST_F(PSTableCellTest, DisabledRowHasADisabledCell) {
    EXPECT_TRUE(show(row(PSCellType::button)).isEnabled());
    const auto disabled = row(PSCellType::button);
    disabled->setProperty(false, "enabled");
    EXPECT_FALSE(show(disabled).isEnabled());
}

TEST_F(PSTableCellTest, ShowsTheImageOfItsRow) {
    const auto image = std::make_shared<UIImage>(CGSize{1, 1}, Data{});
    const auto shown = row(PSCellType::link);
    shown->setProperty(image, "iconImage");
    EXPECT_EQ(show(shown).image(), image);
    EXPECT_EQ(show(row(PSCellType::link)).image(), nullptr);
}

TEST_F(PSTableCellTest, LinkListShowsTheShortTitleOfItsValue) {
    EXPECT_EQ(show(row(PSCellType::linkList)).detailTextLabel().text(), "Short");
}

TEST_F(PSTableCellTest, OtherRowsShowNoValueTitle) {
    EXPECT_EQ(show(row(PSCellType::switchCell)).detailTextLabel().text(), "");
}

TEST_F(PSTableCellTest, RowThatOpensAPageHasADisclosureIndicator) {
    const auto* page = &NSObject::classObject();
    for (const auto type : {PSCellType::link, PSCellType::linkList}) {
        cell = std::make_shared<PSTableCell>();
        EXPECT_EQ(show(row(type, page)).accessoryType(), UITableViewCellAccessory::disclosureIndicator);
    }
    for (const auto& shown : {row(PSCellType::link), row(PSCellType::button, page)}) {
        cell = std::make_shared<PSTableCell>();
        EXPECT_EQ(show(shown).accessoryType(), UITableViewCellAccessory::none);
    }
}

TEST_F(PSTableCellTest, RefreshShowsTheRowsCurrentState) {
    const auto shown = row(PSCellType::button);
    show(shown);
    shown->setName("New");
    shown->setProperty(false, "enabled");
    EXPECT_EQ(cell->textLabel().text(), "Name");
    cell->refreshCellContents();
    EXPECT_EQ(cell->textLabel().text(), "New");
    EXPECT_FALSE(cell->isEnabled());
}

} // namespace
} // namespace prismo
