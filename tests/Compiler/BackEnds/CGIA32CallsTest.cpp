// Calls of every kind, structures, pointers and reference counts,
// generated and run.
#include <stdint.h>
#include <string.h>

#include "Common/ObjectModel/RuntimeObjectFoundation.h"
#include "tests/Compiler/BackEnds/GeneratedFunctions.h"

namespace {

double MixedSum(int32_t a, double b, int64_t c, int16_t d, float e,
                uint8_t f, int32_t g, int32_t h, int32_t i, int32_t j) {
  return a + b + c + d + e + f + g + h + i + j;
}

int32_t Twice(int32_t v) { return 2 * v; }

struct Registered {
  Registered() {
    TestRuntimeTable()["MixedSum"] = reinterpret_cast<void*>(&MixedSum);
    TestRuntimeTable()["Twice"] = reinterpret_cast<void*>(&Twice);
  }
} sRegistered;

}  // namespace

TEST(CGIA32CallsTest, ManyArgumentsOfMixedTypes) {
  TacProgram p;
  long g = p.Frame("g");
  TacAddr const* big = p.Local(g, "big", IRDataType(kSInt64Type));
  TacAddr const* small = p.Local(g, "small", IRDataType(kSInt16Type));
  TacAddr const* r = p.Local(g, "r", IRDataType(kReal64Type));
  p.Enter("g", g);
  p.Line(kTacStore, p.Int64(10000000000LL), nilTacAddr, big);
  p.Line(kTacStore, p.Int(-3, kSInt16Type), nilTacAddr, small);
  for (TacAddr const* arg :
       {p.Int(1), p.Real64(0.5), big, small, p.Real32(0.25f), p.Int(200, kUInt8Type),
        p.Int(7), p.Int(8), p.Int(9), p.Int(10)})
    p.Line(kTacPutParam, arg);
  p.Line(kTacCall, p.Text("MixedSum"), nilTacAddr, r);
  p.Line(kTacLeave, r);
  LoadedCode code(GenerateIA32(p));
  EXPECT_EQ(10000000232.75, reinterpret_cast<double (*)()>(code.Function("g"))());
}

// A generated callee with parameters of every shape, from a generated caller.
TEST(CGIA32CallsTest, ParametersOfEveryShapeArrive) {
  TacProgram p;
  IRDataType pair = p.Structure(12);
  long f = p.Frame("f");
  TacAddr const* a = p.Local(f, "a", IRDataType(kSInt8Type));
  TacAddr const* b = p.Local(f, "b", IRDataType(kReal64Type));
  TacAddr const* c = p.Local(f, "c", IRDataType(kSInt64Type));
  TacAddr const* s = p.Local(f, "s", pair);
  TacAddr const* d = p.Local(f, "d", IRDataType(kReal32Type));
  TacAddr const* sum = p.Local(f, "sum", IRDataType(kReal64Type));
  TacAddr const* tmp = p.Local(f, "tmp", IRDataType(kReal64Type));
  TacAddr const* word = p.Local(f, "word", IRDataType(kSInt32Type));
  TacAddr const* sp = p.Local(f, "sp", IRDataType(kPtrType));
  p.Enter("f", f);
  p.Params({a, b, c, s, d});
  p.Line(kTacCvt, a, nilTacAddr, sum);            // -2
  p.Line(kTacAdd, sum, b, sum);                    // + 0.5
  p.Line(kTacCvt, c, nilTacAddr, tmp);
  p.Line(kTacAdd, sum, tmp, sum);                  // + 5e9
  p.Line(kTacCvt, d, nilTacAddr, tmp);
  p.Line(kTacAdd, sum, tmp, sum);                  // + 0.25
  p.Line(kTacVarptr, s, nilTacAddr, sp);
  p.Line(kTacPeek, sp, p.Int(8), word);            // s's third word: 30
  p.Line(kTacCvt, word, nilTacAddr, tmp);
  p.Line(kTacAdd, sum, tmp, sum);
  p.Line(kTacLeave, sum);
  long g = p.Frame("g");
  TacAddr const* arg = p.Local(g, "arg", pair);
  TacAddr const* argp = p.Local(g, "argp", IRDataType(kPtrType));
  TacAddr const* r = p.Local(g, "r", IRDataType(kReal64Type));
  TacAddr const* c64 = p.Local(g, "c64", IRDataType(kSInt64Type));
  p.Enter("g", g);
  p.Line(kTacVarptr, arg, nilTacAddr, argp);
  p.Line(kTacPoke, p.Int(10), p.Int(0), argp);
  p.Line(kTacPoke, p.Int(20), p.Int(4), argp);
  p.Line(kTacPoke, p.Int(30), p.Int(8), argp);
  p.Line(kTacStore, p.Int64(5000000000LL), nilTacAddr, c64);
  for (TacAddr const* x : {p.Int(-2, kSInt8Type), p.Real64(0.5), c64, arg, p.Real32(0.25f)})
    p.Line(kTacPutParam, x);
  p.Line(kTacCall, p.Text("f"), nilTacAddr, r);
  p.Line(kTacLeave, r);
  LoadedCode code(GenerateIA32(p));
  EXPECT_EQ(5000000028.75, reinterpret_cast<double (*)()>(code.Function("g"))());
}

TEST(CGIA32CallsTest, Recursion) {
  TacProgram p;
  long f = p.Frame("fact");
  TacAddr const* n = p.Local(f, "n", IRDataType(kSInt32Type));
  TacAddr const* m = p.Local(f, "m", IRDataType(kSInt32Type));
  TacAddr const* r = p.Local(f, "r", IRDataType(kSInt32Type));
  p.Enter("fact", f);
  p.Params({n});
  p.Line(kTacStore, p.Int(1), nilTacAddr, r);
  p.Line(kTacIfLTI, n, p.Int(2), p.Int(1));
  p.Line(kTacSub, n, p.Int(1), m);
  p.Line(kTacPutParam, m);
  p.Line(kTacCall, p.Text("fact"), nilTacAddr, r);
  p.Line(kTacMul, n, r, r);
  p.Line(kTacLabel, p.Int(1));
  p.Line(kTacLeave, r);
  LoadedCode code(GenerateIA32(p));
  EXPECT_EQ(3628800, reinterpret_cast<int (*)(int)>(code.Function("fact"))(10));
}

// 33 bytes: two rounds of 16 and a byte through memory, one round of 32
// and a byte when zeroing.
TEST(CGIA32CallsTest, StructuresOf33BytesAreCopiedAndZeroed) {
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

TEST(CGIA32CallsTest, PointersIndexesAndByteOrder) {
  TacProgram p;
  long f = p.Frame("f");
  TacAddr const* base = p.Local(f, "base", IRDataType(kPtrType));
  TacAddr const* i = p.Local(f, "i", IRDataType(kSInt32Type));
  TacAddr const* w = p.Local(f, "w", IRDataType(kUInt16Type));
  TacAddr const* q = p.Local(f, "q", IRDataType(kSInt64Type));
  TacAddr const* d = p.Local(f, "d", IRDataType(kReal64Type));
  TacAddr const* x = p.Local(f, "x", IRDataType(kSInt32Type));
  p.Enter("f", f);
  p.Params({base, i});
  p.Line(kTacPeek, base, i, w);                    // the UInt16 at base + i
  p.Line(kTacEndianSwap, w, nilTacAddr, w);
  p.Line(kTacPoke, w, p.Int(2), base);
  p.Line(kTacPeek, base, p.Int(8), q);
  p.Line(kTacEndianSwap, q, nilTacAddr, q);
  p.Line(kTacPoke, q, i, base);                     // at base + i, i = 16
  p.Line(kTacPeek, base, p.Int(24), d);
  p.Line(kTacAdd, d, p.Real64(1.0), d);
  p.Line(kTacPoke, d, i, base);                     // overwrites base + 16
  p.Line(kTacPeek, base, nilTacAddr, x);
  p.Line(kTacLeave, x);
  LoadedCode code(GenerateIA32(p));
  unsigned char memory[40] = {0};
  memory[16] = 0x12;
  memory[17] = 0x34;
  int64_t eight = 0x0102030405060708LL;
  memcpy(memory + 8, &eight, 8);
  double value = 2.5;
  memcpy(memory + 24, &value, 8);
  memory[0] = 0x78;
  int x0 = reinterpret_cast<int (*)(void*, int)>(code.Function("f"))(memory, 16);
  // 0x3412 read at 16, swapped to 0x1234, written little-endian at 2.
  EXPECT_EQ(0x34, memory[2]);
  EXPECT_EQ(0x12, memory[3]);
  EXPECT_EQ(0x12340078, x0);
  double written;
  memcpy(&written, memory + 16, 8);
  EXPECT_EQ(3.5, written);
  TacProgram swap;  // the 64-bit swap on its own
  long g = swap.Frame("g");
  TacAddr const* v = swap.Local(g, "v", IRDataType(kSInt64Type));
  TacAddr const* sv = swap.Local(g, "sv", IRDataType(kSInt64Type));
  swap.Enter("g", g);
  swap.Params({v});
  swap.Line(kTacEndianSwap, v, nilTacAddr, sv);
  swap.Line(kTacLeave, sv);
  LoadedCode swapped(GenerateIA32(swap));
  EXPECT_EQ(0x0807060504030201LL,
            reinterpret_cast<int64_t (*)(int64_t)>(swapped.Function("g"))(eight));
}

TEST(CGIA32CallsTest, FunctionPointersAndVirtualCalls) {
  TacProgram p;
  long f = p.Frame("f");
  TacAddr const* fp = p.Local(f, "fp", IRDataType(kPtrType));
  TacAddr const* obj = p.Local(f, "obj", IRDataType(kObjectType));
  TacAddr const* r = p.Local(f, "r", IRDataType(kSInt32Type));
  TacAddr const* s = p.Local(f, "s", IRDataType(kSInt32Type));
  p.Enter("f", f);
  p.Params({obj});
  p.Line(kTacFuncPtr, p.Text("Twice"), nilTacAddr, fp);
  p.Line(kTacPutParam, p.Int(21));
  p.Line(kTacCallPtr, fp, nilTacAddr, r);
  p.Line(kTacPutParam, obj);
  p.Line(kTacPutParam, p.Int(4));
  p.Line(kTacCallVirtual, p.Int(1), nilTacAddr, s);
  p.Line(kTacAdd, r, s, r);
  p.Line(kTacLeave, r);
  LoadedCode code(GenerateIA32(p));
  struct Object { void** vtable; int data[5]; };
  static int (*method)(Object*, int) = [](Object* self, int v) { return self->data[0] * v; };
  void* vtable[4] = {nullptr, nullptr, reinterpret_cast<void*>(method), nullptr};
  Object object = {vtable, {25}};
  EXPECT_EQ(142, reinterpret_cast<int (*)(Object*)>(code.Function("f"))(&object));
}

TEST(CGIA32CallsTest, LocksAreCountedAndReleasedVariablesAreNil) {
  TacProgram p;
  long f = p.Frame("f");
  TacAddr const* a = p.Local(f, "a", IRDataType(kObjectType));
  TacAddr const* b = p.Local(f, "b", IRDataType(kObjectType));
  p.Enter("f", f);
  p.Params({a, b});
  p.Line(kTacLock, a);
  p.Line(kTacLock, a);
  p.Line(kTacSwapLocks, a, b);   // a once more, b once less, b := nil
  p.Line(kTacUnlock, a);          // a once less, a := nil
  p.Line(kTacUnlock, a);          // nil: harmless
  p.Line(kTacAdd, a, b, a);
  p.Line(kTacLeave, a);
  LoadedCode code(GenerateIA32(p));
  RuntimeObject first = {}, second = {};
  first.refCount = 1;
  second.refCount = 5;
  auto fn = reinterpret_cast<intptr_t (*)(RuntimeObject*, RuntimeObject*)>(code.Function("f"));
  EXPECT_EQ(0, fn(&first, &second));
  EXPECT_EQ(3, first.refCount);
  EXPECT_EQ(4, second.refCount);
}

TEST(CGIA32CallsTest, GlobalsAndStringLiterals) {
  TacProgram p;
  TacAddr const* counter = p.Global("Module.counter", IRDataType(kSInt32Type));
  TacAddr const* wide = p.Global("Module.wide", IRDataType(kSInt64Type));
  TacAddr const* text = p.Global("Module.text", IRDataType(kStringType));
  p.Enter("f", -1);
  p.Line(kTacAdd, counter, p.Int(5), counter);
  p.Line(kTacAdd, wide, p.Int64(0x100000000LL), wide);
  p.Line(kTacStore, p.Text("hello"), nilTacAddr, text);
  p.Line(kTacLeave, counter);
  Ref<CodeModule> module = GenerateIA32(p);
  unsigned size = 0;
  ASSERT_TRUE(module->mGlobals.GetEntry("Module.wide", size));
  EXPECT_EQ(8u, size);
  LoadedCode code(module);
  auto fn = reinterpret_cast<int (*)()>(code.Function("f"));
  EXPECT_EQ(5, fn());
  EXPECT_EQ(10, fn());
  EXPECT_EQ(0x200000000LL, *static_cast<int64_t*>(code.Global("Module.wide")));
  stringStorage* stored = *static_cast<stringStorage**>(code.Global("Module.text"));
  ASSERT_TRUE(stored);
  EXPECT_STREQ("hello", stored->CString());
}
