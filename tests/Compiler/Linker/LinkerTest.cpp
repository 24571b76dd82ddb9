// The linker core on modules of hand-made blocks: merging functions, static
// data and literals, list callers, and dead-code stripping.
#include <string.h>

#include <string>
#include <vector>

#include "Compiler/Linker/Linker.h"
#include "tests/Compiler/CompilerTestSupport.h"

namespace {

typedef std::vector<std::string> Texts;
typedef std::vector<unsigned long> Numbers;

// Blocks of filler bytes with the imports the test names.
struct ModuleBuilder {
  ModuleBuilder() {
    mModule.BindNewObject(new CodeModule);
    mModule->mProcessorFamily = kProcessorFamilyIA32;
  }
  FunctionBlock* Function(char const* name, unsigned length) {
    return Fill(mModule->MakeFunctionBlock(), name, length, mModule->mFunctions);
  }
  StaticDataBlock* Static(char const* name, unsigned length) {
    return Fill(mModule->MakeStaticDataBlock(), name, length, mModule->mStaticData);
  }
  template <class B, class L>
  B* Fill(B* block, char const* name, unsigned length, L& list) {
    block->mName = name;
    for (unsigned i = 0; i < length; i++) block->Append8(0x90);
    list.push_back(block);
    return block;
  }
  Ref<CodeModule> mModule;
};

// Each list caller is a call import per entry and a return.
class TestLinker : public Linker {
 public:
  void GenerateListCaller(string const& name, StringMap<string>& list) override {
    FunctionBlock* block = mSrc->MakeFunctionBlock();
    block->mName = name;
    StringMapIterator<string>* iter = list.NewIterator();
    for (string function; iter->Next(function);) {
      block->Append8(0xE8);
      block->MarkImport(Import::kImportCall32, function, 0);
      block->Append32(0);
    }
    delete iter;
    block->Append8(0xC3);
    mSrc->mFunctions.push_back(block);
  }
  using Linker::mEntrypoints;
  using Linker::mLiteralData;
  using Linker::mLiterals;
  using Linker::mOneCode;
  using Linker::mStaticData;
  using Linker::mStaticDataMap;
};

Numbers Entries(StringMapCase<unsigned long>& map, Texts const& names) {
  Numbers values;
  for (std::string const& name : names) {
    values.push_back(~0UL);
    map.GetEntry(name.c_str(), values.back());
  }
  return values;
}

Texts ImportList(SimpleVector<Import> const& imports) {
  Texts out;
  for (unsigned long i = 0; i < imports.size(); i++)
    out.push_back(std::to_string(imports[i].mType) + " " + Std(imports[i].mName) + " @" +
                  std::to_string(imports[i].mOffset));
  return out;
}

template <class List>
Texts Names(List const& blocks) {
  Texts names;
  for (unsigned long i = 0; i < blocks.size(); i++) names.push_back(Std(blocks[i]->mName));
  return names;
}

// main calls used, which reads Used.x and C.meta (whose static block points
// at method); unused reads Unused.x and calls helper.
void BuildProgram(ModuleBuilder& b) {
  b.Function("% main", 8)->MarkImportAbsolute(Import::kImportCall32, "used", 1);
  FunctionBlock* used = b.Function("used", 12);
  used->MarkImportAbsolute(Import::kImportGlobal32, "Used.x", 2);
  used->MarkImportAbsolute(Import::kImportGlobal32, "C.meta", 6);
  used->MarkImportAbsolute(Import::kImportStringLiteral, "text", 8);
  FunctionBlock* unused = b.Function("unused", 8);
  unused->MarkImportAbsolute(Import::kImportGlobal32, "Unused.x", 2);
  unused->MarkImportAbsolute(Import::kImportCall32, "helper", 4);
  b.Function("helper", 2);
  b.Static("C.meta", 8)->MarkImportAbsolute(Import::kImportFunctionPtr, "method", 0);
  b.Function("method", 2);
  b.Static("D.meta", 8);
  b.mModule->mGlobals.AddEntry("Used.x", 4);
  b.mModule->mGlobals.AddEntry("Unused.x", 4);
}

}  // namespace

TEST(LinkerMergeTest, FunctionsStaticDataAndListCallersFollowEachOther) {
  ModuleBuilder b;
  b.Function("f", 5)->MarkImportAbsolute(Import::kImportCall32, "g", 1);
  b.Function("g", 3)->MarkImportAbsolute(Import::kImportGlobal32, "X", 0);
  b.Static("C.meta", 6);
  b.Static("D.meta", 4)->MarkImportAbsolute(Import::kImportFunctionPtr, "f", 0);
  b.mModule->mGlobals.AddEntry("C.meta", 4);
  b.mModule->mGlobals.AddEntry("Other", 8);
  TestLinker linker;
  linker.Link(b.mModule, nullptr);
  EXPECT_FALSE(linker.LinkCancelled());
  // The list callers are merged like any function, after the module's.
  EXPECT_EQ((Numbers{0, 5, 8, 9}), Entries(linker.mEntrypoints, {"f", "g", "% initialize", "% finalize"}));
  EXPECT_EQ(10u, linker.mOneCode->Length());
  EXPECT_EQ((Texts{"1 g @1", "3 X @5"}), ImportList(linker.mOneCode->mImports));
  EXPECT_EQ(4u, b.mModule->mFunctions.size());
  EXPECT_EQ((Numbers{0, 6}), Entries(linker.mStaticDataMap, {"C.meta", "D.meta"}));
  EXPECT_EQ(10u, linker.mStaticData->Length());
  EXPECT_EQ((Texts{"7 f @6"}), ImportList(linker.mStaticData->mImports));
  EXPECT_FALSE(b.mModule->mGlobals.HasEntry("C.meta"));
  EXPECT_TRUE(b.mModule->mGlobals.HasEntry("Other"));
  ModuleBuilder lists;  // the list callers call in registration order
  lists.Function("% main", 1);
  lists.mModule->mInitializers.AddEntry("Zeta", "Zeta.init");
  lists.mModule->mInitializers.AddEntry("Alpha", "Alpha.init");
  lists.mModule->mFinalizers.AddEntry("Alpha", "Alpha.exit");
  TestLinker second;
  second.Link(lists.mModule, nullptr);
  EXPECT_EQ((Texts{"1 Zeta.init @2", "1 Alpha.init @7", "1 Alpha.exit @13"}),
            ImportList(second.mOneCode->mImports));
}

TEST(LinkerLiteralTest, OneRecordPerTextFromCodeAndStaticData) {
  ModuleBuilder b;
  FunctionBlock* main = b.Function("% main", 12);
  main->MarkImportAbsolute(Import::kImportStringLiteral, "hi", 1);
  main->MarkImportAbsolute(Import::kImportStringLiteral, "abc", 6);
  b.Static("T", 4)->MarkImportAbsolute(Import::kImportStringLiteral, "hi", 0);
  TestLinker linker;
  linker.Link(b.mModule, nullptr);
  EXPECT_EQ(2u, linker.mLiterals.Count());
  // 20 bytes of storage words and 2 of text, padded to a word boundary.
  EXPECT_EQ((Numbers{0, 24}), Entries(linker.mLiterals, {"hi", "abc"}));
  DataBlock& data = *linker.mLiteralData;
  EXPECT_EQ((Numbers{1, 0, string("hi").GetStringStorage()->mCapacity, 2, kEncodingASCII}),
            (Numbers{data.Get32(kLiteralRefCountOffset), data.Get32(kLiteralBufferOffset),
                     data.Get32(kLiteralCapacityOffset), data.Get32(kLiteralLengthOffset),
                     data.Get32(kLiteralEncodingOffset)}));
  EXPECT_EQ(0, memcmp("hi", data.Buffer() + kLiteralTextOffset, 2));
  EXPECT_EQ(0u, data.Get8(22) | data.Get8(23));
  EXPECT_EQ(3u, data.Get32(24 + kLiteralLengthOffset));
  EXPECT_EQ(24u + 23u, data.Length());
  linker.MergeOneLiteral(string());  // an empty text makes no record
  EXPECT_EQ(24u + 23u, data.Length());
  EXPECT_EQ(2u, linker.mLiterals.Count());
}

TEST(StripDeadCodeTest, WhatMainCannotReachGoesWithItsGlobalsAndInitializers) {
  ModuleBuilder b;
  BuildProgram(b);
  for (char const* name : {"Used.init", "Unused.init", "Used.exit"}) b.Function(name, 2);
  b.Function("_VariantString.__Lookup%x%", 1);  // always kept
  b.Function("_VariantOther.__Lookup%x%", 1);
  b.mModule->mInitializers.AddEntry("Used.x", "Used.init");
  b.mModule->mInitializers.AddEntry("Unused.x", "Unused.init");
  b.mModule->mFinalizers.AddEntry("Used.x", "Used.exit");
  Linker::StripDeadCode(b.mModule, nullptr);
  EXPECT_EQ((Texts{"% main", "used", "method", "Used.init", "Used.exit", "_VariantString.__Lookup%x%"}),
            Names(b.mModule->mFunctions));
  EXPECT_EQ(Texts{"C.meta"}, Names(b.mModule->mStaticData));
  EXPECT_TRUE(b.mModule->mGlobals.HasEntry("Used.x") && b.mModule->mInitializers.HasEntry("Used.x"));
  EXPECT_FALSE(b.mModule->mGlobals.HasEntry("Unused.x") || b.mModule->mInitializers.HasEntry("Unused.x"));
  EXPECT_EQ(1u, b.mModule->mFinalizers.Count());
}


namespace {

// Joining a library's module into an application's: the blocks arrive as
// copies after the destination's own, the tables gain the source's entries,
// and the source stays whole.
TEST(ModuleMergeTest, BlocksAreCopiedBehindTheDestinationsAndTablesAddUp) {
  ModuleBuilder app, library;
  app.Function("% main", 4);
  app.mModule->mGlobals.AddEntry("App.x", 4);
  FunctionBlock* helper = library.Function("helper", 3);
  helper->MarkImportAbsolute(Import::kImportGlobal32, "Lib.x", 1);
  library.Static("Lib.meta", 8);
  library.Function("Lib.init", 2);
  library.mModule->mGlobals.AddEntry("Lib.x", 8);
  library.mModule->mInitializers.AddEntry("Lib.x", "Lib.init");

  Linker::Merge(app.mModule, library.mModule);
  Linker::Merge(app.mModule, Ref<CodeModule>());  // nothing to join

  EXPECT_EQ((Texts{"% main", "helper", "Lib.init"}), Names(app.mModule->mFunctions));
  EXPECT_EQ(Texts{"Lib.meta"}, Names(app.mModule->mStaticData));
  FunctionBlock* copy = app.mModule->mFunctions[1];
  EXPECT_NE(helper, copy);
  EXPECT_EQ(helper->Length(), copy->Length());
  EXPECT_EQ(ImportList(helper->mImports), ImportList(copy->mImports));
  unsigned int size = 0;
  EXPECT_TRUE(app.mModule->mGlobals.GetEntry("App.x", size) && size == 4);
  EXPECT_TRUE(app.mModule->mGlobals.GetEntry("Lib.x", size) && size == 8);
  string init;
  EXPECT_TRUE(app.mModule->mInitializers.GetEntry("Lib.x", init) && init == "Lib.init");
  EXPECT_EQ(2u, library.mModule->mFunctions.size());
  EXPECT_EQ(1u, library.mModule->mStaticData.size());
}

}  // namespace

namespace {

// The image this linker "lays out" holds the module's globals one after
// the other, in the module's order.
class DebugDataLinker : public TestLinker {
 public:
  Ref<DataBlock> FormatLink() override {
    StringMapIterator<unsigned int>* iter = mSrc->mGlobals.NewIterator();
    unsigned int size = 0, offset = 0;
    while (iter->Next(size)) {
      mDebug->mGlobalOffsets.AddEntry(iter->Key(), offset);
      offset += size;
    }
    delete iter;
    return Ref<DataBlock>();
  }
};

DebuggerSymbol* Symbol(char const* name, uint32_t storageClass, char const* link,
                       unsigned char constant = 0) {
  DebuggerSymbol* symbol = new DebuggerSymbol;
  symbol->mName = name;
  symbol->mStorageClass = storageClass;
  symbol->mLinkID = link;
  symbol->mIsConstant = constant;
  symbol->mStorageOffset = 99;
  return symbol;
}

Texts SymbolNames(DebuggerSymbolTable const* table) {
  Texts names;
  for (unsigned long i = 0; i < table->Count(); i++)
    names.push_back(Std(table->At(i)->mName) + "@" +
                    std::to_string(table->At(i)->mStorageOffset));
  return names;
}

}  // namespace

// A global that dead-code stripping took out of the program leaves the
// debug tables when they are linked; the others learn their place, and
// locals and constants stay as they were.
TEST(LinkerDebugDataTest, StrippedGlobalsLeaveTheTablesAndFunctionsArePlaced) {
  ModuleBuilder b;
  FunctionBlock* main = b.Function("% main", 4);
  main->MarkImportAbsolute(Import::kImportGlobal32, "App.used", 0);
  main->mLineTable.AddEntry(0, 6);
  FunctionBlock* orphan = b.Function("orphan", 3);
  orphan->MarkImportAbsolute(Import::kImportGlobal32, "App.unused", 0);
  orphan->mParameterSpace = 8;
  b.mModule->mGlobals.AddEntry("App.unused", 8);
  b.mModule->mGlobals.AddEntry("App.used", 4);
  DebuggerSymbolTable* scope = DebuggerSymbolTable::New("% main");
  scope->AddEntry(Symbol("unused", kGlobalDataStorage, "App.unused"));
  scope->AddEntry(Symbol("local", kStackDataStorage, ""));
  scope->AddEntry(Symbol("used", kGlobalDataStorage, "App.used"));
  scope->AddEntry(Symbol("limit", kGlobalDataStorage, "", 1));
  b.mModule->mDebugData.mLocalTables.push_back(scope);

  Linker::StripDeadCode(b.mModule, nullptr);
  Ref<DebuggerSymbols> debug = DebuggerSymbols::New();
  DebugDataLinker linker;
  linker.Link(b.mModule, debug, nullptr);

  ASSERT_EQ(1u, debug->mData.mLocalTables.size());
  EXPECT_EQ((Texts{"local@99", "used@0", "limit@99"}),
            SymbolNames(debug->mData.mLocalTables[0]));
  EXPECT_EQ(4u, scope->Count()) << "the module keeps its own tables";
  LinkedContainerEntry extent;
  ASSERT_TRUE(debug->mFunctionExtents.GetEntry("% main", extent));
  EXPECT_EQ(0u, extent.offset);
  EXPECT_EQ(4u, extent.length);
  EXPECT_FALSE(debug->mFunctionExtents.HasEntry("orphan"));
  EXPECT_TRUE(debug->mFunctionExtents.HasEntry("% initialize"));
  CodeOffsetToLineIndex* lines = nullptr;
  ASSERT_TRUE(debug->mLineTables.GetEntry("% main", lines));
  int line = 0;
  EXPECT_TRUE(lines->LookupLine(2, &line) && line == 6);
  EXPECT_EQ(0u, debug->mEntryPoint);
}

// Joined modules add up their debug data: tables of one name become one.
TEST(LinkerDebugDataTest, MergedModulesJoinTheirTables) {
  ModuleBuilder app, library;
  app.Function("% main", 1);
  library.Function("helper", 1);
  DebuggerSymbolTable* mine = DebuggerSymbolTable::New("Shape");
  mine->AddEntry(Symbol("mWidth", kBaseRelativeDataStorage, ""));
  app.mModule->mDebugData.mClassTables.AddEntry("Shape", mine);
  DebuggerSymbolTable* theirs = DebuggerSymbolTable::New("Shape");
  theirs->AddEntry(Symbol("mHeight", kBaseRelativeDataStorage, ""));
  library.mModule->mDebugData.mClassTables.AddEntry("Shape", theirs);
  library.mModule->mDebugData.mLocalTables.push_back(DebuggerSymbolTable::New("helper"));
  Linker::Merge(app.mModule, library.mModule);
  EXPECT_EQ((Texts{"mWidth@99", "mHeight@99"}), SymbolNames(mine));
  ASSERT_EQ(1u, app.mModule->mDebugData.mLocalTables.size());
  EXPECT_NE(library.mModule->mDebugData.mLocalTables[0],
            app.mModule->mDebugData.mLocalTables[0]);
}
