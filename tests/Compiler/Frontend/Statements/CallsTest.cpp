// Overload resolution and the emitted call, on declarations of a scanned
// program.
#include <gtest/gtest.h>

#include "Compiler/Frontend/FunctionCalls.h"
#include "Compiler/Frontend/OverloadResolution.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "StatementTestSupport.h"

namespace {

char const* const kDeclarations =
    "Sub F(x As Integer)\nEnd Sub\nSub F(x As Double)\nEnd Sub\n"
    "Sub G(x As Double)\nEnd Sub\nSub G(x As Single)\nEnd Sub\n"
    "Sub H(a As Integer = 1, b As Integer = 2)\nEnd Sub\n"
    "Sub P(ParamArray xs As Integer)\nEnd Sub\n"
    "Sub R(ByRef n As Integer)\nEnd Sub\n"
    "Function Fn() As Integer\nEnd Function\n"
    "Sub Sb()\nEnd Sub\n";

MethodList Candidates(DeclaredProgram& program, char const* name) {
  MethodList list;
  list.BindNewObject(new SimpleVector<MethodSymbol*>);
  for (MethodSymbol* m : program.Methods(name)) list->push_back(m);
  return list;
}

SemBase* Args(SemBase* a, SemBase* b = nullptr) { return ConcatList(a, b); }

TEST(Calls, ExactFitBeatsAConversion) {
  DeclaredProgram program(kDeclarations);
  CompileErrorCode why = kErrorNone;
  MethodSymbol* chosen = SelectAppropriateVariant(
      Candidates(program, "F"), nullptr, program.Constant(1L),
      kProhibitFunctionResult, &why);
  ASSERT_TRUE(chosen);
  EXPECT_EQ(kSInt32Type, chosen->GetParameter(0)->GetType().GetMainType());
  chosen = SelectAppropriateVariant(Candidates(program, "F"), nullptr,
                                    program.Constant(1.5),
                                    kProhibitFunctionResult, &why);
  ASSERT_TRUE(chosen);
  EXPECT_EQ(kReal64Type, chosen->GetParameter(0)->GetType().GetMainType());
}

TEST(Calls, TwoConversionsAreAmbiguous) {
  DeclaredProgram program(kDeclarations);
  CompileErrorCode why = kErrorNone;
  EXPECT_FALSE(SelectAppropriateVariant(Candidates(program, "G"), nullptr,
                                        program.Constant(1L),
                                        kProhibitFunctionResult, &why));
  EXPECT_EQ(kErrorNoMatchingOverload, why);
  // Without a place for the reason it is reported.
  EXPECT_FALSE(SelectAppropriateVariant(Candidates(program, "G"), nullptr,
                                        program.Constant(1L),
                                        kProhibitFunctionResult, nullptr));
  EXPECT_EQ(std::vector<int>({24}), program.ErrorCodes());
}

TEST(Calls, ReasonsWhyNoVariantFits) {
  DeclaredProgram program(kDeclarations);
  MethodSymbol* fn = program.Methods("Fn")[0];
  MethodSymbol* sb = program.Methods("Sb")[0];
  MethodSymbol* h = program.Methods("H")[0];
  MethodSymbol* r = program.Methods("R")[0];
  EXPECT_EQ(
      31, IsLegalMethodVariant(fn, nullptr, nullptr, kProhibitFunctionResult));
  EXPECT_EQ(67,
            IsLegalMethodVariant(sb, nullptr, nullptr, kRequireFunctionResult));
  EXPECT_EQ(0, IsLegalMethodVariant(fn, nullptr, nullptr, kExplicitCall));
  SemBase* three = Args(program.Constant(1L),
                        Args(program.Constant(2L), program.Constant(3L)));
  EXPECT_EQ(6,
            IsLegalMethodVariant(h, nullptr, three, kProhibitFunctionResult));
  EXPECT_EQ(7,
            IsLegalMethodVariant(r, nullptr, nullptr, kProhibitFunctionResult));
  EXPECT_EQ(9, IsLegalMethodVariant(r, nullptr, program.Variable("String"),
                                    kProhibitFunctionResult));
  // A mismatch is kept over a wanted result.
  MethodList both;
  both.BindNewObject(new SimpleVector<MethodSymbol*>);
  both->push_back(fn);
  both->push_back(r);
  CompileErrorCode why = kErrorNone;
  EXPECT_FALSE(SelectAppropriateVariant(both, nullptr, nullptr,
                                        kProhibitFunctionResult, &why));
  EXPECT_EQ(kErrorNotEnoughArguments, why);
}

TEST(Calls, MissingArgumentsComeFromTheLastDefaults) {
  DeclaredProgram program(kDeclarations);
  MethodSymbol* h = program.Methods("H")[0];
  SemBase* code = CompileCall(h, nullptr, program.Constant(7L));
  std::string listing = DeclaredProgram::Listing(code);
  EXPECT_NE(std::string::npos, listing.find("PutParam        7 As Int32\n"))
      << listing;
  EXPECT_NE(std::string::npos, listing.find("PutParam        2 As Int32\n"));
  EXPECT_LT(listing.find("PutParam        7"),
            listing.find("PutParam        2"));
  EXPECT_NE(std::string::npos, listing.find("Call            \"H"));
  EXPECT_TRUE(program.ErrorCodes().empty());
}

TEST(Calls, ParamArrayTakesAnyNumberOfArguments) {
  DeclaredProgram program(kDeclarations);
  MethodSymbol* p = program.Methods("P")[0];
  EXPECT_EQ(0,
            IsLegalMethodVariant(p, nullptr, nullptr, kProhibitFunctionResult));
  SemBase* two = Args(program.Constant(1L), program.Constant(2L));
  EXPECT_EQ(0, IsLegalMethodVariant(p, nullptr, two, kProhibitFunctionResult));
  EXPECT_EQ(9, IsLegalMethodVariant(p, nullptr, program.Variable("String"),
                                    kProhibitFunctionResult));
}

TEST(Calls, ByRefWantsAVariableOfItsType) {
  DeclaredProgram program(kDeclarations);
  MethodSymbol* r = program.Methods("R")[0];
  SemBase* code = CompileCall(r, nullptr, program.Constant(3L));
  EXPECT_EQ(std::vector<int>({21}), program.ErrorCodes());
  SemBase* var = program.Variable("Integer");
  code = CompileCall(r, nullptr, var);
  std::string listing = DeclaredProgram::Listing(code);
  EXPECT_NE(std::string::npos, listing.find("Varptr")) << listing;
  EXPECT_LT(listing.find("Varptr"), listing.find("PutParam"));
  CompileCall(r, nullptr, program.Variable("Int16"));
  EXPECT_EQ(std::vector<int>({21, 2}), program.ErrorCodes());
}

TEST(Calls, FunctionResultGoesToAFreshTemporary) {
  DeclaredProgram program(kDeclarations);
  SemBase* code = CompileCall(program.Methods("Fn")[0], nullptr, nullptr);
  EXPECT_EQ(kSInt32Type, code->GetType().GetMainType());
  std::string listing = DeclaredProgram::Listing(code);
  EXPECT_NE(std::string::npos,
            listing.find("Call            \"Fn%i4%\" As String -> "))
      << listing;
}

TEST(Calls, BareValueIsNoStatement) {
  DeclaredProgram program(kDeclarations);
  SemBase* result = FilterCallTargets(program.Constant(4L));
  EXPECT_TRUE(result->Code());
  EXPECT_EQ(std::vector<int>({15}), program.ErrorCodes());
}

char const* const kClasses =
    "Interface Speaker\n  Sub Speak(n As Integer)\nEnd Interface\n"
    "Class Animal\n  Implements Speaker\n  Event Moved(d As Integer)\n"
    "  Sub Speak(n As Integer)\n  End Sub\n  Function Legs() As Integer\n"
    "  End Function\nEnd Class\n"
    "Class Dog\n  Inherits Animal\n  Function Legs() As Integer\n"
    "  End Function\nEnd Class\n"
    "Function Shout(Extends s As String, times As Integer) As String\n"
    "End Function\n";

TEST(Calls, VirtualMethodsGoThroughTheVtable) {
  DeclaredProgram program(kClasses);
  std::vector<MethodSymbol*> legs = program.MemberMethods("Animal", "Legs");
  ASSERT_EQ(1u, legs.size());
  SemBase* code =
      CompileCall(legs[0], program.VariableOfDeclared("Animal"), nullptr);
  std::string listing = DeclaredProgram::Listing(code);
  EXPECT_NE(std::string::npos, listing.find("PutParam        o")) << listing;
  EXPECT_NE(std::string::npos, listing.find("CallVirtual     "));
  EXPECT_TRUE(program.ErrorCodes().empty());
}

TEST(Calls, SubclassMethodShadowsItsParents) {
  DeclaredProgram program(kClasses);
  MethodSymbol* parent = program.MemberMethods("Animal", "Legs")[0];
  MethodSymbol* child = program.MemberMethods("Dog", "Legs")[0];
  EXPECT_TRUE(MethodShadowsInherited(child, parent));
  EXPECT_FALSE(MethodShadowsInherited(parent, child));
  MethodList both;
  both.BindNewObject(new SimpleVector<MethodSymbol*>);
  both->push_back(parent);
  both->push_back(child);
  EXPECT_EQ(child,
            SelectAppropriateVariant(both, program.VariableOfDeclared("Dog"),
                                     nullptr, kExplicitCall, nullptr));
}

TEST(Calls, InstanceMethodWithoutAnObject) {
  DeclaredProgram program(kClasses);
  MethodSymbol* legs = program.MemberMethods("Animal", "Legs")[0];
  EXPECT_EQ(11, IsLegalMethodVariant(legs, nullptr, nullptr, kExplicitCall));
}

TEST(Calls, EventWithoutAHandlerIsSkipped) {
  DeclaredProgram program(kClasses);
  std::vector<MethodSymbol*> moved = program.MemberMethods("Animal", "Moved");
  ASSERT_FALSE(moved.empty());
  MethodSymbol* event = moved.back();
  ASSERT_EQ(MethodSymbol::Event, event->GetDispatchMethod());
  SemBase* code = CompileCall(event, program.VariableOfDeclared("Animal"),
                              program.Constant(3L));
  std::string listing = DeclaredProgram::Listing(code);
  size_t table = listing.find("Peek            o");
  size_t skip = listing.find("IfEQI");
  size_t call = listing.find("CallPtr");
  ASSERT_NE(std::string::npos, table) << listing;
  EXPECT_NE(std::string::npos, listing.find(", 8 As Int32 ->", table));
  EXPECT_LT(table, skip);
  EXPECT_LT(skip, call);
  EXPECT_NE(std::string::npos,
            listing.find("PutParam        3 As Int32", skip));
}

TEST(Calls, ExtensionMethodTakesItsBaseFirst) {
  DeclaredProgram program(kClasses);
  MethodSymbol* shout = program.Methods("Shout")[0];
  ASSERT_TRUE(shout->IsExtensionMethod());
  SemBase* text = program.Variable("String");
  EXPECT_EQ(0, IsLegalMethodVariant(shout, text, program.Constant(2L),
                                    kRequireFunctionResult));
  SemBase* code = CompileCall(shout, text, program.Constant(2L));
  std::string listing = DeclaredProgram::Listing(code);
  size_t base = listing.find("PutParam        v");
  size_t count = listing.find("PutParam        2 As Int32");
  ASSERT_NE(std::string::npos, base) << listing;
  EXPECT_LT(base, count);
}

}  // namespace
