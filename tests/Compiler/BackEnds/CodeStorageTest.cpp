#include <gtest/gtest.h>

#include <string>

#include "Compiler/BackEnds/MD5.h"
#include "Compiler/BackEnds/codestorage.h"
#include "tests/Compiler/CompilerTestSupport.h"

namespace {

std::string Hex(unsigned char const* bytes, unsigned n) {
  static char const digits[] = "0123456789abcdef";
  std::string out;
  for (unsigned i = 0; i < n; i++) {
    out += digits[bytes[i] >> 4];
    out += digits[bytes[i] & 15];
  }
  return out;
}

std::string Digest(std::string const& text) {
  unsigned char digest[16];
  MD5(digest, reinterpret_cast<unsigned char const*>(text.data()),
      static_cast<unsigned>(text.size()));
  return Hex(digest, 16);
}

}  // namespace

TEST(DataBlockTest, ByteOrderIsTheBlocksNotTheHosts) {
  DataBlock little(0), big(1);
  little.Append32(0x11223344);
  big.Append32(0x11223344);
  EXPECT_EQ("44332211", Hex(little.Buffer(), 4));
  EXPECT_EQ("11223344", Hex(big.Buffer(), 4));
  big.Append16(0xABCD);
  EXPECT_EQ(0xABCDu, big.Get16(4));
  EXPECT_EQ("abcd", Hex(big.Buffer() + 4, 2));
  EXPECT_EQ(0x11223344u, little.Get32(0));
}

TEST(DataBlockTest, WritesAndReadsPastTheCapacityAreHarmless) {
  DataBlock block(0);
  block.Append32(7);
  block.ResizeBuffer(4);  // the capacity is the four bytes written
  block.Set32(2, 0xFFFFFFFF);  // would cross the end: dropped
  block.Set8(4, 9);
  EXPECT_EQ(7u, block.Get32(0));
  EXPECT_EQ(0u, block.Get32(1));
  EXPECT_EQ(0u, block.Get8(100));
}

// Counts the buffers a block makes and the bytes they hold in all.
class CountingBlock : public DataBlock {
 public:
  CountingBlock() : DataBlock(0) {}
  unsigned char* AllocMemory(unsigned int size) override {
    buffers++;
    bytes += size;
    return DataBlock::AllocMemory(size);
  }
  unsigned long buffers = 0, bytes = 0;
};

// The code of one long main body runs to megabytes, appended a byte at a
// time: the block grows by half of what it holds, so the bytes it copies
// stay proportional to its length.
TEST(DataBlockTest, AppendingByteByByteCopiesLinearly) {
  for (unsigned long length : {1ul << 16, 1ul << 20}) {
    CountingBlock block;
    for (unsigned long i = 0; i < length; i++) block.Append8(i & 0xFF);
    EXPECT_EQ(block.Length(), length);
    EXPECT_EQ(block.Get8(length - 1), (length - 1) & 0xFF);
    EXPECT_LT(block.buffers, 40u) << length;
    EXPECT_LT(block.bytes, 5 * length) << length;  // geometric: 3 × 1.5 at most
  }
}

TEST(DataBlockTest, RangesAreCopiedAndReplaced) {
  DataBlock empty(0);
  Ref<DataBlock> nothing = empty.Get(0, 0);
  EXPECT_EQ(0u, nothing->Length());
  DataBlock block(0);
  block.Append("abcdef", 6);
  Ref<DataBlock> middle = block.Get(2, 2);
  EXPECT_EQ("cd", std::string(reinterpret_cast<char*>(middle->Buffer()), 2));
  Ref<DataBlock> replacement;
  replacement.BindNewObject(new DataBlock(0));
  replacement->Append("XYZ", 3);
  block.Set(1, 3, replacement);
  EXPECT_EQ("aXYZef", std::string(reinterpret_cast<char*>(block.Buffer()), 6));
  block.SetLength(8);
  EXPECT_EQ(0u, block.Get8(7));
  EXPECT_ASSERTION(block.Get(5, 4), "");
}

TEST(FunctionBlockTest, AppendingMovesTheOthersImports) {
  FunctionBlock first(0), second(0);
  first.Append32(0);
  second.Append8(0xE8);
  second.MarkImport(Import::kImportCall32, "Callee", 0);
  second.Append32(0);
  first.Append(&second);
  ASSERT_EQ(1u, first.mImports.size());
  EXPECT_EQ(5u, first.mImports[0].mOffset);
  EXPECT_TRUE(first.mImports[0].IsRelativeBranch());
  Ref<DataBlock> raw;
  raw.BindNewObject(new DataBlock(0));
  EXPECT_ASSERTION(first.Append(raw), "");
  EXPECT_ASSERTION(first.MarkImport(Import::kImportGlobal32, "", 0), "");
}

TEST(LineTableTest, EntriesAndLookups) {
  CodeOffsetToLineIndex table;
  int line;
  unsigned offset;
  EXPECT_FALSE(table.LookupLine(0, &line));
  table.AddEntry(4, 1);
  table.AddEntry(8, 1);  // same line: the first offset stays
  table.AddEntry(10, 2);
  EXPECT_EQ(2u, table.mIndex.size());
  EXPECT_FALSE(table.LookupLine(3, &line));
  ASSERT_TRUE(table.LookupLine(9, &line));
  EXPECT_EQ(1, line);
  ASSERT_TRUE(table.LookupOffset(2, &offset));
  EXPECT_EQ(10u, offset);
  table.Adjust(5);
  ASSERT_TRUE(table.LookupOffset(1, &offset));
  EXPECT_EQ(9u, offset);
  EXPECT_ASSERTION(table.AddEntry(1, 7), "");
}

TEST(MD5Test, PublishedDigests) {
  EXPECT_EQ("d41d8cd98f00b204e9800998ecf8427e", Digest(""));
  EXPECT_EQ("900150983cd24fb0d6963f7d28e17f72", Digest("abc"));
  EXPECT_EQ("9e107d9d372bb6826bd81d3542a419d6",
            Digest("The quick brown fox jumps over the lazy dog"));
  // Eighty bytes: a whole block, then the tail with the length.
  EXPECT_EQ("57edf4a22be3c955ac49da2e2107b67a",
            Digest("1234567890123456789012345678901234567890"
                   "1234567890123456789012345678901234567890"));
  CodeModule module;
  module.SetManifestSource("");
  EXPECT_EQ("d41d8cd98f00b204e9800998ecf8427e",
            Hex(reinterpret_cast<unsigned char const*>(
                    module.mManifestDigest.CString()), 16));
}
