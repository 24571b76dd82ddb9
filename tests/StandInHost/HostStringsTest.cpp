// The host's string operations: handles are stringStorage records, shared
// with the engine by reference count.
#include <gtest/gtest.h>

#include <string>

#include "quorl/QuorlHost.h"

namespace {

template <class Proc>
Proc Operation(char const* name) {
  return reinterpret_cast<Proc>(quorl::ResolveHostName(name));
}

VELDString Build(void const* bytes, int length) {
  return Operation<VELDBuildStringProc>("VELDBuildString")(bytes, length);
}

VELDString Convert(VELDString text, uint32_t encoding) {
  return Operation<VELDConvertStringProc>("VELDConvertString")(text, encoding);
}

std::string Text(VELDString text) {
  return std::string(text->CString(), text->mLength);
}

TEST(HostStrings, BuildCopiesEveryByteAskedForUntagged) {
  char bytes[] = "Error found while compiling";
  VELDString text = Build(bytes, sizeof bytes);
  bytes[0] = 'X';
  EXPECT_EQ(Text(text), std::string("Error found while compiling", 28));
  EXPECT_EQ(text->mRefCount, 1);
  EXPECT_EQ(text->mEncoding, kEncodingUnknown);
  EXPECT_EQ(Text(Build(nullptr, 3)), std::string(3, '\0'));
  EXPECT_EQ(Build("abc", 0), nullptr);
}

TEST(HostStrings, ConvertingToTheSameTagSharesTheHandle) {
  VELDString text = Build("h\xC3\xA9", 3);
  text->mEncoding = kEncodingUTF8;
  EXPECT_EQ(Convert(text, kEncodingUTF8), text);
  EXPECT_EQ(text->mRefCount, 2);
}

TEST(HostStrings, UntaggedTextIsOnlyRetagged) {
  VELDString text = Build("h\xC3\xA9", 3);
  VELDString converted = Convert(text, kEncodingUTF8);
  ASSERT_NE(converted, text);
  EXPECT_EQ(Text(converted), "h\xC3\xA9");
  EXPECT_EQ(converted->mEncoding, kEncodingUTF8);
  EXPECT_EQ(text->mEncoding, kEncodingUnknown) << "the original must not change";
}

TEST(HostStrings, UTF16TextIsConvertedToUTF8) {
  char const units[] = {'h', 0, '\xE9', 0};
  VELDString text = Build(units, 4);
  text->mEncoding = kEncodingUTF16;
  VELDString converted = Convert(text, kEncodingUTF8);
  ASSERT_NE(converted, nullptr);
  EXPECT_EQ(Text(converted), "h\xC3\xA9");
  EXPECT_EQ(converted->mEncoding, kEncodingUTF8);
  EXPECT_EQ(Convert(nullptr, kEncodingUTF8), nullptr);
}

}  // namespace
