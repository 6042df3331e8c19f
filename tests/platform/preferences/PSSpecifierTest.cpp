#include "platform/preferences/PSSpecifier.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace prismo {
namespace {

class Target : public NSObject {
  public:
    static const Class& classObject() {
        static const Class objectClass(
            "Target", &NSObject::classObject(), [] { return std::make_shared<Target>(); },
            {method<&Target::value>("value:"), method<&Target::setValue>("setValue:row:"),
             method<&Target::act>("act:"), method<&Target::actAlone>("act")});
        return objectClass;
    }
    const Class& isa() const override { return classObject(); }

    Value value(const std::shared_ptr<PSSpecifier>& row) {
        receivedRow = row;
        return 5;
    }
    void setValue(const Value& value, const std::shared_ptr<PSSpecifier>& row) {
        received = value;
        receivedRow = row;
    }
    void act(const std::shared_ptr<PSSpecifier>& row) { receivedRow = row; }
    void actAlone() { ++actions; }

    std::shared_ptr<PSSpecifier> receivedRow;
    Value received;
    int actions = 0;
};

struct PSSpecifierTest : testing::Test {
    std::shared_ptr<PSSpecifier> make(std::string set = "setValue:row:", std::string get = "value:") {
        return PSSpecifier::preferenceSpecifierNamed("Name", target, std::move(set), std::move(get),
                                                     &PSSpecifier::classObject(), PSCellType::linkList,
                                                     &Target::classObject());
    }
    std::shared_ptr<Target> target = std::make_shared<Target>();
};

TEST_F(PSSpecifierTest, FactorySetsEveryField) {
    const auto row = make();
    EXPECT_EQ(row->name(), "Name");
    EXPECT_EQ(row->target(), target);
    EXPECT_EQ(row->setter(), "setValue:row:");
    EXPECT_EQ(row->getter(), "value:");
    EXPECT_EQ(row->detailControllerClass(), &PSSpecifier::classObject());
    EXPECT_EQ(row->cellType(), PSCellType::linkList);
    EXPECT_EQ(row->editPaneClass(), &Target::classObject());
    EXPECT_EQ(row->identifier(), "");
    EXPECT_EQ(row->buttonAction(), "");
    EXPECT_TRUE(row->properties().empty());
}

TEST_F(PSSpecifierTest, CellTypesHaveThePlatformsValues) {
    EXPECT_EQ(static_cast<int>(PSCellType::group), 0);
    EXPECT_EQ(static_cast<int>(PSCellType::link), 1);
    EXPECT_EQ(static_cast<int>(PSCellType::linkList), 2);
    EXPECT_EQ(static_cast<int>(PSCellType::listItem), 3);
    EXPECT_EQ(static_cast<int>(PSCellType::switchCell), 6);
    EXPECT_EQ(static_cast<int>(PSCellType::segment), 9);
    EXPECT_EQ(static_cast<int>(PSCellType::button), 13);
}

TEST_F(PSSpecifierTest, GroupHasOnlyAHeader) {
    const auto group = PSSpecifier::groupSpecifierWithName("Header");
    EXPECT_EQ(group->name(), "Header");
    EXPECT_EQ(group->cellType(), PSCellType::group);
    EXPECT_EQ(group->target(), nullptr);
    EXPECT_TRUE(group->properties().empty());
}

TEST_F(PSSpecifierTest, FooterOfAGroupIsAProperty) {
    const auto group = PSSpecifier::groupSpecifierWithHeader("Header", "Footer");
    EXPECT_EQ(group->name(), "Header");
    EXPECT_EQ(group->properties(), (Dictionary{{"footerText", "Footer"}}));
}

TEST_F(PSSpecifierTest, SettingAPropertyReplacesItAndNothingRemovesIt) {
    const auto row = make();
    EXPECT_EQ(row->propertyForKey("key"), Value());
    row->setProperty("a", "key");
    row->setProperty("b", "key");
    EXPECT_EQ(row->propertyForKey("key"), Value("b"));
    row->setProperty({}, "key");
    EXPECT_TRUE(row->properties().empty());
}

TEST_F(PSSpecifierTest, OnlyFalseDisables) {
    const auto row = make();
    EXPECT_TRUE(row->isEnabled());
    row->setProperty(false, "enabled");
    EXPECT_FALSE(row->isEnabled());
    row->setProperty(true, "enabled");
    EXPECT_TRUE(row->isEnabled());
}

TEST_F(PSSpecifierTest, ValuesAreSetWithTheirTitles) {
    const auto row = make();
    row->setValues({false, true}, {"No", "Yes"});
    const PSTitles titles{{false, "No"}, {true, "Yes"}};
    EXPECT_EQ(row->values(), (Array{false, true}));
    EXPECT_EQ(row->titleDictionary(), titles);
    EXPECT_EQ(row->shortTitleDictionary(), titles);
}

TEST_F(PSSpecifierTest, ValuesWithoutTitlesHaveNone) {
    const auto row = make();
    row->setValues({false, true}, {"No", "Yes"});
    row->setValues({1});
    EXPECT_EQ(row->values(), (Array{1}));
    EXPECT_TRUE(row->titleDictionary().empty());
    EXPECT_TRUE(row->shortTitleDictionary().empty());
}

TEST_F(PSSpecifierTest, TitlesAndShortTitlesAreIndependent) {
    const auto row = make();
    row->setTitleDictionary({{0, "Long"}});
    row->setShortTitleDictionary({{0, "S"}});
    EXPECT_EQ(titleForValue(row->titleDictionary(), 0), "Long");
    EXPECT_EQ(titleForValue(row->shortTitleDictionary(), 0), "S");
}

TEST_F(PSSpecifierTest, TitleIsFoundByNumericValue) {
    const PSTitles titles{{0, "Zero"}, {1, "One"}};
    EXPECT_EQ(titleForValue(titles, true), "One");
    EXPECT_EQ(titleForValue(titles, 1.0), "One");
    EXPECT_EQ(titleForValue(titles, "1"), "");
    EXPECT_EQ(titleForValue(titles, {}), "");
    EXPECT_EQ(titleForValue(titles, 2), "");
}

TEST_F(PSSpecifierTest, GetterReceivesTheRow) {
    const auto row = make();
    EXPECT_EQ(row->performGetter(), Value(5));
    EXPECT_EQ(target->receivedRow, row);
}

TEST_F(PSSpecifierTest, SetterReceivesTheValueAndTheRow) {
    const auto row = make();
    row->performSetterWithValue("new");
    EXPECT_EQ(target->received, Value("new"));
    EXPECT_EQ(target->receivedRow, row);
}

TEST_F(PSSpecifierTest, ActionReceivesTheRow) {
    const auto row = make();
    row->setButtonAction("act:");
    row->performButtonAction();
    EXPECT_EQ(target->receivedRow, row);
}

TEST_F(PSSpecifierTest, ActionWithoutAnArgumentIsSentToo) {
    const auto row = make();
    row->setButtonAction("act");
    row->performButtonAction();
    EXPECT_EQ(target->actions, 1);
}

TEST_F(PSSpecifierTest, WithoutSelectorsNothingIsSent) {
    const auto row = make("", "");
    EXPECT_EQ(row->performGetter(), Value());
    row->performSetterWithValue(1);
    row->performButtonAction();
    EXPECT_EQ(target->receivedRow, nullptr);
}

TEST_F(PSSpecifierTest, TargetIsNotKeptAlive) {
    const auto row = make();
    row->setButtonAction("act:");
    target = nullptr;
    EXPECT_EQ(row->target(), nullptr);
    EXPECT_EQ(row->performGetter(), Value());
    row->performSetterWithValue(1);
    row->performButtonAction();
}

TEST_F(PSSpecifierTest, SelectorMissingFromTheTargetThrows) {
    EXPECT_THROW(make("", "missing:")->performGetter(), std::logic_error);
}

} // namespace
} // namespace prismo
