// Structures and byte order, generated and run.
#include <stdint.h>
#include <string.h>

#include "tests/Compiler/BackEnds/GeneratedCode.h"

// 33 bytes: two rounds of 16 and a byte through memory, one round of 32
// and a byte when zeroing.
TEST(CGIA32MemoryTest, StructuresOf33BytesAreCopiedAndZeroed) {
  TacProgram p;
  IRDataType odd = p.Structure(33);
  long f = p.Frame("f");
  TacAddr const* from = p.Local(f, "from", IRDataType(kPtrType));
  TacAddr const* to = p.Local(f, "to", IRDataType(kPtrType));
  TacAddr const* s = p.Local(f, "s", odd);
  TacAddr const* t = p.Local(f, "t", odd);
  p.Enter("f", f);
  p.Params({from, to});
  p.Line(kTacPeek, from, nilTacAddr, s);
  p.Line(kTacStore, s, nilTacAddr, t);
  p.Line(kTacPoke, t, p.Int(40), to);
  p.Line(kTacZero, nilTacAddr, nilTacAddr, s);
  p.Line(kTacPoke, s, nilTacAddr, to);
  p.Line(kTacLeave);
  LoadedCode code(GenerateIA32(p));
  unsigned char source[33], dest[80];
  for (int i = 0; i < 33; i++) source[i] = static_cast<unsigned char>(i + 1);
  memset(dest, 0xEE, sizeof dest);
  reinterpret_cast<void (*)(void*, void*)>(code.Function("f"))(source, dest);
  for (int i = 0; i < 33; i++) EXPECT_EQ(0, dest[i]) << i;
  EXPECT_EQ(0xEE, dest[33]);
  EXPECT_EQ(0, memcmp(source, dest + 40, 33));
  EXPECT_EQ(0xEE, dest[73]);
}


// Scripts never reverse bytes; f(v) = EndianSwap v on 16 and 64 bits.
TEST(CGIA32MemoryTest, EndianSwap) {
  auto word = OperationFunction(kTacEndianSwap, {kUInt16Type}, kUInt16Type);
  EXPECT_EQ(0x3412u, reinterpret_cast<uint32_t (*)(uint32_t)>(word->Function("f"))(0x1234) & 0xFFFF);
  auto quad = OperationFunction(kTacEndianSwap, {kSInt64Type}, kSInt64Type);
  EXPECT_EQ(0x0807060504030201LL,
            reinterpret_cast<int64_t (*)(int64_t)>(quad->Function("f"))(0x0102030405060708LL));
}
