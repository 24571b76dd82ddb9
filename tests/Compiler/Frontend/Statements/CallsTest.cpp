// Overload resolution and the emitted call, on declarations of a scanned
// program.
#include <gtest/gtest.h>

#include "Compiler/Frontend/FunctionCalls.h"
#include "Compiler/Frontend/OverloadResolution.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "StatementTestSupport.h"

namespace {

const size_t npos = std::string::npos;

char const* const kDeclarations =
    "Sub F(x As Integer)\nEnd Sub\nSub F(x As Double)\nEnd Sub\n"
    "Sub G(x As Double)\nEnd Sub\nSub G(x As Single)\nEnd Sub\n"
    "Sub P(ParamArray xs As Integer)\nEnd Sub\n"
    "Sub R(ByRef n As Integer)\nEnd Sub\n"
    "Function Fn() As Integer\nEnd Function\n";

MethodList List(std::vector<MethodSymbol*> const& methods) {
  MethodList list;
  list.BindNewObject(new SimpleVector<MethodSymbol*>);
  for (MethodSymbol* m : methods) list->push_back(m);
  return list;
}

TEST(Calls, OverloadChoiceAndReasonsWhyNoVariantFits) {
  DeclaredProgram program(kDeclarations);
  CompileErrorCode why = kErrorNone;
  auto select = [&](char const* name, SemBase* args, CompileErrorCode* reason) {
    return SelectAppropriateVariant(List(program.Methods(name)), nullptr, args,
                                    kProhibitFunctionResult, reason);
  };
  EXPECT_EQ(kSInt32Type, select("F", program.Constant(1L), &why)
                             ->GetParameter(0)->GetType().GetMainType());
  EXPECT_EQ(kReal64Type, select("F", program.Constant(1.5), &why)
                             ->GetParameter(0)->GetType().GetMainType());
  EXPECT_FALSE(select("G", program.Constant(1L), &why));
  EXPECT_EQ(kErrorNoMatchingOverload, why);
  EXPECT_FALSE(select("G", program.Constant(1L), nullptr));  // then reported
  EXPECT_EQ(std::vector<int>({24}), program.ErrorCodes());
  MethodSymbol* fn = program.Methods("Fn")[0];
  MethodSymbol* r = program.Methods("R")[0];
  MethodSymbol* p = program.Methods("P")[0];
  struct Case { MethodSymbol* method; SemBase* args; FunctionResultMode mode; int reason; } cases[] = {
      {fn, nullptr, kExplicitCall, 0},
      {r, program.Variable("String"), kProhibitFunctionResult, 9},
      {p, nullptr, kProhibitFunctionResult, 0},
      {p, ConcatList(program.Constant(1L), program.Constant(2L)), kProhibitFunctionResult, 0},
      {p, program.Variable("String"), kProhibitFunctionResult, 9},
  };
  for (auto const& c : cases)
    EXPECT_EQ(c.reason, IsLegalMethodVariant(c.method, nullptr, c.args, c.mode));
  why = kErrorNone;
  EXPECT_FALSE(SelectAppropriateVariant(List({fn, r}), nullptr, nullptr,
                                        kProhibitFunctionResult, &why));
  EXPECT_EQ(kErrorNotEnoughArguments, why);
}

TEST(Calls, MethodsOfClasses) {
  DeclaredProgram program(
      "Interface Speaker\n  Sub Speak(n As Integer)\nEnd Interface\n"
      "Class Animal\n  Implements Speaker\n  Event Moved(d As Integer)\n"
      "  Sub Speak(n As Integer)\n  End Sub\n  Function Legs() As Integer\n"
      "  End Function\nEnd Class\n"
      "Class Dog\n  Inherits Animal\n  Function Legs() As Integer\n"
      "  End Function\nEnd Class\n"
      "Function Shout(Extends s As String, times As Integer) As String\n"
      "End Function\n");
  std::vector<MethodSymbol*> legs = program.MemberMethods("Animal", "Legs");
  ASSERT_EQ(1u, legs.size());
  std::string listing = DeclaredProgram::Listing(
      CompileCall(legs[0], program.VariableOfDeclared("Animal"), nullptr));
  EXPECT_NE(npos, listing.find("PutParam        o")) << listing;
  EXPECT_NE(npos, listing.find("CallVirtual     "));
  EXPECT_EQ(11, IsLegalMethodVariant(legs[0], nullptr, nullptr, kExplicitCall));
  MethodSymbol* child = program.MemberMethods("Dog", "Legs")[0];
  EXPECT_TRUE(MethodShadowsInherited(child, legs[0]));
  EXPECT_FALSE(MethodShadowsInherited(legs[0], child));
  EXPECT_EQ(child, SelectAppropriateVariant(List({legs[0], child}),
                                            program.VariableOfDeclared("Dog"),
                                            nullptr, kExplicitCall, nullptr));
  MethodSymbol* event = program.MemberMethods("Animal", "Moved").back();
  ASSERT_EQ(MethodSymbol::Event, event->GetDispatchMethod());
  listing = DeclaredProgram::Listing(
      CompileCall(event, program.VariableOfDeclared("Animal"), program.Constant(3L)));
  size_t table = listing.find("Peek            o"), skip = listing.find("IfEQI");
  ASSERT_NE(npos, table) << listing;
  EXPECT_NE(npos, listing.find(", 8 As Int32 ->", table));
  EXPECT_LT(table, skip);
  EXPECT_LT(skip, listing.find("CallPtr"));
  EXPECT_NE(npos, listing.find("PutParam        3 As Int32", skip));
  MethodSymbol* shout = program.Methods("Shout")[0];
  ASSERT_TRUE(shout->IsExtensionMethod());
  SemBase* text = program.Variable("String");
  EXPECT_EQ(0, IsLegalMethodVariant(shout, text, program.Constant(2L), kRequireFunctionResult));
  listing = DeclaredProgram::Listing(CompileCall(shout, text, program.Constant(2L)));
  ASSERT_NE(npos, listing.find("PutParam        v")) << listing;
  EXPECT_LT(listing.find("PutParam        v"), listing.find("PutParam        2 As Int32"));
  EXPECT_TRUE(program.ErrorCodes().empty());
}

}  // namespace
