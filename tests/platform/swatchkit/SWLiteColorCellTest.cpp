#include "platform/swatchkit/SWLiteColorCell.h"
#include "tests/support/MemoryWorld.h"

namespace prismo {
namespace {

class Cell : public SWLiteColorCell {
  public:
    UIColor previewColor() override {
        ++computed;
        return color;
    }
    UIColor color{1, 0, 0, 1};
    int computed = 0;
};

struct SWLiteColorCellTest : MemoryWorld {
    void show(const char* listener) {
        const auto row = PSSpecifier::preferenceSpecifierNamed("Name", nullptr, "", "", nullptr,
                                                               PSCellType::link, nullptr);
        if (listener) row->setProperty(listener, "NotificationListener");
        cell->setSpecifier(row);
    }
    void post(const char* name) {
        device.postFromOutside(name);
        runFor(0.001);
    }
    std::shared_ptr<Cell> cell = std::make_shared<Cell>();
};

TEST_F(SWLiteColorCellTest, ShowsItsColorAndItsName) {
    show("changed");
    EXPECT_EQ(cell->swatch(), cell->color);
    EXPECT_EQ(cell->textLabel().text(), "Name");
    EXPECT_EQ(cell->computed, 1);
}

TEST_F(SWLiteColorCellTest, RefreshesOnTheNamedNotification) {
    show("changed");
    cell->color = UIColor::blackColor();
    int changes = 0;
    const auto subscription = cell->observe([&] { ++changes; });
    post("changed");
    EXPECT_EQ(cell->swatch(), UIColor::blackColor());
    EXPECT_EQ(changes, 1);
}

TEST_F(SWLiteColorCellTest, SameColorIsNotAChange) {
    show("changed");
    int changes = 0;
    const auto subscription = cell->observe([&] { ++changes; });
    post("changed");
    EXPECT_EQ(cell->computed, 2);
    EXPECT_EQ(changes, 0);
}

TEST_F(SWLiteColorCellTest, OtherNotificationsAreIgnored) {
    show("changed");
    device.observeNotification("other");
    post("other");
    EXPECT_EQ(cell->computed, 1);
}

TEST_F(SWLiteColorCellTest, RowWithoutAListenerIsNotRefreshed) {
    show(nullptr);
    device.observeNotification("changed");
    post("changed");
    EXPECT_EQ(cell->computed, 1);
}

TEST_F(SWLiteColorCellTest, ReleasedCellIsNotCalled) {
    show("changed");
    const std::weak_ptr<Cell> watched = cell;
    cell = nullptr;
    EXPECT_TRUE(watched.expired());
    post("changed");
}

TEST_F(SWLiteColorCellTest, PlainCellIsWhite) {
    EXPECT_EQ(SWLiteColorCell().previewColor(), UIColor::whiteColor());
}

} // namespace
} // namespace prismo
