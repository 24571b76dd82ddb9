// Stripping what `% main` cannot reach, and merging one module into another.
#include "tests/Compiler/Linker/LinkerTestSupport.h"

namespace {

template <class List>
std::vector<std::string> Names(List const& blocks) {
  std::vector<std::string> names;
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
  b.Global("Used.x", 4);
  b.Global("Unused.x", 4);
}

}  // namespace

TEST(StripDeadCodeTest, WhatMainCannotReachGoesWithItsGlobalsAndInitializers) {
  ModuleBuilder b;
  BuildProgram(b);
  b.Function("Used.init", 2);
  b.Function("Unused.init", 2);
  b.Function("Used.exit", 2);
  b.Function("_VariantString.__Lookup%x%", 1);  // always kept
  b.Function("_VariantOther.__Lookup%x%", 1);
  b.mModule->mInitializers.AddEntry("Used.x", "Used.init");
  b.mModule->mInitializers.AddEntry("Unused.x", "Unused.init");
  b.mModule->mFinalizers.AddEntry("Used.x", "Used.exit");
  Linker::StripDeadCode(b.mModule, nullptr);
  EXPECT_EQ((std::vector<std::string>{"% main", "used", "method", "Used.init", "Used.exit",
                                      "_VariantString.__Lookup%x%"}),
            Names(b.mModule->mFunctions));
  EXPECT_EQ(std::vector<std::string>{"C.meta"}, Names(b.mModule->mStaticData));
  EXPECT_TRUE(b.mModule->mGlobals.HasEntry("Used.x"));
  EXPECT_FALSE(b.mModule->mGlobals.HasEntry("Unused.x"));
  EXPECT_TRUE(b.mModule->mInitializers.HasEntry("Used.x"));
  EXPECT_FALSE(b.mModule->mInitializers.HasEntry("Unused.x"));
  EXPECT_EQ(1u, b.mModule->mFinalizers.Count());
}

TEST(StripDeadCodeTest, ACancelLeavesTheModuleUntouchedAndFaultsAreAssertions) {
  ModuleBuilder b;
  BuildProgram(b);
  RecordingLinkerDelegate delegate;
  delegate.mCancelAfter = 0;
  Linker::StripDeadCode(b.mModule, &delegate);
  EXPECT_EQ(5u, b.mModule->mFunctions.size());
  EXPECT_EQ(2u, b.mModule->mGlobals.Count());
  ModuleBuilder twice;
  twice.Function("% main", 1);
  twice.Function("% main", 1);
  EXPECT_ASSERTION(Linker::StripDeadCode(twice.mModule, nullptr), "Assertion failed");
  ModuleBuilder unknown;
  unknown.Function("% main", 4)->MarkImportAbsolute(Import::kImportGlobal32, "Nowhere", 0);
  EXPECT_ASSERTION(Linker::StripDeadCode(unknown.mModule, nullptr), "unknown global Nowhere");
}

TEST(MergeModulesTest, BlocksAreCopiedAndTablesAddedUp) {
  ModuleBuilder dest, source;
  dest.Function("% main", 1);
  dest.Global("A", 4);
  FunctionBlock* f = source.Function("f", 3);
  f->MarkImportAbsolute(Import::kImportCall32, "g", 0);
  source.Static("S", 2);
  source.Global("B", 8);
  source.mModule->mInitializers.AddEntry("B", "B.init");
  source.mModule->mRequiredFrameworks.Add("Kit");
  Linker::Merge(dest.mModule, source.mModule);
  EXPECT_EQ((std::vector<std::string>{"% main", "f"}), Names(dest.mModule->mFunctions));
  EXPECT_NE(f, dest.mModule->mFunctions[1]);
  EXPECT_EQ(1u, dest.mModule->mFunctions[1]->mImports.size());
  EXPECT_EQ(std::vector<std::string>{"S"}, Names(dest.mModule->mStaticData));
  EXPECT_EQ(2u, dest.mModule->mGlobals.Count());
  EXPECT_TRUE(dest.mModule->mInitializers.HasEntry("B"));
  EXPECT_TRUE(dest.mModule->mRequiredFrameworks.Contains("Kit"));
  Linker::Merge(dest.mModule, Ref<CodeModule>());
  EXPECT_EQ(2u, dest.mModule->mFunctions.size());
}
