// Class records, for a small family of classes and interfaces: laid out
// as static data (the blocks and the imports that the linker will fill
// in), and built at run time by the initialisers (what they poke where).
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "Compiler/BackEnds/codestorage.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/ParserSupport.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Miner/DeclarationParser.h"
#include "Compiler/Miner/Miner.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/compiler.h"
#include "tests/Compiler/Frontend/Expressions/CompileDriver.h"

namespace {

char const kProgram[] = R"(
Interface Speaker
  Function Speak() As String
End Interface
Interface Loud
  Inherits Speaker
  Sub Shout()
End Interface
Class Empty
End Class
Class Animal
  Dim name As String
  Dim legs As Integer = 4
  Event Moved(steps As Integer)
  Function Speak() As String
    Return "..."
  End Function
  Sub Walk()
  End Sub
End Class
Class Dog
  Inherits Animal
  Implements Loud
  Function Speak() As String
    Return "woof"
  End Function
  Sub Shout()
  End Sub
  Sub Moving(steps As Integer) Handles Moved
  End Sub
End Class
)";

struct Silent : public CompilerDelegate {
  int CompilerError(CompileError error) override {
    ADD_FAILURE() << "compile error " << int(error.Type());
    return 0;
  }
};

// The static data of kProgram, by block name.
class StaticRecords : public testing::Test {
 protected:
  void SetUp() override {
    std::string source = std::string(kProgram) + "\n";
    Silent delegate;
    GlobalSymbolTable global;
    SrcContext* scan = new SrcContext;
    UnitSymbolTable* unit = ParseDeclarations("", source.c_str(), &delegate);
    ASSERT_TRUE(unit);
    global.MergeUnitSymbols(unit, "");
    delete unit;
    ResolveDeclarations(&global);
    delete scan;
    SrcContext* context = new SrcContext;
    context->mDelegate = &delegate;
    context->mStaticClassData = 1;
    context->blocks.Enter(&global);
    InitLexer(source.c_str());
    EXPECT_EQ(0, yyparse());
    initializers = context->mInitializers.Count();
    SimpleVector<StaticDataBlock*> moved;
    context->MoveStaticDataBlocks(&moved);
    delete context;
    for (unsigned long i = 0; i < moved.size(); i++)
      blocks[moved[i]->mName.CString()] = moved[i];
  }
  void TearDown() override {
    for (auto& entry : blocks) delete entry.second;
  }

  StaticDataBlock* Block(std::string const& name) {
    auto found = blocks.find(name);
    EXPECT_NE(found, blocks.end()) << name;
    return found == blocks.end() ? nullptr : found->second;
  }
  // "kind:name" of the import at `offset`, or "" when there is none.
  std::string ImportAt(std::string const& block, unsigned offset) {
    StaticDataBlock* b = Block(block);
    if (!b) return "?";
    for (unsigned long i = 0; i < b->mImports.size(); i++)
      if (b->mImports[i].mOffset == offset)
        return std::to_string(int(b->mImports[i].mType)) + ":" +
               b->mImports[i].mName.CString();
    return "";
  }
  unsigned Word(std::string const& block, unsigned offset) {
    StaticDataBlock* b = Block(block);
    return b ? b->Get32(offset) : 0xDEADu;
  }

  std::map<std::string, StaticDataBlock*> blocks;
  unsigned long initializers = 0;
};

std::string Global(char const* name) { return "3:" + std::string(name); }
std::string Text(char const* text) { return "11:" + std::string(text); }
std::string Code(char const* name) { return "7:" + std::string(name); }

}  // namespace

TEST_F(StaticRecords, AClassRecordPointsAtItsParentAndItsTables) {
  EXPECT_EQ(68u + 12u, Block("Dog.__ctbl")->Length());
  EXPECT_EQ(Global("Animal.__ctbl"), ImportAt("Dog.__ctbl", 0));
  EXPECT_EQ(Text("Dog"), ImportAt("Dog.__ctbl", 4));
  EXPECT_EQ(0u, Word("Dog.__ctbl", 16));
  EXPECT_EQ(Word("Animal.__ctbl", 12), Word("Dog.__ctbl", 12));
  EXPECT_EQ(Global("Dog.__methods"), ImportAt("Dog.__ctbl", 36));
  EXPECT_EQ(Global("Dog.__events"), ImportAt("Dog.__ctbl", 44));
  EXPECT_EQ(Global("Dog.__smethods"), ImportAt("Dog.__ctbl", 52));
  EXPECT_EQ(Global("Dog.__properties"), ImportAt("Dog.__ctbl", 60));
  EXPECT_EQ(1u, Word("Dog.__ctbl", 64));
  EXPECT_EQ("", ImportAt("Animal.__ctbl", 0));
  EXPECT_EQ(Code("Animal.__Init"), ImportAt("Animal.__ctbl", 20));
  EXPECT_EQ(Code("Animal.__Exit"), ImportAt("Animal.__ctbl", 28));
  EXPECT_EQ("", ImportAt("Dog.__ctbl", 20));
}

TEST_F(StaticRecords, AnEmptyRootClassIsAHeaderWithEmptyTables) {
  EXPECT_EQ(24u, Word("Empty.__ctbl", 12));
  EXPECT_EQ(0u, Word("Empty.__ctbl", 32));
  EXPECT_EQ(0u, Block("Empty.__methods")->Length());
  EXPECT_EQ(Global("Empty.__methods"), ImportAt("Empty.__ctbl", 36));
}

// Slot 0 is Speak, overridden by Dog; slot 1 is Walk, inherited.
TEST_F(StaticRecords, TheNearestOverrideFillsEachSlot) {
  EXPECT_EQ(Code("Dog.Speak%s%o<Dog>"), ImportAt("Dog.__methods", 0));
  EXPECT_EQ(Text("Speak%s%o<Dog>"), ImportAt("Dog.__methods", 4));
  EXPECT_EQ(Code("Animal.Walk%%o<Animal>"), ImportAt("Dog.__methods", 8));
  EXPECT_EQ(Code("Animal.Speak%s%o<Animal>"), ImportAt("Animal.__methods", 0));
}

TEST_F(StaticRecords, EventsCarryTheirNameAndTheHandlerOfASubclass) {
  EXPECT_EQ(Text("Moved"), ImportAt("Animal.__events", 4));
  EXPECT_EQ("", ImportAt("Animal.__events", 0));
  EXPECT_EQ(Code("Dog.Moving%%o<Dog>i4"), ImportAt("Dog.__events", 0));
}

TEST_F(StaticRecords, InheritedPropertiesKeepTheirPlace) {
  EXPECT_EQ(Text("legs%i4%"), ImportAt("Dog.__properties", 16));
  EXPECT_EQ(Word("Animal.__properties", 20), Word("Dog.__properties", 20));
  EXPECT_EQ(28u, Word("Dog.__properties", 20));
  EXPECT_EQ(1u, Word("Dog.__properties", 24));
}

TEST_F(StaticRecords, InterfacesHaveRecordsAndEachImplementerAVtable) {
  EXPECT_EQ(1u, Word("Loud.__ctbl", 16));
  EXPECT_EQ(Text("Loud"), ImportAt("Loud.__ctbl", 4));
  EXPECT_EQ(Global("Speaker.__ctbl"), ImportAt("Loud.__ctbl", 0));
  EXPECT_EQ(Global("Loud.__ctbl"), ImportAt("Dog.__ctbl", 68));
  EXPECT_EQ(1u, Word("Dog.__ctbl", 72));
  EXPECT_EQ(Global("Dog:Loud.__vtable"), ImportAt("Dog.__ctbl", 76));
  EXPECT_EQ(Code("Dog.Shout%%o<Dog>"), ImportAt("Dog:Loud.__vtable", 0));
  // Every record is put on the runtime's list by an initialiser.
  EXPECT_EQ(5u, initializers);
}

namespace {

// The lines of one generated function, squeezed.
std::vector<std::string> FunctionLines(CompiledProgram const& p,
                                       std::string const& name) {
  listing::Section f = p.Body(name);
  std::vector<std::string> lines;
  if (f.enter < 0) return lines;
  for (int i = f.enter; i <= f.end && i < int(p.code.size()); i++)
    lines.push_back(p.code[i]);
  return lines;
}

bool HasLine(std::vector<std::string> const& lines, std::string const& text) {
  for (auto const& line : lines)
    if (line.find(text) != std::string::npos) return true;
  return false;
}

std::string Intrinsic(long which) {
  return std::string("Intrinsic ") + IntrinsicFunctionNames()[which].CString();
}

}  // namespace

// The parent's record first, then a record with room for all the tables;
// only what the class adds is poked in, as the runtime copied the rest.
TEST(ClassInitializers, ARecordIsMadeFromTheParentsAndFilledWithWhatTheClassAdds) {
  CompiledProgram p = CompileSource(kProgram);
  ASSERT_TRUE(p.errors.empty()) << p.Listing();
  std::vector<std::string> dog = FunctionLines(p, "Dog.__ctblinit");
  ASSERT_FALSE(dog.empty()) << p.Listing();
  EXPECT_TRUE(HasLine(dog, "Call \"Animal.__Lookup%x%\""));
  EXPECT_TRUE(HasLine(dog, Intrinsic(kIntrinsicRuntimeNewClass) + " -> Dog.__ctbl"));
  EXPECT_TRUE(HasLine(dog, "Poke \"Dog\" As String, 4 As Int32 -> Dog.__ctbl"));
  EXPECT_TRUE(HasLine(dog, "FuncPtr \"Dog.Speak%s%o<Dog>\""));
  EXPECT_FALSE(HasLine(dog, "FuncPtr \"Animal.Walk%%o<Animal>\""));
  EXPECT_TRUE(HasLine(dog, "FuncPtr \"Dog.Moving%%o<Dog>i4\""));
  EXPECT_TRUE(HasLine(dog, Intrinsic(kIntrinsicRuntimeNewVtable)));
  EXPECT_TRUE(HasLine(dog, "FuncPtr \"Dog.Shout%%o<Dog>\""));
  std::vector<std::string> lookup = FunctionLines(p, "Dog.__Lookup%x%");
  EXPECT_TRUE(HasLine(lookup, "IfNEI Dog.__ctbl"));
  EXPECT_TRUE(HasLine(lookup, "Call \"Dog.__ctblinit\""));
}

TEST(ClassInitializers, OnlyClassesWithSomethingToDoGetInitAndExit) {
  CompiledProgram p = CompileSource(kProgram);
  EXPECT_LT(p.Body("Empty.__Init").enter, 0);
  EXPECT_LT(p.Body("Empty.__Exit").enter, 0);
  EXPECT_GE(p.Body("Animal.__Init").enter, 0);
  EXPECT_GE(p.Body("Animal.__Exit").enter, 0);
  EXPECT_LT(p.Body("Dog.__Init").enter, 0);
}
