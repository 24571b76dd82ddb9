// Method bodies: prolog and epilog, Return, parameters and their
// modifiers.
#include <gtest/gtest.h>

#include "Compiler/Frontend/Functions.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "StatementTestSupport.h"

namespace {


TEST(Functions, PrologTakesParametersLastFirstAndZeroesTheLocals) {
  CompiledProgram p = CompileProgramText(
      "Function F(a As Integer, s As String, d As Double) As Integer\n"
      "  Dim x As Integer\n  Return a\nEnd Function\n");
  ASSERT_TRUE(p.errors.empty()) << p.listing;
  std::vector<std::string> l = p.Lines();
  listing::Section f = p.Body("F");
  ASSERT_GE(f.enter, 0) << p.listing;
  EXPECT_NE(std::string::npos, l[f.enter].find("table 1"));
  for (int i = 1; i <= 3; i++)  // parameters last first
    EXPECT_EQ(0u, l[f.enter + i].find(std::string("GetParam        -> F.") + "dsa"[i - 1] + " "));
  EXPECT_EQ(1, p.Count("Zero            -> F.Return "));
  EXPECT_EQ(1, p.Count("Zero            -> F.x "));
  EXPECT_EQ(0, p.Count("Zero            -> F.a "));
  EXPECT_EQ(1, p.Count("Lock            F.s "));
  EXPECT_LT(p.Find("Lock"), p.Find("intrinsic 122"));
  int store = p.Find("Store           F.a As Int32 (stack 4) -> F.Return");
  ASSERT_GT(store, 0) << p.listing;
  std::string jump = l[store + 1];
  std::string exit = jump.substr(jump.find("-> ") + 3);
  EXPECT_EQ(exit + ":", l[f.exit]);
  EXPECT_GT(f.exit, store);
  EXPECT_EQ(0u, l[f.end].rfind("Leave           F.Return As Int32"));
}

TEST(Functions, FaultsAtTheirLines) {
  struct Case { char const* text; ErrorList errors; } cases[] = {
      {"Sub S()\n  Return 1\nEnd Sub\nFunction F() As Integer\n  Return\nEnd Function\n",
       {{34, 1}, {73, 4}}},
      {"Sub A(ByRef x As Integer = 1)\nEnd Sub\n"
       "Sub B(ParamArray Optional y As Integer)\nEnd Sub\n"
       "Sub C(ByRef ByVal z As Integer)\nEnd Sub\n"
       "Sub D(ByVal ByVal w As Integer)\nEnd Sub\n"
       "Sub E(Assigns Extends v As Integer)\nEnd Sub\n"
       "Sub F(k As Integer = \"text\")\nEnd Sub\n"
       "Sub G(ParamArray m(,) As Integer)\nEnd Sub\n",
       {{76, 0}, {77, 2}, {74, 4}, {75, 6}, {74, 8}, {10, 10}, {85, 12}}},
      {"Sub A(a As Integer, Extends b As Integer)\nEnd Sub\n"
       "Sub B(Assigns c As Integer, d As Integer)\nEnd Sub\n"
       "Sub C(ParamArray e As Integer, f As Integer)\nEnd Sub\n"
       "Sub D(ParamArray g As Integer, ParamArray h As Integer)\nEnd Sub\n"
       "Sub E(Assigns i As Integer, Assigns j As Integer)\nEnd Sub\n",
       {{80, 0}, {81, 2}, {82, 4}, {84, 6}, {83, 8}}},
      {"Sub P(a As Integer)\nEnd Sub\nSub P(b As Integer)\nEnd Sub\n", {{93, 0}, {93, 2}}},
  };
  for (auto const& c : cases) EXPECT_EQ(c.errors, CompileProgramText(c.text).errors) << c.text;
}

TEST(Functions, ParametersAndOverloads) {
  struct Case { char const* text; char const* line; int count; } cases[] = {
      {"Sub S(ParamArray xs As Integer)\n  Dim copy() As Integer = xs\nEnd Sub\n",
       "GetParam        -> S.xs As Int32()", 1},
      {"Sub S(ByRef n As Integer)\n  n = 2\nEnd Sub\n", "Poke            2 As Int32 -> S.n", 1},
      {"Sub P(a As Integer)\nEnd Sub\nSub P(a As Double)\nEnd Sub\n", "Enter           \"P%", 2},
  };
  for (auto const& c : cases) {
    CompiledProgram p = CompileProgramText(c.text);
    EXPECT_TRUE(p.errors.empty()) << p.listing;
    EXPECT_EQ(c.count, p.Count(c.line)) << p.listing;
  }
  CompiledProgram p = CompileProgramText(
      "Sub A()\n  Exit For\nEnd Sub\nSub B()\n  Dim q As Integer = 3\nEnd Sub\n");
  EXPECT_EQ(ErrorList({{104, 1}}), p.errors);
  EXPECT_EQ(1, p.Count("Store           3 As Int32 -> B.q"));
  LanguageOptions options;
  options.mLockRefCountedParameters = 0;
  options.mStackOverflowChecking = 0;
  p = CompileProgramText("Sub S(t As String)\nEnd Sub\n", options);
  EXPECT_EQ(0, p.Count("Lock"));
  EXPECT_EQ(0, p.Count("intrinsic 122"));
}

TEST(Functions, OverridesMayNarrowTheirObjectResult) {
  DeclaredProgram program(
      "Interface Named\nEnd Interface\n"
      "Class Base\n  Function Make() As Base\n  End Function\n"
      "  Function Count() As Integer\n  End Function\nEnd Class\n"
      "Class Derived\n  Inherits Base\n  Implements Named\n"
      "  Function Make() As Derived\n  End Function\n"
      "  Function Count() As String\n  End Function\nEnd Class\n");
  MethodSymbol* make = program.MemberMethods("Derived", "Make")[0];
  MethodSymbol* count = program.MemberMethods("Derived", "Count")[0];
  MethodSymbol* baseMake = program.MemberMethods("Base", "Make")[0];
  EXPECT_TRUE(CompareMethodReturnTypes(baseMake->GetReturnType(),
                                       make->GetReturnType()));
  EXPECT_FALSE(CompareMethodReturnTypes(make->GetReturnType(),
                                        baseMake->GetReturnType()));
  EXPECT_TRUE(
      CompareMethodReturnTypes(IRDataType(kObjectType), make->GetReturnType()));
  program.EnterClass("Derived");
  ValidateMethodReturnType(make, SourceLocation(11));
  EXPECT_TRUE(program.ErrorCodes().empty());
  ValidateMethodReturnType(count, SourceLocation(13));
  EXPECT_EQ(std::vector<int>({37}), program.ErrorCodes());
}

}  // namespace
