// Character slices: 1-based code points, clamped, and shared when whole.
#include "LibraryTestSupport.h"

namespace {

class LibraryStrings : public LibraryTest {};

// "Grüße, 世界": 9 code points in 15 bytes.
char const kMixed[] = "Gr\xC3\xBC\xC3\x9F" "e, \xE4\xB8\x96\xE7\x95\x8C";

TEST_F(LibraryStrings, CharacterSlicesCountCodePointsAndClamp) {
  Str mixed = S(kMixed), hello = S("Hello");
  EXPECT_EQ(Text("StringDBCSLeft", mixed, 3L), "Gr\xC3\xBC");
  EXPECT_EQ(Text("StringDBCSRight", mixed, 2L), "\xE4\xB8\x96\xE7\x95\x8C");
  EXPECT_EQ(Text("StringDBCSRight", mixed, 9L), kMixed);
  for (long n : {0L, -4L}) EXPECT_EQ(Text("StringDBCSLeft", mixed, n) + Text("StringDBCSRight", mixed, n), "");
  EXPECT_TRUE(Shares(mixed, "StringDBCSLeft", mixed, 99L)) << "the whole text is shared, not copied";
  struct { long start, count; char const* want; } mids[] = {
      {2, 3, "ell"}, {4, 10, "lo"}, {0, 2, "He"}, {-3, 2, "He"}, {6, 1, ""}, {2, 0, ""}, {2, -1, ""}};
  for (auto const& m : mids) EXPECT_EQ(Text("StringDBCSMid3", hello, m.start, m.count), m.want) << m.start;
  EXPECT_EQ(Text("StringDBCSMid2", hello, 3L) + Text("StringDBCSMid2", hello, 9L), "llo");
  EXPECT_EQ(Text("StringDBCSMid3", mixed, 3L, 2L), "\xC3\xBC\xC3\x9F");
  EXPECT_EQ(Tag("StringDBCSMid3", mixed, 2L, 2L), (uint32_t)kEncodingUTF8);
  Str latin1 = NewStringStorage("caf\xE9", 4, 513);  // converted through a cache: no count checks
  EXPECT_EQ(Library<long(Str)>("StringDBCSLen")(latin1), 4);
  Str left = Library<Str(Str, long)>("StringDBCSLeft")(latin1, 4L);
  EXPECT_EQ(Bytes(left), "caf\xC3\xA9");
  EXPECT_EQ(left->mEncoding, (uint32_t)kEncodingUTF8);
  UnlockStringStorage(left);
  UnlockStringStorage(latin1);
}

}  // namespace
