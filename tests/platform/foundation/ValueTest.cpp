#include "platform/foundation/Value.h"

#include "platform/foundation/Device.h"
#include "platform/foundation/NSObject.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <type_traits>

namespace prismo {
namespace {

// A pointer must not become a boolean. Only text may be given by pointer.
static_assert(std::is_constructible_v<Value, bool>);
static_assert(std::is_constructible_v<Value, const char*>);
static_assert(std::is_constructible_v<Value, std::shared_ptr<NSObject>>);
static_assert(std::is_constructible_v<Value, const Class&>);
static_assert(!std::is_constructible_v<Value, const Class*>);
static_assert(!std::is_constructible_v<Value, NSObject*>);
static_assert(!std::is_constructible_v<Value, const void*>);
static_assert(!std::is_constructible_v<Value, const int*>);
static_assert(!std::is_constructible_v<Value, const bool*>);
static_assert(!std::is_constructible_v<Value, void (*)()>);
static_assert(!std::is_constructible_v<Value, std::nullptr_t>);
static_assert(!std::is_constructible_v<Value, std::shared_ptr<int>>);

constexpr auto int64Min = std::numeric_limits<std::int64_t>::min();
constexpr auto int64Max = std::numeric_limits<std::int64_t>::max();
constexpr auto int32Min = std::numeric_limits<std::int32_t>::min();
constexpr auto int32Max = std::numeric_limits<std::int32_t>::max();
constexpr auto uint64Max = std::numeric_limits<std::uint64_t>::max();

template <typename Reading>
struct Case {
    Value value;
    Reading reading;
};

TEST(Value, ReadsAsABoolean) {
    const Case<bool> cases[] = {
        {true, true},      {false, false},    {0, false},
        {-1, true},        {0.0, false},      {0.25, true},
        {uint64Max, true}, {"YES", true},     {"yes", true},
        {"true", true},    {"T", true},       {"NO", false},
        {"false", false},  {"", false},       {"   ", false},
        {" \t\n1", true},  {"0", false},      {"000", false},
        {"0001", true},    {"-1", true},      {"+7", true},
        {"-0", false},     {"12px", true},    {"x1", false},
        {"on", false},     {"0.5", false},    {"-", false},
        {Value(), false},  {Array{1}, false}, {Data{1}, false},
        {Date{1}, false},  {Uid{1}, false},   {Dictionary{{"a", true}}, false},
    };
    for (const auto& [value, reading] : cases)
        EXPECT_EQ(value.boolValue(), reading) << value.text();
}

TEST(Value, ReadsAsAnInt) {
    const Case<std::int32_t> cases[] = {
        {true, 1},
        {42, 42},
        {2.9, 2},
        {-2.9, -2},
        {1e300, int32Max},
        {-1e300, int32Min},
        {2147483647.0, int32Max},
        {-2147483648.0, int32Min},
        {std::nan(""), 0},
        {"12px", 12},
        {"x", 0},
        {"", 0},
        {"  +5", 5},
        {"-7", -7},
        {"+-7", 0},
        {"- 7", 0},
        {"2.9", 2},
        {"0x10", 0},
        {"2147483648", int32Max},
        {"-2147483649", int32Min},
        {"99999999999999999999999", int32Max},
        {(std::int64_t{1} << 32) + 7, 7},
        {uint64Max, -1},
        {Value(), 0},
        {Array{1}, 0},
    };
    for (const auto& [value, reading] : cases)
        EXPECT_EQ(value.intValue(), reading) << value.text();
}

TEST(Value, ReadsAsALongLong) {
    const Case<std::int64_t> cases[] = {
        {true, 1},
        {int64Min, int64Min},
        {9.9e18, int64Max},
        {9223372036854775808.0, int64Max},
        {-9223372036854775808.0, int64Min},
        {-1e19, int64Min},
        {std::numeric_limits<double>::infinity(), int64Max},
        {"2147483648", 2147483648},
        {"9223372036854775808", int64Max},
        {"-9223372036854775809", int64Min},
        {" 3 4", 3},
        {Date{5}, 0},
    };
    for (const auto& [value, reading] : cases)
        EXPECT_EQ(value.longLongValue(), reading) << value.text();
}

TEST(Value, ReadsAsADouble) {
    const Case<double> cases[] = {
        {true, 1},
        {3, 3},
        {2.5, 2.5},
        {uint64Max, 18446744073709551615.0},
        {"2.5e1x", 25},
        {" +.5", 0.5},
        {"-1.", -1},
        {"1e", 1},
        {"1e400", HUGE_VAL},
        {"-1e400", -HUGE_VAL},
        {"", 0},
        {"1e-400", 0},
        {"-1e-400", 0},
        {"inf", 0},
        {"nan", 0},
        {"0x10", 0},
        {",5", 0},
        {"1,5", 1},
        {Value(), 0},
        {"0." + std::string(400, '0') + "1", 0},
        {"1" + std::string(400, '0') + ".5", HUGE_VAL},
    };
    for (const auto& [value, reading] : cases)
        EXPECT_EQ(value.doubleValue(), reading) << value.text();
}

TEST(Value, FloatReadingRoundsTheDouble) { EXPECT_EQ(Value(0.1).floatValue(), 0.1F); }

TEST(Value, IntegersBeyondInt64KeepAKindOfTheirOwn) {
    EXPECT_NE(Value(uint64Max).as<std::uint64_t>(), nullptr);
    EXPECT_NE(Value(std::uint64_t{7}).as<std::int64_t>(), nullptr);
}

TEST(Value, BooleanIsNoInteger) {
    EXPECT_EQ(Value(true).as<std::int64_t>(), nullptr);
    EXPECT_NE(Value(true), Value(1));
}

TEST(Value, NumbersAreEqualByValue) {
    EXPECT_TRUE(Value(true).isEqual(1));
    EXPECT_TRUE(Value(1).isEqual(1.0));
    EXPECT_TRUE(Value(0.0).isEqual(false));
    EXPECT_TRUE(Value(uint64Max).isEqual(uint64Max));
    EXPECT_FALSE(Value(uint64Max).isEqual(-1));
    EXPECT_FALSE(Value(2).isEqual(true));
}

TEST(Value, TextIsNoNumberToEquality) { EXPECT_FALSE(Value("1").isEqual(1)); }

TEST(Value, OnlyNumericKindsAreNumbers) {
    for (const auto& number : {Value(true), Value(1), Value(uint64Max), Value(1.5)})
        EXPECT_TRUE(number.isNumber());
    for (const auto& other : {Value(), Value("1"), Value(Date{}), Value(Array{})})
        EXPECT_FALSE(other.isNumber());
}

TEST(Value, EmptyPointerIsNothing) { EXPECT_TRUE(Value(std::shared_ptr<NSObject>()).isNothing()); }

TEST(Value, CopyOfAContainerIsItsOwn) {
    Dictionary inner{{"a", 1}};
    const Value copy(inner);
    inner["a"] = 2;
    EXPECT_EQ(valueForKey(*copy.as<Dictionary>(), "a"), Value(1));
}

TEST(Value, TextOfAnotherKindIsEmpty) { EXPECT_EQ(Value(12).text(), ""); }

TEST(Value, KeyThatIsMissingHasNoValue) { EXPECT_TRUE(valueForKey({{"a", 1}}, "b").isNothing()); }

TEST(Value, PropertyListHoldsNoClassObjectOrNothingAtAnyDepth) {
    const auto inside = [](Value value) { return Value(Dictionary{{"a", Array{1, std::move(value)}}}); };
    EXPECT_TRUE(isPropertyList(inside(Dictionary{{"b", Data{1, 2}}, {"c", Date{3}}, {"d", Uid{4}}})));
    EXPECT_FALSE(isPropertyList(inside(Value())));
    EXPECT_FALSE(isPropertyList(inside(NSObject::classObject())));
    EXPECT_FALSE(isPropertyList(inside(std::make_shared<NSObject>())));
}

} // namespace
} // namespace prismo
