#include <stdio.h>

#include <fstream>

#include "Compiler/BackEnds/Minilinker/QuorlScriptLinker.h"
#include "tests/Compiler/BackEnds/Minilinker/MinilinkerTestSupport.h"

namespace {

// The permissions of the mapping that holds `address`, as /proc shows them.
std::string MappingPermissions(void const* address) {
  std::ifstream maps("/proc/self/maps");
  std::string line;
  unsigned long at = reinterpret_cast<unsigned long>(address);
  while (std::getline(maps, line)) {
    unsigned long low, high;
    char perms[8] = {};
    if (sscanf(line.c_str(), "%lx-%lx %4s", &low, &high, perms) == 3 &&
        at >= low && at < high)
      return perms;
  }
  return "";
}

// Exposes the image layout after a link.
class ExposedLinker : public QuorlScriptLinkIA32 {
 public:
  using QuorlScriptLinker::mGlobalMap;
  using QuorlScriptLinker::mStaticDataOffset;
};

unsigned long Offset(StringMapCase<unsigned long> const& map, char const* name) {
  unsigned long value = ~0UL;
  map.GetEntry(name, value);
  return value;
}

// Import sites in `f` (string literals only if asked), shifted by `base`.
std::vector<unsigned long> Sites(FunctionBlock* f, bool literal,
                                 char const* name = nullptr, unsigned long base = 0) {
  std::vector<unsigned long> sites;
  for (unsigned long i = 0; i < f->mImports.size(); i++) {
    Import const& im = f->mImports[i];
    if ((!literal || im.IsStringLiteral()) && (!name || im.mName == name))
      sites.push_back(base + im.mOffset);
  }
  return sites;
}

uint32_t Field(RunReadyCode& code, unsigned long offset) {
  return code.Code()->Get32(offset);
}

}  // namespace

// Sealed read-only executable, unmapped with its owner; a missing function
// fails the link, reported or not, without leaking a mapping.
TEST(MiniLinkTest, CodeIsSealedAndUnmappedAndAMissingFunctionFailsTheLink) {
  long before = ExecutableDataBlock::LiveMappings();
  ScriptProgram s;
  s.Finish();
  std::unique_ptr<RunReadyCode> code = s.Link();
  ASSERT_TRUE(code);
  EXPECT_EQ(before + 1, ExecutableDataBlock::LiveMappings());
  EXPECT_TRUE(code->Code()->IsExecutable());
  EXPECT_EQ("r-xp", MappingPermissions(code->Code()->Buffer()));
  EXPECT_EQ(reinterpret_cast<void*>(code->Entrypoint()), code->Code()->Buffer());
  code.reset();
  EXPECT_EQ(before, ExecutableDataBlock::LiveMappings());
  FailureRecorder failures;
  for (FailureRecorder* f : {&failures, (FailureRecorder*)nullptr}) {
    ScriptProgram bad;
    bad.Call("NoSuchFunction", {});
    bad.Finish();
    EXPECT_FALSE(bad.Link(f));
  }
  EXPECT_EQ(std::vector<std::string>{"Linker failed with error #1 The function "
                                     "NoSuchFunction could not be found."},
            failures.mFailures);
  EXPECT_EQ(before, ExecutableDataBlock::LiveMappings());
}

// The ready code gives back every site's reference, run or not. "tail" comes
// last because the encoding conversion cache holds the last text it saw.
TEST(MiniLinkTest, DeletingTheReadyCodeGivesBackEverySitesReference) {
  TestCorrespondent corr;
  ScriptProgram s;
  s.CallGlue("Print", &corr, s.p.Text("live"));
  s.CallGlue("Print", &corr, s.p.Text("tail"));
  s.Finish();
  s.p.Enter("never", -1);
  for (int i = 0; i < 2; i++) s.CallGlue("Print", &corr, s.p.Text("dead"));
  s.p.Line(kTacLeave);
  Ref<CodeModule> module = s.Generate();
  unsigned long neverStart = module->mFunctions[0]->Length();
  std::vector<unsigned long> live1 = Sites(module->mFunctions[0], true, "live");
  std::vector<unsigned long> dead2 = Sites(module->mFunctions[1], true, nullptr, neverStart);
  ASSERT_EQ(1u, live1.size());
  ASSERT_EQ(2u, dead2.size());
  unsigned long liveSite = live1[0], deadSite = dead2.back();
  std::unique_ptr<RunReadyCode> code = LinkModule(module);
  ASSERT_TRUE(code);
  ::string live(reinterpret_cast<stringStorage*>(Field(*code, liveSite)));
  ::string dead(reinterpret_cast<stringStorage*>(Field(*code, deadSite)));
  ASSERT_EQ("live", Std(live));
  ASSERT_EQ("dead", Std(dead));
  EXPECT_EQ(3, live.GetStringStorage()->mRefCount);
  EXPECT_EQ(4, dead.GetStringStorage()->mRefCount);
  code->Run(&corr);
  code->Run(&corr);
  EXPECT_EQ((std::vector<std::string>{"live", "tail", "live", "tail"}),
            corr.mPrinted);
  code.reset();
  EXPECT_EQ(1, live.GetStringStorage()->mRefCount);
  EXPECT_EQ(1, dead.GetStringStorage()->mRefCount);
}

TEST(MiniLinkTest, ListCallersAreWrittenAsStackAlignedCalls) {
  ScriptProgram s;
  s.Finish();
  Ref<CodeModule> module = s.Generate();
  module->mInitializers.AddEntry("X", "RuntimeInit");
  module->mInitializers.AddEntry("Y", "RuntimeExit");
  std::unique_ptr<RunReadyCode> code = LinkModule(module);
  ASSERT_TRUE(code);
  ASSERT_EQ(3u, module->mFunctions.size());
  FunctionBlock* init = module->mFunctions[1];
  EXPECT_EQ("% initialize", Std(init->mName));
  EXPECT_EQ("81 ec 0c 00 00 00 e8 00 00 00 00 e8 00 00 00 00 81 c4 0c 00 00 "
            "00 c3",
            HexBytes(Bytes(init->Buffer(), init->Buffer() + init->Length())));
  ASSERT_EQ(2u, init->mImports.size());
  EXPECT_EQ(7u, init->mImports[0].mOffset);
  EXPECT_EQ("RuntimeExit", Std(init->mImports[1].mName));
  FunctionBlock* exit = module->mFunctions[2];
  EXPECT_EQ("% finalize", Std(exit->mName));
  EXPECT_EQ("81 ec 0c 00 00 00 81 c4 0c 00 00 00 c3",
            HexBytes(Bytes(exit->Buffer(), exit->Buffer() + exit->Length())));
}

// Variables first, each aligned to its size; then a pointer slot per
// static block named as a global; then the static data. A word of static
// data is patched where the block landed in the image, and one naming
// another block points at that block, not at its slot.
TEST(MiniLinkTest, TheGlobalDataImageIsLaidOutAndStaticDataRelocatedInIt) {
  ScriptProgram s;
  TacAddr const* a = s.p.Global("Module.a", IRDataType(kUInt8Type));
  TacAddr const* b = s.p.Global("Module.b", s.p.Structure(12));
  TacAddr const* c = s.p.Global("Module.c", IRDataType(kSInt32Type));
  TacAddr const* meta = s.p.Global("C.meta", IRDataType(kSInt32Type));
  s.p.Line(kTacStore, s.p.Int(1), nilTacAddr, a);
  s.p.Line(kTacZero, nilTacAddr, nilTacAddr, b);
  s.p.Line(kTacStore, s.p.Int(3), nilTacAddr, c);
  s.p.Line(kTacStore, meta, nilTacAddr, c);
  s.Finish();
  Ref<CodeModule> module = s.Generate();
  StaticDataBlock* block = module->MakeStaticDataBlock();
  block->mName = "C.meta";
  block->Append32(0x11223344);
  block->Append32(0);
  module->mStaticData.push_back(block);
  StaticDataBlock* record = module->MakeStaticDataBlock();
  record->mName = "C.record";
  for (int i = 0; i < 3; i++) record->Append32(0);
  record->MarkImportAbsolute(Import::kImportGlobal32, "C.meta", 0);
  record->MarkImportAbsolute(Import::kImportGlobal32, "Module.c", 4);
  record->MarkImportAbsolute(Import::kImportFunctionPtr, "% main", 8);
  module->mStaticData.push_back(record);
  StringMap<void*> table;
  table.AddEntry("RuntimeInit", reinterpret_cast<void*>(&RuntimeInit));
  table.AddEntry("RuntimeExit", reinterpret_cast<void*>(&ExitQuorlScriptRuntime));
  QuorlScriptFunctionFinder finder(&table);
  ExposedLinker linker;
  linker.SetQuorlScriptDelegate(&finder);
  linker.Link(module, &finder);
  ASSERT_FALSE(linker.LinkCancelled());
  EXPECT_EQ(0u, Offset(linker.mGlobalMap, "Module.a"));
  EXPECT_EQ(12u, Offset(linker.mGlobalMap, "Module.b"));
  EXPECT_EQ(24u, Offset(linker.mGlobalMap, "Module.c"));
  EXPECT_EQ(28u, Offset(linker.mGlobalMap, "C.meta"));
  EXPECT_EQ(32u, linker.mStaticDataOffset);
  Ref<DataBlock> image = linker.GetGlobalData();
  ASSERT_EQ(52u, image->Length());
  unsigned long base = reinterpret_cast<unsigned long>(image->Buffer());
  EXPECT_EQ(0x11223344u, image->Get32(32));
  EXPECT_EQ(base + 32, image->Get32(28));
  for (unsigned long variable = 0; variable < 28; variable += 4)
    EXPECT_EQ(0u, image->Get32(variable)) << "byte " << variable;
  EXPECT_EQ(base + 32, image->Get32(40));
  EXPECT_EQ(base + 24, image->Get32(44));
  unsigned long main = reinterpret_cast<unsigned long>(linker.GetCode()->Buffer()) +
                       Offset(linker.Entrypoints(), "% main");
  EXPECT_EQ(main, image->Get32(48));
}

// count := count + 1 and big := big + 2^32 + 1 each run; both are recorded.
TEST(RunReadyCodeTest, EveryRunStartsFromTheLinkedGlobals) {
  TestCorrespondent corr;
  ScriptProgram s;
  TacAddr const* count = s.p.Global("Module.count", IRDataType(kSInt32Type));
  TacAddr const* big = s.p.Global("Module.big", IRDataType(kSInt64Type));
  TacAddr const* high = s.p.Global("Module.high", IRDataType(kSInt64Type));
  s.p.Line(kTacAdd, count, s.p.Int(1), count);
  s.p.Line(kTacAdd, big, s.p.Int64(0x100000001LL), big);
  s.p.Line(kTacBitShiftRight, big, s.p.Int(32), high);
  s.p.Line(kTacCvt, high, nilTacAddr, count);
  s.Record(count);
  s.p.Line(kTacCvt, big, nilTacAddr, count);
  s.Record(count);
  s.Finish();
  std::unique_ptr<RunReadyCode> code = s.Link();
  ASSERT_TRUE(code);
  RecordedValues().clear();
  code->Run(&corr);
  code->Run(&corr);
  EXPECT_EQ((std::vector<long>{1, 1, 1, 1}), RecordedValues());
  for (unsigned i = 0; i < code->Globals()->Length(); i++)
    EXPECT_EQ(0u, code->Globals()->Get8(i)) << "byte " << i;
}
