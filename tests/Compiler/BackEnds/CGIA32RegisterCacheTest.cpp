// What the register cache and the frame rules make the generator emit, read
// back through the system disassembler.
#include <algorithm>

#include "tests/Compiler/BackEnds/GeneratedCode.h"

namespace {

std::vector<std::string> Listing(TacProgram& p, char const* name,
                                 CGIA32Options const& options = CGIA32Options()) {
  return Disassemble(FunctionBytes(GenerateIA32(p, options), name));
}

int Count(std::vector<std::string> const& listing, std::string const& text) {
  return static_cast<int>(std::count(listing.begin(), listing.end(), text));
}

bool Has(std::vector<std::string> const& listing, std::string const& text) {
  return Count(listing, text) > 0;
}

}  // namespace

TEST(CGIA32RegisterCacheTest, AStoredValueIsNotLoadedAgain) {
  TacProgram p;
  long f = p.Frame("f");
  TacAddr const* a = p.Local(f, "a", IRDataType(kSInt32Type));
  TacAddr const* b = p.Local(f, "b", IRDataType(kSInt32Type));
  TacAddr const* r = p.Local(f, "r", IRDataType(kSInt32Type));
  p.Enter("f", f);
  p.Params({a});
  p.Line(kTacStore, a, nilTacAddr, b);
  p.Line(kTacAdd, b, p.Int(1), r);
  p.Line(kTacLeave, r);
  std::vector<std::string> listing = Listing(p, "f");
  EXPECT_EQ(1, Count(listing, "mov eax,DWORD PTR [ebp-0x4]"));  // a, once
  EXPECT_EQ(0, Count(listing, "mov eax,DWORD PTR [ebp-0x8]"));  // b never
  EXPECT_EQ(0, Count(listing, "mov eax,DWORD PTR [ebp-0xc]"));  // nor r
  LoadedCode code(GenerateIA32(p));
  EXPECT_EQ(42, reinterpret_cast<int (*)(int)>(code.Function("f"))(41));
}

TEST(CGIA32RegisterCacheTest, FramesWithoutLocalsAndWithoutCalleeSavedRegisters) {
  TacProgram p;
  p.Enter("f", -1);
  p.Line(kTacLeave, p.Int(3));
  std::vector<std::string> expected = {
      "push ebp", "mov ebp,esp", "sub esp,0x4", "mov DWORD PTR [ebp-0x4],esp",
      "mov eax,0x3", "add esp,0x4", "pop ebp", "ret"};
  EXPECT_EQ(expected, Listing(p, "f"));
}

// Two 64-bit operands and a byte result take five registers: EBX and ESI
// join, and are saved and restored around the body.
TEST(CGIA32RegisterCacheTest, CalleeSavedRegistersAreSavedOnlyWhenUsed) {
  TacProgram p;
  long f = p.Frame("f");
  TacAddr const* a = p.Local(f, "a", IRDataType(kSInt64Type));
  TacAddr const* b = p.Local(f, "b", IRDataType(kSInt64Type));
  TacAddr const* r = p.Local(f, "r", IRDataType(kBooleanType));
  p.Enter("f", f);
  p.Params({a, b});
  p.Line(kTacLT, a, b, r);
  p.Line(kTacLeave, r);
  std::vector<std::string> listing = Listing(p, "f");
  EXPECT_TRUE(Has(listing, "push ebx"));
  EXPECT_TRUE(Has(listing, "pop ebx"));
  EXPECT_FALSE(Has(listing, "push edi"));
  EXPECT_EQ("push ebx", listing[3]);  // after push ebp, mov ebp, sub esp
  EXPECT_EQ("pop ebx", listing[listing.size() - 4]);
}

TEST(CGIA32RegisterCacheTest, AlignedFramesPadToSixteen) {
  TacProgram p;
  long f = p.Frame("f");
  TacAddr const* a = p.Local(f, "a", IRDataType(kSInt64Type));
  TacAddr const* b = p.Local(f, "b", IRDataType(kSInt64Type));
  TacAddr const* r = p.Local(f, "r", IRDataType(kBooleanType));
  p.Enter("f", f);
  p.Params({a, b});
  p.Line(kTacLT, a, b, r);
  p.Line(kTacLeave, r);
  CGIA32Options aligned;
  aligned.mAlignStack16 = true;
  // T = 20 (17 rounded up); F = 24; 24 + 8 + 8 for EBX and ESI = 40,
  // padded to 48: F grows to 32.
  std::vector<std::string> listing = Listing(p, "f", aligned);
  EXPECT_EQ("sub esp,0x20", listing[2]);
  EXPECT_EQ("push ebx", listing[3]);
  EXPECT_EQ("push esi", listing[4]);
  EXPECT_EQ("mov DWORD PTR [ebp-0x18],esp", listing[5]);
  // A call with one word of arguments pushes three words of padding first.
  TacProgram q;
  q.Enter("g", -1);
  q.Line(kTacPutParam, q.Int(5));
  q.Line(kTacCall, q.Text("h"), nilTacAddr, nilTacAddr);
  q.Line(kTacLeave);
  std::vector<std::string> call = Listing(q, "g", aligned);
  EXPECT_EQ(3, Count(call, "push eax"));
  EXPECT_EQ("push 0x5", call[7]);
}

TEST(CGIA32RegisterCacheTest, CalleePopsFunctionsEndAccordingly) {
  TacProgram p;
  long f = p.Frame("f");
  TacAddr const* a = p.Local(f, "a", IRDataType(kSInt32Type));
  TacAddr const* b = p.Local(f, "b", IRDataType(kSInt32Type));
  p.Enter("f", f);
  p.Line(kTacPragma, p.Int(0), p.Int(1));
  p.Params({a, b});
  p.Line(kTacSub, a, b, a);
  p.Line(kTacLeave, a);
  p.Enter("g", -1);
  p.Line(kTacPragma, p.Int(0), p.Int(1));
  p.Line(kTacLeave);
  p.Enter("caller", -1);
  p.Line(kTacPutParam, p.Int(50));
  p.Line(kTacPutParam, p.Int(8));
  TacAddr const* r = p.Global("result", IRDataType(kSInt32Type));
  p.Line(kTacCall, p.Text("f"), nilTacAddr, r);
  p.Line(kTacLeave, r);
  Ref<CodeModule> module = GenerateIA32(p);
  std::vector<std::string> f1 = Disassemble(FunctionBytes(module, "f"));
  std::vector<std::string> tail(f1.end() - 4, f1.end());
  std::vector<std::string> expected = {"pop ecx", "add esp,0x8", "push ecx", "ret"};
  EXPECT_EQ(expected, tail);
  EXPECT_EQ("ret", Disassemble(FunctionBytes(module, "g")).back());
  EXPECT_EQ("pop ebp", *(Disassemble(FunctionBytes(module, "g")).end() - 2));
  LoadedCode code(module);
  EXPECT_EQ(42, reinterpret_cast<int (*)()>(code.Function("caller"))());
}
