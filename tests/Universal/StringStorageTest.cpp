// The storage record is a format shared with generated code and the host:
// these tests pin its layout, the reference counting and copy on write.
#include <gtest/gtest.h>
#include <stdint.h>
#include <string.h>

#include "Universal/ustring.h"

namespace {

uint32_t Word(stringStorage* s, int offset) {
  uint32_t value;
  memcpy(&value, reinterpret_cast<char*>(s) + offset, 4);
  return value;
}

}  // namespace

TEST(StringStorage, LayoutOfTheRecord) {
  stringStorage* s = NewStringStorage("hello", 5, kEncodingUTF8);
  EXPECT_EQ(Word(s, 0), 1u);  // reference count
  unsigned char* pascal = reinterpret_cast<unsigned char*>(Word(s, 4));
  uintptr_t offset = pascal - reinterpret_cast<unsigned char*>(s);
  EXPECT_TRUE(offset == 20 || offset == 21);
  EXPECT_EQ(reinterpret_cast<uintptr_t>(pascal) % 2, 0u);
  EXPECT_EQ(Word(s, 8), 5u + 5);  // capacity
  EXPECT_EQ(Word(s, 12), 5u);     // length
  EXPECT_EQ(Word(s, 16), (uint32_t)kEncodingUTF8);
  EXPECT_EQ(pascal[0], 5);
  EXPECT_EQ(memcmp(pascal + 1, "hello", 5), 0);
  EXPECT_EQ(Word(s, (int)offset + 1 + 5), 0u);  // 32-bit terminator
  EXPECT_STREQ(s->CString(), "hello");
  UnlockStringStorage(s);
}

TEST(StringStorage, LengthByteSaturatesAt255) {
  char text[300];
  memset(text, 'x', sizeof text);
  string s;
  s.ConstructFromBuffer(text, 300);
  EXPECT_EQ(s.Length(), 300u);
  EXPECT_EQ(s.PString()[0], 255);
  EXPECT_EQ(s.GetStringStorage()->mLength, 300u);
  EXPECT_EQ(s.GetStringStorage()->mCapacity, 305u);

  s.ConstructFromBuffer(text, 254);
  EXPECT_EQ(s.PString()[0], 254);
  s.ConstructFromBuffer(text, 255);
  EXPECT_EQ(s.PString()[0], 255);
}

TEST(StringStorage, NilStringBehaviour) {
  string fromEmpty(""), fromNull((char const*)0), fromDefault;
  for (string const* s : {&fromEmpty, &fromNull, &fromDefault}) {
    EXPECT_EQ(s->GetStringStorage(), nullptr);
    EXPECT_EQ(s->Length(), 0u);
    ASSERT_NE(s->CString(), nullptr);
    EXPECT_STREQ(s->CString(), "");
    EXPECT_EQ(s->PString()[0], 0);
    EXPECT_EQ(s->Encoding(), (unsigned long)kEncodingASCII);
    EXPECT_EQ((*s)[0], 0);
    EXPECT_TRUE(s->ContainsOnlyASCII());
  }
  fromDefault.SetEncoding(kEncodingUTF8);  // no effect, no crash
  EXPECT_EQ(fromDefault.Encoding(), (unsigned long)kEncodingASCII);
  unsigned char emptyPascal[1] = {0};
  EXPECT_EQ(string(emptyPascal).GetStringStorage(), nullptr);
}

TEST(StringStorage, ConstructorsTagAndCopy) {
  string c("abc");
  EXPECT_EQ(c.Encoding(), (unsigned long)kEncodingASCII);
  unsigned char pascal[] = "\x03xyz";
  string p(pascal);
  EXPECT_STREQ(p.CString(), "xyz");
  EXPECT_EQ(p.Encoding(), (unsigned long)kEncodingASCII);
  string one('q');
  EXPECT_EQ(one.Length(), 1u);
  EXPECT_EQ(one.Encoding(), (unsigned long)kEncodingASCII);

  string buffer;
  buffer.ConstructFromBuffer("raw", 3);
  EXPECT_EQ(buffer.Encoding(), (unsigned long)kEncodingUnknown);
  buffer.ConstructFromBuffer("raw", 0);
  EXPECT_EQ(buffer.GetStringStorage(), nullptr);
}

TEST(StringStorage, ConstructFromBufferMayReadItsOwnText) {
  string s("abcdef");
  s.ConstructFromBuffer(s.CString() + 2, 3);
  EXPECT_STREQ(s.CString(), "cde");
}

TEST(StringStorage, WideAndUTF16Construction) {
  string wide;
  wide.ConstructFromWString(L"hi", 2);
  ASSERT_TRUE(PlatformSupportsUTF32());
  EXPECT_EQ(wide.Encoding(), (unsigned long)kEncodingUTF32);
  EXPECT_EQ(wide.Length(), 8u);
  EXPECT_EQ(wide.WLength(), 2u);

  unsigned short units[] = {'o', 'k', 0x263A};
  string utf16;
  utf16.ConstructFromUTF16String(units, 3);
  EXPECT_EQ(utf16.Encoding(), (unsigned long)kEncodingUTF16);
  EXPECT_EQ(utf16.Length(), 6u);
  EXPECT_EQ(utf16.WLength(), 3u);
  utf16.ConstructFromUTF16String(units, 0);
  EXPECT_EQ(utf16.GetStringStorage(), nullptr);
}

TEST(StringStorage, SharingCountsReferences) {
  string a("shared");
  stringStorage* storage = a.GetStringStorage();
  {
    string b = a;
    EXPECT_EQ(b.GetStringStorage(), storage);
    EXPECT_EQ(storage->mRefCount, 2);
    string c(storage);
    EXPECT_EQ(storage->mRefCount, 3);
  }
  EXPECT_EQ(storage->mRefCount, 1);

  stringStorage* handedOut = a.ExtractStringStorage();
  EXPECT_EQ(storage->mRefCount, 2);
  string adopted;
  adopted.AdoptReference(handedOut);
  EXPECT_EQ(storage->mRefCount, 2);
  a = a;  // self-assignment keeps the storage alive
  EXPECT_STREQ(a.CString(), "shared");
}

TEST(StringStorage, BareHelpersIgnoreNull) {
  LockStringStorage(nullptr);
  UnlockStringStorage(nullptr);
  stringStorage* s = NewStringStorage(nullptr, 3, kEncodingUnknown);
  memcpy(s->CString(), "abc", 3);
  LockStringStorage(s);
  EXPECT_EQ(s->mRefCount, 2);
  UnlockStringStorage(s);
  string owner;
  owner.AdoptReference(s);
  EXPECT_STREQ(owner.CString(), "abc");
}

TEST(StringStorage, MutableCharCopiesSharedStorage) {
  string a("hello");
  a.SetEncoding(kEncodingUTF8);
  string b = a;
  b.MutableChar(0) = 'j';
  EXPECT_STREQ(a.CString(), "hello");
  EXPECT_STREQ(b.CString(), "jello");
  EXPECT_NE(a.GetStringStorage(), b.GetStringStorage());
  EXPECT_EQ(b.Encoding(), (unsigned long)kEncodingUnknown);
  EXPECT_EQ(a.Encoding(), (unsigned long)kEncodingUTF8);

  stringStorage* own = b.GetStringStorage();
  b.MutableChar(1) = 'E';  // sole owner: written in place
  EXPECT_EQ(b.GetStringStorage(), own);
  EXPECT_STREQ(b.CString(), "jEllo");
}

TEST(StringStorage, MutableCharOnNilAllowsOnlyIndexZero) {
  string nil;
  nil.MutableChar(0) = 'x';
  EXPECT_EQ(nil.Length(), 0u);
  EXPECT_EXIT(nil.MutableChar(1), testing::ExitedWithCode(1), "");
}

TEST(StringStorage, MutableCharChecksTheIndex) {
  string s("abc");
  EXPECT_EXIT(s.MutableChar(3), testing::ExitedWithCode(1), "");
  EXPECT_EXIT(s.MutableChar(-1), testing::ExitedWithCode(1), "");
}

TEST(StringStorage, WStringAssertsUTF16) {
  string s("abc");
  EXPECT_EXIT(s.WString(), testing::ExitedWithCode(1), "");
}

TEST(StringStorage, UnicodeCharForms) {
  string utf8 = UnicodeChar(0xE9, kEncodingUTF8);
  EXPECT_EQ(utf8.Length(), 2u);
  EXPECT_STREQ(utf8.CString(), "\xC3\xA9");
  EXPECT_EQ(utf8.Encoding(), (unsigned long)kEncodingUTF8);

  string utf16 = UnicodeChar(0x263A, kEncodingUTF16);
  EXPECT_EQ(utf16.Length(), 3u);
  EXPECT_EQ((unsigned char)utf16[0], 0x3A);
  EXPECT_EQ((unsigned char)utf16[1], 0x26);

  string latin1 = UnicodeChar(0xE9, 513);
  EXPECT_EQ(latin1.Length(), 1u);
  EXPECT_EQ((unsigned char)latin1[0], 0xE9);
  EXPECT_EQ(latin1.Encoding(), 513u);
}
