// The table core: hashing, growth, iterator locks, dependency marks.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../CompilerTestSupport.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"

namespace {

TEST(SymbolHash, FoldsAsciiCaseOnlyAndWraps) {
  EXPECT_EQ(Symbol::Hash("abc"), Symbol::Hash("ABC"));
  EXPECT_EQ((unsigned long)('A' * 31 * 31 + 'B' * 31 + 'C'),
            Symbol::Hash("aBc"));
  // A byte from 128 up is a negative addend, not folded.
  EXPECT_EQ(0xFFFFFFC3ul, Symbol::Hash("\xC3"));
  EXPECT_NE(Symbol::Hash("\xC3\xA9"), Symbol::Hash("\xC3\x89"));
}

// Enough names for the index to be rebuilt several times: every name must
// still be found afterwards, a name declared twice with its newest symbol
// first, and the count is of symbols, not of index slots.
TEST(SymbolTable, EverySymbolIsFoundAfterTheIndexGrows) {
  SymbolTable table;
  Symbol* older = new Symbol("twice");
  table.Add(older);
  for (int i = 0; i < 200; i++) table.Add(new Symbol(("n" + std::to_string(i)).c_str()));
  Symbol* newer = new Symbol("TWICE");
  table.Add(newer);
  EXPECT_EQ(202u, table.Count());
  EXPECT_LT(table.Count(), table.IndexSize());
  for (int i = 0; i < 200; i++) {
    std::string name = "N" + std::to_string(i);
    LookupSet found = table.Lookup(name.c_str());
    ASSERT_TRUE(found.Next()) << name;
    EXPECT_STREQ(("n" + std::to_string(i)).c_str(), found.Value()->Name().CString());
    EXPECT_FALSE(found.Next()) << name;
  }
  LookupSet twice = table.Lookup("twice");
  ASSERT_TRUE(twice.Next());
  EXPECT_EQ(newer, twice.Value());
  ASSERT_TRUE(twice.Next());
  EXPECT_EQ(older, twice.Value());
  EXPECT_FALSE(twice.Next());
}

TEST(SymbolTableDeathTest, AnIteratorLocksTheTable) {
  EXPECT_ASSERTION(
      {
        SymbolTable table;
        SymbolTableIterator it(&table);
        table.Add(new Symbol("x"));
      },
      "SymbolTable\\.cpp");
}

TEST(SymbolTable, ReachingMergedSymbolsTouchesTheirUnitOnlyInACompilation) {
  GlobalSymbolTable global;
  UnitSymbolTable unit("Lib");
  unit.AddConstant(new ConstantSymbol("k"));
  global.MergeUnitSymbols(&unit, "stamp");
  StringMap<string> used;
  global.LookupConstant("k");  // no compilation: nothing recorded
  global.CopyDependencyList(&used);
  EXPECT_EQ(0u, used.Count());

  SrcContext* context = new SrcContext;
  global.LookupConstant("K");
  global.CopyDependencyList(&used);
  string second;
  EXPECT_TRUE(used.GetEntry("Lib", second));
  EXPECT_EQ("stamp", Std(second));
  global.CopyDependencyList(&used);  // the marks were cleared
  EXPECT_EQ(0u, used.Count());
  delete context;
}

}  // namespace
