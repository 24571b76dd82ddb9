// The variant runtime as generated code calls it. What a script can see is
// in tests/scripts/variants/; these are the edges a script reaches only by
// luck: bit patterns, the widest integers, the text readers and the
// references a box holds.
#include <gtest/gtest.h>

#include <math.h>

#include <string>

#include "Common/Variants/RuntimeVariants.h"
#include "Common/Variants/VariantValues.h"
#include "Universal/ustring.h"

namespace {

// A variant made by the runtime, released when the test is done with it.
struct Held {
  RuntimeObject* value;
  explicit Held(RuntimeObject* v) : value(v) {}
  ~Held() { RuntimeUnlockObject(value); }
  operator RuntimeObject*() const { return value; }
};

std::string TextOf(RuntimeObject* variant) {
  string text;
  text.AdoptReference(VariantToString(variant));
  return text.CString();
}

double ValOf(char const* text) {
  string held(text);
  return variants::DuplicateVal(held.GetStringStorage());
}

TEST(RuntimeVariants, EqualityReadsTheTypeAndEveryValueBit) {
  Held zero(DoubleToVariant(0.0)), minusZero(DoubleToVariant(-0.0));
  Held nan(DoubleToVariant(NAN)), otherNan(DoubleToVariant(NAN));
  Held one(Int32ToVariant(1)), oneAgain(Int32ToVariant(1)), real(DoubleToVariant(1.0));
  Held unsignedOne(UInt32ToVariant(1)), longOne(Int64ToVariant(1));
  EXPECT_FALSE(VariantEqual(zero, minusZero));
  EXPECT_TRUE(VariantEqual(nan, otherNan));
  EXPECT_TRUE(VariantEqual(one, oneAgain));
  EXPECT_EQ(VariantHash(one), VariantHash(oneAgain));
  EXPECT_FALSE(VariantEqual(one, real));
  EXPECT_TRUE(VariantEqual(one, unsignedOne));  // both integers
  EXPECT_FALSE(VariantEqual(one, longOne));     // integer and long
  EXPECT_FALSE(VariantEqual(one, nullptr));
  EXPECT_TRUE(VariantEqual(nullptr, nullptr));
  EXPECT_EQ(0, VariantHash(nullptr));
  EXPECT_EQ(0, VariantCompare(zero, minusZero));  // = compares values
  EXPECT_NE(0, VariantCompare(nan, otherNan));
}

TEST(RuntimeVariants, WholeNumbersCompareAcrossSignedness) {
  Held huge(UInt64ToVariant(0xFFFFFFFFFFFFFFFFull)), minusOne(Int32ToVariant(-1));
  Held big(UInt32ToVariant(0x80000000u)), lowest(Int32ToVariant(INT32_MIN));
  Held lowestLong(Int64ToVariant(INT64_MIN));
  EXPECT_EQ(1, VariantCompare(huge, minusOne));
  EXPECT_EQ(-1, VariantCompare(minusOne, huge));
  EXPECT_EQ(1, VariantCompare(big, lowest));
  EXPECT_EQ(-1, VariantCompare(lowestLong, lowest));
  EXPECT_EQ(-1, VariantCompare(nullptr, lowestLong));
  EXPECT_EQ("18446744073709551615", TextOf(huge));
  EXPECT_EQ(18446744073709551615.0, VariantToDouble(huge));
  EXPECT_EQ(2147483648.0, VariantToDouble(big));
}

TEST(RuntimeVariants, TextReadsAsValReadsIt) {
  EXPECT_EQ(-150.0, ValOf("  -1.5e2x"));
  EXPECT_EQ(0.5, ValOf(".5"));
  EXPECT_EQ(12.0, ValOf("12e"));
  EXPECT_EQ(0.0, ValOf("e5"));
  EXPECT_EQ(5.0, ValOf("&b101"));
  EXPECT_EQ(4294967295.0, ValOf("&hFFFFFFFF"));
  EXPECT_EQ(8.0, ValOf("&o10"));
  EXPECT_EQ(0.0, ValOf(""));
}

TEST(RuntimeVariants, NumbersAsText) {
  Held third(DoubleToVariant(1.0 / 3)), single(SingleToVariant(0.1f));
  Held cents(CurrencyToVariant(-5000)), whole(CurrencyToVariant(30000));
  Held infinite(DoubleToVariant(-INFINITY)), yes(BooleanToVariant(0x100 | 1));
  Held no(BooleanToVariant(0x100));
  EXPECT_EQ("0.333333333333333", TextOf(third));
  EXPECT_EQ("0.1", TextOf(single));
  EXPECT_EQ("-0.5", TextOf(cents));
  EXPECT_EQ("3", TextOf(whole));
  EXPECT_EQ("-INF", TextOf(infinite));
  EXPECT_EQ("True", TextOf(yes));  // only the low byte of a Boolean counts
  EXPECT_EQ("False", TextOf(no));
  EXPECT_EQ("", TextOf(nullptr));
}

TEST(RuntimeVariants, ABoxHoldsItsTextAndObjectVariantsAreTheObject) {
  string text("shared text");
  stringStorage* storage = text.GetStringStorage();
  int32_t before = storage->mRefCount;
  RuntimeObject* boxed = StringToVariant(storage);
  EXPECT_EQ(before + 1, storage->mRefCount);
  EXPECT_EQ("shared text", TextOf(boxed));
  EXPECT_EQ(before + 1, storage->mRefCount);
  RuntimeUnlockObject(boxed);
  EXPECT_EQ(before, storage->mRefCount);
  Held object(Int32ToVariant(3));
  EXPECT_EQ(object.value, ObjectToVariant(object.value));
  RuntimeUnlockObject(object.value);
  EXPECT_EQ(kVariantTypeInteger, VarType(object));
  EXPECT_EQ(kVariantTypeNil, VarType(nullptr));
}

}  // namespace
