// Split, Join, Max and Min.
#include "ArrayTestSupport.h"
#include "Common/Arrays/ArrayLibrary.h"

using namespace arraytest;

namespace {

class ArrayLibraryTest : public ArrayTest {};

std::vector<std::string> Fields(RuntimeObject* array) {
  RuntimeArrayObject* a = reinterpret_cast<RuntimeArrayObject*>(array);
  std::vector<std::string> fields;
  for (long k = 0; k <= Ubound(a); k++)
    fields.push_back(Std(Elements<stringStorage*>(a)[k]));
  return fields;
}

std::vector<std::string> Split(char const* source, char const* delimiter) {
  stringStorage* s = Text(source);
  stringStorage* d = Text(delimiter);
  RuntimeObject* array = StringSplit(s, d);
  std::vector<std::string> fields = Fields(array);
  RuntimeUnlockArray(array);
  RuntimeUnlockString(s);
  RuntimeUnlockString(d);
  return fields;
}

typedef std::vector<std::string> Strings;

TEST_F(ArrayLibraryTest, SplitFindsTheDelimiterWithoutRegardToCase) {
  EXPECT_EQ(Strings({"a", "b", "c"}), Split("aXYbxyc", "xy"));
  EXPECT_EQ(Strings({"", "a", "", "b", ""}), Split(",a,,b,", ","));
  EXPECT_EQ(Strings({"one", "two"}), Split("one two", ""));
  EXPECT_EQ(Strings({"abc"}), Split("abc", "abcd"));
  EXPECT_EQ(Strings({"", ""}), Split("SEP", "sep"));
  EXPECT_EQ(Strings{}, Split("", ","));
  RuntimeObject* none = StringSplit(nullptr, nullptr);
  EXPECT_EQ(-1, RuntimeUBound(none));
  RuntimeUnlockArray(none);
}

TEST_F(ArrayLibraryTest, JoinUndoesSplit) {
  stringStorage* source = Text("x--y----z");
  stringStorage* dash = Text("--");
  RuntimeObject* fields = StringSplit(source, dash);
  stringStorage* joined = StringJoin(fields, dash);
  EXPECT_EQ("x--y----z", Std(joined));
  EXPECT_EQ(1, joined->mRefCount) << "the caller owns the result";
  EXPECT_EQ(1, source->mRefCount);
  stringStorage* spaced = StringJoin(fields, nullptr);
  EXPECT_EQ("x y  z", Std(spaced));
  EXPECT_EQ(nullptr, StringJoin(nullptr, dash));
  EXPECT_EQ(Kinds{"nil"}, Raised());
  for (stringStorage* s : {source, dash, joined, spaced}) RuntimeUnlockString(s);
  RuntimeUnlockArray(fields);
}

TEST_F(ArrayLibraryTest, MaxAndMinOverTheParamArray) {
  EXPECT_EQ(3.0, RuntimeMax(3.0, -1.0, nullptr));
  EXPECT_EQ(-1.0, RuntimeMin(3.0, -1.0, nullptr));
  RuntimeArrayObject* none = CreateArray(1, kDouble, -1L);
  EXPECT_EQ(2.0, RuntimeMax(1.0, 2.0, &none->header));
  RuntimeArrayObject* others = CreateArray(1, kDouble, 2L);
  double values[] = {7.5, -9.0, 0.0};
  std::copy(values, values + 3, Elements<double>(others));
  EXPECT_EQ(7.5, RuntimeMax(1.0, 2.0, &others->header));
  EXPECT_EQ(-9.0, RuntimeMin(1.0, 2.0, &others->header));
  RuntimeUnlockArray(&none->header);
  RuntimeUnlockArray(&others->header);
}

}  // namespace
