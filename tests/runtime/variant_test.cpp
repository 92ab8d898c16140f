// SPDX-License-Identifier: MIT
#include <corvane/runtime/variant.h>

#include <gtest/gtest.h>

#include "runtime/expect_error.h"
#include <corvane/runtime/object.h>

using namespace corvane;

namespace {
class Plain : public Object {
 public:
  std::string typeName() const override { return "Plain"; }
};
class Other : public Object {
 public:
  std::string typeName() const override { return "Other"; }
};
enum class Align { Left = 0, Right = 1, Center = 2 };
}  // namespace

TEST(Variant, TypesOfConstructedValues) {
  EXPECT_EQ(Variant().type(), Variant::Type::Empty);
  EXPECT_EQ(Variant::null().type(), Variant::Type::Null);
  EXPECT_EQ(Variant(true).type(), Variant::Type::Boolean);
  EXPECT_EQ(Variant(uint8_t(1)).type(), Variant::Type::Byte);
  EXPECT_EQ(Variant(int16_t(1)).type(), Variant::Type::Integer);
  EXPECT_EQ(Variant(1).type(), Variant::Type::Long);
  EXPECT_EQ(Variant(1.0f).type(), Variant::Type::Single);
  EXPECT_EQ(Variant(1.0).type(), Variant::Type::Double);
  EXPECT_EQ(Variant("x").type(), Variant::Type::String);
  EXPECT_EQ(Variant(std::make_shared<Plain>()).type(), Variant::Type::Object);
  EXPECT_EQ(Variant(int16_t(1)).typeName(), "Integer");
  EXPECT_EQ(Variant::null().typeName(), "Null");
  EXPECT_TRUE(Variant(true).isNumeric());
  EXPECT_FALSE(Variant("1").isNumeric());
}

TEST(Variant, IntegerConversionRoundsTiesToEven) {
  EXPECT_EQ(Variant(2.5).toInteger(), 2);
  EXPECT_EQ(Variant(3.5).toInteger(), 4);
  EXPECT_EQ(Variant(-2.5).toInteger(), -2);
  EXPECT_EQ(Variant(-3.5).toInteger(), -4);
  EXPECT_EQ(Variant(2.6).toInteger(), 3);
  EXPECT_EQ(Variant(0.5).toLong(), 0);
  EXPECT_EQ(Variant(1.5).toLong(), 2);
  EXPECT_EQ(Variant(2.5f).toLong(), 2);
  EXPECT_EQ(Variant(254.5).toByte(), 254);
}

TEST(Variant, IntegerConversionOverflowIsError6) {
  EXPECT_RUNTIME_ERROR(Variant(32767.5).toInteger(), 6);  // rounds to 32768
  EXPECT_EQ(Variant(32766.5).toInteger(), 32766);
  EXPECT_EQ(Variant(-32768.5).toInteger(), -32768);
  EXPECT_RUNTIME_ERROR(Variant(-32769.0).toInteger(), 6);
  EXPECT_RUNTIME_ERROR(Variant(40000).toInteger(), 6);
  EXPECT_RUNTIME_ERROR(Variant(2147483647.5).toLong(), 6);
  EXPECT_RUNTIME_ERROR(Variant(1e10).toLong(), 6);
  EXPECT_RUNTIME_ERROR(Variant(256).toByte(), 6);
  EXPECT_RUNTIME_ERROR(Variant(-1).toByte(), 6);
  EXPECT_RUNTIME_ERROR(Variant(1e300).toSingle(), 6);
}

TEST(Variant, BooleanTrueReadsAsMinusOne) {
  EXPECT_EQ(Variant(true).toDouble(), -1);
  EXPECT_EQ(Variant(true).toInteger(), -1);
  EXPECT_EQ(Variant(true).toLong(), -1);
  EXPECT_EQ(Variant(false).toLong(), 0);
  EXPECT_EQ(Variant(true).toString(), "True");
  EXPECT_EQ(Variant(false).toString(), "False");
  EXPECT_RUNTIME_ERROR(Variant(true).toByte(), 6);
}

TEST(Variant, NumbersToBoolean) {
  EXPECT_TRUE(Variant(5).toBool());
  EXPECT_TRUE(Variant(-0.1).toBool());
  EXPECT_FALSE(Variant(0).toBool());
  EXPECT_FALSE(Variant().toBool());
  EXPECT_TRUE(Variant("True").toBool());
  EXPECT_TRUE(Variant("true").toBool());
  EXPECT_FALSE(Variant("False").toBool());
  EXPECT_TRUE(Variant("1").toBool());
  EXPECT_RUNTIME_ERROR(Variant("yes").toBool(), 13);
}

TEST(Variant, TextConvertsToNumbers) {
  EXPECT_EQ(Variant("12").toInteger(), 12);
  EXPECT_EQ(Variant(" 12 ").toLong(), 12);
  EXPECT_EQ(Variant("2.5").toInteger(), 2);
  EXPECT_EQ(Variant("-1.5e1").toDouble(), -15);
  EXPECT_EQ(Variant("&HFF").toLong(), 255);
  EXPECT_EQ(Variant("&hff").toInteger(), 255);
  EXPECT_EQ(Variant("&HFFFF").toLong(), -1);
  EXPECT_EQ(Variant("&HFFFF&").toLong(), 65535);
  EXPECT_EQ(Variant("&O17").toLong(), 15);
  EXPECT_EQ(Variant("&H8000").toLong(), -32768);
  EXPECT_RUNTIME_ERROR(Variant("&H123456789").toLong(), 6);
  EXPECT_RUNTIME_ERROR(Variant("40000").toInteger(), 6);
}

TEST(Variant, TextThatIsNoNumberIsTypeMismatch) {
  EXPECT_RUNTIME_ERROR(Variant("abc").toDouble(), 13);
  EXPECT_RUNTIME_ERROR(Variant("").toLong(), 13);
  EXPECT_RUNTIME_ERROR(Variant("12abc").toLong(), 13);
  EXPECT_RUNTIME_ERROR(Variant("&H").toLong(), 13);
  EXPECT_RUNTIME_ERROR(Variant("&HZZ").toLong(), 13);
  EXPECT_RUNTIME_ERROR(Variant("&H-1").toLong(), 13);
  EXPECT_RUNTIME_ERROR(Variant("inf").toDouble(), 13);
  EXPECT_RUNTIME_ERROR(Variant("0x1A").toDouble(), 13);
}

TEST(Variant, ObjectsAndNullDoNotConvertToNumbersOrText) {
  Variant o(std::make_shared<Plain>());
  EXPECT_RUNTIME_ERROR(o.toDouble(), 13);
  EXPECT_RUNTIME_ERROR(o.toString(), 13);
  EXPECT_RUNTIME_ERROR(Variant::null().toLong(), 94);
  EXPECT_RUNTIME_ERROR(Variant::null().toString(), 94);
}

TEST(Variant, EmptyReadsAsZeroAndEmptyText) {
  EXPECT_EQ(Variant().toLong(), 0);
  EXPECT_EQ(Variant().toDouble(), 0);
  EXPECT_EQ(Variant().toString(), "");
  EXPECT_EQ(Variant().toObject(), nullptr);
}

TEST(Variant, NumbersToText) {
  EXPECT_EQ(Variant(int16_t(-5)).toString(), "-5");
  EXPECT_EQ(Variant(uint8_t(200)).toString(), "200");
  EXPECT_EQ(Variant(2147483647).toString(), "2147483647");
  EXPECT_EQ(Variant(0.5).toString(), "0.5");
  EXPECT_EQ(Variant(-0.5).toString(), "-0.5");
  EXPECT_EQ(Variant(2.0).toString(), "2");
  EXPECT_EQ(Variant(0.0).toString(), "0");
  EXPECT_EQ(Variant(1.0 / 3.0).toString(), "0.333333333333333");
  EXPECT_EQ(Variant(123456789012345.0).toString(), "123456789012345");
  EXPECT_EQ(Variant(1e15).toString(), "1E+15");
  EXPECT_EQ(Variant(1.5e-7).toString(), "1.5E-07");
  EXPECT_EQ(Variant(0.0001).toString(), "0.0001");
  EXPECT_EQ(Variant(0.00001).toString(), "1E-05");
  EXPECT_EQ(Variant(1e100).toString(), "1E+100");
  EXPECT_EQ(Variant(0.1f).toString(), "0.1");
  EXPECT_EQ(Variant(1.0f / 3.0f).toString(), "0.3333333");
}

TEST(Variant, AsConvertsToTheRequestedType) {
  Variant v("7");
  EXPECT_EQ(v.as<int16_t>(), 7);
  EXPECT_EQ(v.as<int32_t>(), 7);
  EXPECT_EQ(v.as<double>(), 7);
  EXPECT_EQ(v.as<std::string>(), "7");
  EXPECT_TRUE(v.as<bool>());
  EXPECT_EQ(Variant(2).as<Align>(), Align::Center);
  EXPECT_EQ(v.as<Variant>(), v);
}

TEST(Variant, AsDerivedObjectChecksTheType) {
  auto p = std::make_shared<Plain>();
  Variant v(p);
  EXPECT_EQ(v.as<std::shared_ptr<Plain>>(), p);
  EXPECT_RUNTIME_ERROR(v.as<std::shared_ptr<Other>>(), 13);
  EXPECT_EQ(Variant().as<std::shared_ptr<Plain>>(), nullptr);
  EXPECT_RUNTIME_ERROR(Variant(1).toObject(), 13);
}

TEST(Variant, EqualityComparesValuesAcrossNumberWidths) {
  EXPECT_EQ(Variant(int16_t(5)), Variant(5));
  EXPECT_EQ(Variant(5), Variant(5.0));
  EXPECT_FALSE(Variant(5) == Variant(6));
  EXPECT_FALSE(Variant(true) == Variant(-1));  // a Boolean is no number of the same type
  EXPECT_EQ(Variant(true), Variant(true));
  EXPECT_EQ(Variant("a"), Variant(std::string("a")));
  EXPECT_FALSE(Variant("5") == Variant(5));
  EXPECT_EQ(Variant::null(), Variant::null());
  EXPECT_EQ(Variant(), Variant());
  EXPECT_FALSE(Variant() == Variant::null());
  auto a = std::make_shared<Plain>();
  EXPECT_EQ(Variant(a), Variant(a));
  EXPECT_FALSE(Variant(a) == Variant(std::make_shared<Plain>()));
}

TEST(Variant, UnsignedThirtyTwoBitValuesKeepTheirBitsAsLong) {
  Variant colour(0x8000000Fu);
  EXPECT_EQ(colour.type(), Variant::Type::Long);
  EXPECT_EQ(colour.toLong(), -2147483633);
  EXPECT_EQ(Variant(0xFFFFFFFFu).toLong(), -1);
}

TEST(Variant, WideIntegersBecomeLongOrDouble) {
  EXPECT_EQ(Variant(size_t(5)).type(), Variant::Type::Long);
  EXPECT_EQ(Variant(int64_t(-5)).toLong(), -5);
  Variant big(int64_t(3000000000));
  EXPECT_EQ(big.type(), Variant::Type::Double);
  EXPECT_EQ(big.toDouble(), 3e9);
  EXPECT_RUNTIME_ERROR(big.toLong(), 6);
  EXPECT_EQ(Variant(1ull << 40).type(), Variant::Type::Double);
}
