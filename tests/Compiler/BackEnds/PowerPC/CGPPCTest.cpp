// The PowerPC generator on hand-built TAC: what its frames save, how its
// branches reach, where its locals stop, and that every word it writes is
// an instruction the cross disassembler reads (the golden scripts run its
// code under qemu-ppc through scripts/test-ppc).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Compiler/BackEnds/PowerPC/CGPPC.h"
#include "tests/Compiler/BackEnds/GeneratedCode.h"
#include "tests/Compiler/BackEnds/PowerPC/PPCReferenceAssembler.h"

namespace {

Ref<CodeModule> GeneratePPC(TacProgram& program, RecordingDelegate* delegate,
                            StringMapCase<string>* shapes = nullptr,
                            CGPPCOptions options = CGPPCOptions()) {
  CGPPC generator;
  options.mCodeModel = kCodeModelAbsolute;
  generator.Configure(options, IntrinsicFunctionNames());
  generator.SetDelegate(delegate);
  Ref<CodeModule> module =
      generator.Generate("test", &program.mBlock, program.mTables);
  if (shapes) *shapes = generator.CallShapes();
  return module;
}

Words FunctionWords(Ref<CodeModule> module, std::string const& name) {
  Bytes bytes = FunctionBytes(module, name);
  Words words;
  for (size_t i = 0; i + 3 < bytes.size(); i += 4)
    words.push_back((unsigned long)bytes[i] << 24 | bytes[i + 1] << 16 |
                    bytes[i + 2] << 8 | bytes[i + 3]);
  return words;
}

bool Contains(std::vector<std::string> const& lines, std::string const& text) {
  for (std::string const& line : lines)
    if (line.find(text) != std::string::npos) return true;
  return false;
}

// f(a, b) = a + b, and g(a) calls the runtime before it returns a.
void LeafAndCaller(TacProgram& p) {
  long f = p.Frame("f");
  TacAddr const* a = p.Local(f, "a", IRDataType(kSInt32Type));
  TacAddr const* b = p.Local(f, "b", IRDataType(kSInt32Type));
  TacAddr const* r = p.Local(f, "r", IRDataType(kSInt32Type));
  p.Enter("f", f);
  p.Params({a, b});
  p.Line(kTacAdd, a, b, r);
  p.Line(kTacLeave, r);
  long g = p.Frame("g");
  TacAddr const* x = p.Local(g, "x", IRDataType(kReal64Type));
  p.Enter("g", g);
  p.Params({x});
  p.Intrinsic(kIntrinsicRuntimeCheckStack);
  p.Line(kTacLeave, x);
}

}  // namespace

// A leaf keeps the link register where it is; a caller saves it into its
// caller's frame and keeps r2 for the reload after each call.
TEST(CGPPCTest, OnlyAFunctionThatCallsSavesTheLinkRegister) {
  TacProgram p;
  LeafAndCaller(p);
  RecordingDelegate errors;
  Ref<CodeModule> module = GeneratePPC(p, &errors);
  ASSERT_TRUE(module);
  std::vector<std::string> leaf = DisassemblePPC(FunctionWords(module, "f"));
  std::vector<std::string> caller = DisassemblePPC(FunctionWords(module, "g"));
  EXPECT_FALSE(Contains(leaf, "mflr"));
  EXPECT_FALSE(Contains(leaf, "mtlr"));
  EXPECT_TRUE(Contains(leaf, "stw r3,"));   // the parameters reach their
  EXPECT_TRUE(Contains(leaf, "stw r4,"));   // locals from r3 and r4
  EXPECT_TRUE(Contains(leaf, "add "));
  EXPECT_EQ("blr", leaf.back());
  ASSERT_GE(caller.size(), 4u);
  EXPECT_EQ("mflr r0", caller[0]);
  EXPECT_EQ("stw r0,8(r1)", caller[1]);
  EXPECT_EQ(0u, caller[2].find("stwu r1,-"));
  EXPECT_EQ("stw r2,20(r1)", caller[3]);
  EXPECT_TRUE(Contains(caller, "stfd f1,"));  // the double parameter
  EXPECT_TRUE(Contains(caller, "lwz r2,20(r1)"));
  EXPECT_TRUE(Contains(caller, "lfd f1,"));   // the double result
  for (std::string const& line : leaf) EXPECT_EQ(std::string::npos, line.find(".long"));
  for (std::string const& line : caller) EXPECT_EQ(std::string::npos, line.find(".long"));
}

// A conditional branch to a label more than 28,671 bytes ahead is pointed
// at a repeater: "b 8" that straight-line code takes, then an unconditional
// branch on to the label.
TEST(CGPPCTest, AFarConditionalBranchGoesThroughARepeater) {
  TacProgram p;
  long f = p.Frame("f");
  TacAddr const* a = p.Local(f, "a", IRDataType(kSInt32Type));
  p.Enter("f", f);
  p.Params({a});
  p.Line(kTacIfEQI, a, p.Int(0), p.Int(7));
  for (int i = 0; i < 9000; i++) p.Line(kTacNoop);
  p.Line(kTacLabel, p.Int(7));
  p.Line(kTacLeave, a);
  RecordingDelegate errors;
  Ref<CodeModule> module = GeneratePPC(p, &errors);
  ASSERT_TRUE(module);
  Words words = FunctionWords(module, "f");
  size_t bc = 0;
  while (bc < words.size() && (words[bc] >> 26) != 16) bc++;
  ASSERT_LT(bc, words.size());
  size_t repeater = bc + (short)(words[bc] & 0xfffc) / 4;
  ASSERT_LT(repeater, words.size());
  EXPECT_EQ(0x48000008ul, words[repeater - 1]);  // b 8
  EXPECT_EQ(18ul, words[repeater] >> 26);        // b to the label
  size_t label = repeater + (words[repeater] & 0x3fffffc) / 4;
  EXPECT_GT((label - bc) * 4, 28671u);
  // The label is where the no-ops end.
  EXPECT_EQ(0x60000000ul, words[label - 1]);
  EXPECT_NE(0x60000000ul, words[label]);
}

// Locals are addressed with 16-bit displacements from r1: 64 KiB of them
// is compile error 138, with the storage in KiB and the limit of 32.
TEST(CGPPCTest, SixtyFourKilobytesOfLocalsIsError138) {
  for (unsigned long kib : {16ul, 64ul}) {
    TacProgram p;
    long f = p.Frame("f");
    TacAddr const* big = p.Local(f, "big", p.Structure(kib * 1024));
    TacAddr const* n = p.Local(f, "n", IRDataType(kSInt32Type));
    p.Enter("f", f);
    p.Line(kTacZero, nilTacAddr, nilTacAddr, big);
    p.Line(kTacStore, p.Int(1), nilTacAddr, n);
    p.Line(kTacLeave, n);
    RecordingDelegate errors;
    Ref<CodeModule> module = GeneratePPC(p, &errors);
    if (kib == 16) {
      EXPECT_TRUE(module);
      EXPECT_EQ(0u, errors.mErrors.size());
      continue;
    }
    EXPECT_FALSE(module);
    ASSERT_EQ(1u, errors.mErrors.size());
    EXPECT_EQ(kErrorLocalStorageTooLarge, errors.mErrors[0].Type());
    ASSERT_EQ(2u, errors.mErrors[0].Arguments().size());
    EXPECT_EQ(string("64"), errors.mErrors[0].Arguments()[0]);
    EXPECT_EQ(string("32"), errors.mErrors[0].Arguments()[1]);
  }
}

// A label used and never placed is error 137, as on IA-32.
TEST(CGPPCTest, AnUnplacedLabelIsError137) {
  TacProgram p;
  long f = p.Frame("f");
  p.Enter("f", f);
  p.Line(kTacJump, nilTacAddr, nilTacAddr, p.Int(3));
  p.Line(kTacLeave);
  RecordingDelegate errors;
  EXPECT_FALSE(GeneratePPC(p, &errors));
  ASSERT_EQ(1u, errors.mErrors.size());
  EXPECT_EQ(kErrorUnresolvedForwardReference, errors.mErrors[0].Type());
}

// The shapes a loader bridges calls with: a word, a double, a 64-bit
// integer, a structure; a later call with other words (a count of
// arguments) links by the name with its shape; a call through a pointer
// goes to the glue named by its shape.
TEST(CGPPCTest, CallsRecordTheShapesOfTheirArguments) {
  TacProgram p;
  long f = p.Frame("f");
  TacAddr const* s = p.Local(f, "s", p.Structure(12));
  TacAddr const* ptr = p.Local(f, "ptr", IRDataType(kSInt32Type));
  p.Enter("f", f);
  p.Line(kTacPutParam, p.Int(1));
  p.Line(kTacPutParam, p.Real64(2.5));
  p.Line(kTacPutParam, p.Int64(3));
  p.Line(kTacPutParam, s);
  p.Line(kTacCall, p.Text("Outside"));
  p.Line(kTacPutParam, p.Int(1));
  p.Line(kTacPutParam, p.Int(2));
  p.Line(kTacCall, p.Text("Outside"));
  p.Line(kTacPutParam, p.Real32(1.5f));
  p.Line(kTacCallPtr, ptr);
  p.Line(kTacLeave);
  RecordingDelegate errors;
  StringMapCase<string> shapes;
  CGPPCOptions options;
  options.mCallPointersThroughGlue = true;
  Ref<CodeModule> module = GeneratePPC(p, &errors, &shapes, options);
  ASSERT_TRUE(module);
  string shape;
  ASSERT_TRUE(shapes.GetEntry("Outside", shape));
  EXPECT_EQ(string("wdls12."), shape);
  ASSERT_TRUE(shapes.GetEntry(string("Outside") + kShapedCallInfix + "ww", shape));
  EXPECT_EQ(string("ww"), shape);
  EXPECT_TRUE(shapes.HasEntry(string(kPointerCallGluePrefix) + "f"));
}

// The position-independent model takes its base in the prologue, from the
// address of the instruction after a bl, and leaves the linker an anchor
// and the two halves of the distance to the data; the traceback table
// follows the code, after a zero word.
TEST(CGPPCTest, TheBaseSequenceAndTheTracebackTable) {
  TacProgram p;
  LeafAndCaller(p);
  RecordingDelegate errors;
  CGPPC generator;
  CGPPCOptions options;
  options.mCodeModel = kCodeModelPositionIndependent;
  options.mGenerateTraceback = true;
  generator.Configure(options, IntrinsicFunctionNames());
  generator.SetDelegate(&errors);
  Ref<CodeModule> module = generator.Generate("test", &p.mBlock, p.mTables);
  ASSERT_TRUE(module);
  FunctionBlock* f = module->mFunctions[0];
  ASSERT_EQ(string("f"), f->mName);
  std::vector<std::string> code = DisassemblePPC(FunctionWords(module, "f"));
  size_t bl = 0;
  while (bl + 1 < code.size() && code[bl + 1] != "mflr r2") bl++;
  ASSERT_LT(bl + 4, code.size());
  EXPECT_EQ(0u, code[bl].find("bl "));  // to the next instruction
  EXPECT_EQ("add r2,r2,r0", code[bl + 4]);
  unsigned int anchor = 0, high = 0, low = 0;
  for (unsigned long i = 0; i < f->mImports.size(); i++) {
    Import const& import = f->mImports[i];
    if (import.mType == Import::kImportPICBaseAnchor) anchor = import.mOffset;
    if (import.mType == Import::kImportPICHigh) high = import.mOffset;
    if (import.mType == Import::kImportPICLow) low = import.mOffset;
  }
  EXPECT_EQ(4 * (bl + 1), anchor);
  EXPECT_EQ(anchor + 4, high);
  EXPECT_EQ(anchor + 8, low);
  Words words = FunctionWords(module, "f");
  size_t end = 0;
  while (end < words.size() && words[end] != 0x4e800020) end++;  // blr
  ASSERT_LT(end + 5, words.size());
  EXPECT_EQ(0ul, words[end + 1]);
  EXPECT_EQ(4 * (end + 1), words[end + 4]);  // the code's length
  EXPECT_EQ(0x0001u, words[end + 5] >> 16);   // the name's length, "f"
}
