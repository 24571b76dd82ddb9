// Method bodies: the prolog, and the epilog with its exception handler;
// overrides and their result types.
#include <gtest/gtest.h>

#include "Compiler/Frontend/Functions.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "StatementTestSupport.h"

namespace {

TEST(Functions, PrologTakesParametersLastFirstAndZeroesTheLocals) {
  CompiledProgram p = CompileSource(
      "Function F(a As Integer, s As String, d As Double) As Integer\n"
      " Dim x As Integer\n Return a\nEnd Function\n");
  ASSERT_TRUE(p.errors.empty()) << p.Listing();
  std::vector<std::string> l = p.code;
  listing::Section f = p.Body("F");
  ASSERT_GE(f.enter, 0) << p.Listing();
  EXPECT_NE(std::string::npos, l[f.enter].find("table 1"));
  for (int i = 1; i <= 3; i++)  // parameters last first
    EXPECT_EQ(0u, l[f.enter + i].find(std::string("GetParam -> F.") + "dsa"[i - 1] + " "));
  EXPECT_EQ(1, p.Count("Zero -> F.Return "));
  EXPECT_EQ(1, p.Count("Zero -> F.x "));
  EXPECT_EQ(0, p.Count("Zero -> F.a "));
  EXPECT_EQ(1, p.Count("Lock F.s "));
  EXPECT_LT(p.Find("Lock"), p.Find("RuntimeCheckStack"));
  int store = p.Find("Store F.a As Int32 (stack 4) -> F.Return");
  ASSERT_GT(store, 0) << p.Listing();
  std::string jump = l[store + 1];
  std::string exit = jump.substr(jump.find("-> ") + 3);
  EXPECT_EQ(exit + ":", l[f.exit]);
  EXPECT_GT(f.exit, store);
  EXPECT_EQ(0u, l[f.end].rfind("Leave F.Return As Int32"));
}

TEST(Functions, EpilogReleasesTheLocalsOnBothPathsThenReraises) {
  CompiledProgram p = CompileSource(
      "Sub S()\n Dim t As String = \"x\"\nEnd Sub\n");
  ASSERT_TRUE(p.errors.empty()) << p.Listing();
  std::vector<std::string> l = p.code;
  auto FindStart = [&l](std::string const& text, int from) {  // a line opening with it
    for (int i = from; i < int(l.size()); i++)
      if (l[i].compare(0, text.size(), text) == 0) return i;
    return -1;
  };
  int enter = p.Find("Enter \"S");
  ASSERT_GE(enter, 0);
  int handler = FindStart("HandleException", enter);
  ASSERT_GT(handler, 0) << p.Listing();
  // The handler variable starts at zero, so that normal flow can tell.
  EXPECT_EQ(0u, l[handler - 1].find("Store 0 As Int32 -> S."))
      << l[handler - 1];
  // No label: normal flow falls through into the same release code.
  EXPECT_EQ(std::string::npos, l[handler].find("->"));
  int release = FindStart("Unlock S.t ", handler);
  int test = FindStart("IfEQI", handler);
  int reraise = p.Find("Intrinsic RuntimeReraiseException", handler);
  int leave = FindStart("Leave", handler);
  ASSERT_GT(release, handler) << p.Listing();
  EXPECT_GT(test, release);
  EXPECT_EQ(reraise, test + 2);
  EXPECT_EQ(0u, l[reraise + 1].find("Unlock"));
  EXPECT_GT(leave, reraise);
  EXPECT_EQ(1, p.Count("Unlock S.t ")) << "released once, on both paths";
}

TEST(Functions, OverridesMayNarrowTheirObjectResult) {
  DeclaredProgram program(
      "Interface Named\nEnd Interface\n"
      "Class Base\n Function Make() As Base\n End Function\n"
      " Function Count() As Integer\n End Function\nEnd Class\n"
      "Class Derived\n Inherits Base\n Implements Named\n"
      " Function Make() As Derived\n End Function\n"
      " Function Count() As String\n End Function\nEnd Class\n");
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
