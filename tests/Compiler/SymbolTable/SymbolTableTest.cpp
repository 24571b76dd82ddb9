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

TEST(SymbolTable, GrowsOnTheTenthSymbolAndCountsSymbolsNotSlots) {
  SymbolTable table;
  for (int i = 0; i < 9; i++) table.Add(new Symbol(("n" + std::to_string(i)).c_str()));
  EXPECT_EQ(17u, table.IndexSize());
  table.Add(new Symbol("n9"));
  EXPECT_EQ(34u, table.IndexSize());
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
