// The debug data of a real compile and link, through the engine: what users
// can name is there with its type and place, and nothing the compiler made
// for itself is.
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Compiler/Linker/LinkedDebugSymbols.h"
#include "tests/Plugin/PluginTestSupport.h"

namespace {

typedef std::vector<std::string> Texts;

std::string Std(string const& text) { return std::string(text.CString(), text.Length()); }

class DebugSymbols : public ::testing::Test {
 protected:
  void SetUp() override {
    AttachEngine();
    mScript.reset(new quorl::Script);
  }

  Ref<DebuggerSymbols> Compile(std::string const& source) {
    mScript->SetSource(source);
    return InterfaceOf(*mScript)->CompileDebugSymbols();
  }

  std::unique_ptr<quorl::Script> mScript;
};

// Each kept scope by name (a block's is empty), its symbols in order.
std::map<std::string, DebuggerSymbolTable*> Scopes(DebuggerSymbols& symbols) {
  std::map<std::string, DebuggerSymbolTable*> scopes;
  for (unsigned long i = 0; i < symbols.mData.mLocalTables.size(); i++) {
    DebuggerSymbolTable* table = symbols.mData.mLocalTables[i];
    scopes[Std(table->Name())] = table;
  }
  return scopes;
}

// The kept scope that holds a symbol of the name, or null.
DebuggerSymbolTable* ScopeWith(DebuggerSymbols& symbols, char const* name) {
  DebuggerSymbol* found = nullptr;
  for (unsigned long i = 0; i < symbols.mData.mLocalTables.size(); i++)
    if (symbols.mData.mLocalTables[i]->GetEntry(string(name), found))
      return symbols.mData.mLocalTables[i];
  return nullptr;
}

Texts Names(DebuggerSymbolTable const* table) {
  Texts names;
  for (unsigned long i = 0; i < table->Count(); i++)
    names.push_back(Std(table->At(i)->mName));
  return names;
}

char const kProgram[] =
    "Dim gTotal As Integer\n"                                     // 1
    "Function Leaf(n As Integer, ByRef out As Double) As Integer\n"  // 2
    "  Dim text As String = \"x\" + Str(n) + Str(n * 2)\n"         // 3
    "  If n > 1 Then\n"                                           // 4
    "    Dim inner As Integer = n * 2 + Len(text + text)\n"       // 5
    "    out = inner\n"                                           // 6
    "  End If\n"                                                  // 7
    "  Return Len(text)\n"                                        // 8
    "End Function\n"                                              // 9
    "Sub Shout()\n"                                               // 10
    "  Print \"a\" + Str(Len(\"b\" + Str(3)))\n"                  // 11
    "End Sub\n"                                                   // 12
    "Dim d As Double\n"                                           // 13
    "gTotal = Leaf(3, d)\n"                                       // 14
    "Shout\n";                                                    // 15

// Temporaries of every expression, and the shadows of block variables,
// stay out; a scope of nothing but temporaries leaves no table at all.
TEST_F(DebugSymbols, OnlyWhatTheSourceNamesIsKept) {
  Ref<DebuggerSymbols> symbols = Compile(kProgram);
  ASSERT_TRUE(symbols);
  std::map<std::string, DebuggerSymbolTable*> scopes = Scopes(*symbols);
  ASSERT_TRUE(scopes.count("Leaf%i4%i4&f8"));
  EXPECT_EQ((Texts{"n", "out", "Return", "text"}), Names(scopes["Leaf%i4%i4&f8"]));
  ASSERT_TRUE(ScopeWith(*symbols, "inner"));
  EXPECT_EQ(Texts{"inner"}, Names(ScopeWith(*symbols, "inner")));
  EXPECT_FALSE(scopes.count("Shout")) << "only temporaries in that scope";
  EXPECT_EQ(3u, symbols->mData.mLocalTables.size()) << "Leaf, its block, the main body";
  DebuggerSymbolTable* leaf = scopes["Leaf%i4%i4&f8"];
  EXPECT_EQ(1u, leaf->mStartLine);  // lines count from 0 here
  EXPECT_EQ(8u, leaf->mEndLine);
}

// A ByRef shows what it refers to; globals sit in the data image, one
// apart from the other; locals in the frame.
TEST_F(DebugSymbols, TypesAndPlaces) {
  Ref<DebuggerSymbols> symbols = Compile(kProgram);
  ASSERT_TRUE(symbols);
  std::map<std::string, DebuggerSymbolTable*> scopes = Scopes(*symbols);
  DebuggerSymbol* out = nullptr;
  ASSERT_TRUE(scopes["Leaf%i4%i4&f8"]->GetEntry(string("OUT"), out));
  EXPECT_TRUE(out->mIsReference);
  EXPECT_EQ("Double", Std(out->mTypeName));
  EXPECT_EQ(unsigned(kStackDataStorage), out->mStorageClass);
  EXPECT_EQ(4u, out->mStorageSize);
  DebuggerSymbol *total = nullptr, *d = nullptr;
  DebuggerSymbolTable* main = ScopeWith(*symbols, "gTotal");
  ASSERT_TRUE(main);
  ASSERT_TRUE(main->GetEntry(string("gTotal"), total));
  ASSERT_TRUE(main->GetEntry(string("d"), d));
  EXPECT_EQ(unsigned(kGlobalDataStorage), total->mStorageClass);
  EXPECT_FALSE(total->mIsReference);
  EXPECT_EQ("Int32", Std(total->mTypeName));
  unsigned int offset = 0;
  ASSERT_TRUE(symbols->mGlobalOffsets.GetEntry(total->mLinkID, offset));
  EXPECT_EQ(offset, total->mStorageOffset);
  EXPECT_NE(total->mStorageOffset, d->mStorageOffset);
  EXPECT_EQ(0u, d->mStorageOffset % 8) << "a Double is aligned";
}

// Every function has its place, one after the other, and its lines; the
// entry point is the main body's.
TEST_F(DebugSymbols, FunctionsTileTheCode) {
  Ref<DebuggerSymbols> symbols = Compile(kProgram);
  ASSERT_TRUE(symbols);
  StringMapIterator<LinkedContainerEntry>* iter =
      symbols->mFunctionExtents.NewIterator();
  LinkedContainerEntry extent;
  unsigned long next = 0;
  while (iter->Next(extent)) {
    EXPECT_EQ(next, extent.offset) << Std(iter->Key());
    next = extent.offset + extent.length;
    EXPECT_TRUE(symbols->mLineTables.HasEntry(iter->Key()));
  }
  delete iter;
  LinkedContainerEntry main;
  ASSERT_TRUE(symbols->mFunctionExtents.GetEntry(string("% main"), main));
  EXPECT_EQ(main.offset, symbols->mEntryPoint);
  unsigned int parameters = 0;
  EXPECT_TRUE(symbols->mParameterSpaces.GetEntry(string("Leaf%i4%i4&f8"), parameters));
  EXPECT_EQ(8u, parameters);
}

// Class fields, the superclass's included, and the source's constants;
// the compiler's target constants are not the source's.
TEST_F(DebugSymbols, ClassesAndConstants) {
  Ref<DebuggerSymbols> symbols = Compile(
      "Const kLimit = 10\n"
      "Class Shape\n  Dim mWidth As Integer\n  Dim mName As String\nEnd Class\n"
      "Class Square\n  Inherits Shape\n  Dim mSide As Double\nEnd Class\n"
      "Dim s As New Square\n");
  ASSERT_TRUE(symbols);
  DebuggerSymbolTable* square = nullptr;
  ASSERT_TRUE(symbols->mData.mClassTables.GetEntry(string("Square"), square));
  EXPECT_EQ((Texts{"mSide", "mWidth", "mName"}), Names(square));
  DebuggerSymbol* side = nullptr;
  ASSERT_TRUE(square->GetEntry(string("mSide"), side));
  EXPECT_EQ(unsigned(kBaseRelativeDataStorage), side->mStorageClass);
  DebuggerSymbolTable* constants = nullptr;
  ASSERT_TRUE(symbols->mData.mConstantTables.GetEntry(string("(global)"), constants));
  EXPECT_EQ(Texts{"kLimit"}, Names(constants));
  EXPECT_EQ("10", Std(constants->At(0)->mValueText));
}

// A module's variables live in static data, and its enums keep their
// values.
TEST_F(DebugSymbols, ModulesAndEnums) {
  Ref<DebuggerSymbols> symbols = Compile(
      "Module Geometry\n  Enum Shade\n    Red\n    Green = 5\n  End Enum\n"
      "  Dim gScale As Double\nEnd Module\n"
      "Geometry.gScale = 2.5\n");
  ASSERT_TRUE(symbols);
  DebuggerSymbolTable* geometry = nullptr;
  ASSERT_TRUE(symbols->mData.mModuleTables.GetEntry(string("Geometry"), geometry));
  DebuggerSymbol* scale = nullptr;
  ASSERT_TRUE(geometry->GetEntry(string("gScale"), scale));
  EXPECT_EQ(unsigned(kGlobalDataStorage), scale->mStorageClass);
  unsigned int offset = 0;
  ASSERT_TRUE(symbols->mGlobalOffsets.GetEntry(scale->mLinkID, offset));
  EXPECT_EQ(offset, scale->mStorageOffset);
  DebuggerEnum* shade = nullptr;
  ASSERT_TRUE(symbols->mData.mEnums.GetEntry(string("Shade"), shade));
  ASSERT_EQ(2u, shade->mValues.size());
  EXPECT_EQ("Green", Std(shade->mValues[1].mName));
  EXPECT_EQ("5", Std(shade->mValues[1].mValueText));
}

}  // namespace
