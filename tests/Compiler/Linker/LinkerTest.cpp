// The linker core: merging functions, static data and literals, the list
// callers, failure reports and string tables.
#include <string.h>

#include "tests/Compiler/Linker/LinkerTestSupport.h"

namespace {

std::vector<std::string> ImportList(SimpleVector<Import> const& imports) {
  std::vector<std::string> out;
  for (unsigned long i = 0; i < imports.size(); i++)
    out.push_back(std::to_string(imports[i].mType) + " " + Std(imports[i].mName) +
                  " @" + std::to_string(imports[i].mOffset));
  return out;
}

}  // namespace

TEST(LinkerMergeTest, FunctionsFollowEachOtherWithTheirImportsMoved) {
  ModuleBuilder b;
  b.Function("f", 5)->MarkImportAbsolute(Import::kImportCall32, "g", 1);
  b.Function("g", 3)->MarkImportAbsolute(Import::kImportGlobal32, "X", 0);
  TestLinker linker;
  linker.Link(b.mModule, nullptr);
  EXPECT_FALSE(linker.LinkCancelled());
  EXPECT_EQ(0u, Entry(linker.mEntrypoints, "f"));
  EXPECT_EQ(5u, Entry(linker.mEntrypoints, "g"));
  // The list callers are merged like any function, after the module's.
  EXPECT_EQ(8u, Entry(linker.mEntrypoints, "% initialize"));
  EXPECT_EQ(9u, Entry(linker.mEntrypoints, "% finalize"));
  EXPECT_EQ(10u, linker.mOneCode->Length());
  EXPECT_EQ((std::vector<std::string>{"1 g @1", "3 X @5"}), ImportList(linker.mOneCode->mImports));
  EXPECT_EQ(4u, b.mModule->mFunctions.size());
  ModuleBuilder lists;  // the list callers call in registration order
  lists.Function("% main", 1);
  lists.mModule->mInitializers.AddEntry("Zeta", "Zeta.init");
  lists.mModule->mInitializers.AddEntry("Alpha", "Alpha.init");
  lists.mModule->mFinalizers.AddEntry("Alpha", "Alpha.exit");
  TestLinker second;
  second.Link(lists.mModule, nullptr);
  EXPECT_EQ((std::vector<std::string>{"1 Zeta.init @2", "1 Alpha.init @7", "1 Alpha.exit @13"}),
            ImportList(second.mOneCode->mImports));
}

TEST(LinkerMergeTest, StaticBlocksMergeAndLeaveTheGlobals) {
  ModuleBuilder b;
  b.Function("% main", 2);
  b.Static("C.meta", 6);
  b.Static("D.meta", 4)->MarkImportAbsolute(Import::kImportFunctionPtr, "f", 0);
  b.Global("C.meta", 4);
  b.Global("Other", 8);
  TestLinker linker;
  linker.Link(b.mModule, nullptr);
  EXPECT_EQ(0u, Entry(linker.mStaticDataMap, "C.meta"));
  EXPECT_EQ(6u, Entry(linker.mStaticDataMap, "D.meta"));
  EXPECT_EQ(10u, linker.mStaticData->Length());
  EXPECT_EQ((std::vector<std::string>{"7 f @6"}), ImportList(linker.mStaticData->mImports));
  EXPECT_FALSE(b.mModule->mGlobals.HasEntry("C.meta"));
  EXPECT_TRUE(b.mModule->mGlobals.HasEntry("Other"));
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
  EXPECT_EQ(0u, Entry(linker.mLiterals, "hi"));
  // 20 bytes of storage words and 2 of text, padded to a word boundary.
  EXPECT_EQ(24u, Entry(linker.mLiterals, "abc"));
  DataBlock& data = *linker.mLiteralData;
  EXPECT_EQ(1u, data.Get32(kLiteralRefCountOffset));
  EXPECT_EQ(0u, data.Get32(kLiteralBufferOffset));
  EXPECT_EQ(string("hi").GetStringStorage()->mCapacity, data.Get32(kLiteralCapacityOffset));
  EXPECT_EQ(2u, data.Get32(kLiteralLengthOffset));
  EXPECT_EQ(kEncodingASCII, data.Get32(kLiteralEncodingOffset));
  EXPECT_EQ(0, memcmp("hi", data.Buffer() + kLiteralTextOffset, 2));
  EXPECT_EQ(0u, data.Get8(22) | data.Get8(23));
  EXPECT_EQ(3u, data.Get32(24 + kLiteralLengthOffset));
  EXPECT_EQ(24u + 23u, data.Length());
  linker.MergeOneLiteral(string());  // an empty text makes no record
  EXPECT_EQ(24u + 23u, data.Length());
  EXPECT_EQ(2u, linker.mLiterals.Count());
}

TEST(LinkerServicesTest, StringTablesAndStubNames) {
  ModuleBuilder b;
  Ref<DataBlock> block = b.mModule->MakeDataBlock();
  StringMapCase<unsigned long> offsets;
  EXPECT_EQ(0u, Linker::AddStringToBlock("one", block, &offsets));
  EXPECT_EQ(4u, Linker::AddStringToBlock("two", block, &offsets));
  EXPECT_EQ(0u, Linker::AddStringToBlock("one", block, &offsets));
  EXPECT_EQ(8u, Linker::AddStringToBlock("One", block, &offsets));
  EXPECT_EQ(12u, block->Length());
  EXPECT_STREQ("two", reinterpret_cast<char*>(block->Buffer() + 4));
  EXPECT_EQ("%__glink.foo", Std(Linker::StubName("foo")));
  EXPECT_EQ(kEncodingUTF8, Linker::StubName("foo").Encoding());
  EXPECT_ASSERTION(Linker::StubName(Linker::StubName("foo")), "Assertion failed");
  TestLinker nothing;
  EXPECT_ASSERTION(nothing.Link(Ref<CodeModule>(), nullptr), "Assertion failed");
}

TEST(LinkerServicesTest, OnlyTheFirstFailureIsReportedAndACancelReportsNone) {
  ModuleBuilder b;
  b.Function("% main", 1);
  RecordingLinkerDelegate delegate;
  TestLinker linker;
  linker.Link(b.mModule, &delegate);
  linker.LinkError(3, "bad thing");
  linker.LinkError(4, "worse thing");
  EXPECT_TRUE(linker.LinkCancelled());
  EXPECT_EQ(std::vector<std::string>{"Linker failed with error #3 bad thing"}, delegate.mFailures);
  ModuleBuilder c;
  c.Function("% main", 1);
  c.Function("f", 1);
  RecordingLinkerDelegate cancelling;
  cancelling.mCancelAfter = 1;
  TestLinker cancelled;
  EXPECT_FALSE(cancelled.Link(c.mModule, &cancelling));
  EXPECT_TRUE(cancelled.LinkCancelled());
  cancelled.LinkError(1, "after the cancel");
  EXPECT_TRUE(cancelling.mFailures.empty());
}
